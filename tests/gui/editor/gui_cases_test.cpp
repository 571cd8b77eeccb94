// The editor driven as a user drives it. Each folder of tests/data/gui/cases
// holds the steps (menu items, clicks, typing, answers to the questions) and
// the log they must give: every prompt in order and the state of the controls
// a step shows. A step names a control by its role, as the user knows it
// ("RenameEvent"); tests/data/gui/roles.txt gives the object name each role
// stands for, and a name that is no role is taken as an object name. Controls
// are found by object name: first in an open modal dialog, then on the
// current page, then anywhere in the main window; "A/B" is control B inside A.
//
// clang-format off
// Steps, in the dialect of case_files.h ("~" an empty field, "\n" a line break):
//   program DIR           program folder below tests/data/gui (first step)
//   open NAME             opens projects/NAME as the command line does
//   file NAME | ~         answer of the next file dialog, in the case's
//                         temporary folder; a project of that name in
//                         projects/ is copied there first
//   answer Yes|No         answer of the next question
//   choose N              answer of the next choice or list (-1 cancels)
//   input TEXT            answer of the next input box
//   menu NAME [| CAPTION] a menu item; with CAPTION, the unnamed item of menu
//                         NAME whose caption starts so
//   click NAME [| ROW]    a button, or a line of a list
//   select NAME | ROW     a list line, combo box item or tab
//   tick NAME | ROW | on|off
//   mark NAME | ROWS      list lines "0,2" marked as Ctrl+click marks them
//   ctrlclick NAME        a Ctrl+click into the text of a box
//   type NAME | TEXT      the whole text at once
//   keys NAME | TEXT      key by key, so that the box may refuse a character
//   key NAME | KEY        one key, shortcuts included ("F2", "Ctrl+Z")
//   double NAME | ROW     a double click on a list line
//   popup NAME | ROW      the pop-up menu of a list line, logged and closed
//   show NAME...          controls, or: title, panels, project, opened, focus,
//                         geometry, message (of the status bar), menubar
//                         (the menu the keys opened, closed again),
//                         layout:NAME (how a window arranges its controls)
//                         and file:NAME (a file of the temporary folder)
//   wait                  lets the editor's timers run (preview, issues)
//   status KIND | TEXT    a status line, as a broken reference reports one
//   remove NAME           deletes a file of the temporary folder
//   put FILE | NAME       copies FILE below tests/data/gui over NAME of the
//                         temporary folder (a catalogue edited meanwhile)
//   crash                 leaves a recovery copy as an editor that ended would
//   recover               offers recovered work as at start-up
//   restart               the editor closed by the user and started again
//   close                 closes the main window
// clang-format on
#include "case_files.h"
#include "document/project_file.h"
#include "document/recovery_store.h"
#include "main/main_window.h"
#include "program_folder.h"
#include "shell/folder_opener.h"
#include "shell/start_up.h"
#include "shell/status_window.h"
#include "test_paths.h"
#include "widget_state.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSettings>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

using namespace tarvo;

namespace {

class RecordingFolderOpener : public gui::FolderOpener
{
public:
    QStringList opened;
    void openFolder(const QString& path) override { opened.append(path); }
};

// Role -> object name, from the one table all cases share.
QHash<QString, QString> readRoles()
{
    QHash<QString, QString> roles;
    const QString text
        = QString::fromUtf8(readBytes(testDataDir() + QStringLiteral("/gui/roles.txt")));
    for (const QString& line : text.split(u'\n')) {
        if (line.trimmed().isEmpty() || line.startsWith(u'#'))
            continue;
        const QStringList words = line.split(u' ', Qt::SkipEmptyParts);
        if (words.size() != 2 || roles.contains(words.at(0)))
            ADD_FAILURE() << "roles.txt: " << line.toStdString();
        else
            roles.insert(words.at(0), words.at(1));
    }
    return roles;
}

class CaseRun
{
public:
    explicit CaseRun(const QString& folder)
        : m_steps(readSteps(folder))
    {
    }

    QString run()
    {
        // Settings and recovery copies of each case stay in its own folder,
        // never the user's, and cases may run side by side.
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_dir.path());
        qputenv("XDG_DATA_HOME", m_dir.filePath("data").toLocal8Bit());
        const QString program = m_steps.value(0).word == u"program"
            ? m_steps.takeFirst().fields.value(0)
            : QStringLiteral("program");
        copyProgram(testDataDir() + QStringLiteral("/gui/") + program);
        startWindow(true);
        QTimer::singleShot(1, [this] { next(); });
        m_loop.exec();
        flush();
        m_workspace->project.name.clear(); // closing must not ask
        m_window.reset();
        return m_log.join(u'\n') + u'\n';
    }

private:
    void copyProgram(const QString& program)
    {
        QDir().mkpath(m_dir.filePath("program"));
        for (const QString& name : QDir(program).entryList(QDir::Files))
            QFile::copy(program + u'/' + name, m_dir.filePath("program/") + name);
    }

    // A first start sets the window size; a restart shows what the editor
    // remembered.
    void startWindow(bool first)
    {
        m_workspace = std::make_unique<Workspace>(m_dir.filePath("program"), m_prompter);
        const QString error = gui::startUpWorkspace(*m_workspace);
        if (!error.isEmpty())
            m_log.append(QStringLiteral("start-up error: ") + error);
        m_window = std::make_unique<gui::MainWindow>(*m_workspace, &m_opener);
        if (first)
            m_window->resize(1000, 760);
        m_window->show();
    }

    // One step a turn of the event loop, the next one queued first: a step
    // that opens a modal dialog runs the following steps inside it. The next
    // step waits on a timer, so what a step posted is handled before it. A step
    // that only lets the interface process its events (a dialog closing, a
    // wait) finishes before the next one starts.
    void next()
    {
        if (!m_running.isEmpty() && QApplication::activeModalWidget() == m_running.last()) {
            QTimer::singleShot(1, [this] { next(); });
            return;
        }
        if (m_next == m_steps.size()) {
            while (QWidget* modal = QApplication::activeModalWidget()) {
                note(QStringLiteral("left open: ") + modal->objectName());
                modal->close();
            }
            m_loop.quit();
            return;
        }
        const CaseStep step = m_steps.at(m_next++);
        flush();
        QTimer::singleShot(1, [this] { next(); });
        m_running.append(QApplication::activeModalWidget());
        try {
            perform(step);
        } catch (const std::exception& error) {
            note(QStringLiteral("error: %1 (in \"%2\")").arg(error.what(), step.line));
        }
        m_running.removeLast();
    }

    void flush()
    {
        for (; m_shown < m_prompter.prompts.size(); ++m_shown)
            write(promptLine(m_prompter.prompts.at(m_shown)));
    }

    // A line of the log after the prompts shown so far.
    void note(const QString& text)
    {
        flush();
        write(text);
    }

    void write(QString text)
    {
        static const QRegularExpression written(QStringLiteral("written on .*? was kept"));
        m_log.append(text.replace(testDataDir(), QStringLiteral("<data>"))
                         .replace(m_dir.path(), QStringLiteral("<temp>"))
                         .replace(written, QStringLiteral("written on <time> was kept")));
    }

    QObject* find(const QString& path) const
    {
        QObject* found = nullptr;
        for (const QString& step : path.split(u'/')) {
            const QString name = m_roles.value(step, step);
            QList<QObject*> scopes;
            if (found)
                scopes = {found};
            else {
                if (QWidget* modal = QApplication::activeModalWidget())
                    scopes.append(modal);
                scopes.append(m_window->findChild<QTabWidget*>("Tab1")->currentWidget());
                scopes.append(m_window.get());
                for (QWidget* top : QApplication::topLevelWidgets())
                    scopes.append(top);
            }
            found = nullptr;
            for (QObject* scope : scopes) {
                QList<QObject*> matches = scope->findChildren<QObject*>(name);
                if (scope->objectName() == name)
                    matches.prepend(scope);
                if (matches.size() > 1)
                    throw std::runtime_error(
                        "more than one control is named " + name.toStdString());
                if (!matches.isEmpty()) {
                    found = matches.first();
                    break;
                }
            }
            if (!found && m_roles.contains(step)) {
                // A role whose control is gone: the table is wrong, whatever
                // the expected log says.
                ADD_FAILURE() << "role " << step.toStdString() << " (" << name.toStdString()
                              << ") names no widget";
            }
            if (!found)
                throw std::runtime_error("no control is named " + step.toStdString());
        }
        return found;
    }

    template <typename T> T* control(const QString& name) const
    {
        T* typed = qobject_cast<T*>(find(name));
        if (!typed)
            throw std::runtime_error(
                name.toStdString() + " is not a " + T::staticMetaObject.className());
        return typed;
    }

    // A user cannot reach a control that is switched off or hidden.
    bool reachable(QObject* object, const CaseStep& step)
    {
        auto* widget = qobject_cast<QWidget*>(object);
        if (!widget || (widget->isEnabled() && widget->isVisibleTo(widget->window())))
            return true;
        note(QStringLiteral("cannot: ") + step.line);
        return false;
    }

    void perform(const CaseStep& step)
    {
        const QString& word = step.word;
        const QString name = step.fields.value(0);
        if (word == u"open") {
            m_window->openProjectFile(fixtureCopy(name));
        } else if (word == u"file") {
            m_prompter.fileNames.append(name.isEmpty() ? QString() : fixtureCopy(name));
        } else if (word == u"answer") {
            m_prompter.answers.append(
                name == u"Yes" ? Prompter::Answer::Yes : Prompter::Answer::No);
        } else if (word == u"choose") {
            m_prompter.choices.append(step.number(0));
        } else if (word == u"input") {
            m_prompter.inputs.append(name);
        } else if (word == u"menu") {
            QAction* action = step.fields.size() > 1 ? menuItem(name, step.fields.at(1))
                                                     : control<QAction>(name);
            if (action->isEnabled())
                action->trigger();
            else
                note(QStringLiteral("cannot: ") + step.line);
        } else if (word == u"click" && step.fields.size() > 1) {
            auto* list = control<QListWidget>(name);
            plainClick(list, step.number(1));
            Q_EMIT list->itemClicked(line(list, step.number(1)));
        } else if (word == u"click") {
            if (auto* button = control<QAbstractButton>(name); reachable(button, step))
                button->click();
        } else if (word == u"select") {
            if (QObject* target = find(name); reachable(target, step))
                select(target, step.number(1));
        } else if (word == u"ctrlclick") {
            auto* box = control<QComboBox>(name);
            QTest::mouseClick(box->lineEdit(), Qt::LeftButton, Qt::ControlModifier);
        } else if (word == u"mark") {
            auto* list = control<QListWidget>(name);
            const QStringList rows = step.fields.value(1).split(u',');
            list->setCurrentRow(rows.first().toInt(), QItemSelectionModel::ClearAndSelect);
            for (const QString& row : rows)
                line(list, row.toInt())->setSelected(true);
        } else if (word == u"tick") {
            if (auto* list = control<QListWidget>(name); reachable(list, step))
                line(list, step.number(1))
                    ->setCheckState(step.fields.value(2) == u"on" ? Qt::Checked : Qt::Unchecked);
        } else if (word == u"type") {
            if (QObject* target = find(name); reachable(target, step))
                type(target, step.fields.value(1));
        } else if (word == u"keys") {
            if (QObject* target = find(name); reachable(target, step))
                typeKeys(target, step.fields.value(1));
        } else if (word == u"key") {
            if (QObject* target = find(name); reachable(target, step))
                press(target, QKeySequence::fromString(step.fields.value(1))[0]);
        } else if (word == u"double") {
            auto* list = control<QListWidget>(name);
            plainClick(list, step.number(1));
            Q_EMIT list->itemDoubleClicked(line(list, step.number(1)));
            Q_EMIT list->itemActivated(line(list, step.number(1)));
        } else if (word == u"popup") {
            popup(control<QListWidget>(name), step.number(1));
        } else if (word == u"show") {
            for (const QString& shown : name.split(u' '))
                show(shown);
        } else if (word == u"wait") {
            QElapsedTimer timer;
            timer.start();
            while (timer.elapsed() < 500)
                QApplication::processEvents(QEventLoop::AllEvents, 50);
        } else if (word == u"status") {
            m_window->AddStatusLine(name, step.fields.value(1));
        } else if (word == u"remove") {
            QFile::remove(m_dir.filePath(name));
        } else if (word == u"put") {
            QFile::remove(m_dir.filePath(step.fields.value(1)));
            if (!QFile::copy(testDataDir() + QStringLiteral("/gui/") + name,
                    m_dir.filePath(step.fields.value(1))))
                throw std::runtime_error("cannot put " + name.toStdString());
        } else if (word == u"crash") {
            RecoveryStore(RecoveryStore::defaultFolder()).write(m_workspace->project);
        } else if (word == u"recover") {
            note(m_window->offerRecovery() ? QStringLiteral("recovered")
                                           : QStringLiteral("nothing recovered"));
        } else if (word == u"restart") {
            // The editor ends as a user closes it and starts again.
            m_workspace->project.name.clear();
            m_window->close();
            m_window.reset();
            startWindow(false);
        } else if (word == u"close") {
            note(m_window->close() ? QStringLiteral("closed") : QStringLiteral("still open"));
        } else {
            throw std::runtime_error("unknown step");
        }
    }

    // An item without a name of its own, by the start of its caption.
    QAction* menuItem(const QString& menu, const QString& caption) const
    {
        for (QAction* action : control<QMenu>(menu)->actions()) {
            if (action->text().startsWith(caption))
                return action;
        }
        throw std::runtime_error("no item " + caption.toStdString());
    }

    QString fixtureCopy(const QString& name)
    {
        const QString copy = m_dir.filePath(name);
        const QString fixture = testDataDir() + QStringLiteral("/gui/projects/") + name;
        if (QFile::exists(fixture) && !QFile::exists(copy)) {
            QFile::copy(fixture, copy);
            QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
        }
        return copy;
    }

    static QListWidgetItem* line(QListWidget* list, int row)
    {
        if (QListWidgetItem* item = list->item(row))
            return item;
        throw std::runtime_error("no line " + std::to_string(row));
    }

    // A click without Shift or Ctrl: the line alone is marked.
    static void plainClick(QListWidget* list, int row)
    {
        list->setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
    }

    void select(QObject* object, int row)
    {
        if (auto* list = qobject_cast<QListWidget*>(object))
            plainClick(list, row);
        else if (auto* box = qobject_cast<QComboBox*>(object)) {
            box->setCurrentIndex(row);
            Q_EMIT box->activated(row);
        } else if (auto* tabs = qobject_cast<QTabWidget*>(object))
            tabs->setCurrentIndex(row);
        else
            throw std::runtime_error("cannot select in " + object->objectName().toStdString());
    }

    void type(QObject* object, const QString& text)
    {
        if (auto* box = qobject_cast<QComboBox*>(object); box && box->lineEdit())
            box->lineEdit()->setText(text);
        else if (auto* line = qobject_cast<QLineEdit*>(object))
            line->setText(text);
        else if (auto* edit = qobject_cast<QPlainTextEdit*>(object))
            edit->setPlainText(text);
        else
            throw std::runtime_error("cannot type into " + object->objectName().toStdString());
    }

    // The widget that takes the keys for `object` (a combo box's text), focused.
    static QWidget* focusedForKeys(QObject* object)
    {
        if (auto* box = qobject_cast<QComboBox*>(object); box && box->lineEdit())
            object = box->lineEdit();
        auto* widget = qobject_cast<QWidget*>(object);
        if (!widget)
            throw std::runtime_error("cannot press keys in " + object->objectName().toStdString());
        widget->activateWindow();
        widget->setFocus();
        return widget;
    }

    static void press(QObject* object, QKeyCombination key)
    {
        QTest::keyClick(focusedForKeys(object), key.key(), key.keyboardModifiers());
    }

    // Text typed key by key, so that the box may refuse a character.
    static void typeKeys(QObject* object, const QString& text)
    {
        QTest::keyClicks(focusedForKeys(object), text);
    }

    // A right click on a line: the menu that comes up, closed again.
    void popup(QListWidget* list, int row)
    {
        Q_EMIT list->customContextMenuRequested(list->visualItemRect(line(list, row)).center());
        for (QWidget* top : QApplication::topLevelWidgets()) {
            if (auto* menu = qobject_cast<QMenu*>(top); menu && menu->isVisible())
                note(QStringLiteral("popup: ") + widgetState(menu));
        }
        closeMenus();
    }

    static void closeMenus()
    {
        for (QWidget* top : QApplication::topLevelWidgets()) {
            if (auto* menu = qobject_cast<QMenu*>(top); menu && menu->isVisible())
                menu->hide();
        }
    }

    void show(const QString& name)
    {
        if (name == u"title") {
            note(QStringLiteral("title: ") + m_window->windowTitle());
        } else if (name == u"panels") {
            QStringList panels;
            for (int i = 1; i <= 4; ++i)
                panels.append(control<QLabel>(QStringLiteral("StatusBar1_Panel%1").arg(i))->text());
            note(QStringLiteral("panels: ") + panels.join(QStringLiteral(" | ")));
        } else if (name == u"project") {
            note(QStringLiteral("project:\n")
                + QString::fromLatin1(projectFileBytes(m_workspace->project))
                      .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
                      .trimmed());
        } else if (name.startsWith(u"file:")) {
            note(name + QStringLiteral(":\n")
                + QString::fromLatin1(readBytes(m_dir.filePath(name.mid(5))))
                      .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
                      .trimmed());
        } else if (name.startsWith(u"layout:")) {
            note(layoutState(control<QWidget>(name.mid(7))));
        } else if (name == u"focus") {
            // The control that has the focus in the window in front.
            QWidget* front = QApplication::activeModalWidget();
            const QWidget* focus = (front ? front : m_window.get())->focusWidget();
            note(
                QStringLiteral("focus: ") + (focus ? focus->objectName() : QStringLiteral("none")));
        } else if (name == u"message") {
            note(QStringLiteral("message: ") + m_window->statusBar()->currentMessage());
        } else if (name == u"geometry") {
            const QRect frame = m_window->geometry();
            note(QStringLiteral("geometry: %1x%2").arg(frame.width()).arg(frame.height()));
        } else if (name == u"menubar") {
            const QAction* active = m_window->menuBar()->activeAction();
            note(QStringLiteral("menu bar: ") + (active ? active->text() : QStringLiteral("none")));
            // Escape, as a user leaves the menus, so that the keys go to the window again.
            if (QWidget* popup = QApplication::activePopupWidget())
                QTest::keyClick(popup, Qt::Key_Escape);
            closeMenus();
            m_window->menuBar()->setActiveAction(nullptr);
        } else if (name == u"opened") {
            note(QStringLiteral("opened: ") + m_opener.opened.join(QStringLiteral(", ")));
        } else {
            note(widgetState(find(name)));
        }
    }

    QTemporaryDir m_dir;
    const QHash<QString, QString> m_roles = readRoles();
    QList<CaseStep> m_steps;
    qsizetype m_next = 0;
    qsizetype m_shown = 0;
    QList<QWidget*> m_running; // the modal dialog at the start of each step under way
    ScriptedPrompter m_prompter;
    RecordingFolderOpener m_opener;
    std::unique_ptr<Workspace> m_workspace;
    std::unique_ptr<gui::MainWindow> m_window;
    QStringList m_log;
    QEventLoop m_loop;
};

class GuiCases : public ::testing::TestWithParam<QString>
{
};

TEST_P(GuiCases, ComeOutAsExpected)
{
    expectAsWritten(GetParam(), CaseRun(GetParam()).run());
}

INSTANTIATE_TEST_SUITE_P(Folders, GuiCases, ::testing::ValuesIn(caseFolders("gui/cases")),
    [](const ::testing::TestParamInfo<QString>& info) {
        return QFileInfo(info.param).fileName().toStdString();
    });

} // namespace
