#pragma once

#include <QString>

namespace tarvo {

struct OutputContext;
struct Project;

// True when any action of any event, disabled events included, calls
// "gameOverMessage": the script then declares the win/lose messages, the
// values give them, and the briefing goes into the archive.
bool usesGameOverMessages(const Project& project);

// The resource lists tell the packer what goes into the archive. Each starts
// as a copy of its template and gets the project's groups appended.

// "vnr/audio.vnr" plus one copy of each sound in "audio/Extra".
void WriteSounds(const OutputContext& context);
// "vnr/Stats.vnr": the briefing (with the game-over messages) and both script files.
void WriteStatsList(const OutputContext& context);
// "vnr/Cam1.vnr" as it stands and "messages/strings/GenStrings.txt" with
// one "msg" line per message.
void WriteMessages(const OutputContext& context);
// "messages/brief1-1.txt" from its template.
void CopyBriefing(const OutputContext& context);

} // namespace tarvo
