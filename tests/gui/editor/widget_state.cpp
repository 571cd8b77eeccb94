#include "widget_state.h"

#include "wizard/argument_box.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabWidget>

namespace {

QString quoted(const QString& text)
{
    return u'"' + QString(text).replace(u'\n', QStringLiteral("\\n")) + u'"';
}

// Text of more than one line as indented lines, so that a script reads as one.
QString textLines(const QString& text)
{
    if (!text.contains(u'\n'))
        return quoted(text);
    QString lines;
    for (const QString& line : text.split(u'\n'))
        lines += QStringLiteral("\n  | ") + line;
    return lines;
}

QString listLines(const QListWidget* list)
{
    QString text;
    for (int i = 0; i < list->count(); ++i) {
        const QListWidgetItem* item = list->item(i);
        text += QStringLiteral("\n  ");
        if (item->data(Qt::CheckStateRole).isValid())
            text += item->checkState() == Qt::Checked ? QStringLiteral("[x] ")
                                                      : QStringLiteral("[ ] ");
        text += item->text();
        if (i == list->currentRow() && item->isSelected())
            text += QStringLiteral("  <");
        else if (item->isSelected())
            text += QStringLiteral("  *");
    }
    return text;
}

QString comboState(const QComboBox* box)
{
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items.append(box->itemText(i));
    QString text = quoted(box->currentText());
    if (box->count() > 0)
        text += QStringLiteral(" of [%1]").arg(items.join(u'|'));
    // Marked is what the user sees: the box and the text in it turn yellow.
    const auto yellow = [](const QWidget* widget) {
        return widget->palette().color(QPalette::Base) == QColor(255, 255, 0);
    };
    const bool boxYellow = yellow(box);
    const bool textYellow = box->lineEdit() ? yellow(box->lineEdit()) : boxYellow;
    if (boxYellow != textYellow || boxYellow != tarvo::gui::isArgumentBoxMarked(box))
        text += QStringLiteral(" (marked in part)");
    else if (boxYellow)
        text += QStringLiteral(" (marked)");
    return text;
}

QString menuItems(const QMenu* menu)
{
    QStringList items;
    for (const QAction* action : menu->actions()) {
        if (action->isSeparator() || !action->isVisible())
            continue;
        items.append(action->text() + (action->isEnabled() ? QString() : QStringLiteral(" (off)")));
    }
    return items.join(QStringLiteral(", "));
}

QString contents(const QObject* object)
{
    if (const auto* action = qobject_cast<const QAction*>(object)) {
        QString text = action->text();
        if (action->isCheckable())
            text += action->isChecked() ? QStringLiteral(" (checked)")
                                        : QStringLiteral(" (unchecked)");
        return text + (action->isEnabled() ? QString() : QStringLiteral(" (off)"));
    }
    if (const auto* menu = qobject_cast<const QMenu*>(object))
        return menuItems(menu);
    if (const auto* list = qobject_cast<const QListWidget*>(object))
        return listLines(list);
    if (const auto* box = qobject_cast<const QComboBox*>(object))
        return comboState(box);
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(object))
        return textLines(edit->toPlainText());
    if (const auto* line = qobject_cast<const QLineEdit*>(object))
        return quoted(line->text());
    if (const auto* label = qobject_cast<const QLabel*>(object))
        return quoted(label->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(object))
        return quoted(button->text())
            + (button->icon().isNull() ? QString() : QStringLiteral(" (icon)"))
            + (button->isChecked() ? QStringLiteral(" (checked)") : QString());
    if (const auto* tabs = qobject_cast<const QTabWidget*>(object))
        return QStringLiteral("page %1 %2")
            .arg(tabs->currentIndex())
            .arg(quoted(tabs->tabText(tabs->currentIndex())));
    if (const auto* dock = qobject_cast<const QDockWidget*>(object))
        return quoted(dock->windowTitle());
    if (const auto* widget = qobject_cast<const QWidget*>(object); widget && widget->isWindow())
        return quoted(widget->windowTitle());
    return QString();
}

} // namespace

QString widgetState(const QObject* object)
{
    QString flags;
    // A menu is only on screen while it is open; what counts is its items.
    const auto* widget = qobject_cast<const QWidget*>(object);
    if (widget && !qobject_cast<const QMenu*>(object)) {
        if (!widget->isEnabled())
            flags += QStringLiteral(" (off)");
        if (widget->isWindow() ? !widget->isVisible() : !widget->isVisibleTo(widget->window()))
            flags += QStringLiteral(" (hidden)");
    }
    QString shown = contents(object);
    if (shown.isEmpty() && qobject_cast<const QListWidget*>(object))
        shown = QStringLiteral("(empty)");
    if (shown.startsWith(u'\n'))
        return object->objectName() + u':' + flags + shown;
    return object->objectName() + QStringLiteral(": ") + shown + flags;
}

namespace {

QString itemName(const QWidget* widget)
{
    if (!widget->objectName().isEmpty())
        return widget->objectName();
    QString name = QString::fromLatin1(widget->metaObject()->className());
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        name += u' ' + quoted(label->text());
    else if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        name += u' ' + quoted(button->text());
    return name;
}

QString placeIn(const QLayout* layout, int index)
{
    if (const auto* grid = qobject_cast<const QGridLayout*>(layout)) {
        int row = 0, column = 0, rows = 0, columns = 0;
        grid->getItemPosition(index, &row, &column, &rows, &columns);
        QString place = QStringLiteral("row %1 column %2").arg(row).arg(column);
        if (rows > 1 || columns > 1)
            place += QStringLiteral(" spanning %1x%2").arg(rows).arg(columns);
        return place;
    }
    QString place = QString::number(index);
    if (const auto* box = qobject_cast<const QBoxLayout*>(layout); box && box->stretch(index))
        place += QStringLiteral(" stretch %1").arg(box->stretch(index));
    return place;
}

void layoutLines(const QLayout* layout, const QString& indent, QString& text)
{
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem* item = layout->itemAt(i);
        text += u'\n' + indent + placeIn(layout, i) + QStringLiteral(": ");
        if (const QWidget* widget = item->widget()) {
            text += itemName(widget);
            if (widget->minimumWidth() > 0)
                text += QStringLiteral(" (at least %1 wide)").arg(widget->minimumWidth());
            if (const auto* tabs = qobject_cast<const QTabWidget*>(widget)) {
                for (int page = 0; page < tabs->count(); ++page) {
                    text += u'\n' + indent
                        + QStringLiteral("  page %1 %2:")
                              .arg(page)
                              .arg(quoted(tabs->tabText(page)));
                    if (tabs->widget(page)->layout())
                        layoutLines(
                            tabs->widget(page)->layout(), indent + QStringLiteral("    "), text);
                }
            } else if (widget->layout()) {
                layoutLines(widget->layout(), indent + QStringLiteral("  "), text);
            }
        } else if (item->layout()) {
            text += QStringLiteral("layout");
            layoutLines(item->layout(), indent + QStringLiteral("  "), text);
        } else {
            text += QStringLiteral("space");
        }
    }
}

} // namespace

QString layoutState(const QWidget* widget)
{
    QString text = QStringLiteral("layout of ") + itemName(widget);
    if (!widget->minimumSize().isNull())
        text += QStringLiteral(" (at least %1x%2)")
                    .arg(widget->minimumWidth())
                    .arg(widget->minimumHeight());
    text += u':';
    if (widget->layout())
        layoutLines(widget->layout(), QStringLiteral("  "), text);
    return text;
}
