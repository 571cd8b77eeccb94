// Edit > Save as Template and Insert from Template: marked events kept in a
// file of the author's data folder, inserted into any project later with the
// placeholders of their names asked for once.
#include "main/main_page.h"
#include "main/main_window.h"
#include "transfer/event_template.h"
#include "ui/prompter.h"
#include "wizard/event_wizard.h"

#include <QDir>
#include <QFile>
#include <QMenu>
#include <QStandardPaths>
#include <QStatusBar>

namespace tarvo::gui {

void MainWindow::buildTemplateCommands(QMenu* edit)
{
    edit->addSeparator();
    addCommand(
        edit, "mSaveTemplate", QStringLiteral("Save as &Template..."), [this] { saveTemplate(); });
    addCommand(edit, "mInsertTemplate", QStringLiteral("&Insert from Template..."),
        [this] { insertTemplate(); });
}

QStringList MainWindow::templateFolders() const
{
    // The author's own templates first: one of the same name hides the
    // program's.
    return {QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
            + QStringLiteral("/templates"),
        m_workspace.paths.programDir + QStringLiteral("/templates")};
}

void MainWindow::saveTemplate()
{
    const QList<int> events = m_mainPage->selectedEvents();
    if (m_wizard->isRunning() || events.isEmpty()) {
        m_workspace.prompter.beep();
        return;
    }
    Prompter& prompter = m_workspace.prompter;
    const QString title = QStringLiteral("Save as Template");
    const QString name = prompter
                             .input(QStringLiteral("The name of the template:"), title,
                                 m_workspace.project.events.at(events.first()).name)
                             .trimmed();
    if (name.isEmpty())
        return;
    const QString description = prompter.input(
        QStringLiteral("What the template does (shown when it is inserted; names in braces "
                       "such as {base} are asked for then):"),
        title);
    const QString folder = templateFolders().first();
    const QString path = QDir(folder).filePath(templateFileName(name));
    if (QFile::exists(path)
        && prompter.message(QStringLiteral("A template named \"%1\" exists. Replace it?").arg(name),
               Prompter::Icon::Question, Prompter::Buttons::YesNo)
            != Prompter::Answer::Yes)
        return;
    QDir().mkpath(folder);
    QFile file(path);
    const QByteArray bytes
        = templateBytes(tarvo::copyEvents(m_workspace.project, events), description);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        prompter.message(QStringLiteral("The template could not be saved to \"%1\": %2")
                             .arg(QDir::toNativeSeparators(path), file.errorString()),
            Prompter::Icon::Critical);
        return;
    }
    statusBar()->showMessage(
        QStringLiteral("Template saved: %1").arg(QDir::toNativeSeparators(path)), 8000);
}

void MainWindow::insertTemplate()
{
    Prompter& prompter = m_workspace.prompter;
    if (m_workspace.project.name.isEmpty()) {
        prompter.beep();
        return;
    }
    if (m_wizard->isRunning()) {
        prompter.message(
            QStringLiteral("Finish or cancel the event being edited before inserting events."),
            Prompter::Icon::Information);
        return;
    }
    const QString title = QStringLiteral("Insert from Template");
    QStringList skipped;
    const QList<EventTemplate> templates = listTemplates(templateFolders(), &skipped);
    for (const QString& line : skipped)
        addNote(QStringLiteral("Template left out: ") + line);
    if (templates.isEmpty()) {
        prompter.message(QStringLiteral("There are no templates yet: Save as Template keeps the "
                                        "marked events as one."),
            Prompter::Icon::Information);
        return;
    }
    QStringList items;
    for (const EventTemplate& t : templates)
        items << (t.description.isEmpty() ? t.name
                                          : t.name + QStringLiteral(" - ") + t.description);
    const int chosen = prompter.chooseItem(QStringLiteral("Insert which template?"), title, items);
    if (chosen < 0)
        return;
    const EventTemplate& picked = templates.at(chosen);
    QMap<QString, QString> values;
    for (const QString& placeholder : picked.placeholders) {
        for (;;) {
            const QString value
                = prompter.input(QStringLiteral("The value of {%1}:").arg(placeholder), title);
            if (value.isEmpty())
                return; // Cancel: nothing is inserted
            const QString refusal = placeholderRefusal(value);
            if (refusal.isEmpty()) {
                values[placeholder] = value;
                break;
            }
            prompter.message(refusal, Prompter::Icon::Exclamation);
        }
    }
    pasteClip(fillTemplate(picked, values), QStringLiteral("Insert Template"),
        QStringLiteral("Template '%1'").arg(picked.name));
}

} // namespace tarvo::gui
