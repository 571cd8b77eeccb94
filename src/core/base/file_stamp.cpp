#include "base/file_stamp.h"

#include <QCryptographicHash>
#include <QFile>

namespace tarvo {

FileStamp fileStampOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QCryptographicHash hash(kFileStampHash);
    hash.addData(&file);
    return {true, hash.result()};
}

} // namespace tarvo
