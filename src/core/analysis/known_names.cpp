#include "analysis/known_names.h"

#include "catalogue/trigger_tables.h"
#include "script/script_lexer.h"

namespace tarvo::analysis {

KnownNames::KnownNames(const Workspace& workspace,
    const std::vector<script::Declaration>& declarations, const script::FunctionTable& functions)
    : m_functions(functions)
{
    for (const script::Declaration& declaration : declarations)
        m_names.insert(declaration.name);
    for (int kind = 0; kind < kTriggerKindCount; ++kind)
        if (!triggerKind(kind).keyword.isEmpty())
            m_names.insert(triggerKind(kind).keyword);
    for (const Catalogue* catalogue : {&workspace.conditionCatalogue, &workspace.actionCatalogue}) {
        for (const CatalogueEntry& entry : *catalogue)
            for (const QString& line : entry.CodeLines)
                addNamesIn(line);
    }
    for (const ReferenceList& list : workspace.project.tables)
        for (const QString& code : list.Codes)
            addNamesIn(code);
}

bool KnownNames::knows(const QString& name) const
{
    return m_names.contains(name) || m_functions.knows(name);
}

void KnownNames::addNamesIn(const QString& text)
{
    if (text.isEmpty())
        return;
    for (const script::Token& token : script::tokenize(text))
        if (token.kind == script::Token::Kind::Name)
            m_names.insert(token.text);
}

} // namespace tarvo::analysis
