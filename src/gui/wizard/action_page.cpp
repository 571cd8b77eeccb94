#include "wizard/action_page.h"

#include "catalogue/catalogue_loader.h"
#include "catalogue/project_lists.h"
#include "catalogue/reference_markers.h"
#include "editing/action_ops.h"
#include "model/checked.h"
#include "ui/prompter.h"
#include "wizard/argument_box.h"
#include "wizard/list_lines.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

namespace tarvo::gui {

ActionPage::ActionPage(Workspace& workspace, QWidget* parent)
    : QWidget(parent)
    , m_workspace(workspace)
{
    auto* page = new QVBoxLayout(this);
    m_heading = new QLabel(QStringLiteral("New event:"), this);
    m_heading->setObjectName(QStringLiteral("ActionEventHeading"));
    QFont headingFont = m_heading->font();
    headingFont.setBold(true);
    m_heading->setFont(headingFont);
    m_name = new QLabel(this);
    m_name->setObjectName(QStringLiteral("ActionEventName"));
    auto* headingRow = new QHBoxLayout;
    headingRow->addWidget(m_heading);
    headingRow->addWidget(m_name, 1);
    page->addLayout(headingRow);

    auto* frame9 = new QFrame(this);
    frame9->setObjectName(QStringLiteral("Frame9"));
    frame9->setFrameShape(QFrame::StyledPanel);
    auto* listGrid = new QGridLayout(frame9);
    m_list4 = new QListWidget(frame9);
    m_list4->setObjectName(QStringLiteral("List4"));
    m_new = makeButton(QStringLiteral("Ne&w..."), QStringLiteral("Command16"), frame9);
    m_edit = makeButton(QStringLiteral("Edit"), QStringLiteral("Command18"), frame9);
    m_delete = makeButton(QStringLiteral("Delete"), QStringLiteral("Command17"), frame9);
    m_copy = makeButton(QStringLiteral("Copy"), QStringLiteral("Command30"), frame9);
    m_up = makeButton(QString(), QStringLiteral("Command28"), frame9);
    m_up->setIcon(style()->standardIcon(QStyle::SP_ArrowUp));
    m_up->setToolTip(QStringLiteral("Move the action up"));
    m_down = makeButton(QString(), QStringLiteral("Command29"), frame9);
    m_down->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
    m_down->setToolTip(QStringLiteral("Move the action down"));
    auto* listButtons = new QVBoxLayout;
    for (QPushButton* button : {m_new, m_edit, m_delete, m_copy})
        listButtons->addWidget(button);
    auto* moves = new QHBoxLayout;
    moves->addWidget(m_up);
    moves->addWidget(m_down);
    listButtons->addLayout(moves);
    listButtons->addStretch(1);
    m_comment = new QPlainTextEdit(frame9);
    m_comment->setObjectName(QStringLiteral("Text3"));
    m_commentUpdate = makeButton(QStringLiteral("Update"), QStringLiteral("Command13"), frame9);
    auto* heading = new QLabel(QStringLiteral("Actions:"), frame9);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    listGrid->addWidget(heading, 0, 0);
    listGrid->addWidget(new QLabel(QStringLiteral("Comment:"), frame9), 0, 2);
    listGrid->addWidget(m_list4, 1, 0);
    listGrid->addLayout(listButtons, 1, 1);
    listGrid->addWidget(m_comment, 1, 2);
    listGrid->addWidget(m_commentUpdate, 2, 2, Qt::AlignRight);
    listGrid->setColumnStretch(0, 3);
    listGrid->setColumnStretch(2, 2);
    page->addWidget(frame9, 2);

    auto* frame10 = new QFrame(this);
    frame10->setObjectName(QStringLiteral("Frame10"));
    frame10->setFrameShape(QFrame::StyledPanel);
    auto* editor = new QGridLayout(frame10);
    m_kind = new QComboBox(frame10);
    m_kind->setObjectName(QStringLiteral("Combo2"));
    m_kind->setMaxVisibleItems(25);
    editor->addWidget(new QLabel(QStringLiteral("Action:"), frame10), 0, 0);
    editor->addWidget(m_kind, 0, 1);
    for (int i = 0; i < kPositions; ++i) {
        m_label13[i] = new QLabel(frame10);
        m_label13[i]->setObjectName(QStringLiteral("Label13_%1").arg(i));
        m_combo6[i] = makeArgumentBox(QStringLiteral("Combo6_%1").arg(i), frame10);
        m_combo6[i]->setMinimumWidth(220);
        m_combo6[i]->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        // The alternative box takes the whole width for long texts such as
        // messages; its tooltip shows the text when it is wider still.
        m_combo10[i] = makeArgumentBox(QStringLiteral("Combo10_%1").arg(i), frame10);
        m_combo10[i]->setMinimumContentsLength(60);
        m_combo10[i]->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        editor->addWidget(m_label13[i], i + 1, 0, Qt::AlignRight);
        editor->addWidget(m_combo6[i], i + 1, 1, Qt::AlignLeft);
        editor->addWidget(m_combo10[i], i + 1, 1);
        connect(
            m_combo6[i], &QComboBox::editTextChanged, this, [this, i] { markBox(i, m_combo6[i]); });
        connect(m_combo10[i], &QComboBox::editTextChanged, this, [this, i] {
            markBox(i, m_combo10[i]);
            m_combo10[i]->setToolTip(m_combo10[i]->currentText());
        });
    }
    editor->setColumnStretch(1, 1);
    page->addWidget(frame10);

    auto* frame11 = new QFrame(this);
    frame11->setObjectName(QStringLiteral("Frame11"));
    auto* bottom = new QVBoxLayout(frame11);
    bottom->setContentsMargins(0, 0, 0, 0);
    m_description = new QPlainTextEdit(frame11);
    m_description->setObjectName(QStringLiteral("Text6"));
    m_description->setReadOnly(true);
    m_description->setMaximumHeight(70);
    bottom->addWidget(m_description);
    auto* buttons = new QHBoxLayout;
    m_add = makeButton(QStringLiteral("&Add"), QStringLiteral("Command20"), frame11);
    m_update = makeButton(QStringLiteral("&Update"), QStringLiteral("Command22"), frame11);
    m_cancel = makeButton(QStringLiteral("Ca&ncel"), QStringLiteral("Command23"), frame11);
    m_done = makeButton(QStringLiteral("&Done!"), QStringLiteral("Command21"), frame11);
    buttons->addWidget(m_add);
    buttons->addWidget(m_update);
    buttons->addWidget(m_cancel);
    buttons->addStretch(1);
    buttons->addWidget(m_done);
    bottom->addLayout(buttons);
    page->addWidget(frame11);

    // A pick from the list, and any other change of the chosen kind, show
    // the kind; choosing the same kind again starts it afresh.
    connect(m_kind, &QComboBox::activated, this, &ActionPage::kindChosen);
    connect(m_kind, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (m_kind->isEnabled())
            kindChosen(index);
    });
    connect(m_new, &QPushButton::clicked, this, [this] {
        ClearActionArgs();
        NewActionMode();
    });
    connect(m_add, &QPushButton::clicked, this, &ActionPage::add);
    connect(m_edit, &QPushButton::clicked, this, &ActionPage::edit);
    connect(m_list4, &QListWidget::itemDoubleClicked, this, &ActionPage::edit);
    connect(m_update, &QPushButton::clicked, this, &ActionPage::update);
    connect(m_cancel, &QPushButton::clicked, this, &ActionPage::cancel);
    connect(m_delete, &QPushButton::clicked, this, &ActionPage::remove);
    connect(m_copy, &QPushButton::clicked, this, &ActionPage::copy);
    connect(m_up, &QPushButton::clicked, this, [this] { move(-1); });
    connect(m_down, &QPushButton::clicked, this, [this] { move(1); });
    connect(m_commentUpdate, &QPushButton::clicked, this, &ActionPage::updateComment);
    connect(m_list4, &QListWidget::itemChanged, this, &ActionPage::itemChanged);
    connect(m_list4, &QListWidget::currentRowChanged, this, &ActionPage::lineSelected);
    connect(m_done, &QPushButton::clicked, this, &ActionPage::doneRequested);

    fillKindCombo();
    ClearActionArgs();
    setState(State::Idle);
}

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

void ActionPage::setHeading(const QString& heading, const QString& name)
{
    m_heading->setText(heading);
    m_name->setText(name);
}

EventRecord* ActionPage::event() const
{
    if (m_eventIndex < 0 || m_eventIndex >= m_workspace.project.events.size())
        return nullptr;
    return &m_workspace.project.events[m_eventIndex];
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
    for (int i = 0; i < entry.ArgCount && i < kPositions; ++i) {
        const ArgumentSlot& argument = at(entry.Args, i, "arguments");
        QComboBox* box = boxOf(kind, i);
        box->show();
        box->setToolTip(argument.Hint);
        FillActionArgBox(kind, i);
        m_label13[i]->setText(argument.Label);
        m_label13[i]->show();
    }
    m_description->setPlainText(entry.Description);
}

void ActionPage::FillActionArgBox(int kind, int position)
{
    const ArgumentSlot& argument
        = at(at(m_workspace.actionCatalogue, kind, "action kinds").Args, position, "arguments");
    if (argument.ListRef == -1)
        return;
    Project& project = m_workspace.project;
    // Events and timers change while the wizard runs elsewhere; their rows are
    // brought up to date before they are offered.
    refreshTimerRow(project);
    refreshEventRow(project);
    const ReferenceList& list = referenceRow(project.tables, argument.ListRef);
    fillArgumentBox(boxOf(kind, position), list.Texts.mid(0, list.ItemCount));
}

void ActionPage::FillActionList()
{
    const QSignalBlocker blocker(m_list4);
    m_list4->clear();
    if (const EventRecord* current = event()) {
        for (int i = 0; i < current->actionCount; ++i) {
            const ActionRecord& action = at(current->actions, i, "actions");
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
    try {
        ShowActionArgs(index - 1);
    } catch (const DataError& error) {
        m_workspace.prompter.message(error.sentence(), Prompter::Icon::Critical);
    }
    m_add->setEnabled(m_state == State::Adding);
}

void ActionPage::add()
{
    EventRecord* current = event();
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
    try {
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
    } catch (const DataError& error) {
        m_workspace.prompter.message(error.sentence(), Prompter::Icon::Critical);
        EndEditMode();
    }
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
    EventRecord* current = event();
    QStringList texts;
    try {
        const CatalogueEntry& entry = at(m_workspace.actionCatalogue, kind, "action kinds");
        for (int i = 0; i < entry.ArgCount && i < kPositions; ++i)
            texts.append(boxOf(kind, i)->currentText());
        tarvo::StoreAction(m_workspace, *current, kind, position, isUpdate, texts);
    } catch (const DataError& error) {
        m_workspace.prompter.message(error.sentence(), Prompter::Icon::Critical);
        return;
    }
    const ActionRecord& action = current->actions.at(position);
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
    EventRecord* current = event();
    const int line = m_list4->currentRow();
    if (!current || line < 0 || line >= current->actionCount) {
        m_workspace.prompter.beep();
        return;
    }
    m_comment->clear();
    DeleteAction(*current, line);
    {
        const QSignalBlocker blocker(m_list4);
        delete m_list4->takeItem(line);
    }
    m_list4->setCurrentRow(m_list4->count() - 1);
    setState(State::Idle);
}

void ActionPage::copy()
{
    EventRecord* current = event();
    const int line = m_list4->currentRow();
    if (!current || line < 0 || line >= current->actionCount || m_state == State::Editing) {
        m_workspace.prompter.beep();
        return;
    }
    const int copy = CopyAction(*current, line);
    addCheckLine(m_list4, m_list4->item(line)->text(), !current->actions[copy].inactive);
    m_list4->setCurrentRow(copy);
}

void ActionPage::move(int direction)
{
    EventRecord* current = event();
    const int line = m_list4->currentRow();
    if (!current || line < 0 || m_state == State::Editing) {
        m_workspace.prompter.beep();
        return;
    }
    const bool moved
        = direction < 0 ? MoveActionUp(*current, line) : MoveActionDown(*current, line);
    if (!moved) {
        m_workspace.prompter.beep();
        return;
    }
    FillActionList();
    m_list4->setCurrentRow(line + direction);
}

void ActionPage::itemChanged(QListWidgetItem* item)
{
    EventRecord* current = event();
    const int line = m_list4->row(item);
    if (!current || line < 0 || line >= current->actionCount)
        return;
    setActionActive(*current, line, item->checkState() == Qt::Checked);
}

void ActionPage::lineSelected()
{
    const EventRecord* current = event();
    const int line = m_list4->currentRow();
    if (!current || line < 0 || line >= current->actionCount) {
        m_comment->clear();
        return;
    }
    m_comment->setPlainText(current->actions[line].comment);
}

void ActionPage::updateComment()
{
    EventRecord* current = event();
    const int line = m_list4->currentRow();
    if (!current || line < 0 || line >= current->actionCount)
        return;
    current->actions[line].comment = commentBoxText(m_comment);
}

void ActionPage::markBox(int position, QComboBox* box)
{
    const int index = m_kind->currentIndex();
    if (index < 1 || index > m_workspace.actionCatalogue.size())
        return;
    const CatalogueEntry& entry = m_workspace.actionCatalogue.at(index - 1);
    if (position >= entry.Args.size())
        return;
    markArgumentBox(box,
        referenceBoxNamesItem(m_workspace.project.tables, entry.Args.at(position).ListRef,
            box->currentText(), m_workspace.prompter));
}

} // namespace tarvo::gui
