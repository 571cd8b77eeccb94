#include "catalogue/side_names.h"

#include "base/whole_file.h"
#include "text/text_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace tarvo {

namespace {

const QLatin1String kHeading("# Names and values that the project file does not keep (Tarvo)");

} // namespace

QString sideNamesPath(const QString& projectPath)
{
    const QFileInfo info(projectPath);
    QString name = info.fileName();
    if (name.endsWith(QLatin1String(".vnsc"), Qt::CaseInsensitive))
        name.chop(5);
    return info.dir().filePath(name + QStringLiteral(".names"));
}

void writeSideNames(
    const Project& project, const ReferenceListTable& catalogueRows, const QString& projectPath)
{
    QStringList lines;
    for (int t = 0; t < kReferenceRowCount; ++t) {
        const ReferenceList& list = project.tables[size_t(t)];
        const ReferenceList& given = catalogueRows[size_t(t)];
        if (list.Saved)
            continue;
        for (int j = 0; j < list.ItemCount; ++j) {
            const QString name = list.Texts.value(j);
            const QString value = list.RawCodes.value(j);
            if (name != given.Texts.value(j) || value != given.RawCodes.value(j))
                lines << QStringLiteral("%1|%2|%3|%4").arg(t).arg(j).arg(name, value);
        }
    }
    const QString path = sideNamesPath(projectPath);
    if (lines.isEmpty()) {
        QFile::remove(path);
        return;
    }
    const QByteArray bytes = (QStringList {kHeading} + lines).join(u'\n').toUtf8() + '\n';
    writeWholeFile(path, bytes, QStringLiteral("the names of the flags could not be kept"));
}

QList<FileError> readSideNames(Project& project, const QString& projectPath)
{
    const QString path = sideNamesPath(projectPath);
    QFile file(path);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        return {FileError(path, 0, QStringLiteral("cannot be read: ") + file.errorString())};
    QList<FileError> notes;
    const QStringList lines = text::splitLines(QString::fromUtf8(file.readAll()));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines.at(i).startsWith(u'#') || lines.at(i).isEmpty())
            continue;
        const QStringList fields = lines.at(i).split(u'|');
        bool rowOk = false;
        bool positionOk = false;
        const int t = fields.value(0).toInt(&rowOk);
        const int j = fields.value(1).toInt(&positionOk);
        if (fields.size() != 4 || !rowOk || !positionOk || t < 0 || t >= kReferenceRowCount
            || project.tables[size_t(t)].Saved || j < 0 || j >= project.tables[size_t(t)].ItemCount
            || j >= project.tables[size_t(t)].Texts.size()
            || j >= project.tables[size_t(t)].RawCodes.size()) {
            notes.append(FileError(path, int(i + 1),
                QStringLiteral("the line does not name an entry of a row that this file keeps; it "
                               "is left out")));
            continue;
        }
        ReferenceList& list = project.tables[size_t(t)];
        list.Texts[j] = fields.at(2);
        list.RawCodes[j] = fields.at(3);
    }
    return notes;
}

QString sideNamesNote(const Project& project, int table)
{
    if (table < 0 || table >= kReferenceRowCount || project.tables[size_t(table)].Saved)
        return {};
    return QStringLiteral("The project file does not keep the names and values of the %1; Tarvo "
                          "keeps them beside it, in \"%2\", when the project is saved.")
        .arg(project.tables[size_t(table)].ListName.isEmpty()
                ? QStringLiteral("flags")
                : project.tables[size_t(table)].ListName.toLower(),
            QFileInfo(sideNamesPath(project.filePath)).fileName());
}

} // namespace tarvo
