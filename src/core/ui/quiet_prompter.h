#pragma once

#include "ui/prompter.h"

#include <QStringList>

// For tools that read the whole project (check, find): nobody is asked
// anything. Messages and status lines that the routines would show are kept,
// to be reported or dropped; questions are answered No, input boxes and file
// dialogs with "".
class QuietPrompter : public tarvo::Prompter
{
public:
    QStringList reported;

    Answer message(const QString& text, Icon, Buttons buttons, const QString&) override
    {
        reported.append(text);
        return buttons == Buttons::YesNo ? Answer::No : Answer::Ok;
    }
    QString input(const QString&, const QString&, const QString&) override { return {}; }
    QString openFileName(const QString&, const QString&) override { return {}; }
    QString saveFileName(const QString&, const QString&) override { return {}; }
    void beep() override { }
    void addStatusLine(const QString& kind, const QString& text) override
    {
        reported.append(tarvo::statusLineText(kind, text));
    }
};
