#include "catalogue/reference_list.h"

#include "model/file_error.h"

namespace tarvo {

namespace {
void checkRow(int row)
{
    if (row < 0 || row >= kReferenceRowCount)
        throw DataError(QStringLiteral("list row %1 is out of range 0 to 29").arg(row));
}
} // namespace

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
