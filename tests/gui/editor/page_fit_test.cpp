// Every page and dialog at the main window's smallest size, with the Script
// Preview and Issues docks open: each caption is shown whole, no caption lies
// over another control, and no two controls a user can reach at once (the
// menu bar included) answer the same Alt letter. TARVO_SCREENSHOTS=DIR saves
// a picture of each state there, to look at.
#include "main/main_window.h"
#include "scripted_prompter.h"
#include "shell/start_up.h"
#include "test_paths.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QSettings>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>
#include <map>

using namespace tarvo;

namespace {

QString shownText(const QString& caption)
{
    QString text = caption;
    text.replace(QStringLiteral("&&"), QStringLiteral("\x01"));
    text.remove(u'&');
    return text.replace(u'\x01', u'&');
}

QChar mnemonic(const QString& caption)
{
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption.at(i) != u'&')
            continue;
        if (caption.at(i + 1) != u'&')
            return caption.at(i + 1).toUpper();
        ++i;
    }
    return {};
}

bool shown(const QWidget* widget)
{
    return widget->isVisibleTo(widget->window());
}

// The width a control needs for its caption, from its font.
int neededWidth(const QWidget* widget, QString* text)
{
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        if (label->wordWrap() || Qt::mightBeRichText(label->text()))
            return 0;
        *text = shownText(label->text());
        return label->fontMetrics().horizontalAdvance(*text) + label->margin() * 2;
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        *text = shownText(button->text());
        // A button's size hint is its caption's width (fontMetrics) plus what
        // the style puts around it: the indicator of a check box or option.
        return text->isEmpty() ? 0 : button->sizeHint().width();
    }
    return 0;
}

// What in `root` a user would see cut off or covered.
QStringList clippedCaptions(const QWidget* root)
{
    QStringList faults;
    for (const QWidget* widget : root->findChildren<QWidget*>()) {
        if (!shown(widget) || qobject_cast<const QTabWidget*>(widget->parentWidget()))
            continue;
        QString text;
        const int needed = neededWidth(widget, &text);
        if (needed == 0)
            continue;
        const int has = qobject_cast<const QLabel*>(widget)
            ? qobject_cast<const QLabel*>(widget)->contentsRect().width()
            : widget->width();
        if (has < needed)
            faults.append(QStringLiteral("\"%1\" (%2) is %3 wide, needs %4")
                              .arg(text, widget->objectName())
                              .arg(has)
                              .arg(needed));
        for (const QObject* sibling : widget->parentWidget()->children()) {
            const auto* other = qobject_cast<const QWidget*>(sibling);
            if (other && other != widget && !other->isWindow() && shown(other)
                && other->geometry().intersects(widget->geometry()))
                faults.append(QStringLiteral("\"%1\" (%2) lies over %3")
                                  .arg(text, widget->objectName(), other->objectName()));
        }
    }
    return faults;
}

// Alt letters taken twice among the controls in `root` and, for the main
// window, its menu bar. &File and &Finish (timer editing) are the program's
// own captions, both given; no caption of ours takes a letter of theirs.
QStringList sharedLetters(const QWidget* root, const QMenuBar* menuBar)
{
    std::map<QChar, QStringList> owners;
    if (menuBar) {
        for (const QAction* menu : menuBar->actions()) {
            if (menu->isVisible() && !mnemonic(menu->text()).isNull())
                owners[mnemonic(menu->text())].append(menu->text());
        }
    }
    for (const QWidget* widget : root->findChildren<QWidget*>()) {
        if (!shown(widget))
            continue;
        QString caption;
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            caption = button->text();
        else if (const auto* label = qobject_cast<const QLabel*>(widget); label && label->buddy())
            caption = label->text();
        if (!mnemonic(caption).isNull())
            owners[mnemonic(caption)].append(caption);
    }
    QStringList faults;
    for (const auto& [letter, captions] : owners) {
        if (captions.size() > 1
            && QStringList(captions)
                != QStringList {QStringLiteral("&File"), QStringLiteral("&Finish")})
            faults.append(QStringLiteral("Alt+%1: %2").arg(letter, captions.join(u',')));
    }
    return faults;
}

class PageFit : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_dir.path());
        qputenv("XDG_DATA_HOME", m_dir.filePath("data").toLocal8Bit());
        m_workspace = std::make_unique<Workspace>(builtProgramDir(), m_prompter);
        ASSERT_EQ(gui::startUpWorkspace(*m_workspace), QString());
        m_window = std::make_unique<gui::MainWindow>(*m_workspace);
        m_window->show();
        // The smallest the window may be with the docks a first start shows.
        m_window->resize(1, 1);
        QApplication::processEvents();
        ASSERT_TRUE(m_window->openProjectFile(sampleDir() + QStringLiteral("/Demo.vnsc")));
        QApplication::processEvents();
    }

    void TearDown() override
    {
        m_workspace->project.name.clear(); // closing must not ask
        m_window.reset();
    }

    template <typename T> T* control(const char* name) const
    {
        T* found = m_window->findChild<T*>(QLatin1String(name));
        if (!found)
            ADD_FAILURE() << "no control " << name;
        return found;
    }

    // Checks the window (or the modal dialog in front) as it is now.
    void expectAllFits(const QString& state, const QWidget* dialog = nullptr)
    {
        QApplication::processEvents();
        SCOPED_TRACE(state.toStdString());
        const QWidget* root = dialog ? dialog : m_window.get();
        EXPECT_EQ(clippedCaptions(root), QStringList());
        EXPECT_EQ(sharedLetters(root, dialog ? nullptr : m_window->menuBar()), QStringList());
        const QString shots = qEnvironmentVariable("TARVO_SCREENSHOTS");
        if (!shots.isEmpty())
            const_cast<QWidget*>(root)->grab().save(
                QDir(shots).filePath(state + QStringLiteral(".png")));
        ++m_states;
    }

    // Every kind of a kind box chosen in turn, checked after each.
    void expectEveryKindFits(const char* boxName, const QString& page)
    {
        auto* kinds = control<QComboBox>(boxName);
        for (int i = 1; i < kinds->count(); ++i) {
            kinds->setCurrentIndex(i);
            Q_EMIT kinds->activated(i);
            expectAllFits(page + QStringLiteral(" kind %1").arg(i));
        }
    }

    QTemporaryDir m_dir;
    ScriptedPrompter m_prompter;
    std::unique_ptr<Workspace> m_workspace;
    std::unique_ptr<gui::MainWindow> m_window;
    int m_states = 0;
};

TEST_F(PageFit, PagesAtTheSmallestWindowWithBothDocks)
{
    ASSERT_TRUE(control<QDockWidget>("ScriptPreviewDock")->isVisible());
    ASSERT_TRUE(control<QDockWidget>("IssuesDock")->isVisible());
    expectAllFits(QStringLiteral("main"));

    m_prompter.inputs.append(QStringLiteral("A new event"));
    control<QAbstractButton>("Command3")->click();
    ASSERT_EQ(control<QTabWidget>("Tab1")->currentIndex(), 1);
    for (int kind = 0; kind < 13; ++kind) {
        control<QAbstractButton>(qPrintable(QStringLiteral("Option1_%1").arg(kind)))->click();
        expectAllFits(QStringLiteral("trigger kind %1").arg(kind));
    }
    control<QAbstractButton>("Option1_0")->click();
    control<QAbstractButton>("Command15")->click();
    expectAllFits(QStringLiteral("conditions"));
    control<QAbstractButton>("Command4")->click();
    expectEveryKindFits("Combo1", QStringLiteral("conditions"));
    control<QAbstractButton>("Command24")->click();
    control<QAbstractButton>("Command9")->click();
    expectAllFits(QStringLiteral("actions"));
    control<QAbstractButton>("Command16")->click();
    expectEveryKindFits("Combo2", QStringLiteral("actions"));
    control<QAbstractButton>("Command23")->click();
    EXPECT_GT(m_states, 20);
}

TEST_F(PageFit, DialogsAtTheirOwnSize)
{
    for (const char* item : {"mSounds", "mMessages", "mVariables", "mOptionsDialog"}) {
        QTimer::singleShot(0, [this, item] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (!dialog) {
                ADD_FAILURE() << item << " showed no dialog";
                return;
            }
            expectAllFits(QString::fromLatin1(item), dialog);
            dialog->close();
        });
        control<QAction>(item)->trigger();
    }
    EXPECT_EQ(m_states, 4);
}

} // namespace
