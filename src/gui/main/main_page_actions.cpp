// The handlers of the main page: selection, ticking, the list buttons and the
// comment box. The rules themselves live in the core list routines.
#include "catalogue/project_lists.h"
#include "editing/event_list.h"
#include "editing/timer_list.h"
#include "main/main_page.h"
#include "model/file_error.h"
#include "model/workspace.h"
#include "ui/prompter.h"
#include "wizard/event_wizard.h"

#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScopedValueRollback>

namespace tarvo::gui {

namespace {

QString boxText(const QString& comment)
{
    QString text = comment;
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text;
}

} // namespace

bool MainPage::guarded(const std::function<void()>& step)
{
    try {
        step();
        return true;
    } catch (const DataError& error) {
        m_workspace.prompter.message(error.sentence(), Prompter::Icon::Critical);
    } catch (const FileError& error) {
        m_workspace.prompter.message(error.message(), Prompter::Icon::Critical);
    }
    return false;
}

int MainPage::selectedEvent() const
{
    return m_events->currentRow() < m_events->count() ? m_events->currentRow() : -1;
}

int MainPage::selectedTimer() const
{
    return m_timers->currentRow() < m_timers->count() ? m_timers->currentRow() : -1;
}

void MainPage::FillEventList()
{
    const QScopedValueRollback<bool> filling(m_filling, true);
    const Project& project = m_workspace.project;
    m_events->clear();
    for (int i = 0; i < project.eventCount && i < project.events.size(); ++i) {
        auto* item = new QListWidgetItem(project.events.at(i).name, m_events);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(project.events.at(i).disabled ? Qt::Unchecked : Qt::Checked);
    }
    m_eventId->clear();
}

void MainPage::fillTimerList()
{
    const Project& project = m_workspace.project;
    m_timers->clear();
    for (int i = 0; i < project.timerCount && i < project.timers.size(); ++i)
        m_timers->addItem(project.timers.at(i).name);
    m_timerId->clear();
}

void MainPage::RefreshEventCount()
{
    m_panels.events->setText(eventCountText(m_workspace.project));
}

void MainPage::RefreshTimerCount()
{
    m_panels.timers->setText(timerCountText(m_workspace.project));
}

void MainPage::RefreshCounts()
{
    RefreshEventCount();
    RefreshTimerCount();
    m_panels.actions->setText(actionCountText(m_workspace.project, selectedEvent()));
}

void MainPage::EventDescShow()
{
    const int row = selectedEvent();
    if (row < 0 || row >= m_workspace.project.events.size())
        return;
    m_commentLabel->setText(QStringLiteral("Event Comment:"));
    m_workspace.project.commentMode = CommentEvent;
    m_comment->setPlainText(boxText(m_workspace.project.events.at(row).comment));
}

void MainPage::TimerDescShow()
{
    const int row = selectedTimer();
    if (row < 0 || row >= m_workspace.project.timers.size())
        return;
    m_commentLabel->setText(QStringLiteral("Timer Comment:"));
    m_workspace.project.commentMode = CommentTimer;
    m_comment->setPlainText(boxText(m_workspace.project.timers.at(row).comment));
}

void MainPage::showScriptComment()
{
    m_commentLabel->setText(QStringLiteral("Script Comment:"));
    m_workspace.project.commentMode = CommentScript;
    m_comment->setPlainText(boxText(m_workspace.project.scriptComment));
}

void MainPage::commitCommentBox()
{
    // The box belongs to the lines selected on this page; the project's own
    // selection indices are the wizard's, so they are only borrowed here.
    Project& project = m_workspace.project;
    const QScopedValueRollback<qint16> event(project.selectedEvent, qint16(selectedEvent()));
    const QScopedValueRollback<qint16> timer(project.selectedTimer, qint16(selectedTimer()));
    CommitComment(project, m_comment->toPlainText());
}

void MainPage::reloadFromProject()
{
    FillEventList();
    fillTimerList();
    showScriptComment();
    RefreshCounts();
}

void MainPage::eventSelected()
{
    if (m_filling)
        return;
    m_eventId->clear();
    const int row = selectedEvent();
    if (row >= 0 && row < m_workspace.project.events.size()) {
        m_eventId->setText(
            QStringLiteral("ID: ") + QString::number(m_workspace.project.events.at(row).id));
        EventDescShow();
    }
    RefreshCounts();
}

void MainPage::timerSelected()
{
    m_timerId->clear();
    const int row = selectedTimer();
    if (row >= 0 && row < m_workspace.project.timers.size()) {
        m_timerId->setText(
            QStringLiteral("ID: ") + QString::number(m_workspace.project.timers.at(row).id));
        TimerDescShow();
    }
}

void MainPage::setLineTicked(int line, bool ticked)
{
    const QScopedValueRollback<bool> filling(m_filling, true);
    m_events->item(line)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
}

void MainPage::eventItemChanged(QListWidgetItem* item)
{
    if (m_filling)
        return;
    const int line = m_events->row(item);
    Project& project = m_workspace.project;
    if (line < 0 || line >= project.eventCount || line >= project.events.size())
        return;
    const bool ticked = item->checkState() == Qt::Checked;
    // Text changes (renames) also arrive here; only a changed tick counts.
    if (ticked == !project.events.at(line).disabled)
        return;
    TickOutcome outcome = TickOutcome::Refused;
    if (!guarded([&] { outcome = setEventTicked(m_workspace, line, ticked, item->text()); }))
        setLineTicked(line, !project.events.at(line).disabled);
    else if (outcome == TickOutcome::Refused)
        setLineTicked(line, false);
    RefreshCounts();
}

void MainPage::showEventMenu(const QPoint& position)
{
    if (QListWidgetItem* item = m_events->itemAt(position))
        m_events->setCurrentItem(item);
    m_eventMenu->popup(m_events->viewport()->mapToGlobal(position));
}

void MainPage::newEvent()
{
    if (m_wizard)
        m_wizard->startNewEvent();
}

void MainPage::editEvent()
{
    const int row = selectedEvent();
    if (row >= 0 && m_wizard)
        m_wizard->editEvent(row);
}

void MainPage::editTimer()
{
    const int row = selectedTimer();
    if (row >= 0 && m_wizard)
        m_wizard->editTimer(row);
}

void MainPage::renameEvent()
{
    const int row = selectedEvent();
    bool renamed = false;
    if (row < 0 || !guarded([&] {
            renamed = tarvo::renameEvent(m_workspace.project, row, m_workspace.prompter);
        })
        || !renamed)
        return;
    const QScopedValueRollback<bool> filling(m_filling, true);
    m_events->item(row)->setText(m_workspace.project.events.at(row).name);
}

void MainPage::renameTimer()
{
    const int row = selectedTimer();
    bool renamed = false;
    if (row < 0 || !guarded([&] {
            renamed = tarvo::renameTimer(m_workspace.project, row, m_workspace.prompter);
        })
        || !renamed)
        return;
    m_timers->item(row)->setText(m_workspace.project.timers.at(row).name);
}

void MainPage::deleteEvent()
{
    const int row = selectedEvent();
    if (row < 0)
        return;
    if (m_workspace.prompter.message(QStringLiteral("Are you sure you want to delete this event?"),
            Prompter::Icon::Question, Prompter::Buttons::YesNo)
        == Prompter::Answer::No)
        return;
    if (!guarded([&] { DeleteEvent(m_workspace.project, row); }))
        return;
    {
        const QScopedValueRollback<bool> filling(m_filling, true);
        delete m_events->takeItem(row);
    }
    eventSelected();
}

void MainPage::deleteTimer()
{
    const int row = selectedTimer();
    if (row < 0)
        return;
    if (!guarded([&] { DeleteTimer(m_workspace.project, row); }))
        return;
    // Only the line goes: the list keeps its other names even where the
    // array now differs (see DeleteTimer).
    delete m_timers->takeItem(row);
    RefreshTimerCount();
    timerSelected();
}

void MainPage::copyEvent()
{
    const int row = selectedEvent();
    if (row < 0 || (m_wizard && m_wizard->conditionUpdating())) {
        m_workspace.prompter.beep();
        return;
    }
    int copy = -1;
    if (!guarded([&] { copy = CopyEvent(m_workspace.project, row); }))
        return;
    QListWidgetItem* item;
    {
        const QScopedValueRollback<bool> filling(m_filling, true);
        item = new QListWidgetItem(m_events->item(row)->text(), m_events);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    // Ticking the new line goes through the enabling rule like a user's tick.
    const bool wasDisabled = m_workspace.project.events.at(copy).disabled;
    m_workspace.project.events[copy].disabled = true;
    item->setCheckState(Qt::Checked);
    if (item->checkState() != Qt::Checked)
        m_workspace.project.events[copy].disabled = wasDisabled;
    RefreshCounts();
}

void MainPage::moveEvent(int direction)
{
    int moved = -1;
    if (!guarded([&] { moved = tarvo::moveEvent(m_workspace.project, selectedEvent(), direction); })
        || moved < 0)
        return;
    FillEventList();
    m_events->setCurrentRow(moved);
}

void MainPage::updateComment()
{
    commitCommentBox();
}

} // namespace tarvo::gui
