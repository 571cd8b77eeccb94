#include "compile/output_tree.h"

#include "compile/output_plan.h"
#include "compile/step_log.h"
#include "text/code_page.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace tarvo {

namespace {

QString nativePath(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

// An old output file that may be written over in place: a plain file with no
// second (hard) name, so that rewriting it changes nothing outside the tree.
// Anything else is deleted and made anew.
bool reusableFile(const QString& path)
{
#ifdef Q_OS_UNIX
    struct stat info;
    return ::lstat(QFile::encodeName(path).constData(), &info) == 0 && S_ISREG(info.st_mode)
        && info.st_nlink == 1;
#else
    Q_UNUSED(path);
    return false;
#endif
}

bool existsOrIsLink(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
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

// Empties the directory of everything but the planned files and removes it
// unless it is planned. Returns whether something is left at its place, as
// the directory's parent then cannot be removed.
bool emptyAndRemove(const OutputContext& context, const QString& relative, const OutputPlan& plan,
    const QSet<QString>& left)
{
    // Every directory on the way is checked: "messages" may be the link that
    // would carry "messages/strings" out of the root.
    const QStringList parts = relative.split(u'/');
    QString walked;
    for (const QString& part : parts) {
        walked += (walked.isEmpty() ? QString() : QStringLiteral("/")) + part;
        if (removeIfLink(context, walked))
            return QFileInfo(context.path(walked)).isSymLink();
    }
    const QString path = context.path(relative);
    const QFileInfo info(path);
    if (!info.exists())
        return false;
    if (!info.isDir())
        return true;
    QDir dir(path);
    const QFileInfoList entries
        = dir.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    bool keptSomething = false;
    for (const QFileInfo& entry : entries) {
        const QString inside = relative + u'/' + entry.fileName();
        if (entry.isDir() && !entry.isSymLink()) {
            // A planned subdirectory was cleaned before its parent.
            keptSomething
                = keptSomething || !plan.directories.contains(inside) || left.contains(inside);
            continue;
        }
        if (plan.files.contains(inside) && reusableFile(entry.absoluteFilePath()))
            continue;
        // Removes the entry itself; for a link that is the link, not its target.
        if (!QFile::remove(entry.absoluteFilePath())) {
            context.log.add(QStringLiteral("Could not delete \"%1\"")
                                .arg(nativePath(entry.absoluteFilePath())));
            keptSomething = true;
        }
    }
    const QString kept = QStringLiteral("\"%1\" was kept: it holds subdirectories or files that "
                                        "could not be deleted");
    if (plan.directories.contains(relative)) {
        if (keptSomething)
            context.log.add(kept.arg(nativePath(path)));
        return keptSomething;
    }
    if (!QDir().rmdir(path)) {
        context.log.add(keptSomething
                ? kept.arg(nativePath(path))
                : QStringLiteral("Could not remove the directory \"%1\"").arg(nativePath(path)));
        return true;
    }
    return false;
}

// Removes the directory once its subdirectories are gone; a planned one
// stays, and is reported in the same way when it holds anything besides
// planned subdirectories that were left empty.
void removeEmptyDirectory(const OutputContext& context, const QString& relative,
    const OutputPlan& plan, const QSet<QString>& left)
{
    if (removeIfLink(context, relative))
        return;
    const QString path = context.path(relative);
    const QFileInfo info(path);
    if (!info.exists() || !info.isDir())
        return;
    const QString kept = QStringLiteral("\"%1\" was kept: it is not empty");
    if (plan.directories.contains(relative)) {
        bool notEmpty = false;
        const QStringList entries = QDir(path).entryList(
            QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        for (const QString& entry : entries) {
            const QString inside = relative + u'/' + entry;
            notEmpty = notEmpty || !plan.directories.contains(inside) || left.contains(inside);
        }
        if (notEmpty)
            context.log.add(kept.arg(nativePath(path)));
        return;
    }
    if (!QDir().rmdir(path))
        context.log.add(kept.arg(nativePath(path)));
}

QByteArray encoded(const OutputContext& context, const QString& relative, const QString& text)
{
    // Plain ASCII, nearly every output, fits any 8-bit code page: one check.
    if (QtPrivate::isAscii(QStringView(text)))
        return text.toLatin1();
    const qsizetype bad = text::firstUnencodable(text);
    if (bad >= 0)
        context.log.add(
            QStringLiteral("\"%1\": the character %2 does not fit the code page and "
                           "was written as \"?\"")
                .arg(nativePath(context.path(relative)), text::describeCharacter(text, bad)));
    return text::encodeCodePage(text);
}

// Gives the file exactly `bytes`; returns the reason when it cannot. A kept
// old file is written over in place (and left alone when `sameMayStay` and it
// already holds the bytes); anything else in its place is replaced. On
// failure nothing of an old file is left.
QString putBytes(const QString& path, const QByteArray& bytes, bool sameMayStay)
{
    if (reusableFile(path)) {
        QFile old(path);
        // Read and write: opened for writing only, the file would be truncated.
        if (old.open(QIODevice::ReadWrite)) {
            const qint64 oldSize = old.size();
            if (sameMayStay && oldSize == bytes.size() && old.readAll() == bytes)
                return {};
            if (old.seek(0) && old.write(bytes) == bytes.size()
                && (oldSize <= bytes.size() || old.resize(bytes.size())) && old.flush())
                return {};
        }
    }
    if (existsOrIsLink(path))
        QFile::remove(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return file.errorString();
    if (file.write(bytes) != bytes.size() || !file.flush()) {
        const QString reason = file.errorString();
        file.close();
        QFile::remove(path);
        return reason;
    }
    return {};
}

void writeBytes(
    const OutputContext& context, const QString& relative, const QByteArray& bytes, bool append)
{
    const QString path = context.path(relative);
    QString problem;
    if (append) {
        // Never write through a link left in the tree.
        if (QFileInfo(path).isSymLink())
            QFile::remove(path);
        QFile file(path);
        // The flush is checked: a full disk shows only there, and a list
        // that silently stayed empty would pass for written.
        if (!file.open(QIODevice::WriteOnly | QIODevice::Append)
            || file.write(bytes) != bytes.size() || !file.flush())
            problem = file.errorString();
    } else {
        problem = putBytes(path, bytes, false);
    }
    if (!problem.isEmpty()) {
        context.log.add(
            QStringLiteral("Could not write \"%1\": %2").arg(nativePath(path), problem));
        context.log.unwritten(relative);
    }
}

} // namespace

void CleanOutputTree(const OutputContext& context, const OutputPlan& plan)
{
    using namespace outdir;
    // The directories that keep something besides planned files.
    QSet<QString> left;
    const auto clean = [&](const QString& dir) {
        if (emptyAndRemove(context, dir, plan, left))
            left.insert(dir);
    };
    for (const QString& dir : {Lists, Strings, Messages, ScriptData, ScriptText})
        clean(dir);
    removeEmptyDirectory(context, Script, plan, left);
    clean(Sounds);
    removeEmptyDirectory(context, Audio, plan, left);
}

void MakeOutputRoot(const OutputContext& context)
{
    if (!QDir().mkpath(context.root)) {
        context.log.add(QStringLiteral("Could not create the output folder \"%1\"")
                            .arg(nativePath(context.root)));
        context.log.unwritten(QString());
    }
}

void makeDirectory(const OutputContext& context, const QString& relative)
{
    const QString path = context.path(relative);
    if (QFileInfo(path).isDir())
        return;
    if (!QDir().mkdir(path)) {
        context.log.add(
            QStringLiteral("Could not create the directory \"%1\"").arg(nativePath(path)));
        context.log.unwritten(relative);
    }
}

bool refuseCopy(const OutputContext& context, const QString& relative, const QString& warning)
{
    const QString to = context.path(relative);
    // The copy of an earlier compile must not pass for this one's.
    if (existsOrIsLink(to) && !QFileInfo(to).isDir())
        QFile::remove(to);
    context.log.add(warning);
    context.log.unwritten(relative);
    return false;
}

bool putCopy(const OutputContext& context, const QString& from, const QString& relative,
    const QByteArray& bytes)
{
    if (const QString problem = putBytes(context.path(relative), bytes, true); !problem.isEmpty())
        return refuseCopy(context, relative,
            QStringLiteral("Could not copy \"%1\" to \"%2\": %3")
                .arg(nativePath(from), nativePath(context.path(relative)), problem));
    return true;
}

bool copyInto(const OutputContext& context, const QString& from, const QString& relative)
{
    const auto failed = [&](const QString& reason) {
        return refuseCopy(context, relative,
            QStringLiteral("Could not copy \"%1\" to \"%2\": %3")
                .arg(nativePath(from), nativePath(context.path(relative)), reason));
    };
    if (!QFileInfo(from).isFile())
        return failed(QStringLiteral("the file does not exist"));
    // A plain read and write: the copies are made again by every compile, so
    // they need neither the temporary file nor the sync of QFile::copy.
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly))
        return failed(source.errorString());
    const QByteArray bytes = source.readAll();
    if (source.error() != QFileDevice::NoError)
        return failed(source.errorString());
    return putCopy(context, from, relative, bytes);
}

bool copyTemplate(const OutputContext& context, const QString& name, const QString& relative)
{
    return copyInto(context, context.templatePath(name), relative);
}

void writeTextFile(const OutputContext& context, const QString& relative, const QString& text)
{
    writeBytes(context, relative, encoded(context, relative, text), false);
}

void appendTextFile(const OutputContext& context, const QString& relative, const QString& text)
{
    writeBytes(context, relative, encoded(context, relative, text), true);
}

} // namespace tarvo
