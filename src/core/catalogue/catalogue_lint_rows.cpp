#include "catalogue/catalogue_lint_parts.h"
#include "base/file_error.h"
#include "text/basic_text.h"

namespace tarvo::lint {

using namespace text;
using Severity = CatalogueFinding::Severity;

const QString& piece(const QStringList& pieces, int index, const char* what)
{
    if (index >= pieces.size())
        throw DataError(QStringLiteral("the \"%1\" line has %2 fields, but field %3 (%4) is needed")
                            .arg(pieces.first().left(3))
                            .arg(pieces.size() - 1)
                            .arg(index)
                            .arg(QLatin1String(what)));
    return pieces.at(index);
}

qint16 number(const QStringList& pieces, int index, const char* what)
{
    const QString& text = piece(pieces, index, what);
    try {
        return toInt16(text);
    } catch (const DataError& error) {
        throw DataError(QStringLiteral("field %1 (%2) of the \"%3\" line: %4")
                            .arg(index)
                            .arg(QLatin1String(what), pieces.first().left(3), error.sentence()));
    }
}

namespace {

int rowNumber(const QStringList& pieces)
{
    const qint16 row = number(pieces, 1, "row");
    if (row < 0 || row >= kReferenceRows)
        throw DataError(
            QStringLiteral("the \"%1\" line names list row %2, but rows go from 0 to 29")
                .arg(pieces.first())
                .arg(row));
    return row;
}

// Rows the program fills from the project whatever the catalogue gives.
const char* programRow(int row)
{
    switch (row) {
    case 0:
        return "the project's integers";
    case 7:
        return "the project's groups";
    case 12:
        return "the project's events";
    case 13:
        return "the project's timers";
    case 14:
        return "the project's sounds";
    case 15:
        return "the project's messages";
    case 17:
        return "the project's flags";
    }
    return nullptr;
}

} // namespace

void readListHeader(Collector& out, const QString& file, int line, const QString& text)
{
    const QStringList pieces = basicSplit(basicTrim(text), u'|');
    const int row = rowNumber(pieces);
    const QString& name = piece(pieces, 2, "name");
    const qint16 scope = number(pieces, 3, "scope");
    const QString& codeTemplate = piece(pieces, 4, "template");
    const QString& type = piece(pieces, 5, "type");
    RowFacts& facts = out.rows[row];
    if (facts.declaredAt)
        out.add(Severity::Warning, file, line,
            QStringLiteral("list row %1 is declared again (first at line %2): this line's name, "
                           "scope, template and type replace those")
                .arg(row)
                .arg(facts.declaredAt));
    else
        facts.declaredAt = line;
    // The reader makes an item's script code when it reads the item, from the
    // declaration in force then.
    if (facts.items > 0)
        out.add(Severity::Error, file, line,
            QStringLiteral("list row %1 already has items from line %2: a \"<j>\" line after "
                           "them leaves those items without script code; put it before the "
                           "row's \"<g>\" lines")
                .arg(row)
                .arg(facts.filledAt));
    if (scope == 2 && !codeTemplate.contains(QStringLiteral("&&0")))
        out.add(Severity::Warning, file, line,
            QStringLiteral("list row %1 is public (scope 2), but its template \"%2\" has no "
                           "\"&&0\": every item gets the same script name")
                .arg(row)
                .arg(codeTemplate));
    if (scope < 0 || scope > 2)
        out.add(Severity::Warning, file, line,
            QStringLiteral("list row %1 has scope %2, none of 0 (not declared), 1 (private) and 2 "
                           "(public)")
                .arg(row)
                .arg(scope));
    else if (scope != 0 && type.isEmpty())
        out.add(Severity::Warning, file, line,
            QStringLiteral("list row %1 is declared %2 without a type: its variables are declared "
                           "without one")
                .arg(row)
                .arg(QLatin1String(scope == 2 ? "public" : "private")));
    facts.name = name;
}

void readListItems(Collector& out, const QString& file, int line, const QString& text)
{
    const QStringList pieces = basicSplit(basicTrim(text), u'|');
    const int row = rowNumber(pieces);
    RowFacts& facts = out.rows[row];
    for (qsizetype p = 2; p + 1 < pieces.size(); ++p) {
        const QString& item = pieces.at(p);
        if (!item.contains(u':'))
            throw DataError(QStringLiteral("the \"<g>\" item \"%1\" has no \":\" between its "
                                           "code and its text")
                                .arg(item));
        if (facts.items >= 32767)
            throw DataError(QStringLiteral("the list row holds more than 32767 items"));
        ++facts.items;
        // The reader takes a text as the first item that shows it.
        const QString shown = item.mid(item.indexOf(u':') + 1).section(u':', 0, 0);
        if (const auto first = facts.texts.constFind(shown); first != facts.texts.cend())
            out.add(Severity::Warning, file, line,
                QStringLiteral("list row %1 has the item text \"%2\" twice (first at line %3): a "
                               "text typed or chosen always means the first")
                    .arg(row)
                    .arg(shown)
                    .arg(*first));
        else
            facts.texts.insert(shown, line);
        if (!facts.filledAt)
            facts.filledAt = line;
    }
    if (pieces.size() >= 3 && !pieces.last().isEmpty())
        out.add(Severity::Warning, file, line,
            QStringLiteral("the line does not end with \"|\", so its last item \"%1\" is dropped")
                .arg(pieces.last()));
    if (row >= 12 && row <= 15 && pieces.size() > 3)
        out.add(Severity::Warning, file, line,
            QStringLiteral("list row %1 holds %2: the program replaces these items")
                .arg(row)
                .arg(QLatin1String(programRow(row))));
}

void checkRows(Collector& out, const QString& actionFile)
{
    for (const RowReference& ref : out.references) {
        const RowFacts& facts = out.rows[ref.row];
        if (const char* filled = programRow(ref.row)) {
            // Variables are declared in the script by their row's "<j>" line.
            const bool variables = ref.row == 0 || ref.row == 7 || ref.row == 17;
            if (variables && !facts.declaredAt)
                out.add(Severity::Warning, ref.file, ref.line,
                    QStringLiteral("%1 offers list row %2 (%3), but no \"<j>\" line gives the row "
                                   "its name, scope and type: its variables are not declared in "
                                   "the script")
                        .arg(ref.what)
                        .arg(ref.row)
                        .arg(QLatin1String(filled)));
        } else if (!facts.declaredAt && !facts.items) {
            out.add(Severity::Error, ref.file, ref.line,
                QStringLiteral("%1 offers list row %2, which no \"<j>\" line declares and no "
                               "\"<g>\" line fills: its box offers nothing")
                    .arg(ref.what)
                    .arg(ref.row));
        } else if (!facts.items) {
            out.add(Severity::Warning, ref.file, ref.line,
                QStringLiteral("%1 offers list row %2 (\"%3\"), which has no items (\"<g>\" "
                               "lines): its box offers nothing")
                    .arg(ref.what)
                    .arg(ref.row)
                    .arg(facts.name));
        }
    }
    for (int row = 0; row < kReferenceRows; ++row) {
        const RowFacts& facts = out.rows[row];
        if (facts.items && !facts.declaredAt)
            out.add(Severity::Warning, actionFile, facts.filledAt,
                QStringLiteral("list row %1 has items but no \"<j>\" line gives its name, scope "
                               "and type")
                    .arg(row));
    }
}

} // namespace tarvo::lint
