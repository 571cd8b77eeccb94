#pragma once

#include "base/file_error.h"

namespace tarvo {

struct Workspace;

// A catalogue cut short by a failed copy or a full disk still loads (every
// line it holds is valid, and an empty catalogue is a catalogue), and then a
// project that uses the lost kinds fails on its own line, which sends the
// author looking in the wrong file. A project error met while a catalogue
// looks cut short (it is empty, or its last line has no line end) is
// therefore reported against the catalogue's last line, the project's own
// message following. Otherwise `projectError` comes back as it is.
FileError blameCutCatalogue(const Workspace& workspace, const FileError& projectError);

} // namespace tarvo
