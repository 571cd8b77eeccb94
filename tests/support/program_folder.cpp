#include "program_folder.h"

#include "text/code_page.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

// "\n" to CR LF and Windows-1252 bytes.
QByteArray crlfBytes(const QString& text)
{
    QString withCrLf = text;
    withCrLf.replace(QLatin1String("\n"), QLatin1String("\r\n"));
    return tarvo::text::encodeCodePage(withCrLf);
}

} // namespace

QByteArray readBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

TestProgramFolder::TestProgramFolder(const QString& conditions, const QString& actions)
{
    write(QStringLiteral("temp.txt"), conditions);
    write(QStringLiteral("temp2.txt"), actions);
}

void TestProgramFolder::write(const QString& name, const QString& text) const
{
    writeBytes(file(name), crlfBytes(text));
}
