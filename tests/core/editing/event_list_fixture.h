#pragma once

#include "catalogue/catalogue_loader.h"
#include "catalogue/project_lists.h"
#include "catalogue/reference_markers.h"
#include "model/workspace.h"
#include "scripted_prompter.h"

// A workspace with events built in code, without catalogue files: each event
// gets the given number of active and inactive actions.
struct EventListFixture
{
    ScriptedPrompter prompter;
    tarvo::Workspace workspace {"/nonexistent", prompter};
    tarvo::Project& project = workspace.project;

    EventListFixture() { tarvo::SetUpReferenceRows(project.tables); }

    static tarvo::ActionRecord action(const QString& title, bool inactive = false)
    {
        tarvo::ActionRecord a;
        a.Title = title;
        a.inactive = inactive;
        return a;
    }

    int addEvent(const QString& name, int active, int inactive = 0, bool disabled = false)
    {
        tarvo::EventRecord e;
        e.name = name;
        e.disabled = disabled;
        for (int i = 0; i < active; ++i)
            e.actions.append(action("Act"));
        for (int i = 0; i < inactive; ++i)
            e.actions.append(action("Off", true));
        e.actionCount = qint16(e.actions.size());
        tarvo::refreshEventRow(project);
        e.id = tarvo::NextVariableID(project, tarvo::row::Events);
        project.events.append(e);
        ++project.eventCount;
        tarvo::refreshEventRow(project);
        return project.eventCount - 1;
    }

    // An action argument that refers to event `target` through the events row.
    void referTo(int fromEvent, int actionIndex, int target, const QString& title = {})
    {
        tarvo::ActionRecord& a = project.events[fromEvent].actions[actionIndex];
        if (!title.isEmpty())
            a.Title = title;
        tarvo::ArgumentRecord arg;
        arg.ListRef = tarvo::row::Events;
        arg.Value = tarvo::encodedReference(
            tarvo::row::Events, QString::number(project.events.at(target).id));
        a.Args.append(arg);
        a.ArgCount = qint16(a.Args.size());
    }

    QStringList names() const
    {
        QStringList result;
        for (int i = 0; i < project.eventCount; ++i)
            result.append(project.events.at(i).name);
        return result;
    }
};
