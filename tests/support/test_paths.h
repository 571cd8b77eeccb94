#pragma once

#include <QString>

// Fixture folders, given by the build rather than the working directory.
inline QString testDataDir()
{
    return QStringLiteral(TARVO_TEST_DATA_DIR);
}

// The shipped program folder as it lies in the source tree (catalogues and
// Source templates), and the one the build copied beside the executables.
inline QString sourceProgramDir()
{
    return QStringLiteral(TARVO_SOURCE_PROGRAM_DIR);
}

inline QString builtProgramDir()
{
    return QStringLiteral(TARVO_BUILT_PROGRAM_DIR);
}

inline QString sampleDir()
{
    return QStringLiteral(TARVO_SAMPLE_DIR);
}

// The core library's sources, for the test that reads their includes.
inline QString coreSourceDir()
{
    return QStringLiteral(TARVO_CORE_SOURCE_DIR);
}

#include <ostream>

// Texts in failure messages as text, not as bytes.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
