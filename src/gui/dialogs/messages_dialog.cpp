#include "dialogs/messages_dialog.h"

#include "catalogue/project_lists.h"
#include "records/reference_list.h"
#include "base/checked.h"
#include "document/project_document.h"
#include "resources/resource_items.h"
#include "resources/resource_removal.h"
#include "shell/field_text.h"
#include "shell/guard.h"
#include "ui/prompter.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvo::gui {

namespace {

QPushButton* button(const QString& name, const QString& caption, QWidget* parent)
{
    auto* result = new QPushButton(caption, parent);
    result->setObjectName(name);
    result->setAutoDefault(false);
    return result;
}

} // namespace

MessagesDialog::MessagesDialog(ProjectDocument& document, QWidget* parent)
    : QDialog(parent)
    , m_document(document)
    , m_workspace(document.workspace())
    , m_text(new QLineEdit(this))
    , m_list(new QListWidget(this))
    , m_idLabel(new QLabel(this))
{
    setObjectName(QStringLiteral("MessagesDialog"));
    setWindowTitle(QStringLiteral("Messages"));
    m_text->setObjectName(QStringLiteral("Text1"));
    refuseFieldBreaks(m_text, m_workspace.prompter);
    m_list->setObjectName(QStringLiteral("List1"));
    m_idLabel->setObjectName(QStringLiteral("Label1"));

    QPushButton* add = button(QStringLiteral("Command1"), QStringLiteral("Add"), this);
    QPushButton* update = button(QStringLiteral("Command4"), QStringLiteral("Update"), this);
    QPushButton* remove = button(QStringLiteral("Command2"), QStringLiteral("Remove"), this);
    QPushButton* close = button(QStringLiteral("Command3"), QStringLiteral("Close"), this);
    QPushButton* references
        = button(QStringLiteral("FindReferences"), QStringLiteral("Find References"), this);

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(update);
    buttons->addWidget(remove);
    buttons->addStretch(1);
    buttons->addWidget(references);
    buttons->addWidget(close);

    auto* layout = new QGridLayout(this);
    layout->addWidget(m_text, 0, 0);
    layout->addWidget(m_list, 1, 0);
    layout->addWidget(m_idLabel, 2, 0);
    layout->addLayout(buttons, 0, 1, 3, 1);
    resize(520, 320);

    const auto on = [this](auto handler) { return guard(m_workspace.prompter, handler); };
    connect(add, &QPushButton::clicked, this, on([this] { addMessage(); }));
    // Enter in the text box adds what was typed, as the box's own button.
    connect(m_text, &QLineEdit::returnPressed, this, on([this] { addMessage(); }));
    connect(update, &QPushButton::clicked, this, on([this] { updateMessage(); }));
    connect(remove, &QPushButton::clicked, this, on([this] { removeMessage(); }));
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    connect(references, &QPushButton::clicked, this, on([this] {
        if (m_finder && m_list->currentRow() >= 0)
            m_finder(row::Messages, m_list->currentRow());
        else
            m_workspace.prompter.beep();
    }));
    connect(m_list, &QListWidget::currentRowChanged, this, on([this] { showSelectedId(); }));
    connect(m_list, &QListWidget::itemDoubleClicked, this, on([this] { editSelected(); }));

    loadMessages();
}

void MessagesDialog::done(int result)
{
    guarded(m_workspace.prompter, [this] {
        m_document.edit(
            QStringLiteral("Messages"), [this] { refreshMessageRow(m_workspace.project); });
    });
    QCoreApplication::processEvents();
    QDialog::done(result);
}

void MessagesDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_text->setFocus();
}

void MessagesDialog::loadMessages()
{
    m_list->clear();
    const Project& project = m_workspace.project;
    for (int i = 0; i < heldCount(project.messageCount, project.messages); ++i)
        m_list->addItem(project.messages.at(i).text);
}

void MessagesDialog::addMessage()
{
    // The messages row follows each change at once: nothing reads it while the
    // dialog is open, and the history then holds the row with its message.
    const QString text = m_text->text();
    const int position = m_document.edit(QStringLiteral("Add Message"), [&] {
        const int added = AddMessage(m_workspace.project, m_workspace.prompter, text);
        if (added >= 0)
            refreshMessageRow(m_workspace.project);
        return added;
    });
    if (position < 0)
        return;
    m_list->addItem(m_workspace.project.messages.at(position).text);
    backToText();
}

void MessagesDialog::updateMessage()
{
    const int position = m_list->currentRow();
    const QString text = m_text->text();
    const bool updated = m_document.edit(QStringLiteral("Update Message"), [&] {
        const bool done = UpdateMessage(m_workspace.project, m_workspace.prompter, position, text);
        if (done)
            refreshMessageRow(m_workspace.project);
        return done;
    });
    if (!updated)
        return;
    m_list->item(position)->setText(m_workspace.project.messages.at(position).text);
    backToText();
}

void MessagesDialog::removeMessage()
{
    const int position = m_list->currentRow();
    const RemovalResult result = m_document.edit(QStringLiteral("Remove Message"), [&] {
        const RemovalResult removal
            = RemoveResource(m_workspace.project, m_workspace.prompter, row::Messages, position);
        if (removal.removed)
            refreshMessageRow(m_workspace.project);
        return removal;
    });
    if (!result.removed)
        return;
    delete m_list->takeItem(position);
    m_list->setCurrentRow(result.selection);
    showSelectedId();
}

void MessagesDialog::editSelected()
{
    const int position = m_list->currentRow();
    if (position < 0 || position >= m_workspace.project.messageCount)
        return;
    m_text->setText(m_workspace.project.messages.at(position).text);
    m_text->setFocus();
}

void MessagesDialog::showSelectedId()
{
    const int position = m_list->currentRow();
    if (position < 0 || position >= m_workspace.project.messageCount) {
        m_idLabel->clear();
        return;
    }
    m_idLabel->setText(QStringLiteral("Message ID: ")
        + QString::number(m_workspace.project.messages.at(position).id));
}

void MessagesDialog::backToText()
{
    m_text->clear();
    m_text->setFocus();
}

} // namespace tarvo::gui
