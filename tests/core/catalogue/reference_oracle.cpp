#include "reference_oracle.h"

#include "model/checked.h"
#include "text/basic_text.h"
#include "ui/prompter.h"

namespace tarvo::oracle {

using text::basicReplace;

namespace {
const QString kAmp = QStringLiteral("&&");
} // namespace

QString getIDfromIndex(const ReferenceListTable& table, int row, int position, Prompter& prompter)
{
    if (position == -1)
        return QStringLiteral("-1");
    const ReferenceList& list = referenceRow(table, row);
    if (!list.UsesIds)
        return QString::number(position);
    const qint16 id = at(list.Ids, position, "list of IDs");
    if (id < 0) {
        prompter.message(
            QStringLiteral("getIDfromIndex variable Error! (%1: %2, %3). Couldn't find "
                           "variable.")
                .arg(list.ListName)
                .arg(row)
                .arg(position),
            Prompter::Icon::Critical);
    }
    return QString::number(id);
}

QString GetIndexFromID(const ReferenceListTable& table, int row, int id)
{
    if (id == -1)
        return QStringLiteral("-1");
    const ReferenceList& list = referenceRow(table, row);
    if (!list.UsesIds)
        return QString::number(id);
    QString answer = QStringLiteral("-1");
    for (int p = 0; p < list.ItemCount; ++p) {
        if (at(list.Ids, p, "list of IDs") == id)
            answer = QString::number(p);
    }
    return answer;
}

qint16 NextFreeID(const ReferenceListTable& table, int row)
{
    const ReferenceList& list = referenceRow(table, row);
    int best = -1;
    for (int p = 0; p < list.ItemCount; ++p)
        best = std::max<int>(best, at(list.Ids, p, "list of IDs"));
    return static_cast<qint16>(best + 1);
}

QString EncodeReferences(
    const ReferenceListTable& table, int row, const QString& text, Prompter& prompter)
{
    if (row == -1 || text.isEmpty())
        return text;
    const ReferenceList& list = referenceRow(table, row);
    QString current = text;
    qsizetype bestLength = 10000; // never reset between passes
    for (int k = 0; k < list.ItemCount; ++k) {
        const QString trial
            = encodedReference(row, oracle::getIDfromIndex(table, row, k, prompter));
        int remembered = -1;
        for (int j = 0; j < list.ItemCount; ++j) {
            const QString replaced = basicReplace(current, at(list.Texts, j, "list texts"), trial);
            if (replaced != current && replaced.size() < bestLength) {
                remembered = j;
                bestLength = replaced.size();
            }
        }
        if (remembered >= 0) {
            current = basicReplace(current, list.Texts.at(remembered),
                encodedReference(row, oracle::getIDfromIndex(table, row, remembered, prompter)));
        }
    }
    return current;
}

QString DecodeReferences(const ReferenceListTable& table, const QString& text, Prompter& prompter)
{
    if (text.isEmpty())
        return text;
    QString result = text;
    bool replacedAny = false;
    for (int r = 0; r < kReferenceRowCount; ++r) {
        const ReferenceList& list = table[r];
        for (int k = 0; k < list.ItemCount; ++k) {
            const QString reference
                = encodedReference(r, oracle::getIDfromIndex(table, r, k, prompter));
            if (!result.contains(reference))
                continue;
            result = basicReplace(result, reference, at(list.Texts, k, "list texts"));
            replacedAny = true;
        }
    }
    if (!replacedAny && text.size() >= 5 && text.contains(kAmp)) {
        const int r = RowOfReference(text);
        const QString name = r >= 0 && r < kReferenceRowCount ? table[r].ListName : QString();
        prompter.addStatusLine(QStringLiteral("error"),
            QStringLiteral("Couldn't parse '") + name + QStringLiteral("' variable"));
        return QStringLiteral("?");
    }
    return result;
}

QString ResolveReferences(const ReferenceListTable& table, const QString& text, ResolveForm form)
{
    QString result = text;
    for (int r = 0; r < kReferenceRowCount; ++r) {
        const ReferenceList& list = table[r];
        const int last = oracle::NextFreeID(table, r);
        for (int s = 0; s <= last; ++s) {
            const QString reference = encodedReference(r, QString::number(s));
            if (!result.contains(reference))
                continue;
            QString replacement;
            if (form == ResolveForm::B && r == row::Integers && s <= 4) {
                replacement = at(list.RawCodes, s, "raw codes");
            } else {
                const int p = oracle::GetIndexFromID(table, r, s).toInt();
                replacement = p == -1 ? QStringLiteral("?") : at(list.Codes, p, "list codes");
            }
            result = basicReplace(result, reference, replacement);
        }
    }
    if (form == ResolveForm::C)
        return u'(' + result + u')';
    return result;
}

} // namespace tarvo::oracle
