#include "wizard/action_page.h"

#include "catalogue/catalogue_loader.h"
#include "catalogue/project_lists.h"
#include "catalogue/reference_markers.h"
#include "editing/action_ops.h"
#include "editing/editor_kinds.h"
#include "base/checked.h"
#include "document/project_document.h"
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

void ActionPage::fillKindCombo()
{
    const QSignalBlocker blocker(m_kind);
    m_kind->clear();
    m_kind->addItems(actionKindItems(m_workspace.actionCatalogue));
    m_kind->setCurrentIndex(0);
}

void ActionPage::loadEvent(int eventIndex)
{
    m_eventIndex = eventIndex;
    ClearActionArgs();
    m_comment->clear();
    FillActionList();
    setState(State::Idle);
}

void ActionPage::selectLine(int line)
{
    if (line >= 0 && line < m_list4->count())
        m_list4->setCurrentRow(line);
}

void ActionPage::setHeading(const QString& heading, const QString& name)
{
    m_heading->setText(heading);
    m_name->setText(name);
}

const EventRecord* ActionPage::event() const
{
    const QList<EventRecord>& events = m_workspace.project.events;
    if (m_eventIndex < 0 || m_eventIndex >= events.size())
        return nullptr;
    return &events.at(m_eventIndex);
}

// One change to the actions of the event being edited, as a step of the
// wizard's session.
template <typename Change> void ActionPage::change(Change&& change)
{
    m_document.edit(QStringLiteral("Edit Actions"),
        [&] { change(at(m_workspace.project.events, m_eventIndex, "events")); });
}

QComboBox* ActionPage::boxOf(int kind, int position) const
{
    const CatalogueEntry& entry = at(m_workspace.actionCatalogue, kind, "action kinds");
    const ArgumentSlot& argument = at(entry.Args, position, "arguments");
    return argument.UseAltBox ? m_combo10.at(position) : m_combo6.at(position);
}

void ActionPage::ClearActionArgs()
{
    for (int i = 0; i < kPositions; ++i) {
        m_label13[i]->clear();
        m_label13[i]->hide();
        for (QComboBox* box : {m_combo6[i], m_combo10[i]}) {
            box->hide();
            clearArgumentBox(box);
            box->setToolTip(QString());
        }
    }
    m_description->clear();
}

void ActionPage::ShowActionArgs(int kind)
{
    const CatalogueEntry& entry = at(m_workspace.actionCatalogue, kind, "action kinds");
    checkEditableKind(entry, kind, KindOf::Action);
    for (int i = 0; i < entry.ArgCount && i < kPositions; ++i) {
        const ArgumentSlot& argument = at(entry.Args, i, "arguments");
        QComboBox* box = boxOf(kind, i);
        box->show();
        box->setToolTip(argument.Hint);
        FillActionArgBox(kind, i);
        m_label13[i]->setText(argument.Label);
        m_label13[i]->show();
    }
    setBoxText(m_description, entry.Description);
}

void ActionPage::FillActionArgBox(int kind, int position)
{
    const ArgumentSlot& argument
        = at(at(m_workspace.actionCatalogue, kind, "action kinds").Args, position, "arguments");
    if (argument.ListRef == -1)
        return;
    // Events and timers change while the wizard runs elsewhere; their rows are
    // brought up to date before they are offered.
    m_document.edit(QStringLiteral("Edit Actions"), [this] {
        refreshTimerRow(m_workspace.project);
        refreshEventRow(m_workspace.project);
    });
    const ReferenceList& list = referenceRow(m_workspace.project.tables, argument.ListRef);
    fillArgumentBox(boxOf(kind, position), list.Texts.mid(0, list.ItemCount), argument.ListRef);
}

void ActionPage::FillActionList()
{
    const QSignalBlocker blocker(m_list4);
    m_list4->clear();
    if (const EventRecord* current = event()) {
        for (int i = 0; i < heldCount(current->actionCount, current->actions); ++i) {
            const ActionRecord& action = current->actions.at(i);
            addCheckLine(m_list4, action.Title, !action.inactive);
        }
    }
}

void ActionPage::setState(State state)
{
    m_state = state;
    const bool hasEvent = event() != nullptr;
    const bool idle = state == State::Idle && hasEvent;
    for (QPushButton* button :
        {m_new, m_edit, m_delete, m_copy, m_up, m_down, m_commentUpdate, m_done})
        button->setEnabled(idle);
    m_list4->setEnabled(idle);
    m_kind->setEnabled(state == State::Adding);
    m_add->setEnabled(state == State::Adding && m_kind->currentIndex() >= 1);
    m_update->setEnabled(state == State::Editing);
    m_cancel->setEnabled(hasEvent);
}

void ActionPage::NewActionMode()
{
    {
        const QSignalBlocker blocker(m_kind);
        m_kind->setCurrentIndex(0);
    }
    setState(State::Adding);
    m_kind->setFocus();
}

void ActionPage::EditActionMode(int position)
{
    const EventRecord* current = event();
    const ActionRecord& action = at(current->actions, position, "actions");
    {
        const QSignalBlocker blocker(m_kind);
        m_kind->setCurrentIndex(action.Kind + 1);
    }
    ClearActionArgs();
    ShowActionArgs(action.Kind);
    setState(State::Editing);
}

void ActionPage::EndNewMode()
{
    const QSignalBlocker blocker(m_kind);
    m_kind->setCurrentIndex(0);
    setState(State::Idle);
}

void ActionPage::EndEditMode()
{
    {
        const QSignalBlocker blocker(m_kind);
        m_kind->setCurrentIndex(0);
    }
    ClearActionArgs();
    setState(State::Idle);
}

void ActionPage::kindChosen(int index)
{
    ClearActionArgs();
    if (index < 1)
        return;
    // A kind the editor cannot show stays unchosen.
    auto unchoose = qScopeGuard([this] {
        const QSignalBlocker blocker(m_kind);
        m_kind->setCurrentIndex(0);
        ClearActionArgs();
        setState(m_state);
    });
    ShowActionArgs(index - 1);
    unchoose.dismiss();
    m_add->setEnabled(m_state == State::Adding);
}

void ActionPage::add()
{
    const EventRecord* current = event();
    const int index = m_kind->currentIndex();
    if (!current || m_state != State::Adding || index < 1)
        return;
    StoreAction(index - 1, current->actionCount, false);
    EndNewMode();
}

void ActionPage::edit()
{
    const EventRecord* current = event();
    const int line = m_list4->currentRow();
    if (!current || line < 0 || line >= current->actionCount || m_state == State::Editing) {
        m_workspace.prompter.beep();
        return;
    }
    auto abandon = qScopeGuard([this] { EndEditMode(); });
    EditActionMode(line);
    const ActionRecord& action = current->actions.at(line);
    const QStringList texts = actionArgumentTexts(m_workspace, action);
    for (int i = 0; i < texts.size() && i < kPositions; ++i) {
        QComboBox* box = boxOf(action.Kind, i);
        setBoxText(box, texts.at(i));
        markArgumentBox(box, false);
        if (box == m_combo10[i])
            box->setToolTip(texts.at(i));
    }
    abandon.dismiss();
}

void ActionPage::update()
{
    const int line = m_list4->currentRow();
    if (!event() || m_state != State::Editing || line < 0 || m_kind->currentIndex() < 1)
        return;
    StoreAction(m_kind->currentIndex() - 1, line, true);
    EndEditMode();
}

void ActionPage::cancel()
{
    if (m_state == State::Adding)
        EndNewMode();
    else if (m_state == State::Editing)
        EndEditMode();
    else {
        Q_EMIT wizardCancelRequested();
        return;
    }
    ClearActionArgs();
}

void ActionPage::StoreAction(int kind, int position, bool isUpdate)
{
    QStringList texts;
    const CatalogueEntry& entry = at(m_workspace.actionCatalogue, kind, "action kinds");
    for (int i = 0; i < entry.ArgCount && i < kPositions; ++i)
        texts.append(boxOf(kind, i)->currentText());
    change([&](EventRecord& current) {
        tarvo::StoreAction(m_workspace, current, kind, position, isUpdate, texts);
    });
    const ActionRecord& action = event()->actions.at(position);
    if (isUpdate) {
        const QSignalBlocker blocker(m_list4);
        m_list4->item(position)->setText(action.Title);
        m_list4->item(position)->setCheckState(action.inactive ? Qt::Unchecked : Qt::Checked);
    } else {
        addCheckLine(m_list4, action.Title, !action.inactive);
    }
    m_list4->setCurrentRow(m_list4->count() - 1);
    ClearActionArgs();
}

void ActionPage::remove()
{
    const EventRecord* current = event();
    const int line = m_list4->currentRow();
    if (!current || line < 0 || line >= current->actionCount) {
        m_workspace.prompter.beep();
        return;
    }
    m_comment->clear();
    change([&](EventRecord& edited) { DeleteAction(edited, line); });
    {
        const QSignalBlocker blocker(m_list4);
        delete m_list4->takeItem(line);
    }
    m_list4->setCurrentRow(m_list4->count() - 1);
    setState(State::Idle);
}

void ActionPage::copy()
{
    const EventRecord* current = event();
    const int line = m_list4->currentRow();
    if (!current || line < 0 || line >= current->actionCount || m_state == State::Editing) {
        m_workspace.prompter.beep();
        return;
    }
    int copy = -1;
    change([&](EventRecord& edited) { copy = CopyAction(edited, line); });
    addCheckLine(m_list4, m_list4->item(line)->text(), !event()->actions.at(copy).inactive);
    m_list4->setCurrentRow(copy);
}

void ActionPage::move(int direction)
{
    const int line = m_list4->currentRow();
    if (!event() || line < 0 || m_state == State::Editing) {
        m_workspace.prompter.beep();
        return;
    }
    bool moved = false;
    change([&](EventRecord& edited) {
        moved = direction < 0 ? MoveActionUp(edited, line) : MoveActionDown(edited, line);
    });
    if (!moved) {
        m_workspace.prompter.beep();
        return;
    }
    FillActionList();
    m_list4->setCurrentRow(line + direction);
}

void ActionPage::itemChanged(QListWidgetItem* item)
{
    const EventRecord* current = event();
    const int line = m_list4->row(item);
    if (!current || line < 0 || line >= current->actionCount)
        return;
    const bool active = item->checkState() == Qt::Checked;
    change([&](EventRecord& edited) { setActionActive(edited, line, active); });
}

void ActionPage::lineSelected()
{
    const EventRecord* current = event();
    const int line = m_list4->currentRow();
    if (!current || line < 0 || line >= current->actionCount) {
        m_comment->clear();
        return;
    }
    setBoxText(m_comment, at(current->actions, line, "actions").comment);
}

void ActionPage::updateComment()
{
    const EventRecord* current = event();
    const int line = m_list4->currentRow();
    if (!current || line < 0 || line >= current->actionCount)
        return;
    const QString text = commentBoxText(m_comment);
    change([&](EventRecord& edited) { at(edited.actions, line, "actions").comment = text; });
    notePendingText();
}

void ActionPage::notePendingText()
{
    const EventRecord* current = event();
    const int line = m_list4->currentRow();
    const QString box = m_comment->objectName();
    const QString text = commentBoxText(m_comment);
    if (!current || line < 0 || line >= current->actionCount || line >= current->actions.size()
        || text == current->actions.at(line).comment) {
        m_document.clearPendingText(box);
        return;
    }
    m_document.setPendingText(box, [event = m_eventIndex, line, text](Project& project) {
        if (event >= 0 && event < project.events.size()
            && line < project.events[event].actions.size())
            project.events[event].actions[line].comment = text;
    });
}

void ActionPage::markBox(int position, QComboBox* box)
{
    const int index = m_kind->currentIndex();
    if (index < 1 || index > m_workspace.actionCatalogue.size())
        return;
    const CatalogueEntry& entry = at(m_workspace.actionCatalogue, index - 1, "action kinds");
    if (position >= entry.Args.size())
        return;
    markArgumentBox(box,
        referenceBoxNamesItem(m_workspace.project.tables, entry.Args.at(position).ListRef,
            box->currentText(), m_workspace.prompter));
}

} // namespace tarvo::gui
