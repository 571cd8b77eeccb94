#pragma once

#include <QString>

namespace tarvo {

struct OutputContext;
struct Project;

namespace WriteScript {

// The whole values file without its last line end: which source to run and
// the starting value of every public variable. Throws a DataError when a row
// has fewer values than items.
QString valuesText(const Project& project);
QString valuesText(const Project& project, bool gameOverMessages);

// Creates "script" and "script/data" under the root and writes the values
// file at `relative` (name + ".vlo" in "script/data"). When the text cannot
// be built the file is left empty and the reason recorded.
void WriteValuesFile(const OutputContext& context, const QString& relative);

} // namespace WriteScript
} // namespace tarvo
