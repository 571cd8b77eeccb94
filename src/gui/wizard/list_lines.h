#pragma once

#include <QString>

class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QWidget;

namespace tarvo::gui {

// A push button with its caption and object name.
QPushButton* makeButton(const QString& caption, const QString& objectName, QWidget* parent);

// Adds a line with a check box to a list without announcing the change.
void addCheckLine(QListWidget* list, const QString& text, bool checked);
// The same at line `row`.
void insertCheckLine(QListWidget* list, int row, const QString& text, bool checked);

// The text of a comment box with CR LF line ends, as comments are kept.
QString commentBoxText(const QPlainTextEdit* box);

} // namespace tarvo::gui
