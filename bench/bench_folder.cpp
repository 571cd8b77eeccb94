#include "bench_folder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <stdexcept>

namespace {

// Kinds of the three condition forms (a call, a value from the arguments, a
// code block with the comparison inside) and four action code blocks that
// between them refer to rows 0, 7, 12, 13, 14, 15 and 17.
const char* const kConditions = "<c>\n<s>;Bench call\n<d>;Benchmark kind.\n<q>;benchCall\n"
                                "<r>;0;0\n<f>;Group;A group;7;7\n<f>;Flag;A flag;17;17\n"
                                "<c>\n<s>;Bench value\n<d>;Benchmark kind.\n<q>;benchValue\n"
                                "<r>;0;0\n<f>;Number;A number;0;0\n<f>;Offset;An offset;-1;-1\n"
                                "<i>|1|\n"
                                "<c>\n<s>;Bench block\n<d>;Benchmark kind.\n<q>;benchBlock\n"
                                "<r>;0;0\n<f>;Event;An event;12;12\n<f>;Timer;A timer;13;13\n"
                                "<i>|2|benchBlock(&&0, &&1)|\n";

const char* const kActions
    = "<c>\n<s>;Bench numbers\n<d>;Benchmark kind.\n<q>;benchNumbers\n<r>;none\n"
      "<f>;Number;A number;0;0;0\n<f>;Group;A group;7;7;0\n"
      "<i>|2|&&0 = &&1.members + &&0;|\n"
      "<c>\n<s>;Bench events\n<d>;Benchmark kind.\n<q>;setEventTrigger\n<r>;none\n"
      "<f>;Event;An event;12;12;0\n<f>;Timer;A timer;13;13;0\n"
      "<i>|2|setEventTrigger(&&0, &&1);|\n"
      "<c>\n<s>;Bench media\n<d>;Benchmark kind.\n<q>;benchMedia\n<r>;none\n"
      "<f>;Sound;A sound;14;14;0\n<f>;Message;A message;15;15;0\n"
      "<i>|2|playSound(&&0, 0);&&&showConsoleText(&&1, 0);|\n"
      "<c>\n<s>;Bench flags\n<d>;Benchmark kind.\n<q>;benchFlags\n<r>;none\n"
      "<f>;Flag;A flag;17;17;0\n<f>;Number;A number;0;0;0\n"
      "<i>|2|&&0 = &&1 > 3;|\n";

void fail(const QString& what)
{
    throw std::runtime_error(what.toStdString());
}

void copyTree(const QString& from, const QString& to)
{
    QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString source = it.next();
        const QString target = to + u'/' + QDir(from).relativeFilePath(source);
        QDir().mkpath(QFileInfo(target).path());
        if (!QFile::copy(source, target))
            fail(QStringLiteral("cannot copy ") + source);
    }
}

void appendCatalogue(const QString& path, const char* kinds)
{
    QFile file(path);
    if (!file.open(QIODevice::Append))
        fail(QStringLiteral("cannot extend ") + path);
    file.write(QByteArray(kinds).replace("\n", "\r\n"));
}

} // namespace

BenchFolder::BenchFolder()
{
    if (!m_dir.isValid())
        fail(QStringLiteral("no temporary folder"));
    // TARVO_BENCH_KEEP=1 leaves the folder (and the compiled trees) for a look.
    if (qEnvironmentVariableIntValue("TARVO_BENCH_KEEP") == 1) {
        m_dir.setAutoRemove(false);
        qInfo("bench folder kept: %s", qPrintable(m_dir.path()));
    }
    copyTree(QStringLiteral(TARVO_BENCH_PROGRAM_DIR), programDir());
    appendCatalogue(programDir() + QStringLiteral("/temp.txt"), kConditions);
    appendCatalogue(programDir() + QStringLiteral("/temp2.txt"), kActions);
    QDir().mkpath(programDir() + QStringLiteral("/wav"));
    QDir().mkpath(programDir() + QStringLiteral("/scratch"));
    // A short silent wav: a header and a few hundred samples.
    QByteArray wav("RIFF\x24\x02\0\0WAVEfmt "
                   "\x10\0\0\0\x01\0\x01\0\x22\x56\0\0\x44\xac\0\0\x02\0\x10\0data\0\x02\0\0",
        44);
    wav.append(512, '\0');
    for (int i = 0; i < kSoundFiles; ++i) {
        QFile file(wavPath(i));
        if (!file.open(QIODevice::WriteOnly) || file.write(wav) != wav.size())
            fail(QStringLiteral("cannot write ") + wavPath(i));
    }
}

QString BenchFolder::wavPath(int index) const
{
    return programDir() + QStringLiteral("/wav/sound%1.wav").arg(index);
}

QString BenchFolder::scratchPath(const QString& name) const
{
    return programDir() + QStringLiteral("/scratch/") + name;
}
