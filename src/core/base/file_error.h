#pragma once

#include <QString>
#include <stdexcept>

namespace tarvo {

// Bad input from a file: carries the file, the 1-based line (0 when the fault
// is not tied to a line) and a plain sentence for the user.
class FileError : public std::runtime_error
{
public:
    FileError(QString file, int line, QString sentence);

    const QString& file() const { return m_file; }
    int line() const { return m_line; }
    const QString& sentence() const { return m_sentence; }

    // "file:line: sentence", or "file: sentence" without a line.
    QString message() const;

private:
    QString m_file;
    int m_line;
    QString m_sentence;
};

// A fault inside the program's own data: an index outside a list, a number
// that does not fit, a text that is not a number. Never undefined behaviour:
// every checked access throws this, and callers either stop (loaders, which
// turn it into a FileError with the line) or skip the statement (writers).
class DataError : public std::runtime_error
{
public:
    explicit DataError(const QString& sentence);
    QString sentence() const { return QString::fromUtf8(what()); }
};

} // namespace tarvo
