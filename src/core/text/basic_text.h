#pragma once

#include <QString>
#include <QStringList>

// The string semantics the stored formats were made with differ from Qt's in
// small ways that change results; they are collected here.
namespace tarvo::text {

// Replace with an empty search text returns the text unchanged (Qt's
// QString::replace would insert `with` between every character).
QString basicReplace(const QString& text, const QString& find, const QString& with);

// Removes leading and trailing blanks (spaces) only, not tabs or line breaks.
QString basicTrim(const QString& text);

// Split keeps empty pieces; a text without the separator is one piece.
QStringList basicSplit(const QString& text, QChar separator);

// Removes every occurrence of each character of `characters`.
QString removeCharacters(QString text, const QString& characters);

// Val: the leading number of the text (blanks, sign, digits, decimal part),
// 0 when there is none. Never fails.
double val(const QString& text);

// Val converted to a 16-bit integer; a result outside 16 bits is a DataError.
qint16 valInt16(const QString& text);

// Text to 16-bit integer: surrounding blanks allowed, fractions rounded half to
// even; not a number or out of range is a DataError.
qint16 toInt16(const QString& text);

// Text to Boolean: "True"/"False" in any case, or a number (non-zero is true);
// anything else is a DataError.
bool toBool(const QString& text);

// Boolean to text, as the stored formats write it.
inline QString boolText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

// The line end of every file the program writes.
inline const QString crlf = QStringLiteral("\r\n");

} // namespace tarvo::text
