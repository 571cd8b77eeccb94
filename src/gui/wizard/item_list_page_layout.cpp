// Building the page: its controls, their names and captions, and the
// wiring of their signals.
#include "document/project_document.h"
#include "shell/field_text.h"
#include "shell/guard.h"
#include "wizard/argument_box.h"
#include "wizard/item_list_page.h"
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

namespace {

QString nameOf(const char* name, int index = -1)
{
    const QString text = QString::fromLatin1(name);
    return index < 0 ? text : text + u'_' + QString::number(index);
}

QLabel* boldLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

QFrame* makeFrame(const char* name, QWidget* parent)
{
    auto* frame = new QFrame(parent);
    frame->setObjectName(nameOf(name));
    frame->setFrameShape(QFrame::StyledPanel);
    return frame;
}

QPushButton* makeMoveButton(
    const char* name, QStyle::StandardPixmap icon, const QString& tip, QWidget* parent)
{
    QPushButton* button = makeButton(QString(), nameOf(name), parent);
    button->setIcon(parent->style()->standardIcon(icon));
    button->setToolTip(tip);
    return button;
}

} // namespace

ItemListPage::ItemListPage(ProjectDocument& document, KindOf kind, QWidget* parent)
    : QWidget(parent)
    , m_document(document)
    , m_workspace(document.workspace())
    , m_form(itemPageForm(kind))
{
    const ItemPageForm& form = m_form;
    auto* page = new QVBoxLayout(this);
    m_heading = boldLabel(QStringLiteral("New event:"), this);
    m_heading->setObjectName(nameOf(form.heading));
    m_name = new QLabel(this);
    m_name->setObjectName(nameOf(form.eventName));
    auto* headingRow = new QHBoxLayout;
    headingRow->addWidget(m_heading);
    headingRow->addWidget(m_name, 1);
    page->addLayout(headingRow);

    // The items of the event, with their buttons and comment.
    QFrame* listFrame = makeFrame(form.listFrame, this);
    auto* listGrid = new QGridLayout(listFrame);
    const QString caption = QString::fromLatin1(form.listCaption);
    QLabel* listHeading
        = form.listHeading ? new QLabel(caption, listFrame) : boldLabel(caption, listFrame);
    if (form.listHeading)
        listHeading->setObjectName(nameOf(form.listHeading));
    m_list = new QListWidget(listFrame);
    m_list->setObjectName(nameOf(form.list));
    m_new = makeButton(QString::fromLatin1(form.newCaption), nameOf(form.newButton), listFrame);
    m_edit = makeButton(QStringLiteral("Edit"), nameOf(form.editButton), listFrame);
    m_delete = makeButton(QStringLiteral("Delete"), nameOf(form.deleteButton), listFrame);
    m_copy = makeButton(QStringLiteral("Copy"), nameOf(form.copyButton), listFrame);
    auto* listButtons = new QVBoxLayout;
    for (QPushButton* button : {m_new, m_edit, m_delete, m_copy})
        listButtons->addWidget(button);
    if (form.upButton) {
        m_up = makeMoveButton(
            form.upButton, QStyle::SP_ArrowUp, QStringLiteral("Move the action up"), listFrame);
        m_down = makeMoveButton(form.downButton, QStyle::SP_ArrowDown,
            QStringLiteral("Move the action down"), listFrame);
        auto* moves = new QHBoxLayout;
        moves->addWidget(m_up);
        moves->addWidget(m_down);
        listButtons->addLayout(moves);
    }
    listButtons->addStretch(1);
    auto* commentLabel = new QLabel(QStringLiteral("Comment:"), listFrame);
    m_comment = new CommentBox(m_workspace.prompter, listFrame);
    m_comment->setObjectName(nameOf(form.comment));
    m_commentUpdate = makeButton(QStringLiteral("Update"), nameOf(form.commentUpdate), listFrame);
    listGrid->addWidget(listHeading, 0, 0);
    listGrid->addWidget(commentLabel, 0, 2);
    listGrid->addWidget(m_list, 1, 0);
    listGrid->addLayout(listButtons, 1, 1);
    listGrid->addWidget(m_comment, 1, 2);
    listGrid->addWidget(m_commentUpdate, 2, 2, Qt::AlignRight);
    listGrid->setColumnStretch(0, 3);
    listGrid->setColumnStretch(2, 2);
    page->addWidget(listFrame, 2);

    // The editor of one item: its kind and arguments.
    QFrame* editorFrame = makeFrame(form.editorFrame, this);
    auto* editor = new QGridLayout(editorFrame);
    m_kind = new QComboBox(editorFrame);
    m_kind->setObjectName(nameOf(form.kindCombo));
    m_kind->setMaxVisibleItems(25);
    editor->addWidget(new QLabel(QString::fromLatin1(form.kindCaption), editorFrame), 0, 0);
    editor->addWidget(m_kind, 0, 1, 1, 2 * form.slotColumns - 1);
    const int rows = kSlots / form.slotColumns;
    for (int i = 0; i < kSlots; ++i) {
        m_labels[i] = new QLabel(editorFrame);
        m_labels[i]->setObjectName(nameOf(form.label, i));
        m_boxes[i] = makeArgumentBox(nameOf(form.box, i), editorFrame);
        refuseFieldBreaks(m_boxes[i], m_workspace.prompter);
        m_boxes[i]->setMinimumWidth(form.boxWidth);
        const int row = 1 + i % rows;
        const int column = (i / rows) * 2;
        editor->addWidget(m_labels[i], row, column, Qt::AlignRight);
        if (!form.wideBox) {
            editor->addWidget(m_boxes[i], row, column + 1);
            continue;
        }
        // The alternative box takes the whole width for long texts such as
        // messages; its tooltip shows the text when it is wider still.
        m_boxes[i]->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        m_wideBoxes[i] = makeArgumentBox(nameOf(form.wideBox, i), editorFrame);
        refuseFieldBreaks(m_wideBoxes[i], m_workspace.prompter);
        m_wideBoxes[i]->setMinimumContentsLength(60);
        m_wideBoxes[i]->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        editor->addWidget(m_boxes[i], row, column + 1, Qt::AlignLeft);
        editor->addWidget(m_wideBoxes[i], row, column + 1);
    }
    for (int column = 0; column < form.slotColumns; ++column)
        editor->setColumnStretch(2 * column + 1, 1);
    page->addWidget(editorFrame);
}

QPlainTextEdit* ItemListPage::makeDescription(QWidget* parent, int maxHeight)
{
    m_description = new QPlainTextEdit(parent);
    m_description->setObjectName(nameOf(m_form.description));
    m_description->setReadOnly(true);
    m_description->setMaximumHeight(maxHeight);
    return m_description;
}

QHBoxLayout* ItemListPage::makeButtonRow(QWidget* parent)
{
    auto* buttons = new QHBoxLayout;
    m_add = makeButton(QStringLiteral("&Add"), nameOf(m_form.addButton), parent);
    m_update = makeButton(QStringLiteral("&Update"), nameOf(m_form.updateButton), parent);
    m_cancel = makeButton(
        QString::fromLatin1(m_form.cancelCaption), nameOf(m_form.cancelButton), parent);
    m_leave
        = makeButton(QString::fromLatin1(m_form.leaveCaption), nameOf(m_form.leaveButton), parent);
    buttons->addWidget(m_add);
    buttons->addWidget(m_update);
    buttons->addWidget(m_cancel);
    buttons->addStretch(1);
    buttons->addWidget(m_leave);
    return buttons;
}

void ItemListPage::finishBuilding()
{
    const auto on = [this](auto handler) { return guard(m_workspace.prompter, handler); };
    for (int i = 0; i < kSlots; ++i) {
        connect(m_boxes[i], &QComboBox::editTextChanged, this,
            on([this, i] { markBox(i, m_boxes[i]); }));
        if (QComboBox* wide = m_wideBoxes[i]) {
            connect(wide, &QComboBox::editTextChanged, this, on([this, i, wide] {
                wide->setToolTip(wide->currentText());
                markBox(i, wide);
            }));
        }
    }
    // A pick from the list, and any other change of the chosen kind, show
    // the kind; choosing the same kind again starts it afresh.
    connect(m_kind, &QComboBox::activated, this, on([this](int index) { kindChosen(index); }));
    connect(m_kind, &QComboBox::currentIndexChanged, this, on([this](int index) {
        if (m_kind->isEnabled())
            kindChosen(index);
    }));
    connect(m_new, &QPushButton::clicked, this, on([this] { startNew(); }));
    connect(m_edit, &QPushButton::clicked, this, on([this] { editLine(); }));
    connect(m_list, &QListWidget::itemDoubleClicked, this, on([this] { editLine(); }));
    connect(m_delete, &QPushButton::clicked, this, on([this] { deleteLine(); }));
    connect(m_copy, &QPushButton::clicked, this, on([this] { copyLine(); }));
    connect(m_add, &QPushButton::clicked, this, on([this] { store(false); }));
    connect(m_update, &QPushButton::clicked, this, on([this] { store(true); }));
    connect(m_cancel, &QPushButton::clicked, this, on([this] { cancel(); }));
    connect(m_leave, &QPushButton::clicked, this, on([this] { leave(); }));
    connect(m_list, &QListWidget::itemChanged, this,
        on([this](QListWidgetItem* item) { itemChanged(item); }));
    connect(m_list, &QListWidget::currentRowChanged, this, on([this] { lineSelected(); }));
    connect(m_commentUpdate, &QPushButton::clicked, this, on([this] { updateComment(); }));
    connect(m_comment, &QPlainTextEdit::textChanged, this, [this] { notePendingText(); });
    connect(&m_document, &ProjectDocument::changed, this,
        on([this](const ProjectChange& change) { showChange(change); }));

    fillKindCombo();
    clearEditor();
    setState(State::Idle);
}

} // namespace tarvo::gui
