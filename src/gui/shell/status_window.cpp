#include "shell/status_window.h"

#include "ui/prompter.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvo::gui {

StatusWindow::StatusWindow(Prompter& prompter, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_prompter(prompter)
    , m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("Msgs"));
    setWindowTitle(QStringLiteral("Messages"));
    m_list->setObjectName(QStringLiteral("List1"));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto* clear = new QPushButton(QStringLiteral("Clear"), this);
    clear->setObjectName(QStringLiteral("Command1"));
    connect(clear, &QPushButton::clicked, m_list, &QListWidget::clear);
    // Lines can be longer than the list is wide; a click shows the whole text.
    connect(m_list, &QListWidget::itemClicked, this,
        [this](QListWidgetItem* item) { showWholeLine(m_list->row(item)); });

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(clear);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addLayout(buttons);
    setMinimumSize(320, 160);
    resize(520, 240);
}

void StatusWindow::addLine(const QString& line)
{
    m_list->addItem(line);
    m_list->scrollToBottom();
}

QStringList StatusWindow::lines() const
{
    QStringList result;
    for (int i = 0; i < m_list->count(); ++i)
        result.append(m_list->item(i)->text());
    return result;
}

void StatusWindow::showWholeLine(int row)
{
    if (row < 0)
        return;
    m_prompter.message(m_list->item(row)->text(), Prompter::Icon::None, Prompter::Buttons::Ok);
}

void StatusWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    Q_EMIT closedByUser();
}

} // namespace tarvo::gui
