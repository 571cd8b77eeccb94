#pragma once

#include "ui/prompter.h"

#include <QStringList>

// Answers every question like a user pressing the default button; input
// boxes take their answers from a queue. Counts what it was asked so that a
// benchmark can tell that nothing unexpected happened.
class SilentPrompter : public tarvo::Prompter
{
public:
    QStringList inputs;
    QStringList fileNames;
    int asked = 0;

    Answer message(const QString&, Icon, Buttons buttons, const QString&) override
    {
        ++asked;
        return buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
    }
    QString input(const QString&, const QString&, const QString&) override
    {
        return inputs.isEmpty() ? QString() : inputs.takeFirst();
    }
    QString openFileName(const QString&, const QString&) override { return nextFile(); }
    QString saveFileName(const QString&, const QString&) override { return nextFile(); }
    void beep() override { ++asked; }
    void addStatusLine(const QString&, const QString&) override { ++asked; }

private:
    QString nextFile() { return fileNames.isEmpty() ? QString() : fileNames.takeFirst(); }
};
