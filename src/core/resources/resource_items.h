#pragma once

#include "records/project.h"

namespace tarvo {

class Prompter;

// The bare file name of a path chosen in a file dialog, with either kind of
// separator, since project files may carry paths written on another system.
QString bareFileName(const QString& path);

// Appends a sound for the wav file at `fullPath` (shown by its bare name,
// ID from UpperSndID). Returns its position, or -1 when the path names no
// file (a cancelled file dialog). The same file may be added twice.
int AddSound(Project& project, const QString& fullPath);

// Appends a message (ID from UpperMsgID) and returns its position; an empty
// text is answered with a beep and -1.
int AddMessage(Project& project, Prompter& prompter, const QString& text);

// Replaces the text of the message at `position`, keeping its ID, so every
// reference to it shows the new text. No selection or an empty text: a beep
// and false.
bool UpdateMessage(Project& project, Prompter& prompter, int position, const QString& text);

} // namespace tarvo
