#pragma once

#include "catalogue/trigger_ops.h"
#include "catalogue/trigger_tables.h"

#include <QWidget>
#include <array>

class QButtonGroup;
class QComboBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace tarvo {
class ProjectDocument;
struct Workspace;
} // namespace tarvo

namespace tarvo::gui {

// Page 1 of the wizard: one option button per trigger kind with the kind's
// two argument boxes. Events and timers share it; the wizard says which
// buttons apply (Next in the event wizard, Finish for a timer).
class TriggerPage : public QWidget
{
    Q_OBJECT
public:
    explicit TriggerPage(ProjectDocument& document, QWidget* parent = nullptr);

    // Remembers the kind, empties every argument box and enables only the
    // chosen kind's boxes; -1 disables every option as well.
    void SelectTriggerKind(int kind);
    // Refills each kind's two boxes with the items of its argument types.
    void FillTriggerChoices();

    int selectedKind() const { return m_selectedKind; }
    // The chosen kind with its two boxes in stored form.
    StoredTrigger currentTrigger() const;
    // Selects the trigger's kind and shows its arguments in display form.
    void loadTrigger(const StoredTrigger& trigger);

    // Heading ("New event:", "Edit event:") and the record's name beside it.
    void setHeading(const QString& heading, const QString& name);
    // Next for the event wizard, Finish for timer editing.
    void setTimerEditing(bool timerEditing);

Q_SIGNALS:
    // The chosen kind or an argument text changed (nothing is stored yet).
    void edited();
    void nextRequested();
    void finishRequested();
    void cancelRequested();

private:
    QComboBox* firstBox(int kind) const { return m_combo8[kind]; }
    void markBox(QComboBox* box, int type);
    void enterPressed();

    Workspace& m_workspace;
    int m_selectedKind = -1;
    bool m_timerEditing = false;
    QLabel* m_heading;
    QLabel* m_name;
    QButtonGroup* m_options;
    std::array<QRadioButton*, kTriggerOptionCount> m_option1 {};
    std::array<QLabel*, kTriggerOptionCount> m_label5 {};
    std::array<QComboBox*, kTriggerOptionCount> m_combo8 {};
    std::array<QLabel*, kTriggerOptionCount> m_label9 {};
    std::array<QComboBox*, kTriggerOptionCount> m_combo9 {};
    QPushButton* m_next;
    QPushButton* m_cancel;
    QPushButton* m_finish;
};

} // namespace tarvo::gui
