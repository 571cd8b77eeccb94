#pragma once

#include <QStringList>

class QComboBox;
class QWidget;

namespace tarvo::gui {

// An editable combo box for an argument value: typed text is never added to
// the list, and Enter does not change the items.
QComboBox* makeArgumentBox(const QString& objectName, QWidget* parent);

// Replaces the items of an argument box and leaves it empty, with nothing
// selected, without announcing the changes.
void fillArgumentBox(QComboBox* box, const QStringList& items);

// Empties text, selection and items and gives the normal colour.
void clearArgumentBox(QComboBox* box);

// Puts a text into a box without announcing it.
void setBoxText(QComboBox* box, const QString& text);

// Yellow when the text names a known item, otherwise the normal colour that
// the box had when it was made.
void markArgumentBox(QComboBox* box, bool namesItem);
bool isArgumentBoxMarked(const QComboBox* box);

} // namespace tarvo::gui
