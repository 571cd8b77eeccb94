#include "wizard/action_page.h"

#include "base/checked.h"
#include "document/project_document.h"
#include "editing/action_ops.h"
#include "shell/guard.h"
#include "ui/prompter.h"
#include "wizard/argument_box.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvo::gui {

ActionPage::ActionPage(ProjectDocument& document, QWidget* parent)
    : ItemListPage(document, KindOf::Action, parent)
{
    auto* frame11 = new QFrame(this);
    frame11->setObjectName(QStringLiteral("Frame11"));
    auto* bottom = new QVBoxLayout(frame11);
    bottom->setContentsMargins(0, 0, 0, 0);
    bottom->addWidget(makeDescription(frame11, 70));
    bottom->addLayout(makeButtonRow(frame11));
    static_cast<QVBoxLayout*>(layout())->addWidget(frame11);

    const auto on = [this](auto handler) { return guard(m_workspace.prompter, handler); };
    connect(m_up, &QPushButton::clicked, this, on([this] { move(-1); }));
    connect(m_down, &QPushButton::clicked, this, on([this] { move(1); }));
    connect(this, &ItemListPage::leaveRequested, this, &ActionPage::doneRequested);
    finishBuilding();
}

QStringList ActionPage::argumentItems(int kind, int slot) const
{
    return actionArgumentItems(m_workspace, kind, slot);
}

// An open action shows its stored texts in the normal colour.
void ActionPage::loadItem(int line)
{
    const ActionRecord& action = at(event()->actions, line, "actions");
    const CatalogueEntry& entry = kindEntry(action.Kind);
    const QStringList texts = actionArgumentTexts(m_workspace, action);
    for (int i = 0; i < texts.size() && i < kSlots; ++i) {
        QComboBox* box = boxOf(entry, i);
        setBoxText(box, texts.at(i));
        markArgumentBox(box, false);
        if (box == m_wideBoxes[i])
            box->setToolTip(texts.at(i));
    }
}

int ActionPage::storeItem(int kind, int position)
{
    const CatalogueEntry& entry = kindEntry(kind);
    QStringList texts;
    for (int i = 0; i < entry.ArgCount && i < kSlots; ++i)
        texts.append(boxOf(entry, i)->currentText());
    const bool isUpdate = position >= 0;
    changeEvent([&](EventRecord& event) {
        if (!isUpdate)
            position = event.actionCount;
        StoreAction(m_workspace, event, kind, position, isUpdate, texts);
    });
    return position;
}

void ActionPage::move(int direction)
{
    const int line = currentLine();
    if (!event() || line < 0 || state() == State::Editing) {
        m_workspace.prompter.beep();
        return;
    }
    bool moved = false;
    changeEvent([&](EventRecord& event) {
        moved = direction < 0 ? MoveActionUp(event, line) : MoveActionDown(event, line);
    });
    if (!moved) {
        m_workspace.prompter.beep();
        return;
    }
    m_list->setCurrentRow(line + direction);
}

} // namespace tarvo::gui
