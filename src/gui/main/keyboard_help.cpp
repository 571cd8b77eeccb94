#include "main/keyboard_help.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace tarvo::gui {

namespace {

QString plainCaption(const QAction* action)
{
    QString caption = action->text();
    caption.replace(QStringLiteral("&&"), QStringLiteral("\x01"));
    caption.remove(u'&');
    caption.replace(u'\x01', u'&');
    return caption;
}

void menuLines(const QMenu* menu, const QString& path, QStringList& lines)
{
    for (const QAction* action : menu->actions()) {
        if (action->isSeparator())
            continue;
        // The icon text is the caption without its letter and dots; undo and
        // redo keep theirs without the step they would undo.
        const QString place = path + QStringLiteral(" > ") + action->iconText();
        if (action->menu()) {
            menuLines(action->menu(), place, lines);
            continue;
        }
        QStringList keys;
        for (const QKeySequence& key : action->shortcuts())
            keys.append(key.toString(QKeySequence::NativeText));
        if (!keys.isEmpty())
            lines.append(keys.join(QStringLiteral(" or ")) + QStringLiteral("\t") + place);
    }
}

} // namespace

QString keyboardShortcutsText(const QMenuBar& menuBar)
{
    QStringList lines {QStringLiteral("Menus:")};
    for (const QAction* top : menuBar.actions()) {
        if (top->menu() && top->isVisible())
            menuLines(top->menu(), plainCaption(top), lines);
    }
    lines << QStringLiteral("F10\tOpens the first menu; Alt and an underlined letter opens a "
                            "menu or presses a button")
          << QString() << QStringLiteral("Events list (main page):")
          << QStringLiteral("Space\tTicks or unticks the selected event")
          << QStringLiteral("Return\tEdits the selected event")
          << QStringLiteral("F2\tRenames the selected event")
          << QStringLiteral("Delete\tDeletes the selected event")
          << QStringLiteral("Ctrl+Up, Ctrl+Down\tMoves the selected event up or down") << QString()
          << QStringLiteral("Timers list (main page):")
          << QStringLiteral("Return\tEdits the selected timer")
          << QStringLiteral("F2\tRenames the selected timer")
          << QStringLiteral("Delete\tDeletes the selected timer") << QString()
          << QStringLiteral("Trigger, conditions and actions pages:")
          << QStringLiteral("Escape\tDoes what the page's Cancel button does")
          << QStringLiteral("Return\tIn the trigger's first box: goes on as Next or Finish");
    return lines.join(u'\n');
}

} // namespace tarvo::gui
