#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tarvo {

struct ProgramPaths;

// One problem of a catalogue file, for modders: where it is and what it does.
struct CatalogueFinding
{
    enum class Severity { Error, Warning };

    Severity severity = Severity::Error;
    QString file;
    int line = 0; // from 1
    QString sentence;
    // The editor's own reader ends the file here: start-up, New and Open fail.
    bool stopsLoad = false;
};

// The text of one catalogue file and the name its findings carry.
struct CatalogueSource
{
    QString file;
    QStringList lines;
};

// Every problem of both catalogues, not only the first: the lines the
// editor's reader stops at (it stops at the first of them), and what it
// reads without complaint but the editor, the script or the modder will not
// get as meant. Errors: the reader stops, the editor refuses the kind, or the
// script comes out broken. Warnings: read, but most likely not what was
// meant (a line ignored, a number read as 0, two kinds of the same title).
// Sorted by file (conditions first) and line.
QList<CatalogueFinding> lintCatalogues(
    const CatalogueSource& conditions, const CatalogueSource& actions);

// Both files of a program folder, named by their paths. A file that cannot
// be read is a FileError.
QList<CatalogueFinding> lintProgramCatalogues(const ProgramPaths& paths);

// "temp2.txt:12: error: sentence"
QString findingLine(const CatalogueFinding& finding);

bool hasErrors(const QList<CatalogueFinding>& findings);

} // namespace tarvo
