#include "wizard/condition_page.h"

#include "catalogue/catalogue_loader.h"
#include "catalogue/reference_markers.h"
#include "editing/condition_ops.h"
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

void ConditionPage::fillKindCombo()
{
    const QSignalBlocker blocker(m_kind);
    m_kind->clear();
    m_kind->addItems(conditionKindItems(m_workspace.conditionCatalogue));
    m_kind->setCurrentIndex(0);
}

void ConditionPage::loadEvent(int eventIndex)
{
    m_eventIndex = eventIndex;
    m_editedCondition = -1;
    m_adding = false;
    m_updating = false;
    clearEditor();
    {
        const QSignalBlocker blocker(m_kind);
        m_kind->setCurrentIndex(0);
    }
    m_comment->clear();
    const QSignalBlocker blocker(m_list2);
    m_list2->clear();
    if (const EventRecord* current = event()) {
        for (int i = 0; i < heldCount(current->conditionCount, current->conditions); ++i) {
            const ConditionRecord& condition = current->conditions.at(i);
            addCheckLine(m_list2, condition.Title, !condition.inactive);
        }
    }
    setIdle();
}

void ConditionPage::selectLine(int line)
{
    if (line >= 0 && line < m_list2->count())
        m_list2->setCurrentRow(line);
}

void ConditionPage::setHeading(const QString& heading, const QString& name)
{
    m_heading->setText(heading);
    m_name->setText(name);
}

const EventRecord* ConditionPage::event() const
{
    const QList<EventRecord>& events = m_workspace.project.events;
    if (m_eventIndex < 0 || m_eventIndex >= events.size())
        return nullptr;
    return &events.at(m_eventIndex);
}

// One change to the conditions of the event being edited, as a step of the
// wizard's session.
template <typename Change> void ConditionPage::change(Change&& change)
{
    m_document.edit(QStringLiteral("Edit Conditions"),
        [&] { change(at(m_workspace.project.events, m_eventIndex, "events")); });
}

void ConditionPage::clearEditor()
{
    for (int i = 0; i < kSlots; ++i) {
        m_label4[i]->hide();
        m_label4[i]->clear();
        m_combo3[i]->hide();
        clearArgumentBox(m_combo3[i]);
    }
    m_description->clear();
    m_operator->setCurrentIndex(0);
    clearArgumentBox(m_value);
    m_negation->setCurrentIndex(0);
    m_value->hide();
    m_negation->hide();
    m_operator->hide();
}

void ConditionPage::showKind(int kind)
{
    const CatalogueEntry& entry = at(m_workspace.conditionCatalogue, kind, "condition kinds");
    checkEditableKind(entry, kind, KindOf::Condition);
    const ReferenceListTable& table = m_workspace.project.tables;
    for (int i = 0; i < entry.ArgCount && i < kSlots; ++i) {
        const ArgumentSlot& argument = at(entry.Args, i, "arguments");
        m_combo3[i]->show();
        fillArgumentBox(m_combo3[i], comboItemsFromList(table, argument.ListRef), argument.ListRef);
        m_combo3[i]->setToolTip(argument.Hint);
        m_label4[i]->setText(argument.Label);
        m_label4[i]->show();
    }
    if (entry.ResultB != -1) {
        const ReferenceList& list = referenceRow(table, entry.ResultB);
        fillArgumentBox(m_value, list.Texts.mid(0, list.ItemCount), entry.ResultB);
    }
    setBoxText(m_description, entry.Description);
    if (entry.ResultA == 0) {
        m_operator->show();
        m_value->show();
    } else if (entry.ResultA == 1) {
        m_negation->show();
    }
}

void ConditionPage::kindChosen(int index)
{
    clearEditor();
    if (index < 1)
        return;
    // A kind the editor cannot show stays unchosen.
    auto unchoose = qScopeGuard([this] {
        const QSignalBlocker blocker(m_kind);
        m_kind->setCurrentIndex(0);
        clearEditor();
    });
    showKind(index - 1);
    unchoose.dismiss();
    m_add->setEnabled(m_adding);
}

void ConditionPage::newCondition()
{
    if (!event())
        return;
    clearEditor();
    m_adding = true;
    m_editedCondition = -1;
    {
        const QSignalBlocker blocker(m_kind);
        m_kind->setCurrentIndex(0);
    }
    setComposing(false);
    m_kind->setFocus();
}

void ConditionPage::editCondition()
{
    const EventRecord* current = event();
    const int line = m_list2->currentRow();
    if (!current || line < 0 || m_adding || m_updating) {
        m_workspace.prompter.beep();
        return;
    }
    const ConditionInput input
        = conditionInputOf(m_workspace, at(current->conditions, line, "conditions"));
    auto abandon = qScopeGuard([this] { endComposing(); });
    clearEditor();
    {
        const QSignalBlocker blocker(m_kind);
        m_kind->setCurrentIndex(input.kind + 1);
    }
    showKind(input.kind);
    for (int i = 0; i < input.argumentTexts.size() && i < kSlots; ++i)
        m_combo3[i]->setEditText(input.argumentTexts.at(i));
    m_operator->setCurrentIndex(input.operatorIndex);
    m_negation->setCurrentIndex(input.negation);
    m_value->setEditText(input.comparedText);
    abandon.dismiss();
    m_editedCondition = line;
    m_updating = true;
    setComposing(true);
}

void ConditionPage::deleteCondition()
{
    const int line = m_list2->currentRow();
    if (!event() || line < 0) {
        m_workspace.prompter.beep();
        return;
    }
    change([&](EventRecord& current) { DeleteCondition(current, line); });
    const QSignalBlocker blocker(m_list2);
    delete m_list2->takeItem(line);
    m_list2->setCurrentRow(-1);
    m_comment->clear();
}

void ConditionPage::copyCondition()
{
    const int line = m_list2->currentRow();
    if (!event() || line < 0) {
        m_workspace.prompter.beep();
        return;
    }
    int copy = -1;
    change([&](EventRecord& current) { copy = CopyCondition(current, line); });
    addCheckLine(m_list2, m_list2->item(line)->text(), !event()->conditions.at(copy).inactive);
    m_list2->setCurrentRow(copy);
}

void ConditionPage::storeCondition(bool isUpdate)
{
    const int index = m_kind->currentIndex();
    if (!event() || index < 1 || (isUpdate ? !m_updating : !m_adding))
        return;
    ConditionInput input;
    input.kind = index - 1;
    for (int i = 0; i < kSlots; ++i)
        input.argumentTexts.append(m_combo3[i]->currentText());
    input.operatorIndex = m_operator->currentIndex();
    input.comparedText = m_value->currentText();
    input.negation = m_negation->currentIndex();
    int position = -1;
    change([&](EventRecord& current) {
        position = StoreCondition(m_workspace, current, isUpdate ? m_editedCondition : -1, input);
    });
    const QString title = event()->conditions.at(position).Title;
    if (isUpdate) {
        const QSignalBlocker blocker(m_list2);
        m_list2->item(position)->setText(title);
        m_list2->item(position)->setCheckState(Qt::Checked);
    } else {
        addCheckLine(m_list2, title, true);
    }
    endComposing();
    m_list2->setCurrentRow(position);
}

void ConditionPage::cancel()
{
    if (!m_adding && !m_updating) {
        Q_EMIT wizardCancelRequested();
        return;
    }
    endComposing();
}

void ConditionPage::endComposing()
{
    clearEditor();
    {
        const QSignalBlocker blocker(m_kind);
        m_kind->setCurrentIndex(0);
    }
    m_editedCondition = -1;
    m_adding = false;
    m_updating = false;
    setIdle();
}

void ConditionPage::itemChanged(QListWidgetItem* item)
{
    const EventRecord* current = event();
    const int line = m_list2->row(item);
    if (!current || line < 0 || line >= current->conditionCount)
        return;
    const bool active = item->checkState() == Qt::Checked;
    change([&](EventRecord& edited) { setConditionActive(edited, line, active); });
}

void ConditionPage::lineSelected()
{
    const EventRecord* current = event();
    const int line = m_list2->currentRow();
    if (!current || line < 0 || line >= current->conditionCount) {
        m_comment->clear();
        return;
    }
    setBoxText(m_comment, at(current->conditions, line, "conditions").comment);
}

void ConditionPage::updateComment()
{
    const EventRecord* current = event();
    const int line = m_list2->currentRow();
    if (!current || line < 0 || line >= current->conditionCount)
        return;
    const QString text = commentBoxText(m_comment);
    change([&](EventRecord& edited) { at(edited.conditions, line, "conditions").comment = text; });
    notePendingText();
}

void ConditionPage::notePendingText()
{
    const EventRecord* current = event();
    const int line = m_list2->currentRow();
    const QString box = m_comment->objectName();
    const QString text = commentBoxText(m_comment);
    if (!current || line < 0 || line >= current->conditionCount
        || line >= current->conditions.size() || text == current->conditions.at(line).comment) {
        m_document.clearPendingText(box);
        return;
    }
    m_document.setPendingText(box, [event = m_eventIndex, line, text](Project& project) {
        if (event >= 0 && event < project.events.size()
            && line < project.events[event].conditions.size())
            project.events[event].conditions[line].comment = text;
    });
}

void ConditionPage::setIdle()
{
    const bool hasEvent = event() != nullptr;
    m_list2->setEnabled(hasEvent);
    for (QPushButton* button : {m_new, m_edit, m_delete, m_copy, m_commentUpdate, m_next, m_cancel})
        button->setEnabled(hasEvent);
    m_kind->setEnabled(false);
    m_add->setEnabled(false);
    m_update->setEnabled(false);
}

void ConditionPage::setComposing(bool updating)
{
    m_list2->setEnabled(false);
    // "Ne&xt >>" stays on: it leaves the open condition unstored.
    for (QPushButton* button : {m_new, m_edit, m_delete, m_copy, m_commentUpdate})
        button->setEnabled(false);
    // An open condition keeps its kind; a new one is picked here.
    m_kind->setEnabled(!updating);
    m_add->setEnabled(false);
    m_update->setEnabled(updating);
    m_cancel->setEnabled(true);
}

void ConditionPage::markSlot(int slot)
{
    const int index = m_kind->currentIndex();
    if (index < 1)
        return;
    const CatalogueEntry& entry = at(m_workspace.conditionCatalogue, index - 1, "condition kinds");
    if (slot >= entry.Args.size())
        return;
    markArgumentBox(m_combo3[slot],
        referenceBoxNamesItem(m_workspace.project.tables, entry.Args.at(slot).ListRef,
            m_combo3[slot]->currentText(), m_workspace.prompter));
}

void ConditionPage::markValue()
{
    const int index = m_kind->currentIndex();
    if (index < 1)
        return;
    const CatalogueEntry& entry = at(m_workspace.conditionCatalogue, index - 1, "condition kinds");
    markArgumentBox(m_value,
        referenceBoxNamesItem(m_workspace.project.tables, entry.ResultB, m_value->currentText(),
            m_workspace.prompter));
}

} // namespace tarvo::gui
