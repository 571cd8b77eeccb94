#pragma once

#include "wizard/item_page_form.h"

#include <QWidget>
#include <array>
#include <functional>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QPlainTextEdit;
class QPushButton;

namespace tarvo {
class ProjectDocument;
struct CatalogueEntry;
struct EventRecord;
struct ProjectChange;
struct Workspace;
} // namespace tarvo

namespace tarvo::gui {

// A wizard page that edits one list of the event being edited, conditions or
// actions: the list with check boxes, its buttons and comment box above; the
// editor of one item below it (the kind chooser, eight argument slots, the
// description) with Add, Update, Cancel and the button that goes on. A page
// adds what only its kind has, and says how its items are loaded and stored.
// The list shows the document's changes as they come.
class ItemListPage : public QWidget
{
    Q_OBJECT
public:
    static constexpr int kSlots = kArgumentPositions;
    enum class State { Idle, Adding, Editing };

    // Refills the kind combo from the catalogue.
    void fillKindCombo();
    // Shows the list of event `eventIndex`; -1 empties the page.
    void loadEvent(int eventIndex);
    // The same event now stands at `eventIndex`: the list is shown from there,
    // and what is being typed stays.
    void eventMoved(int eventIndex);
    // Heading ("New event:", "Edit event:") and the event's name beside it.
    void setHeading(const QString& heading, const QString& name);
    // Selects a line of the list, as a click does (a place found by a tool).
    void selectLine(int line);
    State state() const { return m_state; }

Q_SIGNALS:
    void leaveRequested();
    void wizardCancelRequested();

protected:
    ItemListPage(ProjectDocument& document, KindOf kind, QWidget* parent);

    // Building, in the order the controls are made: the constructor builds
    // the heading, the list and the argument slots; the page then builds its
    // lower part with these two and wires everything with `finishBuilding`.
    QPlainTextEdit* makeDescription(QWidget* parent, int maxHeight);
    QHBoxLayout* makeButtonRow(QWidget* parent);
    void finishBuilding();

    // What the pages tell apart.
    virtual QStringList argumentItems(int kind, int slot) const = 0;
    virtual void clearExtras() { }
    virtual void showExtras(const CatalogueEntry&) { }
    // Puts the item at `line` into the shown editor.
    virtual void loadItem(int line) = 0;
    // Stores the editor as item `position` (-1: a new one); returns where.
    virtual int storeItem(int kind, int position) = 0;

    const CatalogueEntry& kindEntry(int kind) const;
    // The box an argument of the kind is typed into.
    QComboBox* boxOf(const CatalogueEntry& entry, int slot) const;
    // The event being edited, for reading; null when there is none. Changes
    // go through the document and fetch the record inside the step.
    const EventRecord* event() const;
    // One change to the event being edited, as a step of the wizard's session.
    void changeEvent(const std::function<void(EventRecord&)>& step);
    int currentLine() const;
    // The current line when it is one of the event's items, else -1.
    int selectedItem() const;
    void markBox(int slot, QComboBox* box);

    ProjectDocument& m_document;
    Workspace& m_workspace;
    const ItemPageForm m_form;
    QListWidget* m_list;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QComboBox* m_kind;
    std::array<QLabel*, kSlots> m_labels {};
    std::array<QComboBox*, kSlots> m_boxes {};
    std::array<QComboBox*, kSlots> m_wideBoxes {};

private:
    void clearEditor();
    void showKind(int kind);
    void kindChosen(int index);
    void startNew();
    void editLine();
    void store(bool isUpdate);
    void cancel();
    void leave();
    void endComposing();
    void deleteLine();
    void copyLine();
    void itemChanged(QListWidgetItem* item);
    void lineSelected();
    void updateComment();
    // Tells the document whether the box holds text its line does not.
    void notePendingText();
    void setState(State state);
    void showChange(const ProjectChange& change);
    void fillList();

    int m_eventIndex = -1;
    int m_editedLine = -1;
    State m_state = State::Idle;

    QLabel* m_heading;
    QLabel* m_name;
    QPushButton* m_new;
    QPushButton* m_edit;
    QPushButton* m_delete;
    QPushButton* m_copy;
    QPlainTextEdit* m_comment;
    QPushButton* m_commentUpdate;
    QPlainTextEdit* m_description = nullptr;
    QPushButton* m_add = nullptr;
    QPushButton* m_update = nullptr;
    QPushButton* m_cancel = nullptr;
    QPushButton* m_leave = nullptr;
};

} // namespace tarvo::gui
