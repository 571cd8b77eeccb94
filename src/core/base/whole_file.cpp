#include "base/whole_file.h"

#include "base/file_error.h"

#include <QSaveFile>

namespace tarvo {

void writeWholeFile(const QString& path, const QByteArray& bytes, const QString& failure)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        || file.write(bytes) != bytes.size() || !file.commit())
        throw FileError(path, 0, failure + QStringLiteral(": ") + file.errorString());
}

} // namespace tarvo
