#pragma once

#include "model/project_document.h"
#include "scripted_prompter.h"
#include "test_paths.h"
#include "ui/sound_player.h"

#include <QAbstractButton>
#include <QListWidget>
#include <QWidget>
#include <gtest/gtest.h>

// Stands in for the sound card: remembers what it was asked to play.
class RecordingSoundPlayer : public tarvo::SoundPlayer
{
public:
    QStringList played;
    int stops = 0;

    void play(const QString& path) override { played.append(path); }
    void stop() override { ++stops; }
    void fail(const QString& path, const QString& reason) { reportError(path, reason); }
};

// A workspace on the small test catalogues, with scripted answers.
class DialogTest : public ::testing::Test
{
protected:
    void SetUp() override { tarvo::ResetProject(workspace); }

    template <typename T = QWidget> T* child(QWidget& parent, const char* name)
    {
        T* widget = parent.findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    void click(QWidget& parent, const char* name) { child<QAbstractButton>(parent, name)->click(); }

    static QStringList lines(QListWidget* list)
    {
        QStringList texts;
        for (int i = 0; i < list->count(); ++i)
            texts.append(list->item(i)->text());
        return texts;
    }

    // An action of catalogue kind `kind` appended to the event at `event`
    // (made when missing), with `value` in argument `argument`.
    tarvo::ActionRecord& addAction(
        const QString& eventName, int kind, int argument, const QString& value)
    {
        tarvo::Project& project = workspace.project;
        int event = 0;
        while (event < project.eventCount && project.events[event].name != eventName)
            ++event;
        if (event == project.eventCount) {
            tarvo::EventRecord record;
            record.name = eventName;
            project.events.append(record);
            project.eventCount = static_cast<qint16>(project.eventCount + 1);
        }
        tarvo::EventRecord& target = project.events[event];
        tarvo::ActionRecord action;
        static_cast<tarvo::CatalogueEntry&>(action) = workspace.actionCatalogue.at(kind);
        action.Kind = static_cast<qint16>(kind);
        action.Args[argument].Value = value;
        target.actions.append(action);
        target.actionCount = static_cast<qint16>(target.actionCount + 1);
        return target.actions.last();
    }

    ScriptedPrompter prompter;
    tarvo::Workspace workspace {testDataDir() + QStringLiteral("/dialogs"), prompter};
    tarvo::ProjectDocument document {workspace};
};

// Action kinds of the test catalogue.
constexpr int kPlaySound = 0;
constexpr int kShowMessage = 1;
constexpr int kTalk = 2; // message, sound, group
