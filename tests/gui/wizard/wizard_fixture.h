#pragma once

#include "catalogue/project_lists.h"
#include "model/project_document.h"
#include "scripted_prompter.h"
#include "test_paths.h"
#include "wizard/event_wizard.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <gtest/gtest.h>
#include <memory>

// The wizard in a tab control of its own, over a project reset with the
// wizard's test catalogues. Widgets are found by object name and driven the
// way a user drives them; prompts are answered by the scripted prompter.
class WizardGuiTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        if (!qApp) {
            static int argc = 1;
            static char name[] = "gui_wizard_tests";
            static char* argv[] = {name, nullptr};
            new QApplication(argc, argv);
        }
    }

    ScriptedPrompter prompter;
    tarvo::Workspace workspace {testDataDir() + QStringLiteral("/wizard/program"), prompter};
    tarvo::Project& project = workspace.project;
    tarvo::ProjectDocument document {workspace};
    std::unique_ptr<QTabWidget> tab1;
    tarvo::gui::EventWizard* wizard = nullptr;
    int startedSignals = 0;
    int finishedSignals = 0;

    void SetUp() override
    {
        tarvo::ResetProject(workspace);
        tab1 = std::make_unique<QTabWidget>();
        tab1->setObjectName("Tab1");
        tab1->addTab(new QWidget, "Events");
        wizard = new tarvo::gui::EventWizard(document, tab1.get(), tab1.get());
        QObject::connect(wizard, &tarvo::gui::EventWizard::started, [this] { ++startedSignals; });
        QObject::connect(wizard, &tarvo::gui::EventWizard::finished, [this] { ++finishedSignals; });
        tab1->resize(1000, 760);
    }

    // As the variables dialog would: a flag, a group and a message.
    void addVariables()
    {
        addItem(17, "Base found", 0, "flag0", "FALSE");
        addItem(7, "Scouts", 0, "Group[0]", QString());
        project.messages = {{"Welcome to the island, commander.", 0}};
        project.messageCount = 1;
        tarvo::RefreshProjectLists(project);
        wizard->resetPages();
    }

    void addItem(int row, const QString& text, qint16 id, const QString& code, const QString& raw)
    {
        tarvo::ReferenceList& list = project.tables[row];
        const qsizetype n = list.ItemCount;
        for (auto* texts : {&list.Texts, &list.Codes, &list.RawCodes})
            texts->resize(std::max(texts->size(), n + 1));
        list.Ids.resize(std::max(list.Ids.size(), n + 1));
        list.Texts[n] = text;
        list.Codes[n] = code;
        list.RawCodes[n] = raw;
        list.Ids[n] = id;
        list.ItemCount = static_cast<qint16>(n + 1);
    }

    template <typename T = QWidget> T* find(const QString& name) const
    {
        T* widget = tab1->findChild<T*>(name);
        EXPECT_NE(widget, nullptr) << name.toStdString();
        return widget;
    }
    QComboBox* combo(const QString& name) const { return find<QComboBox>(name); }
    QListWidget* list(const QString& name) const { return find<QListWidget>(name); }
    QPushButton* button(const QString& name) const { return find<QPushButton>(name); }

    void click(const QString& name)
    {
        QPushButton* target = button(name);
        ASSERT_TRUE(target->isEnabled() && target->isVisibleTo(tab1.get()))
            << name.toStdString() << " cannot be clicked";
        target->click();
    }
    void choose(const QString& comboName, int index)
    {
        QComboBox* box = combo(comboName);
        ASSERT_TRUE(box->isEnabled()) << comboName.toStdString();
        box->setCurrentIndex(index);
        Q_EMIT box->activated(index);
    }
    void type(const QString& comboName, const QString& text)
    {
        QComboBox* box = combo(comboName);
        ASSERT_TRUE(box->isEnabled() && box->isVisibleTo(tab1.get())) << comboName.toStdString();
        box->lineEdit()->setText(text);
    }
    void pressEnter(const QString& comboName)
    {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(combo(comboName)->lineEdit(), &press);
    }
    void option(int kind)
    {
        auto* radio = find<QRadioButton>(QStringLiteral("Option1_%1").arg(kind));
        ASSERT_TRUE(radio->isEnabled());
        radio->click();
    }
    void selectLine(const QString& listName, int line) { list(listName)->setCurrentRow(line); }
    QStringList lines(const QString& listName) const
    {
        QStringList out;
        QListWidget* widget = list(listName);
        for (int i = 0; i < widget->count(); ++i)
            out.append(widget->item(i)->text());
        return out;
    }
    bool ticked(const QString& listName, int line) const
    {
        return list(listName)->item(line)->checkState() == Qt::Checked;
    }

    // "&New" on the main page, answering the title box.
    void startNew(const QString& title)
    {
        prompter.inputs.append(title);
        wizard->startNewEvent();
    }
    void addAction(int comboIndex, const QStringList& boxesAndTexts)
    {
        click("Command16");
        choose("Combo2", comboIndex);
        for (qsizetype i = 0; i + 1 < boxesAndTexts.size(); i += 2)
            type(boxesAndTexts.at(i), boxesAndTexts.at(i + 1));
        click("Command20");
    }
};
