#pragma once

#include <QStringList>

// `tarvo-cli compile PROJECT.vnsc [--no-pack]`: loads the project and runs the
// editor's compile command on it. Returns the exit code.
int runCompile(const QStringList& args, const QString& programDir, bool runPacker);
