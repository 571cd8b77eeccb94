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

// Page 2 of the wizard: the conditions of the event being edited and the
// editor of one condition (kind, eight argument slots, operator and value or
// negation).
class ConditionPage : public QWidget
{
    Q_OBJECT
public:
    static constexpr int kSlots = 8;

    explicit ConditionPage(ProjectDocument& document, QWidget* parent = nullptr);

    // Refills the kind combo from the condition catalogue.
    void fillKindCombo();
    // Shows the conditions of event `eventIndex`; -1 empties the page.
    void loadEvent(int eventIndex);
    // Heading ("New event:", "Edit event:") and the event's name beside it.
    void setHeading(const QString& heading, const QString& name);

    bool isAdding() const { return m_adding; }
    bool isUpdating() const { return m_updating; }

    // Selects a line of the list, as a click does (a place found by a tool).
    void selectLine(int line);

Q_SIGNALS:
    void nextRequested();
    void wizardCancelRequested();

private:
    // The event being edited, for reading; null when there is none. Changes
    // go through the document and fetch the record inside the step.
    const EventRecord* event() const;
    template <typename Change> void change(Change&& change);
    void clearEditor();
    void showKind(int kind);
    void kindChosen(int index);
    void newCondition();
    void editCondition();
    void deleteCondition();
    void copyCondition();
    void storeCondition(bool isUpdate);
    void cancel();
    void endComposing();
    void itemChanged(QListWidgetItem* item);
    void lineSelected();
    void updateComment();
    // Tells the document whether the box holds text its line does not.
    void notePendingText();
    void setIdle();
    void setComposing(bool updating);
    void addLine(const QString& text);
    void markSlot(int slot);
    void markValue();

    ProjectDocument& m_document;
    Workspace& m_workspace;
    int m_eventIndex = -1;
    int m_editedCondition = -1;
    bool m_adding = false;
    bool m_updating = false;

    QLabel* m_heading;
    QLabel* m_name;
    QListWidget* m_list2;
    QPushButton* m_new;
    QPushButton* m_edit;
    QPushButton* m_delete;
    QPushButton* m_copy;
    QPlainTextEdit* m_comment;
    QPushButton* m_commentUpdate;
    QComboBox* m_kind;
    std::array<QLabel*, kSlots> m_label4 {};
    std::array<QComboBox*, kSlots> m_combo3 {};
    QComboBox* m_operator;
    QComboBox* m_negation;
    QComboBox* m_value;
    QPlainTextEdit* m_description;
    QPushButton* m_add;
    QPushButton* m_update;
    QPushButton* m_cancel;
    QPushButton* m_next;
};

} // namespace tarvo::gui
