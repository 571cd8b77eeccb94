#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

// A throw-away program folder with catalogues given by the test. Text given
// with "\n" line ends is written with CR LF in Windows-1252.
class TestProgramFolder
{
public:
    TestProgramFolder(const QString& conditions, const QString& actions);

    QString path() const { return m_dir.path(); }
    QString file(const QString& name) const { return m_dir.filePath(name); }

    // Writes `text` (\n becomes CR LF) into `name` inside the folder.
    void write(const QString& name, const QString& text) const;

private:
    QTemporaryDir m_dir;
};

// Reads a whole file; empty when it cannot be read.
QByteArray readBytes(const QString& path);

// Writes bytes as they are, creating folders on the way.
void writeBytes(const QString& path, const QByteArray& bytes);
