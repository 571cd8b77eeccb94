#pragma once

#include "records/reference_list.h"
#include "catalogue/reference_markers.h"

#include <array>
#include <memory>
#include <vector>

namespace tarvo {

class Prompter;

// Resolves and decodes stored texts against a reference-list table in time
// linear in the text and the rows it touches, with exactly the results of
// replacing every possible reference row by row and ID by ID.
//
// Each row's ID-to-position index is built the first time a text refers to
// the row and kept for the life of the object, so one index serves a whole
// compile. It is a snapshot: the table must not change while the object is
// in use (rows are edited by adding, renaming and deleting items; build a
// new index afterwards). The free routines build one per call.
class ReferenceIndex
{
public:
    // ManyTexts sorts each row it meets once, for a whole compile; OneText
    // only scans the IDs a single text asks about.
    enum class Use { ManyTexts, OneText };

    explicit ReferenceIndex(const ReferenceListTable& table, Use use = Use::ManyTexts);
    ~ReferenceIndex();
    ReferenceIndex(const ReferenceIndex&) = delete;
    ReferenceIndex& operator=(const ReferenceIndex&) = delete;

    // Stored text to script text (see ResolveReferences).
    QString resolve(const QString& text, ResolveForm form) const;

    // Stored text to display text, with the same prompts as
    // DecodeReferences, in the same order.
    QString decode(const QString& text, Prompter& prompter) const;

    // The position of the item with `id`, the last one when IDs repeat;
    // -1 when no item has it.
    int lastPositionOf(int row, int id) const;
    // The same, the first one when IDs repeat (the one decoding shows).
    int firstPositionOf(int row, int id) const;

    const ReferenceListTable& table() const { return m_table; }

private:
    struct RowIndex;
    struct DecodeSteps;
    class Rewriter;

    const RowIndex& rowIndex(int row) const;
    const DecodeSteps& decodeSteps() const;

    const ReferenceListTable& m_table;
    const bool m_sorted;
    mutable std::array<std::unique_ptr<RowIndex>, kReferenceRowCount> m_rows;
    mutable std::unique_ptr<DecodeSteps> m_decodeSteps;
    // The first row with fewer IDs than items (resolving stops there), -1 for
    // none; kUnknownRow until a text is resolved.
    static constexpr int kUnknownRow = -2;
    mutable int m_resolveStopRow = kUnknownRow;
};

} // namespace tarvo
