#include "wizard/item_list_page.h"

#include "base/checked.h"
#include "catalogue/catalogue_loader.h"
#include "catalogue/reference_markers.h"
#include "document/project_document.h"
#include "editing/event_items.h"
#include "shell/field_text.h"
#include "ui/prompter.h"
#include "wizard/argument_box.h"
#include "wizard/list_lines.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalBlocker>

namespace tarvo::gui {

namespace {

void resetKind(QComboBox* kind)
{
    const QSignalBlocker blocker(kind);
    kind->setCurrentIndex(0);
}

} // namespace

void ItemListPage::fillKindCombo()
{
    const QSignalBlocker blocker(m_kind);
    m_kind->clear();
    m_kind->addItems(m_form.kind == KindOf::Condition
            ? conditionKindItems(m_workspace.conditionCatalogue)
            : actionKindItems(m_workspace.actionCatalogue));
    m_kind->setCurrentIndex(0);
}

void ItemListPage::loadEvent(int eventIndex)
{
    m_eventIndex = eventIndex;
    m_editedLine = -1;
    clearEditor();
    resetKind(m_kind);
    m_comment->clear();
    fillList();
    setState(State::Idle);
}

void ItemListPage::setHeading(const QString& heading, const QString& name)
{
    m_heading->setText(heading);
    m_name->setText(name);
}

void ItemListPage::selectLine(int line)
{
    if (line >= 0 && line < m_list->count())
        m_list->setCurrentRow(line);
}

const CatalogueEntry& ItemListPage::kindEntry(int kind) const
{
    if (m_form.kind == KindOf::Condition)
        return at(m_workspace.conditionCatalogue, kind, "condition kinds");
    return at(m_workspace.actionCatalogue, kind, "action kinds");
}

QComboBox* ItemListPage::boxOf(const CatalogueEntry& entry, int slot) const
{
    QComboBox* wide = m_wideBoxes.at(slot);
    return wide && at(entry.Args, slot, "arguments").UseAltBox ? wide : m_boxes.at(slot);
}

const EventRecord* ItemListPage::event() const
{
    const QList<EventRecord>& events = m_workspace.project.events;
    if (m_eventIndex < 0 || m_eventIndex >= events.size())
        return nullptr;
    return &events.at(m_eventIndex);
}

void ItemListPage::changeEvent(const std::function<void(EventRecord&)>& step)
{
    m_document.edit(QString::fromLatin1(m_form.editLabel),
        [&] { step(at(m_workspace.project.events, m_eventIndex, "events")); });
}

int ItemListPage::currentLine() const
{
    return m_list->currentRow();
}

int ItemListPage::selectedItem() const
{
    const EventRecord* current = event();
    const int line = currentLine();
    return current && line >= 0 && line < itemCount(*current, m_form.kind) ? line : -1;
}

void ItemListPage::fillList()
{
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    if (const EventRecord* current = event()) {
        for (int i = 0; i < itemCount(*current, m_form.kind); ++i) {
            const ItemLine line = tarvo::itemLine(*current, m_form.kind, i);
            addCheckLine(m_list, line.title, line.active);
        }
    }
}

// The lines the change touched are redrawn in place, so the selection stays
// where the user left it.
void ItemListPage::showChange(const ProjectChange& change)
{
    const EventRecord* current = event();
    if (m_eventIndex < 0 || (!change.events && !change.everything))
        return;
    const std::optional<LineChange> lines = m_form.kind == KindOf::Condition
        ? change.conditionLines(m_eventIndex)
        : change.actionLines(m_eventIndex);
    if (!lines || !current || lines->offset + lines->removed > m_list->count()) {
        fillList();
        return;
    }
    const QSignalBlocker blocker(m_list);
    const int offset = int(lines->offset);
    const int common = int(std::min(lines->removed, lines->inserted));
    for (int i = offset; i < offset + common; ++i) {
        const ItemLine line = tarvo::itemLine(*current, m_form.kind, i);
        m_list->item(i)->setText(line.title);
        m_list->item(i)->setCheckState(line.active ? Qt::Checked : Qt::Unchecked);
    }
    for (qsizetype i = common; i < lines->removed; ++i)
        delete m_list->takeItem(offset + common);
    for (int i = offset + common; i < offset + lines->inserted; ++i) {
        const ItemLine line = tarvo::itemLine(*current, m_form.kind, i);
        insertCheckLine(m_list, i, line.title, line.active);
    }
}

void ItemListPage::clearEditor()
{
    for (int i = 0; i < kSlots; ++i) {
        m_labels[i]->clear();
        m_labels[i]->hide();
        for (QComboBox* box : {m_boxes[i], m_wideBoxes[i]}) {
            if (!box)
                continue;
            box->hide();
            clearArgumentBox(box);
            box->setToolTip(QString());
        }
    }
    m_description->clear();
    clearExtras();
}

void ItemListPage::showKind(int kind)
{
    const CatalogueEntry& entry = kindEntry(kind);
    checkEditableKind(entry, kind, m_form.kind);
    for (int i = 0; i < entry.ArgCount && i < kSlots; ++i) {
        const ArgumentSlot& argument = at(entry.Args, i, "arguments");
        QComboBox* box = boxOf(entry, i);
        box->show();
        box->setToolTip(argument.Hint);
        fillArgumentBox(box, argumentItems(kind, i), argument.ListRef);
        m_labels[i]->setText(argument.Label);
        m_labels[i]->show();
    }
    setBoxText(m_description, entry.Description);
    showExtras(entry);
}

void ItemListPage::kindChosen(int index)
{
    clearEditor();
    if (index < 1)
        return;
    // A kind the editor cannot show stays unchosen.
    auto unchoose = qScopeGuard([this] {
        resetKind(m_kind);
        clearEditor();
        setState(m_state);
    });
    showKind(index - 1);
    unchoose.dismiss();
    m_add->setEnabled(m_state == State::Adding);
}

void ItemListPage::startNew()
{
    if (!event())
        return;
    clearEditor();
    m_editedLine = -1;
    resetKind(m_kind);
    setState(State::Adding);
    m_kind->setFocus();
}

void ItemListPage::editLine()
{
    const EventRecord* current = event();
    const int line = selectedItem();
    if (!current || line < 0 || m_state != State::Idle) {
        m_workspace.prompter.beep();
        return;
    }
    const int kind = tarvo::itemLine(*current, m_form.kind, line).kind;
    auto abandon = qScopeGuard([this] { endComposing(); });
    clearEditor();
    {
        const QSignalBlocker blocker(m_kind);
        m_kind->setCurrentIndex(kind + 1);
    }
    showKind(kind);
    loadItem(line);
    abandon.dismiss();
    m_editedLine = line;
    setState(State::Editing);
}

void ItemListPage::store(bool isUpdate)
{
    const int index = m_kind->currentIndex();
    if (!event() || index < 1 || m_state != (isUpdate ? State::Editing : State::Adding))
        return;
    const int position = storeItem(index - 1, isUpdate ? m_editedLine : -1);
    endComposing();
    m_list->setCurrentRow(m_form.selectLastLine ? m_list->count() - 1 : position);
}

void ItemListPage::cancel()
{
    if (m_state == State::Idle) {
        Q_EMIT wizardCancelRequested();
        return;
    }
    endComposing();
}

// Going on leaves an open item unstored and the editor empty.
void ItemListPage::leave()
{
    if (m_state != State::Idle)
        endComposing();
    clearEditor();
    Q_EMIT leaveRequested();
}

void ItemListPage::endComposing()
{
    clearEditor();
    resetKind(m_kind);
    m_editedLine = -1;
    setState(State::Idle);
}

void ItemListPage::deleteLine()
{
    const int line = selectedItem();
    if (line < 0) {
        m_workspace.prompter.beep();
        return;
    }
    m_comment->clear();
    changeEvent([&](EventRecord& edited) { deleteItem(edited, m_form.kind, line); });
    m_list->setCurrentRow(m_form.selectLastLine ? m_list->count() - 1 : -1);
    notePendingText();
}

void ItemListPage::copyLine()
{
    const int line = selectedItem();
    if (line < 0 || m_state != State::Idle) {
        m_workspace.prompter.beep();
        return;
    }
    int copy = -1;
    changeEvent([&](EventRecord& edited) { copy = copyItem(edited, m_form.kind, line); });
    m_list->setCurrentRow(copy);
}

void ItemListPage::itemChanged(QListWidgetItem* item)
{
    const EventRecord* current = event();
    const int line = m_list->row(item);
    if (!current || line < 0 || line >= itemCount(*current, m_form.kind))
        return;
    const bool active = item->checkState() == Qt::Checked;
    changeEvent([&](EventRecord& edited) { setItemActive(edited, m_form.kind, line, active); });
}

void ItemListPage::lineSelected()
{
    const int line = selectedItem();
    if (line < 0) {
        m_comment->clear();
        return;
    }
    setBoxText(m_comment, tarvo::itemLine(*event(), m_form.kind, line).comment);
}

void ItemListPage::updateComment()
{
    const int line = selectedItem();
    if (line < 0)
        return;
    const QString text = commentBoxText(m_comment);
    changeEvent([&](EventRecord& edited) { setItemComment(edited, m_form.kind, line, text); });
    notePendingText();
}

void ItemListPage::eventMoved(int eventIndex)
{
    m_eventIndex = eventIndex;
    const int line = m_list->currentRow();
    fillList();
    const QSignalBlocker blocker(m_list);
    m_list->setCurrentRow(line);
    notePendingText();
}

void ItemListPage::notePendingText()
{
    const int line = selectedItem();
    const QString box = m_comment->objectName();
    const QString text = commentBoxText(m_comment);
    if (line < 0 || text == tarvo::itemLine(*event(), m_form.kind, line).comment) {
        m_document.clearPendingText(box);
        return;
    }
    m_document.setPendingText(
        box, [event = m_eventIndex, which = m_form.kind, line, text](Project& project) {
            storePendingComment(project, event, which, line, text);
        });
}

void ItemListPage::setState(State state)
{
    m_state = state;
    const bool hasEvent = event() != nullptr;
    const bool idle = state == State::Idle && hasEvent;
    for (QPushButton* button : {m_new, m_edit, m_delete, m_copy, m_up, m_down, m_commentUpdate}) {
        if (button)
            button->setEnabled(idle);
    }
    m_list->setEnabled(idle);
    m_leave->setEnabled(idle || (hasEvent && m_form.leaveWhileComposing));
    m_kind->setEnabled(state == State::Adding);
    m_add->setEnabled(state == State::Adding && m_kind->currentIndex() >= 1);
    m_update->setEnabled(state == State::Editing);
    m_cancel->setEnabled(hasEvent);
}

void ItemListPage::markBox(int slot, QComboBox* box)
{
    const int index = m_kind->currentIndex();
    const qsizetype kinds = m_form.kind == KindOf::Condition ? m_workspace.conditionCatalogue.size()
                                                             : m_workspace.actionCatalogue.size();
    if (index < 1 || index > kinds)
        return;
    const CatalogueEntry& entry = kindEntry(index - 1);
    if (slot >= entry.Args.size())
        return;
    markArgumentBox(box,
        referenceBoxNamesItem(m_workspace.project.tables, entry.Args.at(slot).ListRef,
            box->currentText(), m_workspace.prompter));
}

} // namespace tarvo::gui
