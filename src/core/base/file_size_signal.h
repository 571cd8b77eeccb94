#pragma once

namespace tarvo {

// A write past the process's file-size limit (ulimit -f) raises SIGXFSZ,
// which ends the program at once: the editor would die with its unsaved work
// and the command-line tool without a word. Ignored, the write fails with
// EFBIG instead, and the save or compile reports it like any failed write.
// Called once at the start of both programs; does nothing where the signal
// does not exist.
void ignoreFileSizeSignal();

} // namespace tarvo
