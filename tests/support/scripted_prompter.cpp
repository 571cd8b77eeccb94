#include "scripted_prompter.h"

ScriptedPrompter::Answer ScriptedPrompter::message(
    const QString& text, Icon icon, Buttons buttons, const QString& title)
{
    prompts.append({Prompt::Kind::Message, text, title, icon, buttons, {}});
    if (!answers.isEmpty())
        return answers.takeFirst();
    return buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
}

QString ScriptedPrompter::input(
    const QString& prompt, const QString& title, const QString& defaultText)
{
    prompts.append({Prompt::Kind::Input, prompt, title, Icon::None, Buttons::Ok, defaultText});
    return inputs.isEmpty() ? QString() : inputs.takeFirst();
}

QString ScriptedPrompter::openFileName(const QString& title, const QString& filter)
{
    prompts.append({Prompt::Kind::OpenFile, title, filter, Icon::None, Buttons::Ok, {}});
    return fileNames.isEmpty() ? QString() : fileNames.takeFirst();
}

QString ScriptedPrompter::saveFileName(const QString& title, const QString& filter)
{
    prompts.append({Prompt::Kind::SaveFile, title, filter, Icon::None, Buttons::Ok, {}});
    return fileNames.isEmpty() ? QString() : fileNames.takeFirst();
}

void ScriptedPrompter::beep()
{
    prompts.append({Prompt::Kind::Beep, {}, {}, Icon::None, Buttons::Ok, {}});
}

// A choice is recorded with its answers in `title`, joined by " / ".
int ScriptedPrompter::choose(
    const QString& text, const QStringList& answers, int defaultAnswer, const QString&)
{
    prompts.append({Prompt::Kind::Choice, text, answers.join(QStringLiteral(" / ")), Icon::None,
        Buttons::Ok, {}});
    return choices.isEmpty() ? defaultAnswer : choices.takeFirst();
}

// A list is recorded with the number of its items: they may carry times.
int ScriptedPrompter::chooseItem(const QString& prompt, const QString&, const QStringList& items)
{
    prompts.append({Prompt::Kind::Choice, prompt, QStringLiteral("%1 items").arg(items.size()),
        Icon::None, Buttons::Ok, {}});
    return choices.isEmpty() ? -1 : choices.takeFirst();
}

void ScriptedPrompter::addStatusLine(const QString& kind, const QString& text)
{
    prompts.append({Prompt::Kind::StatusLine, tarvo::statusLineText(kind, text), {}, Icon::None,
        Buttons::Ok, {}});
}

QStringList ScriptedPrompter::messageTexts() const
{
    QStringList texts;
    for (const Prompt& p : prompts) {
        if (p.kind == Prompt::Kind::Message)
            texts.append(p.text);
    }
    return texts;
}
