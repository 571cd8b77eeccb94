#include "text/text_file.h"

#include "model/file_error.h"
#include "text/code_page.h"

#include <QFile>

namespace tarvo::text {

QStringList splitLines(const QString& text)
{
    QStringList lines;
    qsizetype start = 0;
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text.at(i);
        if (c != u'\r' && c != u'\n')
            continue;
        lines.append(text.mid(start, i - start));
        if (c == u'\r' && i + 1 < n && text.at(i + 1) == u'\n')
            ++i;
        start = i + 1;
    }
    if (start < n)
        lines.append(text.mid(start));
    return lines;
}

QStringList readTextLines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(path, 0, QStringLiteral("cannot be read: %1").arg(file.errorString()));
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw FileError(path, 0, QStringLiteral("cannot be read: %1").arg(file.errorString()));
    return splitLines(decodeCodePage(bytes));
}

} // namespace tarvo::text
