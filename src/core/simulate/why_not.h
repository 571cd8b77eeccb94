#pragma once

#include <QByteArray>
#include <QStringList>

namespace tarvo::simulate {

class DryRun;

// "Why not?" for one event after a run, in plain words: whether it was ever
// switched on (and if not, who could have done it and why they did not),
// when it fired, and which condition was false when its actions did not run.
QStringList whyNotLines(const DryRun& run, int event);

// The same as one JSON object, with the counts and times behind the words.
QByteArray whyNotJson(const DryRun& run, int event);

// The event an author means: its title, its script name ("event3") or its
// number in the events list (from 1); -1 when none matches.
int findEventByWord(const DryRun& run, const QString& word);

} // namespace tarvo::simulate
