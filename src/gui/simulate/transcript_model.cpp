#include "simulate/transcript_model.h"

#include "simulate/dry_run_model.h"

#include <QBrush>
#include <QFont>

namespace tarvo::gui {

using simulate::TranscriptEntry;

TranscriptModel::TranscriptModel(QObject* parent)
    : QAbstractListModel(parent)
{
}

void TranscriptModel::reset(std::shared_ptr<const simulate::DryRunModel> model)
{
    beginResetModel();
    m_model = std::move(model);
    m_entries.clear();
    m_dropped = 0;
    endResetModel();
}

void TranscriptModel::append(const std::vector<TranscriptEntry>& entries)
{
    const size_t room = kKept - qMin<size_t>(kKept, m_entries.size());
    const size_t taken = qMin(room, entries.size());
    m_dropped += int(entries.size() - taken);
    if (taken == 0)
        return;
    beginInsertRows({}, int(m_entries.size()), int(m_entries.size() + taken) - 1);
    m_entries.insert(m_entries.end(), entries.begin(), entries.begin() + qsizetype(taken));
    endInsertRows();
}

int TranscriptModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_entries.size());
}

QVariant TranscriptModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || size_t(index.row()) >= m_entries.size() || !m_model)
        return {};
    const TranscriptEntry& entry = m_entries[size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return simulate::entryText(entry, *m_model);
    case EventRole:
        return entry.event >= 0 && entry.what <= TranscriptEntry::What::Skipped ? entry.event
            : entry.by >= 0                                                     ? entry.by
                                                                                : entry.event;
    case Qt::ForegroundRole:
        if (entry.what == TranscriptEntry::What::Skipped
            || entry.what == TranscriptEntry::What::Call)
            return QBrush(Qt::darkGray);
        if (entry.what == TranscriptEntry::What::End || entry.what == TranscriptEntry::What::Stop)
            return QBrush(Qt::darkRed);
        return {};
    case Qt::FontRole:
        if (entry.what == TranscriptEntry::What::Fired
            || entry.what == TranscriptEntry::What::End) {
            QFont font;
            font.setBold(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

} // namespace tarvo::gui
