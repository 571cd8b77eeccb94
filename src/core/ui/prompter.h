#pragma once

#include <QString>
#include <QStringList>

namespace tarvo {

// Every question to the user goes through this one interface: the editor
// answers with Qt dialogs, tests with a scripted queue, the command-line tool
// without asking anybody.
class Prompter
{
public:
    enum class Icon { None, Information, Exclamation, Critical, Question };
    enum class Buttons { Ok, YesNo };
    enum class Answer { Ok, Yes, No };

    virtual ~Prompter() = default;

    // A message box. `title` empty means the program's own title.
    virtual Answer message(const QString& text, Icon icon = Icon::None,
        Buttons buttons = Buttons::Ok, const QString& title = QString())
        = 0;

    // An input box; Cancel gives the empty text.
    virtual QString input(
        const QString& prompt, const QString& title, const QString& defaultText = QString())
        = 0;

    // File dialogs; the filter is written "Description|*.ext". Cancel gives "".
    virtual QString openFileName(const QString& title, const QString& filter) = 0;
    virtual QString saveFileName(const QString& title, const QString& filter) = 0;

    virtual void beep() = 0;

    // A question with answers of its own ("Save so that it opens", "Save as
    // is", "Cancel"); returns the index of the answer, -1 when the box was
    // closed. Without a window to ask in, the default answer is taken.
    virtual int choose(const QString& text, const QStringList& answers, int defaultAnswer = 0,
        const QString& title = QString());
    // A pick from a list of items; returns its index, -1 for Cancel. Without
    // a window to ask in, nothing is picked.
    virtual int chooseItem(const QString& prompt, const QString& title, const QStringList& items);

    // A note about what a change left behind (a deleted item still named
    // elsewhere). The editor lists it with the project's issues, where it
    // stays in view; without such a list it is a warning status line.
    virtual void note(const QString& text);

    // A line for the status window: "Error: " + text when kind is "error"
    // (compared in lower case), otherwise the text alone.
    virtual void addStatusLine(const QString& kind, const QString& text) = 0;
};

// Formats a status line the way the status window shows it.
QString statusLineText(const QString& kind, const QString& text);

} // namespace tarvo
