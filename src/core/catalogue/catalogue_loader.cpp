#include "catalogue/catalogue_loader.h"

#include "base/checked.h"
#include "text/basic_text.h"
#include "text/text_file.h"

namespace tarvo {

using namespace text;

QString CleanCatalogueLine(const QString& line)
{
    QString cleaned = line;
    cleaned.remove(u'\t');
    return cleaned;
}

namespace {

enum class Layout { Condition, Action };

class CatalogueReader
{
public:
    CatalogueReader(Layout layout, ReferenceListTable* tables)
        : m_layout(layout)
        , m_tables(tables)
    {
    }

    Catalogue read(const QString& path)
    {
        const QStringList lines = readTextLines(path);
        for (qsizetype i = 0; i < lines.size(); ++i) {
            try {
                readLine(CleanCatalogueLine(lines.at(i)));
            } catch (const DataError& error) {
                throw FileError(path, int(i + 1), error.sentence());
            }
        }
        return std::move(m_catalogue);
    }

private:
    static const QString& piece(const QStringList& pieces, int index, const QString& tag)
    {
        if (index >= pieces.size())
            throw DataError(QStringLiteral("the \"%1\" line has %2 fields, but field %3 is needed")
                                .arg(tag)
                                .arg(pieces.size() - 1)
                                .arg(index));
        return pieces.at(index);
    }

    CatalogueEntry& current(const QString& tag)
    {
        if (m_catalogue.isEmpty())
            throw DataError(
                QStringLiteral("the \"%1\" line stands before the first \"<c>\" line").arg(tag));
        return m_catalogue.last();
    }

    static int rowNumber(const QString& text, const QString& tag)
    {
        const qint16 row = toInt16(text);
        if (row < 0 || row >= kReferenceRowCount)
            throw DataError(QStringLiteral("the \"%1\" line names list row %2, but rows go from 0 "
                                           "to 29")
                                .arg(tag)
                                .arg(row));
        return row;
    }

    void readLine(const QString& line)
    {
        if (line.size() < 3)
            return;
        const QString tag = line.left(3);
        if (tag == u"<c>") {
            if (m_catalogue.size() >= 32767)
                throw DataError(QStringLiteral("the catalogue holds more than 32767 kinds"));
            m_catalogue.append(CatalogueEntry {});
        } else if (tag == u"<s>") {
            current(tag).Title += piece(basicSplit(line, u';'), 1, tag);
        } else if (tag == u"<d>") {
            current(tag).Description += piece(basicSplit(line, u';'), 1, tag) + crlf;
        } else if (tag == u"<q>") {
            current(tag).CallName = piece(basicSplit(line, u';'), 1, tag);
        } else if (tag == u"<r>") {
            readResult(line, tag);
        } else if (tag == u"<i>") {
            readCode(line, tag);
        } else if (tag == u"<f>") {
            readArgument(line, tag);
        } else if (m_layout == Layout::Action && tag == u"<j>") {
            readListHeader(line, tag);
        } else if (m_layout == Layout::Action && tag == u"<g>") {
            readListItems(line, tag);
        }
    }

    void readResult(const QString& line, const QString& tag)
    {
        CatalogueEntry& entry = current(tag);
        const QStringList pieces = basicSplit(line, u';');
        if (m_layout == Layout::Condition) {
            entry.ResultA = toInt16(piece(pieces, 1, tag));
            entry.ResultB = toInt16(piece(pieces, 2, tag));
        } else {
            entry.ResultText = piece(pieces, 1, tag);
        }
    }

    void readCode(const QString& line, const QString& tag)
    {
        CatalogueEntry& entry = current(tag);
        const QStringList pieces = basicSplit(line, u'|');
        entry.CodeMode = toInt16(piece(pieces, 1, tag));
        // The last piece is always dropped: a code line must end with "|".
        entry.CodeLines = pieces.mid(2, std::max<qsizetype>(0, pieces.size() - 3));
        if (entry.CodeLines.size() > 32767)
            throw DataError(QStringLiteral("the \"<i>\" line holds %1 code lines, but a kind takes "
                                           "at most 32767")
                                .arg(entry.CodeLines.size()));
        entry.CodeLineCount = static_cast<qint16>(entry.CodeLines.size());
    }

    void readArgument(const QString& line, const QString& tag)
    {
        CatalogueEntry& entry = current(tag);
        const QStringList pieces = basicSplit(line, u';');
        ArgumentSlot slot;
        slot.Label = basicTrim(piece(pieces, 1, tag));
        slot.Hint = basicTrim(piece(pieces, 2, tag));
        slot.ValueKind = valInt16(basicTrim(piece(pieces, 3, tag)));
        slot.ListRef = valInt16(basicTrim(piece(pieces, 4, tag)));
        if (m_layout == Layout::Action)
            slot.UseAltBox = val(basicTrim(piece(pieces, 5, tag))) != 0.0;
        // Past eight the editors say that a kind has more arguments than they
        // have positions; the limit here only bounds what a kind may cost.
        if (entry.ArgCount >= catalogue_limits::ArgumentsPerKind)
            throw DataError(QStringLiteral("the kind holds more than %1 \"<f>\" lines (the editors "
                                           "show eight)")
                                .arg(catalogue_limits::ArgumentsPerKind));
        entry.ArgCount = raisedCount(entry.ArgCount, "arguments of one kind");
        entry.Args.append(slot);
    }

    void readListHeader(const QString& line, const QString& tag)
    {
        const QStringList pieces = basicSplit(basicTrim(line), u'|');
        ReferenceList& list = (*m_tables)[rowNumber(piece(pieces, 1, tag), tag)];
        list.ListName = piece(pieces, 2, tag);
        list.Scope = toInt16(piece(pieces, 3, tag));
        list.CodeTemplate = piece(pieces, 4, tag);
        list.ValueType = piece(pieces, 5, tag);
        // Items read before their row is declared have no script code: the
        // declaration decides how codes are made, and it came too late.
        for (qsizetype n = 0; n < heldCount(list.ItemCount, list.Codes); ++n)
            list.Codes[n].clear();
    }

    void readListItems(const QString& line, const QString& tag)
    {
        const QStringList pieces = basicSplit(basicTrim(line), u'|');
        ReferenceList& list = (*m_tables)[rowNumber(piece(pieces, 1, tag), tag)];
        if (list.Scope == 2) {
            // Counted for the whole line before any code is made: the
            // template may be long (each "&&0" becomes at most five digits).
            const qsizetype items = std::max<qsizetype>(0, pieces.size() - 3);
            const qsizetype perItem
                = list.CodeTemplate.size() + 2 * list.CodeTemplate.count(QStringLiteral("&&0"));
            m_expandedChars += items * perItem;
            if (m_expandedChars > catalogue_limits::ExpandedCodeChars)
                throw DataError(QStringLiteral("the codes made from the templates of the list rows "
                                               "would pass %1 characters with the %2 items of "
                                               "this line")
                                    .arg(catalogue_limits::ExpandedCodeChars)
                                    .arg(items));
        }
        for (qsizetype p = 2; p + 1 < pieces.size(); ++p) {
            const QString& item = pieces.at(p);
            const qsizetype colon = item.indexOf(u':');
            if (colon < 0)
                throw DataError(QStringLiteral("the \"<g>\" item \"%1\" has no \":\" between its "
                                               "code and its text")
                                    .arg(item));
            const int n = list.ItemCount;
            const qint16 count = raisedCount(list.ItemCount, "items in one list row");
            const QString code = item.left(colon);
            const QString shown = item.mid(colon + 1).section(u':', 0, 0);
            growTo(list.RawCodes, n + 1);
            growTo(list.Codes, n + 1);
            growTo(list.Texts, n + 1);
            growTo(list.Ids, n + 1);
            list.RawCodes[n] = code;
            list.Codes[n] = list.Scope == 2
                ? basicReplace(list.CodeTemplate, QStringLiteral("&&0"), QString::number(n))
                : code;
            list.Texts[n] = shown;
            list.Ids[n] = static_cast<qint16>(n);
            list.ItemCount = count;
        }
    }

    Layout m_layout;
    ReferenceListTable* m_tables;
    Catalogue m_catalogue;
    qsizetype m_expandedChars = 0;
};

QStringList kindItems(const QString& first, const Catalogue& catalogue)
{
    QStringList items {first};
    for (const CatalogueEntry& entry : catalogue)
        items.append(entry.Title);
    return items;
}

} // namespace

Catalogue readConditionCatalogue(const QString& path)
{
    return CatalogueReader(Layout::Condition, nullptr).read(path);
}

Catalogue readActionCatalogue(const QString& path, ReferenceListTable& tables)
{
    return CatalogueReader(Layout::Action, &tables).read(path);
}

void LoadConditionCatalogue(Workspace& workspace)
{
    workspace.conditionCatalogue.clear();
    workspace.conditionCatalogue = readConditionCatalogue(workspace.paths.conditionCatalogue());
}

void LoadActionCatalogue(Workspace& workspace)
{
    workspace.actionCatalogue.clear();
    workspace.actionCatalogue
        = readActionCatalogue(workspace.paths.actionCatalogue(), workspace.project.tables);
}

void SetUpReferenceRows(ReferenceListTable& tables)
{
    for (ReferenceList& list : tables)
        list.UsesIds = true;
    const int flagSlots = tables[row::Flags].ItemCount + 1;
    tables[row::Flags].RawCodes.resize(flagSlots);
    const int groupSlots = tables[row::Groups].ItemCount + 1;
    tables[row::Groups].Codes.resize(groupSlots);
    tables[row::Groups].Texts.resize(groupSlots);
    tables[row::Groups].RawCodes.resize(groupSlots);
    tables[row::Integers].Saved = true;
    tables[row::Groups].Saved = true;
    tables[row::Sounds].Saved = true;
}

QStringList conditionKindItems(const Catalogue& catalogue)
{
    return kindItems(QStringLiteral("<Select a condition>"), catalogue);
}

QStringList actionKindItems(const Catalogue& catalogue)
{
    return kindItems(QStringLiteral("<Select an action>"), catalogue);
}

} // namespace tarvo
