#pragma once

#include "records/reference_list.h"

#include <functional>
#include <optional>

namespace tarvo {

class Prompter;

// An encoded reference: "&&" + row + "$$" + ID + "§".
QString encodedReference(int row, const QString& id);

// Reads the reference whose "&&" starts at `at`, as the compile reads them:
// row and ID written the way QString::number writes a 16-bit value (no "+",
// no leading zeros, no "-0", a "-" only in the ID). On success `end` is just
// past its "§". The row is not checked against the table.
bool readReference(QStringView text, qsizetype at, int& row, int& id, qsizetype& end);

// Gives each encoded reference of `text` (its row and ID) to `replace`; a
// text it returns takes the reference's place. The text itself when nothing
// is replaced.
QString replaceReferences(
    const QString& text, const std::function<std::optional<QString>(int row, int id)>& replace);

// The ID of the item at `position` of `row`, in decimal; "-1" for position -1.
// A negative stored ID is reported to the user and returned all the same.
QString getIDfromIndex(const ReferenceListTable& table, int row, int position, Prompter& prompter);

// The position of the item with `id` in `row`, in decimal, or "-1"; when IDs
// repeat, the last position wins.
QString GetIndexFromID(const ReferenceListTable& table, int row, int id);

// The greatest ID of the row plus one; 0 for an empty row.
qint16 NextFreeID(const ReferenceListTable& table, int row);

// Display text to stored text: item texts of `row` become encoded references.
QString EncodeReferences(
    const ReferenceListTable& table, int row, const QString& text, Prompter& prompter);

// Stored text to display text. A text that looks like a reference but names
// no item becomes "?", with an error line for the status window.
QString DecodeReferences(const ReferenceListTable& table, const QString& text, Prompter& prompter);

// Stored text to script text.
// A: plain; B: the five fixed integers (row 0, IDs 0 to 4) become their raw
// codes; C: like A, wrapped in parentheses.
enum class ResolveForm { A, B, C };
QString ResolveReferences(const ReferenceListTable& table, const QString& text, ResolveForm form);

// Row and ID of the first encoded reference in a text; 0 when the text holds
// none or its numbers cannot be read.
qint16 RowOfReference(const QString& text);
qint16 IdOfReference(const QString& text);

// Whether the text of an argument box names a known item of `row` (the box
// is then marked); always false for row -1.
bool referenceBoxNamesItem(
    const ReferenceListTable& table, int row, const QString& text, Prompter& prompter);

// The items an argument box of `row` offers: the texts of positions 0 to
// NextFreeID - 1 (only those the row holds); none for row -1.
QStringList comboItemsFromList(const ReferenceListTable& table, int row);

} // namespace tarvo
