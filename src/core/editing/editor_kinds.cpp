#include "editing/editor_kinds.h"

#include "records/reference_list.h"
#include "base/file_error.h"

namespace tarvo {

namespace {

bool isListRow(int row)
{
    return row == -1 || (row >= 0 && row < kReferenceRowCount);
}

QString kindName(const CatalogueEntry& entry, int kind, KindOf which)
{
    return QStringLiteral("The %1 kind %2 (\"%3\")")
        .arg(which == KindOf::Condition ? QLatin1String("condition") : QLatin1String("action"))
        .arg(kind)
        .arg(entry.Title);
}

} // namespace

void checkEditableKind(const CatalogueEntry& entry, int kind, KindOf which)
{
    if (entry.ArgCount > kArgumentPositions)
        throw DataError(kindName(entry, kind, which)
            + QStringLiteral(" has %1 arguments, more than the editor's %2 argument positions.")
                  .arg(entry.ArgCount)
                  .arg(kArgumentPositions));
    for (int i = 0; i < entry.ArgCount && i < entry.Args.size(); ++i) {
        const ArgumentSlot& argument = entry.Args.at(i);
        if (!isListRow(argument.ListRef))
            throw DataError(kindName(entry, kind, which)
                + QStringLiteral(" offers list row %1 for its argument %2 (\"%3\"), but list rows "
                                 "go from 0 to 29.")
                      .arg(argument.ListRef)
                      .arg(i + 1)
                      .arg(argument.Label));
    }
    if (which == KindOf::Condition && !isListRow(entry.ResultB))
        throw DataError(kindName(entry, kind, which)
            + QStringLiteral(" compares with list row %1, but list rows go from 0 to 29.")
                  .arg(entry.ResultB));
}

} // namespace tarvo
