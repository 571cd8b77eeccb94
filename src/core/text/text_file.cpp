#include "text/text_file.h"

#include "base/file_error.h"
#include "text/code_page.h"

#include <QFile>

namespace tarvo::text {

QStringList splitLines(const QString& text)
{
    QStringList lines;
    forEachLine(text, [&](qsizetype, QStringView line) { lines.append(line.toString()); });
    return lines;
}

QStringList readTextLines(const QString& path)
{
    return splitLines(readText(path));
}

QString readText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(path, 0, QStringLiteral("cannot be read: %1").arg(file.errorString()));
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw FileError(path, 0, QStringLiteral("cannot be read: %1").arg(file.errorString()));
    return decodeCodePage(bytes);
}

} // namespace tarvo::text
