#pragma once

#include <QString>

namespace tarvo::text {

// A message quotes what it found, and a file may hold a field or a line of
// megabytes: a message box, status line or console line showing all of it
// takes minutes to lay out and says nothing more. Every text shown to the
// user passes through here.
constexpr qsizetype ShownLineLimit = 300; // characters of one line
constexpr qsizetype ShownTextLimit = 4000; // characters of the whole text

// The text with each line longer than `lineLimit` cut there and ended with
// "…", and the whole cut after `textLimit` characters the same way. Short
// texts come back unchanged.
QString shownText(const QString& text, qsizetype lineLimit = ShownLineLimit,
    qsizetype textLimit = ShownTextLimit);

} // namespace tarvo::text
