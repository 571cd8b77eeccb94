// The handlers of the main page: selection, ticking, the list buttons and the
// comment box. The rules live in the core list routines; every change runs
// through the project document, whose change signal updates the lines.
#include "base/checked.h"
#include "document/project_document.h"
#include "editing/event_list.h"
#include "editing/timer_list.h"
#include "main/main_page.h"
#include "shell/field_text.h"
#include "ui/prompter.h"
#include "wizard/event_wizard.h"

#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScopeGuard>
#include <QScopedValueRollback>

namespace tarvo::gui {

namespace {

// The tick a line had when the page last set or accepted it, so that a
// changed text (a rename) is not taken for a tick.
constexpr int kShownTick = Qt::UserRole + 1;

QString boxText(const QString& comment)
{
    QString text = comment;
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text;
}

void setTick(QListWidgetItem* item, bool ticked)
{
    item->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
    item->setData(kShownTick, ticked);
}

// The line current and the only one marked: a list that marks several lines
// keeps the others marked when only its current line is set.
void markOnly(QListWidget* list, int line)
{
    list->setCurrentRow(line, QItemSelectionModel::ClearAndSelect);
}

QListWidgetItem* eventLine(const EventRecord& event)
{
    auto* item = new QListWidgetItem(event.name);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    setTick(item, !event.disabled);
    return item;
}

} // namespace

int MainPage::selectedEvent() const
{
    return m_events->currentRow() < m_events->count() ? m_events->currentRow() : -1;
}

CommentPlace MainPage::commentPlace() const
{
    // The box belongs to the lines selected on this page.
    return {m_commentMode, qint16(selectedEvent()), qint16(selectedTimer())};
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
    for (int i = 0; i < heldCount(project.eventCount, project.events); ++i)
        m_events->addItem(eventLine(project.events.at(i)));
    m_eventId->clear();
    m_ticksDiverge = false;
}

void MainPage::fillTimerList()
{
    m_timers->clear();
    m_timers->addItems(m_workspace.project.timerListLines);
    m_timerId->clear();
}

void MainPage::showEventLine(int line)
{
    const Project& project = m_workspace.project;
    QListWidgetItem* item = m_events->item(line);
    const EventRecord& event = at(project.events, line, "events");
    item->setText(event.name);
    setTick(item, !event.disabled);
}

void MainPage::applyEventLines(const LineChange& lines)
{
    const QScopedValueRollback<bool> filling(m_filling, true);
    const Project& project = m_workspace.project;
    const qsizetype shown = heldCount(project.eventCount, project.events);
    const qsizetype common = std::min(lines.removed, lines.inserted);
    for (qsizetype i = 0; i < common; ++i)
        showEventLine(int(lines.offset + i));
    for (qsizetype i = common; i < lines.removed; ++i)
        delete m_events->takeItem(int(lines.offset + common));
    for (qsizetype i = common; i < lines.inserted && lines.offset + i < shown; ++i)
        m_events->insertItem(int(lines.offset + i), eventLine(project.events.at(lines.offset + i)));
}

void MainPage::applyTimerLines(const LineChange& lines)
{
    const QStringList& texts = m_workspace.project.timerListLines;
    const qsizetype common = std::min(lines.removed, lines.inserted);
    for (qsizetype i = 0; i < common; ++i)
        m_timers->item(int(lines.offset + i))->setText(texts.at(lines.offset + i));
    for (qsizetype i = common; i < lines.removed; ++i)
        delete m_timers->takeItem(int(lines.offset + common));
    for (qsizetype i = common; i < lines.inserted; ++i)
        m_timers->insertItem(int(lines.offset + i), texts.at(lines.offset + i));
}

void MainPage::projectChanged(const ProjectChange& change)
{
    // The box follows the project here; nothing the author typed is at stake.
    const QScopedValueRollback<bool> refreshing(m_refreshing, true);
    if (change.everything) {
        FillEventList();
        fillTimerList();
        RefreshCounts();
        return;
    }
    // A refill shows every line's tick from its event's flag again; lines
    // follow their events one by one otherwise, which is all a list whose
    // ticks agree with the flags needs.
    if (change.eventListAfresh && m_ticksDiverge)
        FillEventList();
    else if (change.eventLines.any())
        applyEventLines(change.eventLines);
    if (change.timerLines.any())
        applyTimerLines(change.timerLines);
    if (change.fromHistory) {
        if (change.scriptComment && m_commentMode == CommentScript)
            showScriptComment();
        else if (change.events && m_commentMode == CommentEvent)
            eventSelected();
        else if (change.timers && m_commentMode == CommentTimer)
            timerSelected();
    }
    // Lines taken away leave the line that becomes current unmarked in a
    // list that marks several.
    if (QListWidgetItem* current = m_events->currentItem(); current
        && change.eventLines.removed > change.eventLines.inserted
        && m_events->selectedItems().isEmpty())
        current->setSelected(true);
    if (change.events || change.timers)
        RefreshCounts();
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
    offerToStoreComment();
    m_commentLabel->setText(QStringLiteral("Event Comment:"));
    m_commentMode = CommentEvent;
    setBoxText(m_comment, boxText(m_workspace.project.events.at(row).comment));
    m_commentOwner
        = {CommentEvent, m_workspace.project.events.at(row).id, m_comment->toPlainText()};
}

void MainPage::TimerDescShow()
{
    const int row = selectedTimer();
    if (row < 0 || row >= m_workspace.project.timers.size())
        return;
    offerToStoreComment();
    m_commentLabel->setText(QStringLiteral("Timer Comment:"));
    m_commentMode = CommentTimer;
    setBoxText(m_comment, boxText(m_workspace.project.timers.at(row).comment));
    m_commentOwner
        = {CommentTimer, m_workspace.project.timers.at(row).id, m_comment->toPlainText()};
}

void MainPage::showScriptComment()
{
    offerToStoreComment();
    m_commentLabel->setText(QStringLiteral("Script Comment:"));
    m_commentMode = CommentScript;
    setBoxText(m_comment, boxText(m_workspace.project.scriptComment));
    m_commentOwner = {};
}

void MainPage::clearCommentBox()
{
    m_commentLabel->setText(QStringLiteral("Comment:"));
    m_commentMode = CommentNone;
    m_comment->clear();
    m_commentOwner = {};
}

void MainPage::offerToStoreComment()
{
    const CommentOwner owner = m_commentOwner;
    m_commentOwner = {};
    const QString text = m_comment->toPlainText();
    if (m_refreshing || (owner.mode != CommentEvent && owner.mode != CommentTimer)
        || text == owner.loaded)
        return;
    // Lines may have moved since the box was filled: the owner is found by ID.
    const Project& project = m_workspace.project;
    const bool event = owner.mode == CommentEvent;
    int index = -1;
    QString name;
    if (event) {
        for (int i = 0; i < heldCount(project.eventCount, project.events) && index < 0; ++i)
            if (project.events.at(i).id == owner.id)
                index = i;
        if (index >= 0)
            name = project.events.at(index).name;
    } else {
        for (int i = 0; i < heldCount(project.timerCount, project.timers) && index < 0; ++i)
            if (project.timers.at(i).id == owner.id)
                index = i;
        if (index >= 0)
            name = project.timers.at(index).name;
    }
    if (index < 0)
        return;
    if (m_workspace.prompter.message(
            QStringLiteral("The comment of the %1 \"%2\" was changed but not stored with Update. "
                           "Store it?")
                .arg(event ? QStringLiteral("event") : QStringLiteral("timer"), name),
            Prompter::Icon::Question, Prompter::Buttons::YesNo)
        != Prompter::Answer::Yes)
        return;
    const CommentPlace place {
        qint16(owner.mode), qint16(event ? index : -1), qint16(event ? -1 : index)};
    m_document.edit(
        QStringLiteral("Update Comment"), [&] { CommitComment(m_workspace.project, place, text); });
}

void MainPage::commitCommentBox()
{
    const CommentPlace place = commentPlace();
    const QString text = m_comment->toPlainText();
    m_document.edit(
        QStringLiteral("Update Comment"), [&] { CommitComment(m_workspace.project, place, text); });
    m_commentOwner.loaded = text;
    notePendingText();
}

void MainPage::notePendingText()
{
    const CommentPlace place = commentPlace();
    const QString* stored = storedComment(m_workspace.project, place);
    const QString text = m_comment->toPlainText();
    const QString box = m_comment->objectName();
    if (!stored || text == boxText(*stored)) {
        m_document.clearPendingText(box);
        return;
    }
    m_document.setPendingText(
        box, [place, text](Project& project) { CommitComment(project, place, text); });
}

void MainPage::reloadFromProject()
{
    m_commentOwner = {}; // the box's text belonged to the project replaced
    FillEventList();
    fillTimerList();
    showScriptComment();
    RefreshCounts();
}

void MainPage::selectionRestored(const ViewSelection& selection)
{
    // Undo and redo put the author back on the line the step was made on.
    const bool event = selection.event >= 0 && selection.event < m_events->count();
    const bool timer = selection.timer >= 0 && selection.timer < m_timers->count();
    if (timer && (selection.onTimer || !event))
        selectTimer(selection.timer);
    else if (event)
        selectEvent(selection.event);
}

void MainPage::selectEvent(int line)
{
    markOnly(m_events, line);
    eventSelected();
}

void MainPage::selectTimer(int line)
{
    m_timers->setCurrentRow(line);
    timerSelected();
}

void MainPage::eventSelected()
{
    if (m_filling)
        return;
    Q_EMIT selectionChanged();
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
    Q_EMIT selectionChanged();
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
    setTick(m_events->item(line), ticked);
}

void MainPage::eventItemChanged(QListWidgetItem* item)
{
    if (m_filling)
        return;
    const int line = m_events->row(item);
    const bool ticked = item->checkState() == Qt::Checked;
    // Text changes (renames) also arrive here; only a changed tick counts.
    if (ticked == item->data(kShownTick).toBool())
        return;
    // A failing rule leaves the line as it was, like the event.
    auto restore = qScopeGuard([&] { setLineTicked(line, !ticked); });
    const TickOutcome outcome = m_document.editEvents(
        ticked ? QStringLiteral("Enable Event") : QStringLiteral("Disable Event"),
        oneEventStretch(line),
        [&] { return setEventTicked(m_workspace, line, ticked, item->text()); });
    restore.dismiss();
    setLineTicked(line, outcome == TickOutcome::Refused ? false : ticked);
}

void MainPage::showEventMenu(const QPoint& position)
{
    // A click on a marked line keeps the lines marked with it.
    QListWidgetItem* item = m_events->itemAt(position);
    if (item && !item->isSelected())
        m_events->setCurrentItem(item, QItemSelectionModel::ClearAndSelect);
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
    if (row < 0)
        return;
    m_document.editEvents(QStringLiteral("Rename Event"), oneEventStretch(row),
        [&] { tarvo::renameEvent(m_workspace.project, row, m_workspace.prompter); });
}

void MainPage::renameTimer()
{
    const int row = selectedTimer();
    if (row < 0)
        return;
    m_document.edit(QStringLiteral("Rename Timer"),
        [&] { tarvo::renameTimer(m_workspace.project, row, m_workspace.prompter); });
}

void MainPage::deleteEvent()
{
    const QList<int> lines = selectedEvents();
    if (lines.size() > 1) {
        deleteEvents(lines);
        return;
    }
    const int row = selectedEvent();
    if (row < 0)
        return;
    if (m_workspace.prompter.message(QStringLiteral("Are you sure you want to delete this event?"),
            Prompter::Icon::Question, Prompter::Buttons::YesNo)
        == Prompter::Answer::No)
        return;
    // The line that takes the deleted one's place is chosen as a list of
    // one selected line chooses it.
    m_events->setSelectionMode(QAbstractItemView::SingleSelection);
    auto marking
        = qScopeGuard([this] { m_events->setSelectionMode(QAbstractItemView::ExtendedSelection); });
    m_document.editEvents(QStringLiteral("Delete Event"), deleteStretch(m_workspace.project, row),
        [&] { DeleteEvent(m_workspace.project, row); });
    eventSelected();
}

void MainPage::deleteTimer()
{
    const int row = selectedTimer();
    if (row < 0)
        return;
    const QString question = timerInUseQuestion(m_workspace.project, row);
    if (!question.isEmpty()
        && m_workspace.prompter.message(
               question, Prompter::Icon::Question, Prompter::Buttons::YesNo)
            == Prompter::Answer::No)
        return;
    m_document.edit(QStringLiteral("Delete Timer"), [&] { DeleteTimer(m_workspace.project, row); });
    timerSelected();
}

void MainPage::copyEvent()
{
    const int row = selectedEvent();
    if (row < 0 || (m_wizard && m_wizard->conditionUpdating())) {
        m_workspace.prompter.beep();
        return;
    }
    const CopiedEvent copied = m_document.editEvents(QStringLiteral("Copy Event"),
        copyStretch(m_workspace.project), [&] { return copyEventCommand(m_workspace, row); });
    // The new line shows the copy; a refused tick leaves it unticked even
    // where the copy kept its source's enabled flag.
    if (!copied.lineTicked && copied.index < m_events->count()) {
        setLineTicked(copied.index, false);
        if (!m_workspace.project.events.at(copied.index).disabled)
            m_ticksDiverge = true;
    }
}

void MainPage::moveEvent(int direction)
{
    const QList<int> lines = selectedEvents();
    if (lines.size() > 1) {
        moveEvents(lines, direction);
        return;
    }
    const int row = selectedEvent();
    const int moved = m_document.editEvents(
        direction < 0 ? QStringLiteral("Move Event Up") : QStringLiteral("Move Event Down"),
        moveStretch(row, direction), [&] {
            m_document.showEventListAfresh();
            return tarvo::moveEvent(m_workspace.project, row, direction);
        });
    if (moved < 0)
        return;
    markOnly(m_events, moved);
}

void MainPage::updateComment()
{
    commitCommentBox();
}

} // namespace tarvo::gui
