#pragma once

#include "model/recovery_store.h"

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

} // namespace tarvo
