#pragma once

#include <QObject>
#include <QStringList>

class QComboBox;
class QWidget;

namespace tarvo::gui {

// What an argument box asks of the window it sits in: to make an item of
// its list ("New..." at the end of the list) and to go to the item its text
// names. The window makes one, as a child; boxes without one offer neither.
class ArgumentBoxHelper : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    // The caption of the list's "New..." entry; empty offers none.
    virtual QString newItemCaption(int row) const = 0;
    // Makes an item of list row `row`; returns its text, empty when nothing
    // was made.
    virtual QString makeItem(int row) = 0;
    // Goes to the item of row `row` that `text` names (Ctrl+click, the box's
    // pop-up menu).
    virtual void goToItem(int row, const QString& text) = 0;
};

// An editable combo box for an argument value: typed text is never added to
// the list, and Enter does not change the items.
QComboBox* makeArgumentBox(const QString& objectName, QWidget* parent);

// Replaces the items of an argument box and leaves it empty, with nothing
// selected, without announcing the changes.
void fillArgumentBox(QComboBox* box, const QStringList& items);
// The same for a box whose items are those of list row `row`: the box then
// offers "New..." for that list and "Go to" its item, where its window can.
void fillArgumentBox(QComboBox* box, const QStringList& items, int row);

// The list row a box was last filled from; -1 when none.
int argumentBoxRow(const QComboBox* box);

// Empties text, selection and items and gives the normal colour.
void clearArgumentBox(QComboBox* box);

// Puts a text into a box without announcing it.
void setBoxText(QComboBox* box, const QString& text);

// Yellow when the text names a known item, otherwise the normal colour that
// the box had when it was made.
void markArgumentBox(QComboBox* box, bool namesItem);
bool isArgumentBoxMarked(const QComboBox* box);

} // namespace tarvo::gui
