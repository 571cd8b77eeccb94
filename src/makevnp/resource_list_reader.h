#pragma once

#include <QString>
#include <QStringList>

namespace makevnp {

// The files one or more resource lists name, as paths relative to the output
// root with "/" separators, in the order first named, each once.
struct ListedFiles
{
    QStringList files;
    QStringList problems; // lines that name something unusable
};

// Reads the "directory" and "file" lines of a resource list; every other
// line (comments, blank lines) is ignored. Directory names are written with
// "\" in the lists. A line naming a path outside the root is a problem.
void readResourceList(const QString& path, ListedFiles& listed);

// Every "*.vnr" file in `root`/vnr, by name; an empty list when there are none.
QStringList resourceListsIn(const QString& root);

} // namespace makevnp
