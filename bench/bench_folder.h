#pragma once

#include <QString>
#include <QTemporaryDir>

// A program folder of its own for the benchmarks, in a temporary directory:
// the shipped catalogues with the benchmark's kinds appended, the "Source"
// templates, and small wav files for the sounds. Compiles write into its
// "Projects" folder, so nothing outside it is touched.
class BenchFolder
{
public:
    BenchFolder();

    QString programDir() const { return m_dir.path(); }
    QString wavPath(int index) const;
    // A place for project files and the I/O floor's output.
    QString scratchPath(const QString& name) const;

    static constexpr int kSoundFiles = 200;

private:
    QTemporaryDir m_dir;
};
