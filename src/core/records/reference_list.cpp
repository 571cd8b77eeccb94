#include "records/reference_list.h"

#include "base/file_error.h"

#include <algorithm>

namespace tarvo {

namespace {
void checkRow(int row)
{
    if (row < 0 || row >= kReferenceRowCount)
        throw DataError(QStringLiteral("list row %1 is out of range 0 to 29").arg(row));
}
} // namespace

// Written out because QList's own comparison hands memcmp a null pointer when
// one of two empty lists has never held data, which the sanitizers report.
bool operator==(const ReferenceList& a, const ReferenceList& b)
{
    return a.Codes == b.Codes && a.Texts == b.Texts
        && std::equal(a.Ids.cbegin(), a.Ids.cend(), b.Ids.cbegin(), b.Ids.cend())
        && a.UsesIds == b.UsesIds && a.ItemCount == b.ItemCount && a.ListName == b.ListName
        && a.RawCodes == b.RawCodes && a.Saved == b.Saved && a.Scope == b.Scope
        && a.CodeTemplate == b.CodeTemplate && a.ValueType == b.ValueType;
}

ReferenceList& referenceRow(ReferenceListTable& table, int row)
{
    checkRow(row);
    return table[row];
}

const ReferenceList& referenceRow(const ReferenceListTable& table, int row)
{
    checkRow(row);
    return table[row];
}

} // namespace tarvo
