#include "wizard/condition_page.h"

#include "base/checked.h"
#include "catalogue/reference_markers.h"
#include "catalogue/trigger_tables.h"
#include "document/project_document.h"
#include "editing/condition_ops.h"
#include "shell/field_text.h"
#include "shell/guard.h"
#include "wizard/argument_box.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace tarvo::gui {

ConditionPage::ConditionPage(ProjectDocument& document, QWidget* parent)
    : ItemListPage(document, KindOf::Condition, parent)
{
    // The comparison: a negation, or an operator and a value.
    auto* frame3 = new QFrame(this);
    frame3->setObjectName(QStringLiteral("Frame3"));
    frame3->setFrameShape(QFrame::StyledPanel);
    auto* compare = new QGridLayout(frame3);
    m_negation = new QComboBox(frame3);
    m_negation->setObjectName(QStringLiteral("Combo5"));
    m_negation->addItems(negationComboItems());
    m_negation->setMinimumWidth(70);
    m_operator = new QComboBox(frame3);
    m_operator->setObjectName(QStringLiteral("Combo4"));
    m_operator->addItems(operatorComboItems());
    m_operator->setMinimumWidth(60);
    m_value = makeArgumentBox(QStringLiteral("Combo7"), frame3);
    refuseFieldBreaks(m_value, m_workspace.prompter);
    m_value->setMinimumWidth(200);
    compare->addWidget(m_negation, 0, 0);
    compare->addWidget(m_operator, 0, 1);
    compare->addWidget(m_value, 0, 2);
    compare->setColumnStretch(3, 1);
    compare->addWidget(makeDescription(frame3, 80), 1, 0, 1, 4);
    auto* page = static_cast<QVBoxLayout*>(layout());
    page->addWidget(frame3);
    page->addLayout(makeButtonRow(this));

    connect(m_value, &QComboBox::editTextChanged, this,
        guard(m_workspace.prompter, [this] { markValue(); }));
    connect(this, &ItemListPage::leaveRequested, this, &ConditionPage::nextRequested);
    finishBuilding();
}

QStringList ConditionPage::argumentItems(int kind, int slot) const
{
    const ArgumentSlot& argument = at(kindEntry(kind).Args, slot, "arguments");
    return comboItemsFromList(m_workspace.project.tables, argument.ListRef);
}

void ConditionPage::clearExtras()
{
    m_operator->setCurrentIndex(0);
    clearArgumentBox(m_value);
    m_negation->setCurrentIndex(0);
    m_value->hide();
    m_negation->hide();
    m_operator->hide();
}

void ConditionPage::showExtras(const CatalogueEntry& entry)
{
    if (entry.ResultB != -1) {
        const ReferenceList& list = referenceRow(m_workspace.project.tables, entry.ResultB);
        fillArgumentBox(m_value, list.Texts.mid(0, list.ItemCount), entry.ResultB);
    }
    // Style 0 compares with a value; style 1 may negate; others show neither.
    if (entry.ResultA == 0) {
        m_operator->show();
        m_value->show();
    } else if (entry.ResultA == 1) {
        m_negation->show();
    }
}

void ConditionPage::loadItem(int line)
{
    const ConditionInput input
        = conditionInputOf(m_workspace, at(event()->conditions, line, "conditions"));
    for (int i = 0; i < input.argumentTexts.size() && i < kSlots; ++i)
        m_boxes[i]->setEditText(input.argumentTexts.at(i));
    m_operator->setCurrentIndex(input.operatorIndex);
    m_negation->setCurrentIndex(input.negation);
    m_value->setEditText(input.comparedText);
}

int ConditionPage::storeItem(int kind, int position)
{
    ConditionInput input;
    input.kind = kind;
    for (int i = 0; i < kSlots; ++i)
        input.argumentTexts.append(m_boxes[i]->currentText());
    input.operatorIndex = m_operator->currentIndex();
    input.comparedText = m_value->currentText();
    input.negation = m_negation->currentIndex();
    int stored = -1;
    changeEvent(
        [&](EventRecord& event) { stored = StoreCondition(m_workspace, event, position, input); });
    return stored;
}

void ConditionPage::markValue()
{
    const int index = m_kind->currentIndex();
    if (index < 1)
        return;
    markArgumentBox(m_value,
        referenceBoxNamesItem(m_workspace.project.tables, kindEntry(index - 1).ResultB,
            m_value->currentText(), m_workspace.prompter));
}

} // namespace tarvo::gui
