// Commands that author many places at once: Replace across the project, and
// Copy and Paste of events between projects through the clipboard.
#include "document/project_document.h"
#include "main/main_page.h"
#include "main/main_window.h"
#include "tools/place_list_dock.h"
#include "tools/replace_dialog.h"
#include "transfer/event_paste.h"
#include "ui/prompter.h"
#include "wizard/event_wizard.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace tarvo::gui {

namespace {

// Copy and Paste belong to a text box that has the keyboard: its own
// clipboard commands run, and the events stay where they are.
bool passedToTextBox(bool copy)
{
    QWidget* focus = QApplication::focusWidget();
    if (auto* combo = qobject_cast<QComboBox*>(focus))
        focus = combo->lineEdit();
    if (auto* line = qobject_cast<QLineEdit*>(focus)) {
        copy ? line->copy() : line->paste();
        return true;
    }
    if (auto* plain = qobject_cast<QPlainTextEdit*>(focus)) {
        copy ? plain->copy() : plain->paste();
        return true;
    }
    if (auto* rich = qobject_cast<QTextEdit*>(focus)) {
        copy ? rich->copy() : rich->paste();
        return true;
    }
    return false;
}

QString counted(qsizetype n, const char* what)
{
    return QStringLiteral("%1 %2%3").arg(n).arg(QLatin1String(what)).arg(n == 1 ? "" : "s");
}

} // namespace

void MainWindow::buildReplaceCommand(QMenu* edit)
{
    addCommand(edit, "mReplace", QStringLiteral("R&eplace..."), [this] {
        showReplaceDialog();
    })->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_H));
}

void MainWindow::buildClipboardCommands(QMenu* edit)
{
    edit->addSeparator();
    addCommand(edit, "mCopy", QStringLiteral("&Copy"), [this] {
        if (!passedToTextBox(true))
            copyEvents();
    })->setShortcut(QKeySequence::Copy);
    addCommand(edit, "mPaste", QStringLiteral("&Paste"), [this] {
        if (!passedToTextBox(false))
            pasteEvents();
    })->setShortcut(QKeySequence::Paste);
    buildTemplateCommands(edit);
}

void MainWindow::keepTypedComment()
{
    // Text typed into the comment box belongs to the line selected when it
    // was typed; a paste moves the lines and a replace looks at comments, so
    // the box is stored first, as Save stores it.
    if (m_document->hasPendingText())
        m_mainPage->commitCommentBox();
}

void MainWindow::showReplaceDialog()
{
    // Before the first New or Open there is no project to change.
    if (m_workspace.project.name.isEmpty()) {
        m_workspace.prompter.beep();
        return;
    }
    // The wizard's pages hold the event being edited apart from the project
    // until it is finished; a replace beneath them would be undone by it.
    if (m_wizard->isRunning()) {
        m_workspace.prompter.message(
            QStringLiteral("Finish or cancel the event being edited before replacing texts."),
            Prompter::Icon::Information);
        return;
    }
    keepTypedComment();
    ReplaceDialog dialog(*m_document, this);
    dialog.setFindText(m_findText);
    dialog.exec();
}

void MainWindow::copyEvents()
{
    const QList<int> events = m_mainPage->selectedEvents();
    if (m_wizard->isRunning() || events.isEmpty()) {
        m_workspace.prompter.beep();
        return;
    }
    const Project& project = m_workspace.project;
    auto* data = new QMimeData;
    data->setData(QLatin1String(kEventClipMimeType), clipBytes(tarvo::copyEvents(project, events)));
    data->setText(clipText(project, events));
    QApplication::clipboard()->setMimeData(data);
}

void MainWindow::pasteEvents()
{
    if (m_workspace.project.name.isEmpty()) {
        m_workspace.prompter.beep();
        return;
    }
    if (m_wizard->isRunning()) {
        m_workspace.prompter.message(
            QStringLiteral("Finish or cancel the event being edited before pasting events."),
            Prompter::Icon::Information);
        return;
    }
    const QMimeData* data = QApplication::clipboard()->mimeData();
    if (!data || !data->hasFormat(QLatin1String(kEventClipMimeType))) {
        m_workspace.prompter.message(
            QStringLiteral("The clipboard holds no events copied by this editor."),
            Prompter::Icon::Information);
        return;
    }
    pasteClip(readClip(data->data(QLatin1String(kEventClipMimeType))),
        QStringLiteral("Paste Events"), QStringLiteral("Paste"));
}

void MainWindow::pasteClip(const EventClip& clip, const QString& label, const QString& heading)
{
    keepTypedComment();
    // After the last marked line.
    const QList<int> marked = m_mainPage->selectedEvents();
    const int after = marked.isEmpty() ? -1 : marked.last();
    const PasteReport report
        = m_document->edit(label, [&] { return tarvo::pasteEvents(m_workspace, clip, after); });
    if (report.count > 0)
        m_mainPage->selectEvent(report.first);

    const Project& project = m_workspace.project;
    QList<PlaceListDock::Line> lines;
    for (int e = report.first; e < report.first + report.count; ++e)
        lines.append({QStringLiteral("Pasted: event '%1' (ID %2)")
                          .arg(project.events.at(e).name)
                          .arg(project.events.at(e).id),
            {ProjectPlace::Owner::Event, e}});
    for (const QString& line : pasteReportLines(report))
        lines.append({line, {}, line.startsWith(QLatin1String("Warning"))});
    m_results->showLines(QStringLiteral("%1: %2, %3 matched, %4 created, %5")
                             .arg(heading)
                             .arg(counted(report.count, "event"))
                             .arg(report.matched.size())
                             .arg(report.created.size())
                             .arg(counted(report.warnings.size(), "warning")),
        lines);
    m_results->show();
    m_results->raise();
}

} // namespace tarvo::gui
