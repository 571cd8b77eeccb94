#include "catalogue/catalogue_lint_parts.h"

#include <QRegularExpression>

namespace tarvo::lint {

using Severity = CatalogueFinding::Severity;

namespace {

// "&&n" is replaced for n below the argument count only; any other stays
// in the script as written.
void checkMarkers(Collector& out, const QString& file, const Kind& kind, int at)
{
    const auto warn = [&](const QString& sentence, int line) {
        out.add(Severity::Warning, file, line, sentence);
    };
    static const QRegularExpression marker(QStringLiteral("&&(\\d+)"));
    const QString allCode = kind.codeLines.join(u'|');
    for (int n = 0; n < std::min(kind.args, kArgumentPositions); ++n) {
        if (!allCode.contains(QStringLiteral("&&") + QString::number(n)))
            warn(QStringLiteral("argument %1 is asked for but the code never uses it (\"&&%2\")")
                     .arg(n + 1)
                     .arg(n),
                at);
    }
    QStringList seen;
    for (const QString& code : kind.codeLines) {
        for (const QRegularExpressionMatch& m : marker.globalMatch(code)) {
            if (m.captured(1).toInt() < kind.args || seen.contains(m.captured(0)))
                continue;
            seen.append(m.captured(0));
            warn(QStringLiteral("the code uses \"%1\", but the kind has %2 argument(s): the "
                                "marker stays in the script as written")
                     .arg(m.captured(0))
                     .arg(kind.args),
                at);
        }
    }
}

} // namespace

void checkKindCode(Collector& out, const QString& file, const Kind& kind, bool action)
{
    const auto warn = [&](const QString& sentence, int line) {
        out.add(Severity::Warning, file, line, sentence);
    };
    const auto error = [&](const QString& sentence, int line) {
        out.add(Severity::Error, file, line, sentence);
    };
    const int mode = kind.codeLine ? kind.codeMode : 0;
    const int at = kind.codeLine ? kind.codeLine : kind.line;
    if (mode != 0 && mode != 2 && (mode != 1 || action)) {
        error(QStringLiteral("form %1 is none the script writer knows (%2): it writes the "
                             "text of the item before it instead")
                  .arg(mode)
                  .arg(action ? QLatin1String("0 call, 2 code block")
                              : QLatin1String("0 call, 1 value, 2 code block")),
            at);
    } else if (mode == 0 && kind.callName.isEmpty()) {
        error(kind.codeLine ? QStringLiteral("form 0 writes a call of the kind's \"<q>\" "
                                             "name, but the kind has none")
                            : QStringLiteral("the kind has no \"<i>\" line, so it is written "
                                             "as a call of its \"<q>\" name, but it has none"),
            at);
    } else if (mode == 0 && action) {
        // Kept as the game's scripts expect it; catalogues use code blocks.
        warn(QStringLiteral("%1 is written as a half-built call: \"%2(\" only, cut by two "
                            "more characters when it has arguments; give it a code block "
                            "(\"<i>|2|...|\")")
                 .arg(kind.codeLine ? QLatin1String("an action of form 0")
                                    : QLatin1String("an action without \"<i>\" line"))
                 .arg(kind.callName),
            at);
    } else if (mode == 1 && kind.args < 2) {
        error(QStringLiteral("form 1 writes arguments 1 and 2 joined, but the kind has %1")
                  .arg(kind.args),
            at);
    } else if (mode == 2 && kind.codeLines.isEmpty()) {
        error(QStringLiteral("form 2 writes the kind's code lines, but the \"<i>\" line has "
                             "none (each code line ends with \"|\")"),
            at);
    }
    if (mode == 2)
        checkMarkers(out, file, kind, at);
}

} // namespace tarvo::lint
