#pragma once

#include "ui/prompter.h"

#include <QList>
#include <QStringList>

// A Prompter for tests: answers from queues filled beforehand and records
// every prompt it was shown. An unexpected question (empty queue) is answered
// like a user pressing the default button (Yes/OK, empty input, cancel) and
// recorded all the same, so a test can check that nothing was asked.
class ScriptedPrompter : public tarvo::Prompter
{
public:
    struct Prompt
    {
        enum class Kind { Message, Input, OpenFile, SaveFile, Beep, StatusLine, Choice } kind;
        QString text; // message text, input prompt, dialog title, status line
        QString title; // message or input-box title, dialog filter
        Icon icon = Icon::None;
        Buttons buttons = Buttons::Ok;
        QString defaultText; // input box default
    };

    QList<Answer> answers; // for message boxes
    QStringList inputs; // for input boxes
    QStringList fileNames; // for open and save dialogs
    QList<int> choices; // for choose and chooseItem (index, -1 cancels)
    QList<Prompt> prompts; // everything that was shown, in order

    Answer message(const QString& text, Icon icon, Buttons buttons, const QString& title) override;
    QString input(const QString& prompt, const QString& title, const QString& defaultText) override;
    QString openFileName(const QString& title, const QString& filter) override;
    QString saveFileName(const QString& title, const QString& filter) override;
    void beep() override;
    int choose(const QString& text, const QStringList& answers, int defaultAnswer,
        const QString& title) override;
    int chooseItem(const QString& prompt, const QString& title, const QStringList& items) override;
    void addStatusLine(const QString& kind, const QString& text) override;

    // The texts of the message boxes shown, in order.
    QStringList messageTexts() const;
    void clear() { prompts.clear(); }
};
