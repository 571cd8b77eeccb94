#include "base/file_error.h"

namespace tarvo {

FileError::FileError(QString file, int line, QString sentence)
    : std::runtime_error((line > 0 ? QStringLiteral("%1:%2: %3").arg(file).arg(line).arg(sentence)
                                   : QStringLiteral("%1: %2").arg(file, sentence))
                             .toStdString())
    , m_file(std::move(file))
    , m_line(line)
    , m_sentence(std::move(sentence))
{
}

QString FileError::message() const
{
    return QString::fromUtf8(what());
}

DataError::DataError(const QString& sentence)
    : std::runtime_error(sentence.toStdString())
{
}

} // namespace tarvo
