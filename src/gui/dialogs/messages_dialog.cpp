#include "dialogs/messages_dialog.h"

#include "base/checked.h"
#include "document/project_document.h"
#include "records/reference_list.h"
#include "resources/resource_commands.h"
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

    // The list follows every change of the messages, the dialog's own and
    // undo's.
    connect(&m_document, &ProjectDocument::changed, this, [this](const ProjectChange& change) {
        if (change.messages || change.everything)
            showMessages();
    });
    showMessages();
}

void MessagesDialog::done(int result)
{
    // The messages row was kept current by every change: nothing to refill.
    QCoreApplication::processEvents();
    QDialog::done(result);
}

void MessagesDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_text->setFocus();
}

void MessagesDialog::showMessages()
{
    QStringList lines;
    const Project& project = m_workspace.project;
    for (int i = 0; i < heldCount(project.messageCount, project.messages); ++i)
        lines.append(project.messages.at(i).text);
    syncLines(m_list, lines);
    showSelectedId();
}

void MessagesDialog::addMessage()
{
    if (AddMessage(m_document, m_text->text()) >= 0)
        backToText();
}

void MessagesDialog::updateMessage()
{
    if (UpdateMessage(m_document, m_list->currentRow(), m_text->text()))
        backToText();
}

void MessagesDialog::removeMessage()
{
    const RemovalResult result = RemoveMessage(m_document, m_list->currentRow());
    if (!result.removed)
        return;
    showLine(m_list, result.selection);
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
