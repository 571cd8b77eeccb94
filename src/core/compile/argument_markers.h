#pragma once

#include <QString>
#include <QStringList>

namespace tarvo::WriteScript {

// Puts the rendered arguments in place of their markers "&&0", "&&1", ...
// in one line of a code block. The markers are replaced from 0 upwards by
// plain replacement, so the marker of argument 1 also eats the start of
// "&&10" (a kind cannot address its arguments from 10 on), and a marker that
// an earlier replacement brings into the line is replaced in its turn.
// Catalogues rely on exactly this order.
QString withArguments(const QString& line, const QStringList& arguments);
// `prefix` followed by the line with its arguments, in one text.
QString withArguments(QStringView prefix, const QString& line, const QStringList& arguments);
QString withArguments(
    QStringView prefix, const QString& line, const QString* arguments, qsizetype count);

// The same, one replacement after the other as the order above says.
// withArguments does it in one pass when that cannot differ.
QString withArgumentsStepByStep(QString line, const QStringList& arguments);

} // namespace tarvo::WriteScript
