#pragma once

#include "scripted_prompter.h"

#include <QList>
#include <QStringList>

// Case folders: tests/data/KIND/CASE holds steps.txt (what a user does, one
// step a line) and expected.txt (what must come of it). Runners turn the
// steps into calls and compare one text dump with the expected file.
//
// Every step file has one dialect: "verb field | field | ...". A field that is
// "~" alone is the empty text; inside a field a backslash starts an escape, so
// that any text fits on one line and survives an editor:
//   \n line break   \r carriage return   \t tab   \s blank (at either end)
//   \| bar   \~ tilde   \\ backslash   \uXXXX any other character by its code

struct CaseStep
{
    QString line; // as written, for failure messages
    QString word; // the first word
    QStringList fields; // the rest split at " | ", escapes undone
    int number(int i) const { return fields.value(i).toInt(); }
};

// The folders below tests/data/`kind`, each a case.
QStringList caseFolders(const QString& kind);

// One step line.
CaseStep parseStep(const QString& line);

// Steps of a case; blank lines and lines starting with "#" are left out.
QList<CaseStep> readSteps(const QString& folder);

// Compares `actual` with the file at `path`, byte for byte. With
// TARVO_WRITE_EXPECTED set the file is rewritten first, for review in the diff.
void expectFileHolds(const QString& path, const QByteArray& actual);

// The same for the folder's expected.txt.
void expectAsWritten(const QString& folder, const QString& actual);

// One line for a prompt the user was shown.
QString promptLine(const ScriptedPrompter::Prompt& prompt);
