// Building the page: its controls, their names and captions, and the
// wiring of their signals.
#include "document/project_document.h"
#include "shell/field_text.h"
#include "shell/guard.h"
#include "wizard/action_page.h"
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
#include <QStyle>
#include <QVBoxLayout>

namespace tarvo::gui {

ActionPage::ActionPage(ProjectDocument& document, QWidget* parent)
    : QWidget(parent)
    , m_document(document)
    , m_workspace(document.workspace())
{
    const auto on = [this](auto handler) { return guard(m_workspace.prompter, handler); };
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
    m_comment = new CommentBox(m_workspace.prompter, frame9);
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
        refuseFieldBreaks(m_combo6[i], m_workspace.prompter);
        m_combo6[i]->setMinimumWidth(220);
        m_combo6[i]->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        // The alternative box takes the whole width for long texts such as
        // messages; its tooltip shows the text when it is wider still.
        m_combo10[i] = makeArgumentBox(QStringLiteral("Combo10_%1").arg(i), frame10);
        refuseFieldBreaks(m_combo10[i], m_workspace.prompter);
        m_combo10[i]->setMinimumContentsLength(60);
        m_combo10[i]->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        editor->addWidget(m_label13[i], i + 1, 0, Qt::AlignRight);
        editor->addWidget(m_combo6[i], i + 1, 1, Qt::AlignLeft);
        editor->addWidget(m_combo10[i], i + 1, 1);
        connect(m_combo6[i], &QComboBox::editTextChanged, this,
            on([this, i] { markBox(i, m_combo6[i]); }));
        connect(m_combo10[i], &QComboBox::editTextChanged, this, on([this, i] {
            m_combo10[i]->setToolTip(m_combo10[i]->currentText());
            markBox(i, m_combo10[i]);
        }));
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
    connect(m_kind, &QComboBox::activated, this, on([this](int index) { kindChosen(index); }));
    connect(m_kind, &QComboBox::currentIndexChanged, this, on([this](int index) {
        if (m_kind->isEnabled())
            kindChosen(index);
    }));
    connect(m_new, &QPushButton::clicked, this, on([this] {
        ClearActionArgs();
        NewActionMode();
    }));
    connect(m_add, &QPushButton::clicked, this, on([this] { add(); }));
    connect(m_edit, &QPushButton::clicked, this, on([this] { edit(); }));
    connect(m_list4, &QListWidget::itemDoubleClicked, this, on([this] { edit(); }));
    connect(m_update, &QPushButton::clicked, this, on([this] { update(); }));
    connect(m_cancel, &QPushButton::clicked, this, on([this] { cancel(); }));
    connect(m_delete, &QPushButton::clicked, this, on([this] { remove(); }));
    connect(m_copy, &QPushButton::clicked, this, on([this] { copy(); }));
    connect(m_up, &QPushButton::clicked, this, on([this] { move(-1); }));
    connect(m_down, &QPushButton::clicked, this, on([this] { move(1); }));
    connect(m_commentUpdate, &QPushButton::clicked, this, on([this] { updateComment(); }));
    connect(m_comment, &QPlainTextEdit::textChanged, this, [this] { notePendingText(); });
    connect(m_list4, &QListWidget::itemChanged, this,
        on([this](QListWidgetItem* item) { itemChanged(item); }));
    connect(m_list4, &QListWidget::currentRowChanged, this, on([this] { lineSelected(); }));
    connect(m_done, &QPushButton::clicked, this, &ActionPage::doneRequested);

    fillKindCombo();
    ClearActionArgs();
    setState(State::Idle);
}

} // namespace tarvo::gui
