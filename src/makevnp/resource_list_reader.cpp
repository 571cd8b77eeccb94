#include "resource_list_reader.h"

#include "text/text_file.h"

#include <QDir>

namespace makevnp {

namespace {

// The text between the first and the last double quote of a line.
QString quotedPart(const QString& line)
{
    const qsizetype first = line.indexOf(u'"');
    const qsizetype last = line.lastIndexOf(u'"');
    if (first < 0 || last <= first)
        return {};
    return line.mid(first + 1, last - first - 1);
}

QString unsafeReason(const QString& relative)
{
    if (relative.isEmpty())
        return QStringLiteral("no name");
    if (relative.startsWith(u'/') || relative.contains(u':'))
        return QStringLiteral("an absolute path");
    for (const QString& part : relative.split(u'/')) {
        if (part == QLatin1String(".."))
            return QStringLiteral("a path that leaves the output folder");
    }
    return {};
}

} // namespace

void readResourceList(const QString& path, ListedFiles& listed)
{
    const QStringList lines = tarvo::text::readTextLines(path);
    const QString listName = QDir(path).dirName();
    QString directory;
    for (int n = 0; n < lines.size(); ++n) {
        const QString line = lines[n].trimmed();
        const QString word
            = line.section(u' ', 0, 0, QString::SectionSkipEmpty).section(u'\t', 0, 0);
        const bool isDirectory = word == QLatin1String("directory");
        if (!isDirectory && word != QLatin1String("file"))
            continue;
        const QString where = QStringLiteral("%1:%2").arg(listName).arg(n + 1);
        const QString name = QDir::fromNativeSeparators(quotedPart(line).replace(u'\\', u'/'));
        if (isDirectory) {
            directory = name;
            if (const QString reason = unsafeReason(directory); !reason.isEmpty())
                listed.problems.append(
                    QStringLiteral("%1: directory \"%2\": %3").arg(where, directory, reason));
            continue;
        }
        const QString relative
            = QDir::cleanPath(directory.isEmpty() ? name : directory + u'/' + name);
        if (const QString reason = unsafeReason(name.isEmpty() ? QString() : relative);
            !reason.isEmpty()) {
            listed.problems.append(
                QStringLiteral("%1: file \"%2\": %3").arg(where, relative, reason));
            continue;
        }
        if (!listed.files.contains(relative))
            listed.files.append(relative);
    }
}

QStringList resourceListsIn(const QString& root)
{
    const QDir lists(root + QStringLiteral("/vnr"));
    QStringList paths;
    for (const QString& name : lists.entryList({QStringLiteral("*.vnr")}, QDir::Files, QDir::Name))
        paths.append(lists.filePath(name));
    return paths;
}

} // namespace makevnp
