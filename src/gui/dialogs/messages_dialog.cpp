#include "dialogs/messages_dialog.h"

#include "catalogue/project_lists.h"
#include "catalogue/reference_list.h"
#include "dialogs/guarded_call.h"
#include "model/workspace.h"
#include "resources/resource_items.h"
#include "resources/resource_removal.h"

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

MessagesDialog::MessagesDialog(Workspace& workspace, QWidget* parent)
    : QDialog(parent)
    , m_workspace(workspace)
    , m_text(new QLineEdit(this))
    , m_list(new QListWidget(this))
    , m_idLabel(new QLabel(this))
{
    setObjectName(QStringLiteral("MessagesDialog"));
    setWindowTitle(QStringLiteral("Messages"));
    m_text->setObjectName(QStringLiteral("Text1"));
    m_list->setObjectName(QStringLiteral("List1"));
    m_idLabel->setObjectName(QStringLiteral("Label1"));

    QPushButton* add = button(QStringLiteral("Command1"), QStringLiteral("Add"), this);
    QPushButton* update = button(QStringLiteral("Command4"), QStringLiteral("Update"), this);
    QPushButton* remove = button(QStringLiteral("Command2"), QStringLiteral("Remove"), this);
    QPushButton* close = button(QStringLiteral("Command3"), QStringLiteral("Close"), this);

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(update);
    buttons->addWidget(remove);
    buttons->addStretch(1);
    buttons->addWidget(close);

    auto* layout = new QGridLayout(this);
    layout->addWidget(m_text, 0, 0);
    layout->addWidget(m_list, 1, 0);
    layout->addWidget(m_idLabel, 2, 0);
    layout->addLayout(buttons, 0, 1, 3, 1);
    resize(520, 320);

    // Buttons that change the project run guarded (see guardedCall).
    const auto guarded = [this](void (MessagesDialog::*work)()) {
        return
            [this, work] { guardedCall(m_workspace.prompter, [this, work] { (this->*work)(); }); };
    };
    connect(add, &QPushButton::clicked, this, guarded(&MessagesDialog::addMessage));
    connect(update, &QPushButton::clicked, this, guarded(&MessagesDialog::updateMessage));
    connect(remove, &QPushButton::clicked, this, guarded(&MessagesDialog::removeMessage));
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_list, &QListWidget::currentRowChanged, this, &MessagesDialog::showSelectedId);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &MessagesDialog::editSelected);

    loadMessages();
}

void MessagesDialog::done(int result)
{
    refreshMessageRow(m_workspace.project);
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
    for (int i = 0; i < project.messageCount; ++i)
        m_list->addItem(project.messages.at(i).text);
}

void MessagesDialog::addMessage()
{
    const int position = AddMessage(m_workspace.project, m_workspace.prompter, m_text->text());
    if (position < 0)
        return;
    m_list->addItem(m_workspace.project.messages.at(position).text);
    backToText();
}

void MessagesDialog::updateMessage()
{
    const int position = m_list->currentRow();
    if (!UpdateMessage(m_workspace.project, m_workspace.prompter, position, m_text->text()))
        return;
    m_list->item(position)->setText(m_workspace.project.messages.at(position).text);
    backToText();
}

void MessagesDialog::removeMessage()
{
    const int position = m_list->currentRow();
    const RemovalResult result
        = RemoveResource(m_workspace.project, m_workspace.prompter, row::Messages, position);
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
