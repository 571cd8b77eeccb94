#pragma once

#include "records/reference_list.h"
#include "catalogue/reference_markers.h"

namespace tarvo {
class Prompter;
}

// The reference routines written the slow, obvious way: nested loops over
// every row, every position and every ID, exactly as the marker language
// defines them. The production routines must give the same texts and the
// same prompts, in the same order; the differential tests and the
// benchmarks compare against these.
namespace tarvo::oracle {

QString getIDfromIndex(const ReferenceListTable& table, int row, int position, Prompter& prompter);
QString GetIndexFromID(const ReferenceListTable& table, int row, int id);
qint16 NextFreeID(const ReferenceListTable& table, int row);
QString EncodeReferences(
    const ReferenceListTable& table, int row, const QString& text, Prompter& prompter);
QString DecodeReferences(const ReferenceListTable& table, const QString& text, Prompter& prompter);
QString ResolveReferences(const ReferenceListTable& table, const QString& text, ResolveForm form);

} // namespace tarvo::oracle
