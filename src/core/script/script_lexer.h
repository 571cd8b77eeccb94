#pragma once

#include "script/script_syntax.h"

#include <QStringView>
#include <vector>

namespace tarvo::script {

struct Token
{
    enum class Kind { Name, Number, Text, Symbol, End };

    Kind kind = Kind::End;
    QString text;
    TextPosition position;
    // True for the first token on its line: reading resumes after an error
    // at an "event" that starts a line.
    bool startsLine = false;
};

// Splits script text into tokens, leaving out blanks and "//" and "/* */"
// comments. Never fails: a character the language does not use, or a quote
// without its closing one, becomes a symbol that the reader then refuses
// with its place.
std::vector<Token> tokenize(QStringView text);

} // namespace tarvo::script
