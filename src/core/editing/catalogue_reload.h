#pragma once

#include "document/project_document.h"

namespace tarvo {

// Script > Reload Catalogues: reads both catalogue files again without a
// restart. Every condition and action of the project is a copy of its
// catalogue kind, so the project is rebuilt from the new kinds the way Open
// rebuilds it: written with the project file's writer and read back with its
// reader. What the file does not hold (file path, selection, the timers list,
// flag names) is kept from the project as it was.
//
// Asks first when the project has changes not saved, since the rebuild starts
// the undo history afresh. A faulty catalogue (file and line), a project the
// new kinds cannot hold or a text the file cannot hold is shown in one
// critical box, and the catalogues and the project stay exactly as they were.
// Returns true when the catalogues were reloaded.
bool ReloadCatalogues(ProjectDocument& document);

} // namespace tarvo
