#include "catalogue/reference_markers.h"

#include "catalogue/reference_index.h"
#include "base/checked.h"
#include "text/basic_text.h"
#include "ui/prompter.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace tarvo {

using text::basicReplace;

namespace {
const QString kAmp = QStringLiteral("&&");
const QString kDollar = QStringLiteral("$$");
const QString kSection = QStringLiteral("§");

// The numbers inside a reference may be anything a user or a file put there;
// a part that is not a 16-bit number counts as no reference.
qint16 referenceNumber(const QString& text)
{
    try {
        return text::toInt16(text);
    } catch (const DataError&) {
        return 0;
    }
}

bool looksLikeReference(const QString& text)
{
    return text.size() >= 7 && text.contains(u'$') && text.contains(u'&')
        && text.contains(kSection);
}

int idAt(const ReferenceList& list, int position)
{
    return list.UsesIds ? int(at(list.Ids, position, "list of IDs")) : position;
}

// Characters of a 16-bit number in decimal, sign included.
int decimalLength(int value)
{
    int length = value < 0 ? 2 : 1;
    for (int v = value < 0 ? -value : value; v >= 10; v /= 10)
        ++length;
    return length;
}

// Once no item text is left in the text, the remaining passes of the
// encoder change nothing; they still fetch every ID, and so still report
// the negative ones.
void reportRemainingNegatives(
    const ReferenceListTable& table, int row, int from, int count, Prompter& prompter)
{
    const ReferenceList& list = table[size_t(row)];
    if (!list.UsesIds)
        return;
    for (int k = from; k < count; ++k) {
        if (at(list.Ids, k, "list of IDs") < 0)
            getIDfromIndex(table, row, k, prompter);
    }
}

// Which item texts occur in the text being encoded, and how often (counted
// the way a replacement counts: left to right, without overlaps). Every
// substring of the text whose length is that of some item leaves a mark for
// its length, first and last two characters; an item is searched for only if
// its own mark is there. A new text thus costs its length times the number of
// distinct item lengths, plus a few characters read per item.
class ItemMatcher
{
public:
    ItemMatcher(const QStringList& texts, int count)
        : m_texts(texts)
        , m_count(count)
    {
    }

    bool noneIn(const QString& current)
    {
        refresh(current);
        return m_candidates.empty();
    }

    // The item that shortens the text most when replaced by a trial of
    // `trialLength` characters, first position on ties, provided the result
    // is shorter than `bestLength`; -1 for none. Items for which
    // `isTrialText` holds are skipped: replacing them changes nothing.
    template <typename IsTrialText>
    int bestFor(const QString& current, int trialLength, qsizetype bestLength,
        const IsTrialText& isTrialText)
    {
        refresh(current);
        int chosen = -1;
        for (const Candidate& c : m_candidates) {
            const qsizetype length = current.size() + c.occurrences * (trialLength - c.length);
            if (length >= bestLength || isTrialText(m_texts.at(c.position)))
                continue;
            bestLength = length;
            chosen = c.position;
        }
        return chosen;
    }

    qsizetype lengthAfter(const QString& current, int position, int trialLength) const
    {
        for (const Candidate& c : m_candidates) {
            if (c.position == position)
                return current.size() + c.occurrences * (trialLength - c.length);
        }
        return current.size();
    }

    void textChanged() { m_fresh = false; }

private:
    struct Candidate
    {
        int position;
        qsizetype length;
        qsizetype occurrences;
    };

    static constexpr int kFilterBits = 16;
    static constexpr size_t kNoMark = ~size_t(0);

    static size_t mark(QStringView text)
    {
        const qsizetype n = text.size();
        const quint64 key = quint64(text[0].unicode()) | quint64(text[n - 1].unicode()) << 16
            | quint64(text[n > 1 ? n - 2 : 0].unicode()) << 32 | quint64(n) << 48;
        return size_t((key * 0x9E3779B97F4A7C15ULL) >> (64 - kFilterBits));
    }

    void prepare()
    {
        m_lengths.resize(size_t(m_count));
        m_marks.assign(size_t(m_count), kNoMark);
        qsizetype longest = 0;
        for (int j = 0; j < m_count; ++j) {
            const qsizetype length = at(m_texts, j, "list texts").size();
            m_lengths[size_t(j)] = length;
            longest = std::max(longest, length);
        }
        std::vector<bool> seen(size_t(longest) + 1, false);
        for (qsizetype length : m_lengths)
            seen[size_t(length)] = true;
        for (qsizetype length = 1; length <= longest; ++length) {
            if (seen[size_t(length)])
                m_distinctLengths.push_back(length);
        }
        m_prepared = true;
    }

    void refresh(const QString& current)
    {
        if (m_fresh)
            return;
        if (!m_prepared)
            prepare();
        m_candidates.clear();
        const qsizetype n = current.size();
        m_filter.assign(size_t(1) << (kFilterBits - 6), 0);
        for (qsizetype length : m_distinctLengths) {
            if (length > n)
                break;
            for (qsizetype i = 0; i + length <= n; ++i) {
                const size_t s = mark(QStringView(current).mid(i, length));
                m_filter[s >> 6] |= quint64(1) << (s & 63);
            }
        }
        for (int j = 0; j < m_count; ++j) {
            const qsizetype length = m_lengths[size_t(j)];
            if (length <= 0 || length > n)
                continue;
            const QString& item = m_texts.at(j);
            // Reading the item's characters is what costs; do it once.
            size_t& s = m_marks[size_t(j)];
            if (s == kNoMark)
                s = mark(item);
            if (!(m_filter[s >> 6] & (quint64(1) << (s & 63))))
                continue;
            qsizetype occurrences = 0;
            for (qsizetype from = current.indexOf(item); from >= 0;
                 from = current.indexOf(item, from + length))
                ++occurrences;
            if (occurrences > 0)
                m_candidates.push_back({j, length, occurrences});
        }
        m_fresh = true;
    }

    const QStringList& m_texts;
    const int m_count;
    bool m_prepared = false;
    bool m_fresh = false;
    std::vector<qsizetype> m_lengths;
    std::vector<qsizetype> m_distinctLengths;
    std::vector<size_t> m_marks;
    std::vector<quint64> m_filter;
    std::vector<Candidate> m_candidates;
};
// One number of a reference at `i`, moved past it on success. Five digits at
// most: no item holds a number beyond 16 bits.
bool readNumber(QStringView text, qsizetype& i, bool allowSign, int& value)
{
    bool negative = false;
    if (allowSign && i < text.size() && text[i] == u'-') {
        negative = true;
        ++i;
    }
    const qsizetype begin = i;
    qint64 v = 0;
    while (i < text.size() && text[i] >= u'0' && text[i] <= u'9') {
        if (i - begin >= 5)
            return false;
        v = v * 10 + (text[i].unicode() - u'0');
        ++i;
    }
    const qsizetype digits = i - begin;
    if (digits == 0 || (digits > 1 && text[begin] == u'0') || (negative && v == 0))
        return false;
    v = negative ? -v : v;
    if (v < std::numeric_limits<qint16>::min() || v > std::numeric_limits<qint16>::max())
        return false;
    value = int(v);
    return true;
}

} // namespace

QString encodedReference(int row, const QString& id)
{
    return kAmp + QString::number(row) + kDollar + id + kSection;
}

bool readReference(QStringView text, qsizetype at, int& row, int& id, qsizetype& end)
{
    qsizetype i = at + 2;
    if (!text.mid(at).startsWith(kAmp) || !readNumber(text, i, false, row)
        || !text.mid(i).startsWith(kDollar))
        return false;
    i += 2;
    if (!readNumber(text, i, true, id) || i >= text.size() || text[i] != QChar(0x00A7))
        return false;
    end = i + 1;
    return true;
}

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
    if (best + 1 > 32767)
        throw DataError(QStringLiteral("no ID is left in list row %1").arg(row));
    return static_cast<qint16>(best + 1);
}

QString EncodeReferences(
    const ReferenceListTable& table, int row, const QString& text, Prompter& prompter)
{
    if (row == -1 || text.isEmpty())
        return text;
    const ReferenceList& list = referenceRow(table, row);
    const int count = list.ItemCount;
    if (count <= 0)
        return text;

    ItemMatcher items(list.Texts, count);
    const int referenceBase
        = int(kAmp.size() + kDollar.size() + kSection.size()) + int(QString::number(row).size());
    QString current = text;
    qsizetype bestLength = 10000; // never reset between passes

    // A pass is decided by the length of its trial reference alone (and, in
    // the rare case of an item whose text is that very reference, by the
    // trial itself). While the text stays the same, a pass that found
    // nothing for one length finds nothing for that length again.
    std::array<bool, 8> hopeless {};
    for (int k = 0; k < count; ++k) {
        const int id = idAt(list, k);
        if (id < 0)
            getIDfromIndex(table, row, k, prompter); // the message, as every pass does
        if (items.noneIn(current)) {
            reportRemainingNegatives(table, row, k + 1, count, prompter);
            break;
        }
        const int trialLength = referenceBase + decimalLength(id);
        if (hopeless[size_t(decimalLength(id))])
            continue;
        bool sawTrialText = false;
        const int j = items.bestFor(current, trialLength, bestLength, [&](const QString& itemText) {
            if (itemText.size() != trialLength)
                return false;
            sawTrialText = true;
            return itemText == encodedReference(row, QString::number(id));
        });
        if (j < 0) {
            if (!sawTrialText)
                hopeless[size_t(decimalLength(id))] = true;
            continue;
        }
        bestLength = items.lengthAfter(current, j, trialLength);
        current = basicReplace(current, list.Texts.at(j),
            encodedReference(row, getIDfromIndex(table, row, j, prompter)));
        items.textChanged();
        hopeless.fill(false);
    }
    return current;
}

QString DecodeReferences(const ReferenceListTable& table, const QString& text, Prompter& prompter)
{
    return ReferenceIndex(table, ReferenceIndex::Use::OneText).decode(text, prompter);
}

QString ResolveReferences(const ReferenceListTable& table, const QString& text, ResolveForm form)
{
    return ReferenceIndex(table, ReferenceIndex::Use::OneText).resolve(text, form);
}

qint16 RowOfReference(const QString& text)
{
    if (!looksLikeReference(text))
        return 0;
    QString head = text.section(kDollar, 0, 0);
    head.remove(kAmp);
    return referenceNumber(head);
}

qint16 IdOfReference(const QString& text)
{
    if (!looksLikeReference(text))
        return 0;
    const qsizetype start = text.indexOf(kDollar);
    if (start < 0)
        return 0;
    const qsizetype end = text.indexOf(kDollar, start + 2);
    QString middle = end < 0 ? text.mid(start + 2) : text.mid(start + 2, end - start - 2);
    middle.remove(kSection);
    return referenceNumber(middle);
}

bool referenceBoxNamesItem(
    const ReferenceListTable& table, int row, const QString& text, Prompter& prompter)
{
    if (row == -1)
        return false;
    return EncodeReferences(table, row, text, prompter) != text;
}

QStringList comboItemsFromList(const ReferenceListTable& table, int row)
{
    if (row == -1)
        return {};
    const ReferenceList& list = referenceRow(table, row);
    const int end = std::min<int>({NextFreeID(table, row), list.ItemCount, int(list.Texts.size())});
    return list.Texts.mid(0, std::max(0, end));
}

QString replaceReferences(
    const QString& text, const std::function<std::optional<QString>(int row, int id)>& replace)
{
    qsizetype from = text.indexOf(QLatin1String("&&"));
    if (from < 0)
        return text;
    QString result;
    qsizetype copied = 0;
    while (from >= 0) {
        int row = 0;
        int id = 0;
        qsizetype end = 0;
        if (!readReference(text, from, row, id, end)) {
            from = text.indexOf(QLatin1String("&&"), from + 1);
            continue;
        }
        if (const std::optional<QString> replacement = replace(row, id)) {
            result += QStringView(text).mid(copied, from - copied);
            result += *replacement;
            copied = end;
        }
        from = text.indexOf(QLatin1String("&&"), end);
    }
    if (copied == 0)
        return text;
    result += QStringView(text).mid(copied);
    return result;
}

} // namespace tarvo
