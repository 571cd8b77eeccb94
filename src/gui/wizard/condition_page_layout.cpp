// Building the page: its controls, their names and captions, and the
// wiring of their signals.
#include "catalogue/trigger_tables.h"
#include "document/project_document.h"
#include "shell/field_text.h"
#include "shell/guard.h"
#include "wizard/argument_box.h"
#include "wizard/condition_page.h"
#include "wizard/list_lines.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvo::gui {

ConditionPage::ConditionPage(ProjectDocument& document, QWidget* parent)
    : QWidget(parent)
    , m_document(document)
    , m_workspace(document.workspace())
{
    const auto on = [this](auto handler) { return guard(m_workspace.prompter, handler); };
    auto* page = new QVBoxLayout(this);
    m_heading = new QLabel(QStringLiteral("New event:"), this);
    m_heading->setObjectName(QStringLiteral("Label1"));
    QFont bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    m_name = new QLabel(this);
    m_name->setObjectName(QStringLiteral("ConditionEventName"));
    auto* headingRow = new QHBoxLayout;
    headingRow->addWidget(m_heading);
    headingRow->addWidget(m_name, 1);
    page->addLayout(headingRow);

    // The conditions of the event, with their buttons and comment.
    auto* frame2 = new QFrame(this);
    frame2->setObjectName(QStringLiteral("Frame2"));
    frame2->setFrameShape(QFrame::StyledPanel);
    auto* listGrid = new QGridLayout(frame2);
    auto* label3 = new QLabel(QStringLiteral("Conditions:"), frame2);
    label3->setObjectName(QStringLiteral("Label3"));
    m_list2 = new QListWidget(frame2);
    m_list2->setObjectName(QStringLiteral("List2"));
    m_new = makeButton(QStringLiteral("N&ew..."), QStringLiteral("Command4"), frame2);
    m_edit = makeButton(QStringLiteral("Edit"), QStringLiteral("Command8"), frame2);
    m_delete = makeButton(QStringLiteral("Delete"), QStringLiteral("Command6"), frame2);
    m_copy = makeButton(QStringLiteral("Copy"), QStringLiteral("Command31"), frame2);
    auto* listButtons = new QVBoxLayout;
    for (QPushButton* button : {m_new, m_edit, m_delete, m_copy})
        listButtons->addWidget(button);
    listButtons->addStretch(1);
    auto* commentLabel = new QLabel(QStringLiteral("Comment:"), frame2);
    m_comment = new CommentBox(m_workspace.prompter, frame2);
    m_comment->setObjectName(QStringLiteral("Text2"));
    m_commentUpdate = makeButton(QStringLiteral("Update"), QStringLiteral("Command12"), frame2);
    listGrid->addWidget(label3, 0, 0);
    listGrid->addWidget(commentLabel, 0, 2);
    listGrid->addWidget(m_list2, 1, 0);
    listGrid->addLayout(listButtons, 1, 1);
    listGrid->addWidget(m_comment, 1, 2);
    listGrid->addWidget(m_commentUpdate, 2, 2, Qt::AlignRight);
    listGrid->setColumnStretch(0, 3);
    listGrid->setColumnStretch(2, 2);
    page->addWidget(frame2, 2);

    // The editor of one condition.
    auto* frame1 = new QFrame(this);
    frame1->setObjectName(QStringLiteral("Frame1"));
    frame1->setFrameShape(QFrame::StyledPanel);
    auto* editor = new QGridLayout(frame1);
    m_kind = new QComboBox(frame1);
    m_kind->setObjectName(QStringLiteral("Combo1"));
    m_kind->setMaxVisibleItems(25);
    editor->addWidget(new QLabel(QStringLiteral("Condition:"), frame1), 0, 0);
    editor->addWidget(m_kind, 0, 1, 1, 3);
    for (int i = 0; i < kSlots; ++i) {
        m_label4[i] = new QLabel(frame1);
        m_label4[i]->setObjectName(QStringLiteral("Label4_%1").arg(i));
        m_combo3[i] = makeArgumentBox(QStringLiteral("Combo3_%1").arg(i), frame1);
        refuseFieldBreaks(m_combo3[i], m_workspace.prompter);
        m_combo3[i]->setMinimumWidth(200);
        // Two columns of four slots keep the editor short.
        const int row = 1 + i % 4;
        const int column = (i / 4) * 2;
        editor->addWidget(m_label4[i], row, column, Qt::AlignRight);
        editor->addWidget(m_combo3[i], row, column + 1);
        connect(m_combo3[i], &QComboBox::editTextChanged, this, on([this, i] { markSlot(i); }));
    }
    editor->setColumnStretch(1, 1);
    editor->setColumnStretch(3, 1);
    page->addWidget(frame1);

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
    connect(m_value, &QComboBox::editTextChanged, this, on([this] { markValue(); }));
    m_description = new QPlainTextEdit(frame3);
    m_description->setObjectName(QStringLiteral("Text1"));
    m_description->setReadOnly(true);
    m_description->setMaximumHeight(80);
    compare->addWidget(m_negation, 0, 0);
    compare->addWidget(m_operator, 0, 1);
    compare->addWidget(m_value, 0, 2);
    compare->setColumnStretch(3, 1);
    compare->addWidget(m_description, 1, 0, 1, 4);
    page->addWidget(frame3);

    auto* buttons = new QHBoxLayout;
    m_add = makeButton(QStringLiteral("&Add"), QStringLiteral("Command7"), this);
    m_update = makeButton(QStringLiteral("&Update"), QStringLiteral("Command14"), this);
    m_cancel = makeButton(QStringLiteral("&Cancel"), QStringLiteral("Command24"), this);
    m_next = makeButton(QStringLiteral("Ne&xt >>"), QStringLiteral("Command9"), this);
    buttons->addWidget(m_add);
    buttons->addWidget(m_update);
    buttons->addWidget(m_cancel);
    buttons->addStretch(1);
    buttons->addWidget(m_next);
    page->addLayout(buttons);

    // A pick from the list, and any other change of the chosen kind, show
    // the kind; choosing the same kind again starts it afresh.
    connect(m_kind, &QComboBox::activated, this, on([this](int index) { kindChosen(index); }));
    connect(m_kind, &QComboBox::currentIndexChanged, this, on([this](int index) {
        if (m_kind->isEnabled())
            kindChosen(index);
    }));
    connect(m_new, &QPushButton::clicked, this, on([this] { newCondition(); }));
    connect(m_edit, &QPushButton::clicked, this, on([this] { editCondition(); }));
    connect(m_list2, &QListWidget::itemDoubleClicked, this, on([this] { editCondition(); }));
    connect(m_delete, &QPushButton::clicked, this, on([this] { deleteCondition(); }));
    connect(m_copy, &QPushButton::clicked, this, on([this] { copyCondition(); }));
    connect(m_add, &QPushButton::clicked, this, on([this] { storeCondition(false); }));
    connect(m_update, &QPushButton::clicked, this, on([this] { storeCondition(true); }));
    connect(m_cancel, &QPushButton::clicked, this, on([this] { cancel(); }));
    // Next leaves an open condition unstored and the editor empty.
    connect(m_next, &QPushButton::clicked, this, on([this] {
        if (m_adding || m_updating)
            endComposing();
        clearEditor();
        Q_EMIT nextRequested();
    }));
    connect(m_list2, &QListWidget::itemChanged, this,
        on([this](QListWidgetItem* item) { itemChanged(item); }));
    connect(m_list2, &QListWidget::currentRowChanged, this, on([this] { lineSelected(); }));
    connect(m_commentUpdate, &QPushButton::clicked, this, on([this] { updateComment(); }));
    connect(m_comment, &QPlainTextEdit::textChanged, this, [this] { notePendingText(); });

    fillKindCombo();
    clearEditor();
    setIdle();
}

} // namespace tarvo::gui
