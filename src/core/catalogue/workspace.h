#pragma once

#include "records/project.h"

#include <memory>

namespace tarvo {

class Prompter;
class EventUses;

using Catalogue = QList<CatalogueEntry>;

// The folders the program works with, all derived from the program folder
// (the folder of the executable, or the one given on the command line).
struct ProgramPaths
{
    QString programDir;

    QString conditionCatalogue() const { return programDir + QStringLiteral("/temp.txt"); }
    QString actionCatalogue() const { return programDir + QStringLiteral("/temp2.txt"); }
    QString sourceDir() const { return programDir + QStringLiteral("/Source"); }
    QString stringsList() const { return sourceDir() + QStringLiteral("/GenStrings.txt"); }
    QString audioList() const { return sourceDir() + QStringLiteral("/audio.vnr"); }
    // Parent of every output root; ends in a separator.
    QString projectsDir() const { return programDir + QStringLiteral("/Projects/"); }
    QString outputRoot(const QString& scriptName) const { return projectsDir() + scriptName; }
};

// Everything the program keeps from start-up to exit: the project, both
// catalogues, the paths and the way to ask the user. One per main window or
// command-line run; tests make as many as they like.
struct Workspace
{
    Workspace(const QString& programDir, Prompter& prompter);

    ProgramPaths paths;
    // The main window's caption. Only naming the project changes it, so it
    // keeps the program's title until the first New, Open or Save As.
    QString caption = QStringLiteral("T.A.R.V.O. - Campaign Script Editor");
    Project project;
    // The list rows as the catalogues give them, before any project is read.
    ReferenceListTable catalogueRows;
    Catalogue conditionCatalogue;
    Catalogue actionCatalogue;
    Prompter& prompter;

    // Where actions name events, kept from one in-use check to the next (see
    // catalogue/event_uses.h); made on first use.
    EventUses& eventUses();

private:
    // Belongs to this workspace alone: a copy starts without it.
    struct OwnEventUses
    {
        std::shared_ptr<EventUses> uses;
        OwnEventUses() = default;
        OwnEventUses(const OwnEventUses&) { }
        OwnEventUses& operator=(const OwnEventUses&) { return *this; }
    };
    OwnEventUses m_eventUses;
};

// Empties the project and reloads both catalogues. A missing or faulty
// catalogue is a FileError; the project is then empty, the faulty catalogue's
// kinds are empty, and the list rows hold what was read before the faulty
// line.
void ResetProject(Workspace& workspace);

} // namespace tarvo
