#include "compile/output_tree.h"

#include "compile/step_log.h"
#include "text/code_page.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tarvo {

namespace {

QString nativePath(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

// A link in place of one of our directories is removed as a link: deleting
// through it could reach files outside the output root.
bool removeIfLink(const OutputContext& context, const QString& relative)
{
    const QString path = context.path(relative);
    if (!QFileInfo(path).isSymLink())
        return false;
    if (!QFile::remove(path))
        context.log.add(QStringLiteral("Could not remove the link \"%1\"").arg(nativePath(path)));
    return true;
}

void emptyAndRemove(const OutputContext& context, const QString& relative)
{
    // Every directory on the way is checked: "messages" may be the link that
    // would carry "messages/strings" out of the root.
    const QStringList parts = relative.split(u'/');
    QString walked;
    for (const QString& part : parts) {
        walked += (walked.isEmpty() ? QString() : QStringLiteral("/")) + part;
        if (removeIfLink(context, walked))
            return;
    }
    const QString path = context.path(relative);
    const QFileInfo info(path);
    if (!info.exists() || !info.isDir())
        return;
    QDir dir(path);
    const QFileInfoList entries
        = dir.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    bool keptSomething = false;
    for (const QFileInfo& entry : entries) {
        if (entry.isDir() && !entry.isSymLink()) {
            keptSomething = true;
            continue;
        }
        // Removes the entry itself; for a link that is the link, not its target.
        if (!QFile::remove(entry.absoluteFilePath())) {
            context.log.add(QStringLiteral("Could not delete \"%1\"")
                                .arg(nativePath(entry.absoluteFilePath())));
            keptSomething = true;
        }
    }
    if (!QDir().rmdir(path)) {
        context.log.add(keptSomething
                ? QStringLiteral("\"%1\" was kept: it holds subdirectories or files that could "
                                 "not be deleted")
                      .arg(nativePath(path))
                : QStringLiteral("Could not remove the directory \"%1\"").arg(nativePath(path)));
    }
}

void removeEmptyDirectory(const OutputContext& context, const QString& relative)
{
    if (removeIfLink(context, relative))
        return;
    const QString path = context.path(relative);
    const QFileInfo info(path);
    if (!info.exists() || !info.isDir())
        return;
    if (!QDir().rmdir(path))
        context.log.add(QStringLiteral("\"%1\" was kept: it is not empty").arg(nativePath(path)));
}

QByteArray encoded(const OutputContext& context, const QString& relative, const QString& text)
{
    const qsizetype bad = text::firstUnencodable(text);
    if (bad >= 0)
        context.log.add(
            QStringLiteral("\"%1\": the character %2 does not fit the code page and "
                           "was written as \"?\"")
                .arg(nativePath(context.path(relative)), text::describeCharacter(text, bad)));
    return text::encodeCodePage(text);
}

void writeBytes(const OutputContext& context, const QString& relative, const QByteArray& bytes,
    QIODevice::OpenMode mode)
{
    const QString path = context.path(relative);
    // Never write through a link left in the tree.
    if (QFileInfo(path).isSymLink())
        QFile::remove(path);
    QFile file(path);
    if (!file.open(mode)) {
        context.log.add(
            QStringLiteral("Could not write \"%1\": %2").arg(nativePath(path), file.errorString()));
        return;
    }
    if (file.write(bytes) != bytes.size())
        context.log.add(
            QStringLiteral("Could not write \"%1\": %2").arg(nativePath(path), file.errorString()));
}

} // namespace

void CleanOutputTree(const OutputContext& context)
{
    using namespace outdir;
    for (const QString& dir : {Lists, Strings, Messages, ScriptData, ScriptText})
        emptyAndRemove(context, dir);
    removeEmptyDirectory(context, Script);
    emptyAndRemove(context, Sounds);
    removeEmptyDirectory(context, Audio);
}

void MakeOutputRoot(const OutputContext& context)
{
    if (!QDir().mkpath(context.root))
        context.log.add(QStringLiteral("Could not create the output folder \"%1\"")
                            .arg(nativePath(context.root)));
}

void makeDirectory(const OutputContext& context, const QString& relative)
{
    const QString path = context.path(relative);
    if (QFileInfo(path).isDir())
        return;
    if (!QDir().mkdir(path))
        context.log.add(
            QStringLiteral("Could not create the directory \"%1\"").arg(nativePath(path)));
}

bool copyInto(const OutputContext& context, const QString& from, const QString& relative)
{
    const QString to = context.path(relative);
    if (!QFileInfo(from).isFile()) {
        context.log.add(QStringLiteral("Could not copy \"%1\" to \"%2\": the file does not exist")
                            .arg(nativePath(from), nativePath(to)));
        return false;
    }
    // QFile::copy never overwrites; an old copy (or a link) goes first.
    if (QFileInfo(to).exists() || QFileInfo(to).isSymLink())
        QFile::remove(to);
    QFile source(from);
    if (!source.copy(to)) {
        context.log.add(QStringLiteral("Could not copy \"%1\" to \"%2\": %3")
                            .arg(nativePath(from), nativePath(to), source.errorString()));
        return false;
    }
    return true;
}

bool copyTemplate(const OutputContext& context, const QString& name, const QString& relative)
{
    return copyInto(context, context.templatePath(name), relative);
}

void writeTextFile(const OutputContext& context, const QString& relative, const QString& text)
{
    writeBytes(context, relative, encoded(context, relative, text),
        QIODevice::WriteOnly | QIODevice::Truncate);
}

void appendTextFile(const OutputContext& context, const QString& relative, const QString& text)
{
    writeBytes(context, relative, encoded(context, relative, text),
        QIODevice::WriteOnly | QIODevice::Append);
}

} // namespace tarvo
