#pragma once

#include "catalogue/reference_index.h"

#include <QHash>
#include <QString>
#include <array>

namespace tarvo {

// What the script writer resolves references with during one compile: the
// reference index of the whole table, and the script text of every stored
// argument and comparison value already resolved. Projects pass the same few
// arguments (groups, players, flags, numbers) to many conditions and actions,
// and the table does not change while a compile runs, so each is resolved
// once. Whole code blocks (form A) hold their arguments and seldom repeat:
// keeping them would cost more than it saves. Failures are not kept: they
// are raised again each time.
struct ScriptLookup
{
    explicit ScriptLookup(const ReferenceIndex& referenceIndex)
        : index(referenceIndex)
    {
    }

    QString resolve(const QString& stored, ResolveForm form) const
    {
        if (form == ResolveForm::A)
            return index.resolve(stored, form);
        QHash<QString, QString>& known = m_resolved[form == ResolveForm::B ? 0 : 1];
        if (const auto found = known.constFind(stored); found != known.cend())
            return *found;
        QString text = index.resolve(stored, form);
        known.insert(stored, text);
        return text;
    }

    const ReferenceIndex& index;

private:
    mutable std::array<QHash<QString, QString>, 2> m_resolved; // forms B and C
};

} // namespace tarvo
