#pragma once

#include "simulate/transcript.h"

#include <QAbstractListModel>
#include <memory>

namespace tarvo::simulate {
struct DryRunModel;
}

namespace tarvo::gui {

// The dry run's transcript as lines for a list view. Entries come in batches
// while the run goes on; the texts are made when a line is shown, so a long
// run costs memory for its entries only. Past `kKept` entries the rest are
// counted, not kept.
class TranscriptModel : public QAbstractListModel
{
    Q_OBJECT
public:
    static constexpr int kKept = 500000;
    // The event behind a line (the one that fired, or that did it).
    static constexpr int EventRole = Qt::UserRole + 1;

    explicit TranscriptModel(QObject* parent = nullptr);

    void reset(std::shared_ptr<const simulate::DryRunModel> model);
    void append(const std::vector<simulate::TranscriptEntry>& entries);
    int dropped() const { return m_dropped; }
    const simulate::TranscriptEntry& entry(int row) const { return m_entries[size_t(row)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    std::shared_ptr<const simulate::DryRunModel> m_model;
    std::vector<simulate::TranscriptEntry> m_entries;
    int m_dropped = 0;
};

} // namespace tarvo::gui
