#pragma once

#include "catalogue/reference_index.h"

#include <QHash>
#include <QString>
#include <array>

namespace tarvo {

// What the script writer resolves references with during one compile: the
// reference index of the whole table, and the script text of every stored
// text already resolved, for each form. Projects pass the same few arguments
// (groups, players, flags, numbers) to many conditions and actions, and the
// table does not change while a compile runs, so each is resolved once.
// Failures are not kept: they are raised again each time.
struct ScriptLookup
{
    explicit ScriptLookup(const ReferenceIndex& referenceIndex)
        : index(referenceIndex)
    {
    }

    QString resolve(const QString& stored, ResolveForm form) const
    {
        QHash<QString, QString>& known = m_resolved[size_t(form)];
        if (const auto found = known.constFind(stored); found != known.cend())
            return *found;
        QString text = index.resolve(stored, form);
        known.insert(stored, text);
        return text;
    }

    const ReferenceIndex& index;

private:
    mutable std::array<QHash<QString, QString>, 3> m_resolved;
};

} // namespace tarvo
