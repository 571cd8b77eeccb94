#pragma once

#include "document/project_document.h"
#include "scripted_prompter.h"

// One way for every test to make a project: a workspace reset over a program
// folder (its catalogues loaded), a document over it, and records added the
// way the editors add them. Kinds are named by their catalogue title.
class ProjectBuilder
{
public:
    explicit ProjectBuilder(const QString& programDir);

    tarvo::Project& project() { return workspace.project; }

    // An event at the end, counted and in the events row. `id` -1 takes the
    // next free ID, as a finished wizard does.
    int addEvent(const QString& name, bool disabled = false, int id = -1);
    int addTimer(const QString& name, int id = -1);
    // An action of the kind titled `title`, appended to event `event` with
    // `values` as its argument values (stored form).
    tarvo::ActionRecord& addAction(
        int event, const QString& title, const QStringList& values = {}, bool inactive = false);
    // An item appended to list row `row`, as the dialogs and the catalogue
    // make them (code and raw code default to the text).
    void addItem(int row, const QString& text, int id, const QString& code = {},
        const QString& rawCode = {});
    int addMessage(const QString& text);

    // The project file as it would be saved.
    QByteArray bytes() const;

    ScriptedPrompter prompter;
    tarvo::Workspace workspace;
    tarvo::ProjectDocument document {workspace};
};
