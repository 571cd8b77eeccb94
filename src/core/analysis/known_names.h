#pragma once

#include "catalogue/workspace.h"
#include "script/function_table.h"
#include "script/script_syntax.h"

#include <QSet>

namespace tarvo::analysis {

// The names a script may use as values without declaring them: what its
// declarations declare, the trigger keywords, the names of the functions
// file, and every name the loaded catalogues write (their code lines and the
// codes of their lists: "DORDER_MOVE", "REF_ANY", "LEV_MED", ...).
class KnownNames
{
public:
    KnownNames(const Workspace& workspace, const std::vector<script::Declaration>& declarations,
        const script::FunctionTable& functions);

    bool knows(const QString& name) const;

private:
    void addNamesIn(const QString& text);

    QSet<QString> m_names;
    const script::FunctionTable& m_functions;
};

} // namespace tarvo::analysis
