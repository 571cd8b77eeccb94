#pragma once

#include "document/discarded_work.h"
#include "document/recovery_store.h"

namespace tarvo {

class ProjectDocument;

// At start-up: offers the newest recovery copy that no running editor holds,
// naming its project and when it was written. Yes restores it (see
// restoreRecoveryCopy) and leaves any older copies for the next start; No
// deletes it and offers the next one. Returns whether a copy was restored.
bool offerRecovery(ProjectDocument& document, RecoveryStore& store);

// The project as the copy holds it, shown as modified and without a file
// yet, so that Save asks where to write. The copy stays until it is saved.
bool restoreRecoveryCopy(
    ProjectDocument& document, RecoveryStore& store, const RecoveryStore::Copy& copy);

// After the author confirmed giving up the project (New, Open, Exit): work
// that differs from its file is kept as discarded work. A copy that cannot
// be written is reported as a status line; the command goes on.
void keepDiscardedWork(const ProjectDocument& document, const DiscardedWork& discarded);

// File > Recover Discarded Work: lists the kept work by project and time;
// the one chosen opens as unsaved work without a file (Save asks where) and
// leaves the list. Returns whether a project was opened.
bool recoverDiscardedWork(ProjectDocument& document, const DiscardedWork& discarded);

} // namespace tarvo
