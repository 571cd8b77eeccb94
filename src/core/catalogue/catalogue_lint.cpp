#include "catalogue/catalogue_lint.h"

#include "catalogue/catalogue_lint_parts.h"
#include "catalogue/catalogue_loader.h"
#include "base/file_error.h"
#include "catalogue/workspace.h"
#include "text/basic_text.h"
#include "text/text_file.h"

#include <QHash>
#include <QRegularExpression>
#include <algorithm>

namespace tarvo {

using namespace text;
using Severity = CatalogueFinding::Severity;
using lint::Kind;
using lint::kReferenceRows;

namespace {

enum class Layout { Condition, Action };

// Reads one file by the reader's rules (catalogue_loader.cpp) and notes what
// the reader would stop at or take other than meant, going on to the end.
class FileLinter
{
public:
    FileLinter(Layout layout, const QString& file, lint::Collector& out)
        : m_layout(layout)
        , m_file(file)
        , m_out(out)
    {
    }

    void run(const QStringList& lines)
    {
        for (qsizetype i = 0; i < lines.size(); ++i) {
            m_line = int(i + 1);
            try {
                readLine(CleanCatalogueLine(lines.at(i)));
            } catch (const DataError& error) {
                m_out.add(Severity::Error, m_file, m_line,
                    error.sentence() + QStringLiteral("; the editor stops reading the file here"),
                    true);
            }
        }
        finishKind();
    }

private:
    bool isAction() const { return m_layout == Layout::Action; }

    void warn(const QString& sentence, int line = 0)
    {
        m_out.add(Severity::Warning, m_file, line ? line : m_line, sentence);
    }

    void error(const QString& sentence, int line = 0)
    {
        m_out.add(Severity::Error, m_file, line ? line : m_line, sentence);
    }

    bool isTag(const QString& tag) const
    {
        static const QStringList both {QStringLiteral("<c>"), QStringLiteral("<s>"),
            QStringLiteral("<d>"), QStringLiteral("<q>"), QStringLiteral("<r>"),
            QStringLiteral("<i>"), QStringLiteral("<f>")};
        return both.contains(tag) || (isAction() && (tag == u"<j>" || tag == u"<g>"));
    }

    void readLine(const QString& line)
    {
        if (line.size() < 3) {
            if (line.startsWith(u'<'))
                warn(QStringLiteral("the line \"%1\" is shorter than a tag and is ignored")
                         .arg(line));
            return;
        }
        const QString tag = line.left(3);
        if (tag == u"<c>") {
            finishKind();
            if (m_kindCount >= 32767)
                throw DataError(QStringLiteral("the catalogue holds more than 32767 kinds"));
            ++m_kindCount;
            m_kind = Kind {};
            m_kind.line = m_line;
        } else if (tag == u"<j>" || tag == u"<g>") {
            if (!isAction())
                warn(QStringLiteral("the \"%1\" line belongs in the action catalogue; here it is "
                                    "ignored")
                         .arg(tag));
            else if (tag == u"<j>")
                lint::readListHeader(m_out, m_file, m_line, line);
            else
                lint::readListItems(m_out, m_file, m_line, line);
        } else if (isTag(tag)) {
            if (!m_kind.line)
                throw DataError(QStringLiteral("the \"%1\" line stands before the first \"<c>\" "
                                               "line, so there is no kind for it")
                                    .arg(tag));
            readField(tag, line);
        } else {
            unknownTag(line);
        }
    }

    // Any other line is ignored, so comments need no mark of their own; a
    // line in none of the usual comment forms is most likely a slip.
    void unknownTag(const QString& line)
    {
        const QString trimmed = basicTrim(line);
        if (trimmed.isEmpty())
            return;
        if (trimmed.size() != line.size() && isTag(trimmed.left(3))) {
            warn(QStringLiteral("the line begins with a blank, so its \"%1\" tag is not read "
                                "and the line is ignored")
                     .arg(trimmed.left(3)));
            return;
        }
        static const QRegularExpression comment(
            QStringLiteral("^ *(//|#|'|;|--|rem\\b)"), QRegularExpression::CaseInsensitiveOption);
        if (comment.match(line).hasMatch())
            return;
        const QString tag = line.left(3);
        warn(isTag(tag.toLower())
                ? QStringLiteral("unknown tag \"%1\" (tags are lower case): the line is ignored")
                      .arg(tag)
                : QStringLiteral("unknown tag \"%1\": the line is ignored (comments begin with "
                                 "\"//\")")
                      .arg(tag));
    }

    void readField(const QString& tag, const QString& line)
    {
        const QStringList pieces = basicSplit(line, tag == u"<i>" ? u'|' : u';');
        if (tag == u"<s>") {
            m_kind.title += lint::piece(pieces, 1, "title");
        } else if (tag == u"<d>") {
            lint::piece(pieces, 1, "description");
        } else if (tag == u"<q>") {
            m_kind.callName = lint::piece(pieces, 1, "call name");
        } else if (tag == u"<r>") {
            readResult(pieces);
        } else if (tag == u"<i>") {
            readCode(pieces);
        } else {
            readArgument(pieces);
        }
    }

    void readResult(const QStringList& pieces)
    {
        if (isAction()) {
            lint::piece(pieces, 1, "result text");
            return;
        }
        const qint16 style = lint::number(pieces, 1, "comparison style");
        const qint16 type = lint::number(pieces, 2, "value type");
        m_kind.hasResult = true;
        if (type != -1 && (type < 0 || type >= kReferenceRows))
            error(QStringLiteral("the value type %1 is no list row (0 to 29, or -1 for none): "
                                 "the editor refuses the kind")
                      .arg(type));
        // Only a compared value offers the row's items; type 17 is a
        // condition written without comparison.
        else if (style == 0 && type >= 0 && type != 17)
            m_out.refer(m_file, m_line, type, QStringLiteral("the compared value"));
    }

    void readCode(const QStringList& pieces)
    {
        const qint16 mode = lint::number(pieces, 1, "form");
        const QStringList codeLines = pieces.mid(2, std::max<qsizetype>(0, pieces.size() - 3));
        if (codeLines.size() > 32767)
            throw DataError(QStringLiteral("the \"<i>\" line holds %1 code lines, but a kind takes "
                                           "at most 32767")
                                .arg(codeLines.size()));
        if (m_kind.codeLine)
            warn(QStringLiteral("a second \"<i>\" line: it replaces the code of line %1")
                     .arg(m_kind.codeLine));
        if (pieces.size() >= 3 && !basicTrim(pieces.last()).isEmpty())
            warn(QStringLiteral("the line does not end with \"|\", so its last code line \"%1\" "
                                "is dropped")
                     .arg(pieces.last()));
        m_kind.codeLine = m_line;
        m_kind.codeMode = mode;
        m_kind.codeLines = codeLines;
    }

    void readArgument(const QStringList& pieces)
    {
        const QString label = basicTrim(lint::piece(pieces, 1, "label"));
        lint::piece(pieces, 2, "hint");
        lintNumber(pieces, 3, "kind");
        const qint16 row = lintNumber(pieces, 4, "list row");
        if (isAction()) {
            const QString alt = basicTrim(lint::piece(pieces, 5, "alt box"));
            bool plain = false;
            alt.toInt(&plain);
            if (!plain)
                warn(notNumber(5, "alt box", alt, val(alt) != 0.0 ? 1 : 0));
        }
        if (m_kind.args >= 32767)
            throw DataError(QStringLiteral("the kind has more than 32767 arguments"));
        ++m_kind.args;
        if (m_kind.args == lint::kArgumentPositions + 1)
            error(QStringLiteral("the kind's argument %1: the editor has %2 argument positions "
                                 "and refuses the kind")
                      .arg(m_kind.args)
                      .arg(lint::kArgumentPositions));
        if (row < -1 || row >= kReferenceRows)
            error(QStringLiteral("argument \"%1\" offers list row %2, but list rows go from 0 to "
                                 "29 (-1 for none): the editor refuses the kind")
                      .arg(label)
                      .arg(row));
        else if (row >= 0)
            m_out.refer(m_file, m_line, row, QStringLiteral("argument \"%1\"").arg(label));
    }

    static QString notNumber(int field, const char* what, const QString& text, int readAs)
    {
        const QString named = QStringLiteral("field %1 (%2) of the \"<f>\" line")
                                  .arg(field)
                                  .arg(QLatin1String(what));
        return text.isEmpty()
            ? QStringLiteral("%1 is empty; it is read as %2").arg(named).arg(readAs)
            : QStringLiteral("%1, \"%2\", is not a whole number; it is read as %3")
                  .arg(named, text)
                  .arg(readAs);
    }

    // An "<f>" number read as the reader reads it (Val, which never fails on
    // text), with a warning when the text is not the number it gives.
    qint16 lintNumber(const QStringList& pieces, int field, const char* what)
    {
        const QString text = basicTrim(lint::piece(pieces, field, what));
        qint16 value = 0;
        try {
            value = valInt16(text);
        } catch (const DataError& error) {
            throw DataError(QStringLiteral("field %1 (%2) of the \"<f>\" line: %3")
                                .arg(field)
                                .arg(QLatin1String(what), error.sentence()));
        }
        bool plain = false;
        text.toInt(&plain);
        if (!plain)
            warn(notNumber(field, what, text, value));
        return value;
    }

    void finishKind()
    {
        if (!m_kind.line)
            return;
        const Kind& kind = m_kind;
        if (kind.title.isEmpty()) {
            warn(QStringLiteral("the kind has no title (\"<s>\" line): its line in the kind list "
                                "is empty"),
                kind.line);
        } else if (const auto first = m_titles.constFind(kind.title); first != m_titles.cend()) {
            warn(QStringLiteral("the title \"%1\" is also the title of the kind at line %2: the "
                                "kind list cannot tell them apart")
                     .arg(kind.title)
                     .arg(*first),
                kind.line);
        } else {
            m_titles.insert(kind.title, kind.line);
        }
        if (!isAction() && !kind.hasResult)
            warn(QStringLiteral("the condition kind has no \"<r>\" line: it is compared by an "
                                "operator with a value of list row 0"),
                kind.line);
        lint::checkKindCode(m_out, m_file, kind, isAction());
    }

    Layout m_layout;
    QString m_file;
    lint::Collector& m_out;
    int m_line = 0;
    int m_kindCount = 0;
    Kind m_kind;
    QHash<QString, int> m_titles;
};

} // namespace

QList<CatalogueFinding> lintCatalogues(
    const CatalogueSource& conditions, const CatalogueSource& actions)
{
    lint::Collector out;
    FileLinter(Layout::Condition, conditions.file, out).run(conditions.lines);
    FileLinter(Layout::Action, actions.file, out).run(actions.lines);
    lint::checkRows(out, actions.file);
    QList<CatalogueFinding> sorted = out.findings;
    const auto order = [&](const CatalogueFinding& finding) {
        return std::pair(finding.file == conditions.file ? 0 : 1, finding.line);
    };
    std::stable_sort(sorted.begin(), sorted.end(),
        [&](const CatalogueFinding& a, const CatalogueFinding& b) { return order(a) < order(b); });
    return sorted;
}

QList<CatalogueFinding> lintProgramCatalogues(const ProgramPaths& paths)
{
    // One after the other: the condition file is named first when both fail.
    const CatalogueSource conditions {
        paths.conditionCatalogue(), readTextLines(paths.conditionCatalogue())};
    const CatalogueSource actions {paths.actionCatalogue(), readTextLines(paths.actionCatalogue())};
    return lintCatalogues(conditions, actions);
}

QString findingLine(const CatalogueFinding& finding)
{
    const QLatin1String severity(finding.severity == Severity::Error ? "error" : "warning");
    if (finding.line <= 0)
        return QStringLiteral("%1: %2: %3").arg(finding.file, severity, finding.sentence);
    return QStringLiteral("%1:%2: %3: %4")
        .arg(finding.file)
        .arg(finding.line)
        .arg(severity, finding.sentence);
}

bool hasErrors(const QList<CatalogueFinding>& findings)
{
    return std::any_of(findings.cbegin(), findings.cend(),
        [](const CatalogueFinding& f) { return f.severity == Severity::Error; });
}

} // namespace tarvo
