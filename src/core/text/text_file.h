#pragma once

#include <QString>
#include <QStringList>

namespace tarvo::text {

// Reads a Windows-1252 text file into lines. Lines may end in CR LF, CR or LF;
// a final line end does not make an extra empty line. A file that cannot be
// read is a FileError naming it.
QStringList readTextLines(const QString& path);

// Splits decoded text into lines by the same rule.
QStringList splitLines(const QString& text);

// The whole decoded text of a file; a file that cannot be read is a FileError.
QString readText(const QString& path);

// Hands each line of decoded text to `visit` (line number from 0, the line),
// by the same rule, without keeping the lines: a large project is read in
// about the room its text takes.
template <typename Visit> void forEachLine(const QString& text, Visit&& visit)
{
    qsizetype start = 0;
    qsizetype number = 0;
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text.at(i);
        if (c != u'\r' && c != u'\n')
            continue;
        visit(number++, QStringView(text).mid(start, i - start));
        if (c == u'\r' && i + 1 < n && text.at(i + 1) == u'\n')
            ++i;
        start = i + 1;
    }
    if (start < n)
        visit(number, QStringView(text).mid(start));
}

} // namespace tarvo::text
