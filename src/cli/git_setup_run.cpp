#include "commands.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>

namespace {

const QString kPattern = QStringLiteral("*.vnsc");
// "-text": git must never touch the CR LF line ends or the 8-bit bytes.
const QStringList kAttributes
    = {QStringLiteral("-text"), QStringLiteral("diff=tarvo"), QStringLiteral("merge=tarvo")};

struct GitRun
{
    bool ok = false;
    QString out;
    QString err;
};

GitRun git(const QString& repository, const QStringList& args)
{
    QProcess process;
    process.start(QStringLiteral("git"), QStringList {QStringLiteral("-C"), repository} + args);
    if (!process.waitForFinished(60000))
        return {false, {}, process.errorString()};
    return {process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
        QString::fromLocal8Bit(process.readAllStandardOutput()).trimmed(),
        QString::fromLocal8Bit(process.readAllStandardError()).trimmed()};
}

// A path as one word of a POSIX shell command: git runs drivers through sh.
QString shellWord(const QString& text)
{
    QString quoted = text;
    quoted.replace(u'\'', QLatin1String("'\\''"));
    return u'\'' + quoted + u'\'';
}

// The attributes line for project files: the one there with what is missing
// added (and any other text, diff or merge setting replaced), or a new one.
// Returns false when the file already says it all.
bool completeAttributes(QStringList& lines)
{
    for (QString& line : lines) {
        QStringList words = line.simplified().split(u' ', Qt::SkipEmptyParts);
        if (words.isEmpty() || words.first() != kPattern)
            continue;
        const QStringList settings = words.mid(1);
        if (std::all_of(kAttributes.begin(), kAttributes.end(),
                [&](const QString& wanted) { return settings.contains(wanted); }))
            return false;
        QStringList kept;
        for (const QString& setting : settings) {
            const QString name = setting.section(u'=', 0, 0).remove(u'-').remove(u'!');
            if (name != QLatin1String("text") && name != QLatin1String("diff")
                && name != QLatin1String("merge"))
                kept.append(setting);
        }
        line = (QStringList {kPattern} + kept + kAttributes).join(u' ');
        return true;
    }
    lines.append((QStringList {kPattern} + kAttributes).join(u' '));
    return true;
}

bool writeAttributes(const QString& top)
{
    const QString path = QDir(top).filePath(QStringLiteral(".gitattributes"));
    QFile existing(path);
    QString text;
    if (existing.exists()) {
        if (!existing.open(QIODevice::ReadOnly)) {
            printLine(stderr, path + QStringLiteral(": ") + existing.errorString());
            return false;
        }
        text = QString::fromUtf8(existing.readAll());
    }
    const QString lineEnd
        = text.contains(QLatin1String("\r\n")) ? QStringLiteral("\r\n") : QStringLiteral("\n");
    QStringList lines = text.split(lineEnd);
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    if (!completeAttributes(lines)) {
        printLine(stdout, QStringLiteral(".gitattributes already sends *.vnsc to tarvo"));
        return true;
    }
    QSaveFile file(path);
    const QByteArray bytes = (lines.join(lineEnd) + lineEnd).toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        printLine(stderr, path + QStringLiteral(": not written: ") + file.errorString());
        return false;
    }
    printLine(stdout,
        QStringLiteral(".gitattributes: *.vnsc %1 (commit this file)").arg(kAttributes.join(u' ')));
    return true;
}

bool setConfig(const QString& top, const QString& key, const QString& value)
{
    const GitRun current = git(
        top, {QStringLiteral("config"), QStringLiteral("--local"), QStringLiteral("--get"), key});
    if (current.ok && current.out == value) {
        printLine(stdout, QStringLiteral("git config %1 already set").arg(key));
        return true;
    }
    const GitRun set = git(top, {QStringLiteral("config"), QStringLiteral("--local"), key, value});
    if (!set.ok) {
        printLine(stderr, QStringLiteral("git config %1 failed: %2").arg(key, set.err));
        return false;
    }
    printLine(stdout, QStringLiteral("git config %1 = %2").arg(key, value));
    return true;
}

} // namespace

int runGitSetup(const QStringList& args, const QString& programDir)
{
    if (args.size() > 2) {
        printLine(
            stderr, QStringLiteral("usage: tarvo-cli git-setup [REPOSITORY] [--program-dir DIR]"));
        return 2;
    }
    const QString repository = args.size() == 2 ? args.at(1) : QDir::currentPath();
    const GitRun top
        = git(repository, {QStringLiteral("rev-parse"), QStringLiteral("--show-toplevel")});
    if (!top.ok || top.out.isEmpty()) {
        printLine(stderr,
            QStringLiteral("%1 is not in a git repository (or git cannot be run): %2")
                .arg(repository, top.err));
        return 2;
    }
    // The very program and catalogues that ran this, so that every later
    // diff and merge reads the projects the same way.
    const QString command = shellWord(QCoreApplication::applicationFilePath())
        + QStringLiteral(" %1 --program-dir ")
        + shellWord(QFileInfo(programDir).absoluteFilePath());
    const bool done = writeAttributes(top.out)
        && setConfig(top.out, QStringLiteral("diff.tarvo.textconv"), command.arg("show"))
        && setConfig(top.out, QStringLiteral("merge.tarvo.name"),
            QStringLiteral("Tarvo campaign script merge"))
        && setConfig(top.out, QStringLiteral("merge.tarvo.driver"),
            command.arg("merge") + QStringLiteral(" %O %A %B"));
    return done ? 0 : 2;
}
