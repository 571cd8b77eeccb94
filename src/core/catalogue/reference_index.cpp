#include "catalogue/reference_index.h"

#include "base/checked.h"
#include "text/basic_text.h"
#include "ui/prompter.h"

#include <QVarLengthArray>
#include <algorithm>
#include <limits>

namespace tarvo {

namespace {

// The replacements happen row by row and, within a row, position by
// position (decoding) or ID by ID (resolving): one ordered sequence of steps.
// A step is numbered row * kRowSpan + position-or-ID.
constexpr qint64 kRowSpan = 65536;
constexpr qint64 kNoStop = std::numeric_limits<qint64>::max();

qint64 stepOf(int row, int item)
{
    return qint64(row) * kRowSpan + item;
}

// One reference written the way the routines write them: "&&" + row + "$$"
// + ID + "§", both numbers in plain decimal (no leading zeros, no "+").
struct Marker
{
    qsizetype pos = 0;
    qsizetype len = 0;
    int row = 0;
    int id = 0;
};

bool parseMarker(QStringView text, qsizetype at, Marker& marker)
{
    int row = 0;
    int id = 0;
    qsizetype end = 0;
    if (!readReference(text, at, row, id, end) || row >= kReferenceRowCount)
        return false;
    marker = {at, end - at, row, id};
    return true;
}

// Every reference in the text, left to right. Two references can never
// overlap (a reference holds "&&" only at its start), so this finds exactly
// the occurrences a plain replacement of each one would find.
// The next "&&" at or after `from`, or -1. Texts are short: a plain loop
// beats a general substring search here.
qsizetype nextAmpersands(QStringView text, qsizetype from)
{
    const qsizetype last = text.size() - 1;
    for (qsizetype i = from; i < last; ++i) {
        if (text[i] == u'&' && text[i + 1] == u'&')
            return i;
    }
    return -1;
}

// Most texts hold a reference or two: no heap for those.
using Markers = QVarLengthArray<Marker, 8>;

Markers scanMarkers(QStringView text)
{
    Markers markers;
    qsizetype from = 0;
    while (true) {
        const qsizetype at = nextAmpersands(text, from);
        if (at < 0)
            break;
        Marker marker;
        if (parseMarker(text, at, marker)) {
            markers.push_back(marker);
            from = at + marker.len;
        } else {
            from = at + 1;
        }
    }
    return markers;
}

qsizetype countMarkers(QStringView text)
{
    qsizetype count = 0;
    qsizetype from = 0;
    Marker marker;
    for (qsizetype at = nextAmpersands(text, 0); at >= 0; at = nextAmpersands(text, from)) {
        if (parseMarker(text, at, marker)) {
            ++count;
            from = at + marker.len;
        } else {
            from = at + 1;
        }
    }
    return count;
}

// Applies the ordered steps to `text` as the step-by-step loops would: each
// step replaces every occurrence of its reference, and what a replacement
// brings in (a code holding a reference, or a reference formed across its
// edges) is met only by the steps after it.
//
// firstStepAfter(row, id, after): the first step beyond `after` (and before
// `stop`) that replaces this reference, or -1. replacementFor(step, row, id):
// its text; it may throw, and `attempted` then names the step.
template <typename FirstStep, typename ReplacementFor>
QString rewrite(const QString& text, qint64 stop, const FirstStep& firstStepAfter,
    const ReplacementFor& replacementFor, bool& replacedAny, qint64& attempted)
{
    const Markers markers = scanMarkers(text);
    if (markers.empty())
        return text;

    // Usual case: every reference is replaced once, at its first step, and
    // no replacement gives rise to a new reference. Then all replacements
    // can be made in one pass. The result proves it: it must hold no
    // reference except the ones no step touched.
    bool fastPath = true;
    QVarLengthArray<qint64, 8> steps(markers.size(), -1);
    QVarLengthArray<QString, 8> replacements(markers.size());
    qsizetype untouched = 0;
    QVarLengthArray<qsizetype, 8> order;
    for (qsizetype m = 0; m < markers.size(); ++m) {
        const qint64 step = firstStepAfter(markers[m].row, markers[m].id, -1);
        if (step < 0 || step >= stop)
            ++untouched;
        else {
            steps[m] = step;
            order.push_back(m);
        }
    }
    // Replacement texts in step order, so that a failure is the first one
    // the loops would meet; on any failure the slow way decides.
    std::sort(order.begin(), order.end(), [&](qsizetype a, qsizetype b) {
        return steps[a] < steps[b] || (steps[a] == steps[b] && a < b);
    });
    try {
        for (qsizetype i = 0; i < order.size(); ++i) {
            const qsizetype m = order[i];
            if (i > 0 && steps[order[i - 1]] == steps[m])
                replacements[m] = replacements[order[i - 1]];
            else
                replacements[m] = replacementFor(steps[m], markers[m].row, markers[m].id);
        }
    } catch (const DataError&) {
        fastPath = false;
    }
    if (fastPath) {
        // Counted first, then copied into place: one allocation.
        qsizetype size = text.size();
        for (qsizetype m = 0; m < markers.size(); ++m) {
            if (steps[m] >= 0)
                size += replacements[m].size() - markers[m].len;
        }
        QString result(size, Qt::Uninitialized);
        QChar* out = result.data();
        const QChar* in = text.constData();
        const auto put = [&out](const QChar* from, qsizetype n) {
            std::copy_n(from, n, out);
            out += n;
        };
        qsizetype from = 0;
        for (qsizetype m = 0; m < markers.size(); ++m) {
            put(in + from, markers[m].pos - from);
            if (steps[m] >= 0)
                put(replacements[m].constData(), replacements[m].size());
            else
                put(in + markers[m].pos, markers[m].len);
            from = markers[m].pos + markers[m].len;
        }
        put(in + from, text.size() - from);
        if (countMarkers(result) == untouched) {
            replacedAny = !order.empty();
            return result;
        }
    }

    // The slow way: one effective step at a time, each followed by a new
    // look at the text. Steps whose reference is absent change nothing and
    // are skipped.
    QString current = text;
    qint64 last = -1;
    while (true) {
        const Markers found = scanMarkers(current);
        qint64 best = -1;
        const Marker* bestMarker = nullptr;
        for (const Marker& marker : found) {
            const qint64 step = firstStepAfter(marker.row, marker.id, last);
            if (step >= 0 && step < stop && (best < 0 || step < best)) {
                best = step;
                bestMarker = &marker;
            }
        }
        if (!bestMarker)
            break;
        attempted = best;
        const QString replacement = replacementFor(best, bestMarker->row, bestMarker->id);
        current = text::basicReplace(
            current, current.mid(bestMarker->pos, bestMarker->len), replacement);
        replacedAny = true;
        last = best;
    }
    return current;
}

} // namespace

// The IDs of one row, counted up to its ItemCount or the end of its IDs,
// whichever comes first. An index kept for many texts sorts the positions by
// ID once; one made for a single text only scans the IDs it is asked about,
// which costs less than sorting a long row for one or two references.
struct ReferenceIndex::RowIndex
{
    const qint16* ids = nullptr;
    int count = 0;
    bool sorted = false;
    std::vector<std::pair<int, int>> byId; // (ID, position), when sorted

    RowIndex(const ReferenceList& list, bool sort)
        : ids(list.Ids.constData())
        , count(int(std::min<qsizetype>(std::max<qsizetype>(list.ItemCount, 0), list.Ids.size())))
        , sorted(sort)
    {
        if (!sorted)
            return;
        byId.reserve(size_t(count));
        for (int p = 0; p < count; ++p)
            byId.emplace_back(ids[p], p);
        // Catalogue rows and freshly numbered project rows are in ID order.
        if (!std::is_sorted(byId.begin(), byId.end()))
            std::sort(byId.begin(), byId.end());
    }

    // As NextFreeID answers; only resolving asks.
    int nextFree() const
    {
        if (m_nextFree == kNotYet) {
            int best = -1;
            if (sorted) {
                if (!byId.empty())
                    best = byId.back().first;
            } else {
                for (int p = 0; p < count; ++p)
                    best = std::max<int>(best, ids[p]);
            }
            // Counted past 16 bits, so that the greatest ID still resolves.
            m_nextFree = best + 1;
        }
        return m_nextFree;
    }

    // The first position holding `id` after `afterPosition`, or -1.
    int firstPositionAfter(int id, int afterPosition) const
    {
        if (!sorted) {
            for (int p = std::max(afterPosition + 1, 0); p < count; ++p) {
                if (ids[p] == id)
                    return p;
            }
            return -1;
        }
        const auto it = std::upper_bound(byId.begin(), byId.end(), std::pair(id, afterPosition));
        return it != byId.end() && it->first == id ? it->second : -1;
    }

    int lastPosition(int id) const
    {
        if (!sorted) {
            for (int p = count - 1; p >= 0; --p) {
                if (ids[p] == id)
                    return p;
            }
            return -1;
        }
        auto it = std::upper_bound(
            byId.begin(), byId.end(), std::pair(id, std::numeric_limits<int>::max()));
        if (it == byId.begin())
            return -1;
        --it;
        return it->first == id ? it->second : -1;
    }

private:
    static constexpr int kNotYet = std::numeric_limits<int>::min();
    mutable int m_nextFree = kNotYet;
};

// What decoding asks of every row whatever the text: the IDs that are
// reported as negative, and the point where a row runs out of IDs.
struct ReferenceIndex::DecodeSteps
{
    std::vector<std::pair<int, int>> negatives; // (row, position), in step order
    qint64 stop = kNoStop;
    int stopRow = -1;
};

ReferenceIndex::ReferenceIndex(const ReferenceListTable& table, Use use)
    : m_table(table)
    , m_sorted(use == Use::ManyTexts)
{
}

ReferenceIndex::~ReferenceIndex() = default;

const ReferenceIndex::RowIndex& ReferenceIndex::rowIndex(int row) const
{
    std::unique_ptr<RowIndex>& slot = m_rows.at(size_t(row));
    if (!slot)
        slot = std::make_unique<RowIndex>(m_table[size_t(row)], m_sorted);
    return *slot;
}

const ReferenceIndex::DecodeSteps& ReferenceIndex::decodeSteps() const
{
    if (m_decodeSteps)
        return *m_decodeSteps;
    auto steps = std::make_unique<DecodeSteps>();
    for (int r = 0; r < kReferenceRowCount && steps->stop == kNoStop; ++r) {
        const ReferenceList& list = m_table[size_t(r)];
        if (!list.UsesIds)
            continue;
        const qsizetype count = std::max<qsizetype>(list.ItemCount, 0);
        const qsizetype known = std::min(count, list.Ids.size());
        for (qsizetype p = 0; p < known; ++p) {
            if (list.Ids[p] < 0)
                steps->negatives.emplace_back(r, int(p));
        }
        if (known < count) {
            steps->stop = stepOf(r, int(known));
            steps->stopRow = r;
        }
    }
    m_decodeSteps = std::move(steps);
    return *m_decodeSteps;
}

int ReferenceIndex::lastPositionOf(int row, int id) const
{
    const ReferenceList& list = referenceRow(m_table, row);
    if (!list.UsesIds)
        return id;
    return rowIndex(row).lastPosition(id);
}

int ReferenceIndex::firstPositionOf(int row, int id) const
{
    const ReferenceList& list = referenceRow(m_table, row);
    if (!list.UsesIds)
        return id >= 0 && id < list.ItemCount ? id : -1;
    return rowIndex(row).firstPositionAfter(id, -1);
}

QString ReferenceIndex::resolve(const QString& text, ResolveForm form) const
{
    // Each row's greatest ID is looked at before its references are: a row
    // with fewer IDs than items fails there, and nothing after it is reached.
    if (m_resolveStopRow == kUnknownRow) {
        m_resolveStopRow = -1;
        for (int r = 0; r < kReferenceRowCount; ++r) {
            const ReferenceList& list = m_table[size_t(r)];
            if (list.Ids.size() < list.ItemCount) {
                m_resolveStopRow = r;
                break;
            }
        }
    }
    const int stopRow = m_resolveStopRow;
    const qint64 stop = stopRow < 0 ? kNoStop : stepOf(stopRow, 0);
    const auto firstStepAfter = [&](int row, int id, qint64 after) -> qint64 {
        if (id < 0 || stepOf(row, id) <= after || id > rowIndex(row).nextFree())
            return -1;
        return stepOf(row, id);
    };
    const auto replacementFor = [&](qint64, int row, int id) -> QString {
        const ReferenceList& list = m_table[size_t(row)];
        if (form == ResolveForm::B && row == row::Integers && id <= 4)
            return at(list.RawCodes, id, "raw codes");
        const int p = lastPositionOf(row, id);
        return p == -1 ? QStringLiteral("?") : at(list.Codes, p, "list codes");
    };
    bool replacedAny = false;
    qint64 attempted = -1;
    QString result = rewrite(text, stop, firstStepAfter, replacementFor, replacedAny, attempted);
    if (stopRow >= 0) {
        const qsizetype size = m_table[size_t(stopRow)].Ids.size();
        throwIndexError("list of IDs", size, size);
    }
    if (form == ResolveForm::C)
        return u'(' + result + u')';
    return result;
}

QString ReferenceIndex::decode(const QString& text, Prompter& prompter) const
{
    if (text.isEmpty())
        return text;
    const DecodeSteps& steps = decodeSteps();
    const auto firstStepAfter = [&](int row, int id, qint64 after) -> qint64 {
        const ReferenceList& list = m_table[size_t(row)];
        const int afterPosition = after < stepOf(row, 0)
            ? -1
            : (after >= stepOf(row + 1, 0) ? 1 << 20 : int(after - stepOf(row, 0)));
        int position = -1;
        if (list.UsesIds)
            position = rowIndex(row).firstPositionAfter(id, afterPosition);
        else if (id >= 0 && id < list.ItemCount && id > afterPosition)
            position = id;
        return position < 0 ? -1 : stepOf(row, position);
    };
    const auto replacementFor = [&](qint64 step, int row, int) -> QString {
        return at(m_table[size_t(row)].Texts, step - stepOf(row, 0), "list texts");
    };
    // The ID of every position is fetched before its reference is looked for,
    // so the messages about negative IDs come first, up to the step where the
    // decoding stopped.
    const auto reportUpTo = [&](qint64 lastStep) {
        for (const auto& [row, position] : steps.negatives) {
            if (stepOf(row, position) > lastStep)
                break;
            getIDfromIndex(m_table, row, position, prompter);
        }
    };
    bool replacedAny = false;
    qint64 attempted = -1;
    QString result;
    try {
        result = rewrite(text, steps.stop, firstStepAfter, replacementFor, replacedAny, attempted);
    } catch (const DataError&) {
        reportUpTo(attempted);
        throw;
    }
    if (steps.stop != kNoStop) {
        reportUpTo(steps.stop - 1);
        const qsizetype size = m_table[size_t(steps.stopRow)].Ids.size();
        throwIndexError("list of IDs", size, size);
    }
    reportUpTo(kNoStop);
    if (!replacedAny && text.size() >= 5 && text.contains(QStringLiteral("&&"))) {
        const int r = RowOfReference(text);
        const QString name
            = r >= 0 && r < kReferenceRowCount ? m_table[size_t(r)].ListName : QString();
        prompter.addStatusLine(QStringLiteral("error"),
            QStringLiteral("Couldn't parse '") + name + QStringLiteral("' variable"));
        return QStringLiteral("?");
    }
    return result;
}

} // namespace tarvo
