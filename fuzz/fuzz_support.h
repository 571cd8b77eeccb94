#pragma once

#include "model/workspace.h"
#include "ui/prompter.h"

#include <QByteArray>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>

namespace tarvo::fuzz {

// Answers every question with the default and forgets it: a fuzzer has nobody
// to ask, and the prompts themselves are not under test.
class SilentPrompter : public Prompter
{
public:
    Answer message(const QString&, Icon, Buttons buttons, const QString&) override
    {
        return buttons == Buttons::YesNo ? Answer::No : Answer::Ok;
    }
    QString input(const QString&, const QString&, const QString&) override { return {}; }
    QString openFileName(const QString&, const QString&) override { return {}; }
    QString saveFileName(const QString&, const QString&) override { return {}; }
    void beep() override { }
    void addStatusLine(const QString&, const QString&) override { }
};

// The fixed program folder of the fuzzers (catalogues of our own, so that a
// kept input replays the same way after the shipped catalogues change).
QString fixtureDir();

// A private program folder for one fuzzer process: the readers take paths,
// so every input is written to a file first.
class Scratch
{
public:
    Scratch();
    QString dir() const { return m_dir.path(); }
    // Writes the bytes to `name` inside the folder and returns its path.
    QString write(const QString& name, const uint8_t* data, size_t size) const;
    QString write(const QString& name, const QByteArray& bytes) const;
    // Copies a file of the fixture folder into the scratch folder.
    void copyFixture(const QString& name) const;

private:
    QTemporaryDir m_dir;
};

// Walks what a loaded (or half-loaded) project holds the way the editor and
// the compile do: display and script forms of every stored value, the list
// rows the argument boxes offer, and the bytes a save would write. Faults
// must surface as DataError, never as undefined behaviour.
void exerciseProject(Workspace& workspace);

} // namespace tarvo::fuzz
