#pragma once

#include "ui/prompter.h"

// Answers without asking anybody: messages and status lines go to standard
// error, questions are answered Yes, input boxes and file dialogs give "".
class ConsolePrompter : public tarvo::Prompter
{
public:
    Answer message(const QString& text, Icon icon, Buttons buttons, const QString& title) override;
    QString input(const QString& prompt, const QString& title, const QString& defaultText) override;
    QString openFileName(const QString& title, const QString& filter) override;
    QString saveFileName(const QString& title, const QString& filter) override;
    void beep() override;
    void addStatusLine(const QString& kind, const QString& text) override;
};
