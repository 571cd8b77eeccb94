#include "console_prompter.h"

#include "text/shown_text.h"

#include <cstdio>

namespace {
void printLine(const QString& text)
{
    std::fprintf(stderr, "%s\n", tarvo::text::shownText(text).toLocal8Bit().constData());
}
} // namespace

ConsolePrompter::Answer ConsolePrompter::message(
    const QString& text, Icon, Buttons buttons, const QString&)
{
    printLine(text);
    return buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
}

QString ConsolePrompter::input(const QString&, const QString&, const QString&)
{
    return {};
}

QString ConsolePrompter::openFileName(const QString&, const QString&)
{
    return {};
}

QString ConsolePrompter::saveFileName(const QString&, const QString&)
{
    return {};
}

void ConsolePrompter::beep() { }

void ConsolePrompter::addStatusLine(const QString& kind, const QString& text)
{
    printLine(QStringLiteral("warning: ") + tarvo::statusLineText(kind, text));
}
