// Each routine is the plain reading of the marker language: the loops run over
// rows, positions and IDs in the order the rules give, and every ID is looked
// up (with its message) whether or not its reference occurs. An item's text or
// code is fetched only when it is written into the text, so a row whose lists
// are shorter than its count fails exactly when a missing element is used.
#include "reference_oracle.h"

#include "base/checked.h"
#include "base/file_error.h"
#include "text/basic_text.h"
#include "ui/prompter.h"

namespace tarvo::oracle {

namespace {

const ReferenceList& rowOf(const ReferenceListTable& table, int row)
{
    if (row < 0 || row >= kReferenceRowCount)
        throw DataError(QStringLiteral("row %1 of the reference lists does not exist").arg(row));
    return table[size_t(row)];
}

// Replace as the classic runtime does it: an empty search text changes
// nothing; otherwise every occurrence, left to right, none overlapping.
QString replaceAll(const QString& text, const QString& find, const QString& with)
{
    if (find.isEmpty())
        return text;
    QString result;
    qsizetype i = 0;
    while (i < text.size()) {
        bool match = i + find.size() <= text.size();
        for (qsizetype c = 0; match && c < find.size(); ++c)
            match = text[i + c] == find[c];
        if (match) {
            result += with;
            i += find.size();
        } else {
            result += text[i];
            ++i;
        }
    }
    return result;
}

QString reference(int row, const QString& id)
{
    return QStringLiteral("&&") + QString::number(row) + QStringLiteral("$$") + id + u'§';
}

// The row of the first reference in a text; a row part that is not a
// number gives 0, as in the editor's own routine.
int rowOfReference(const QString& text)
{
    if (text.size() < 7 || !text.contains(u'$') || !text.contains(u'&') || !text.contains(u'§'))
        return 0;
    const QString before = text.left(text.indexOf(QStringLiteral("$$")));
    try {
        return text::toInt16(replaceAll(before, QStringLiteral("&&"), QString()));
    } catch (const DataError&) {
        return 0;
    }
}

} // namespace

QString getIDfromIndex(const ReferenceListTable& table, int row, int position, Prompter& prompter)
{
    if (position == -1)
        return QStringLiteral("-1");
    const ReferenceList& list = rowOf(table, row);
    if (!list.UsesIds)
        return QString::number(position);
    const qint16 id = at(list.Ids, position);
    if (id < 0) {
        prompter.message(QStringLiteral("getIDfromIndex variable Error! (") + list.ListName
                + QStringLiteral(": ") + QString::number(row) + QStringLiteral(", ")
                + QString::number(position) + QStringLiteral("). Couldn't find variable."),
            Prompter::Icon::Critical);
    }
    return QString::number(id);
}

QString GetIndexFromID(const ReferenceListTable& table, int row, int id)
{
    if (id == -1)
        return QStringLiteral("-1");
    const ReferenceList& list = rowOf(table, row);
    if (!list.UsesIds)
        return QString::number(id);
    QString answer = QStringLiteral("-1");
    for (int position = 0; position < list.ItemCount; ++position) {
        if (at(list.Ids, position) == id)
            answer = QString::number(position);
    }
    return answer;
}

qint16 NextFreeID(const ReferenceListTable& table, int row)
{
    const ReferenceList& list = rowOf(table, row);
    int greatest = -1;
    for (int position = 0; position < list.ItemCount; ++position) {
        if (at(list.Ids, position) > greatest)
            greatest = at(list.Ids, position);
    }
    if (greatest + 1 > 32767)
        throw DataError(QStringLiteral("the next free ID of row %1 does not fit").arg(row));
    return qint16(greatest + 1);
}

QString EncodeReferences(
    const ReferenceListTable& table, int row, const QString& text, Prompter& prompter)
{
    if (row == -1 || text.isEmpty())
        return text;
    const ReferenceList& list = rowOf(table, row);
    QString current = text;
    qsizetype bestLength = 10000;
    for (int k = 0; k < list.ItemCount; ++k) {
        const QString trial = reference(row, oracle::getIDfromIndex(table, row, k, prompter));
        int remembered = -1;
        for (int j = 0; j < list.ItemCount; ++j) {
            const QString tried = replaceAll(current, at(list.Texts, j), trial);
            if (tried != current && tried.size() < bestLength) {
                remembered = j;
                bestLength = tried.size();
            }
        }
        if (remembered != -1) {
            current = replaceAll(current, at(list.Texts, remembered),
                reference(row, oracle::getIDfromIndex(table, row, remembered, prompter)));
        }
    }
    return current;
}

QString DecodeReferences(const ReferenceListTable& table, const QString& text, Prompter& prompter)
{
    if (text.isEmpty())
        return text;
    QString result = text;
    bool replaced = false;
    for (int row = 0; row < kReferenceRowCount; ++row) {
        const ReferenceList& list = rowOf(table, row);
        for (int k = 0; k < list.ItemCount; ++k) {
            const QString find = reference(row, oracle::getIDfromIndex(table, row, k, prompter));
            if (result.contains(find)) {
                result = replaceAll(result, find, at(list.Texts, k));
                replaced = true;
            }
        }
    }
    if (!replaced && text.size() >= 5 && text.contains(QStringLiteral("&&"))) {
        // A row outside the table names no list: the text is as broken as any.
        const int named = rowOfReference(text);
        const QString name
            = named >= 0 && named < kReferenceRowCount ? table[size_t(named)].ListName : QString();
        prompter.addStatusLine(QStringLiteral("error"),
            QStringLiteral("Couldn't parse '") + name + QStringLiteral("' variable"));
        result = QStringLiteral("?");
    }
    return result;
}

QString ResolveReferences(const ReferenceListTable& table, const QString& text, ResolveForm form)
{
    QString result = text;
    for (int row = 0; row < kReferenceRowCount; ++row) {
        const ReferenceList& list = rowOf(table, row);
        // The greatest ID plus one, counted past 16 bits: the greatest ID
        // itself must still resolve.
        int last = 0;
        for (int position = 0; position < list.ItemCount; ++position)
            last = std::max(last, at(list.Ids, position) + 1);
        const QString rowPrefix = reference(row, QString()).chopped(1);
        for (int s = 0; s <= last; ++s) {
            // Lookups have no effect of their own, so once no reference of the
            // row is left the remaining IDs cannot change the text.
            if (!result.contains(rowPrefix))
                break;
            const QString find = reference(row, QString::number(s));
            const QString p = oracle::GetIndexFromID(table, row, s);
            if (!result.contains(find))
                continue;
            QString replacement;
            if (form == ResolveForm::B && row == 0 && s <= 4)
                replacement = at(list.RawCodes, s);
            else if (p == QStringLiteral("-1"))
                replacement = QStringLiteral("?");
            else
                replacement = at(list.Codes, p.toInt());
            result = replaceAll(result, find, replacement);
        }
    }
    if (form == ResolveForm::C)
        return u'(' + result + u')';
    return result;
}

} // namespace tarvo::oracle
