#pragma once

#include <QWidget>
#include <array>

class QComboBox;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QPlainTextEdit;
class QPushButton;

namespace tarvo {
class ProjectDocument;
struct EventRecord;
struct Workspace;
} // namespace tarvo

namespace tarvo::gui {

// Page 3 of the wizard: the actions of the event being edited and the editor
// of one action. Each of the eight argument positions has a short box and an
// alternative wide box for long texts; the kind says which one an argument
// uses.
class ActionPage : public QWidget
{
    Q_OBJECT
public:
    static constexpr int kPositions = 8;
    enum class State { Idle, Adding, Editing };

    explicit ActionPage(ProjectDocument& document, QWidget* parent = nullptr);

    void fillKindCombo();
    // Shows the actions of event `eventIndex`; -1 empties the page.
    void loadEvent(int eventIndex);
    State state() const { return m_state; }
    // The wizard's heading and the event's name, as on the other pages.
    void setHeading(const QString& heading, const QString& name);

    // The operations behind the buttons.
    void ClearActionArgs();
    void ShowActionArgs(int kind);
    void FillActionList();

    // Selects a line of the list, as a click does (a place found by a tool).
    void selectLine(int line);

Q_SIGNALS:
    void doneRequested();
    void wizardCancelRequested();

private:
    // The event being edited, for reading; null when there is none. Changes
    // go through the document and fetch the record inside the step.
    const EventRecord* event() const;
    template <typename Change> void change(Change&& change);
    QComboBox* boxOf(int kind, int position) const;
    void FillActionArgBox(int kind, int position);
    void NewActionMode();
    void EditActionMode(int position);
    void EndNewMode();
    void EndEditMode();
    void setState(State state);
    void kindChosen(int index);
    void add();
    void edit();
    void update();
    void cancel();
    void remove();
    void copy();
    void move(int direction);
    void StoreAction(int kind, int position, bool isUpdate);
    void itemChanged(QListWidgetItem* item);
    void lineSelected();
    void updateComment();
    // Tells the document whether the box holds text its line does not.
    void notePendingText();
    void markBox(int position, QComboBox* box);

    ProjectDocument& m_document;
    Workspace& m_workspace;
    int m_eventIndex = -1;
    State m_state = State::Idle;

    QLabel* m_heading;
    QLabel* m_name;
    QListWidget* m_list4;
    QPushButton* m_new;
    QPushButton* m_edit;
    QPushButton* m_delete;
    QPushButton* m_copy;
    QPushButton* m_up;
    QPushButton* m_down;
    QPlainTextEdit* m_comment;
    QPushButton* m_commentUpdate;
    QComboBox* m_kind;
    std::array<QLabel*, kPositions> m_label13 {};
    std::array<QComboBox*, kPositions> m_combo6 {};
    std::array<QComboBox*, kPositions> m_combo10 {};
    QPlainTextEdit* m_description;
    QPushButton* m_add;
    QPushButton* m_update;
    QPushButton* m_cancel;
    QPushButton* m_done;
};

} // namespace tarvo::gui
