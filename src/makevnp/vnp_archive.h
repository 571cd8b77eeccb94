#pragma once

#include <QString>
#include <QStringList>

namespace makevnp {

// Writes `archive`, a zip of `files` (relative to `root`) under their
// relative names. The archive is built beside its final name and renamed into
// place only when complete, so a failure leaves no partial file and an older
// archive untouched. Returns the empty text or the reason.
QString writeArchive(const QString& root, const QStringList& files, const QString& archive);

} // namespace makevnp
