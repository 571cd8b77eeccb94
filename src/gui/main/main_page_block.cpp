// The main page's commands on several marked event lines at once. The rules
// are the core's (editing/event_block.h); each command is one step.
#include "document/project_document.h"
#include "editing/event_block.h"
#include "editing/new_items.h"
#include "main/main_page.h"
#include "shell/guard.h"
#include "ui/prompter.h"
#include "wizard/event_wizard.h"

#include <QKeyEvent>
#include <QListWidget>

namespace tarvo::gui {

bool MainPage::eventFilter(QObject* watched, QEvent* event)
{
    // A list that marks several lines takes Ctrl+Up and Ctrl+Down for
    // moving its current line alone; here they stay the Move buttons' keys.
    if (watched == m_events && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() == Qt::ControlModifier
            && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)) {
            guard(m_workspace.prompter,
                [this, up = key->key() == Qt::Key_Up] { moveEvent(up ? -1 : 1); })();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

QList<int> MainPage::selectedEvents() const
{
    QList<int> lines;
    for (const QModelIndex& index : m_events->selectionModel()->selectedIndexes())
        lines.append(index.row());
    std::sort(lines.begin(), lines.end());
    if (lines.isEmpty() && selectedEvent() >= 0)
        lines.append(selectedEvent());
    return lines;
}

void MainPage::selectEvents(const QList<int>& lines)
{
    if (lines.isEmpty())
        return;
    selectEvent(lines.first());
    for (const int line : lines) {
        if (QListWidgetItem* item = m_events->item(line))
            item->setSelected(true);
    }
}

void MainPage::deleteEvents(const QList<int>& lines)
{
    if (m_workspace.prompter.message(deleteEventsQuestion(int(lines.size())),
            Prompter::Icon::Question, Prompter::Buttons::YesNo)
        == Prompter::Answer::No)
        return;
    Project& project = m_workspace.project;
    m_document.editEvents(QStringLiteral("Delete Events"), deleteEventsStretch(project, lines),
        [&] { tarvo::deleteEvents(project, lines); });
    if (m_events->count() > 0)
        selectEvent(std::min(lines.first(), m_events->count() - 1));
    else
        eventSelected();
}

void MainPage::moveEvents(const QList<int>& lines, int direction)
{
    Project& project = m_workspace.project;
    const QList<int> moved = m_document.editEvents(
        direction < 0 ? QStringLiteral("Move Events Up") : QStringLiteral("Move Events Down"),
        moveEventsStretch(lines, direction), [&] {
            m_document.showEventListAfresh();
            return tarvo::moveEvents(project, lines, direction);
        });
    if (moved.isEmpty())
        return;
    selectEvents(moved);
}

void MainPage::newTimer()
{
    if (m_wizardRunning || !m_wizard) {
        m_workspace.prompter.beep();
        return;
    }
    // The timer is made as one step; its trigger is then chosen on the
    // trigger page, as Edit chooses it, in a step of its own.
    const int index = m_document.edit(QStringLiteral("New Timer"),
        [&] { return tarvo::newTimer(m_workspace.project, m_workspace.prompter); });
    if (index < 0)
        return;
    selectTimer(index);
    m_wizard->editTimer(index);
}

void MainPage::switchEvents(bool on)
{
    const QList<int> lines = selectedEvents();
    if (lines.isEmpty() || m_wizardRunning) {
        m_workspace.prompter.beep();
        return;
    }
    m_document.editEvents(
        on ? QStringLiteral("Switch Events On") : QStringLiteral("Switch Events Off"),
        blockStretch(m_workspace.project, lines),
        [&] { return setEventsTicked(m_workspace, lines, on); });
    // The document's change shows the lines' flags and the counts again; the
    // marks stay.
}

} // namespace tarvo::gui
