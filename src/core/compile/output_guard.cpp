#include "compile/output_guard.h"

#include "base/checked.h"
#include "records/project.h"
#include "catalogue/workspace.h"

#include <QDir>
#include <QFileInfo>

namespace tarvo {

namespace {

QString native(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

// A name as it can be shown: control characters (NUL would end the text on
// many outputs) are written as <U+0000>.
QString shown(const QString& name)
{
    QString text;
    for (const QChar c : name) {
        if (c.unicode() < 0x20 || c.unicode() == 0x7f)
            text += QStringLiteral("<U+%1>").arg(c.unicode(), 4, 16, QLatin1Char('0')).toUpper();
        else
            text += c;
    }
    return text;
}

bool isInside(const QString& path, const QString& folder)
{
    const QString base = folder.endsWith(u'/') ? folder : folder + u'/';
    return path.startsWith(base) && path.size() > base.size();
}

} // namespace

QString plainNameProblem(const QString& name)
{
    if (name.isEmpty())
        return QStringLiteral("it is empty");
    if (name.contains(u'/') || name.contains(u'\\'))
        return QStringLiteral("it holds a path separator");
    if (name.contains(u':'))
        return QStringLiteral("it holds a drive letter or a colon");
    // The file system ends a name at NUL, so "a.txt", NUL, "x" would be the
    // file "a.txt" beside the root; other control characters are no better.
    for (const QChar c : name) {
        if (c.unicode() < 0x20 || c.unicode() == 0x7f)
            return QStringLiteral("it holds the control character %1").arg(shown(QString(c)));
    }
    if (name == QLatin1String(".") || name == QLatin1String(".."))
        return QStringLiteral("it names a folder above or at its own place");
    if (QDir::isAbsolutePath(name))
        return QStringLiteral("it is an absolute path");
    return {};
}

QString checkOutputPaths(const ProgramPaths& paths, const Project& project)
{
    const QString projects = QDir::cleanPath(paths.projectsDir());
    const QString root = paths.outputRoot(project.name);

    if (const QString problem = plainNameProblem(project.name); !problem.isEmpty())
        return QStringLiteral("The project name \"%1\" cannot name an output folder: %2. Its "
                              "output must lie inside \"%3\". Nothing was changed.")
            .arg(shown(project.name), problem, native(projects));
    if (!isInside(QDir::cleanPath(root), projects))
        return QStringLiteral("The output folder \"%1\" of the project \"%2\" would lie outside "
                              "\"%3\". Nothing was changed.")
            .arg(native(shown(root)), shown(project.name), native(projects));

    // An existing root (or a link in its place) must resolve inside the
    // projects folder too.
    const QFileInfo rootInfo(root);
    if (rootInfo.exists() || rootInfo.isSymLink()) {
        const QString canonicalRoot = rootInfo.canonicalFilePath();
        const QString canonicalProjects = QFileInfo(projects).canonicalFilePath();
        if (canonicalRoot.isEmpty() || canonicalProjects.isEmpty()
            || !isInside(canonicalRoot, canonicalProjects) || !rootInfo.isDir())
            return QStringLiteral("The output folder \"%1\" of the project \"%2\" leads outside "
                                  "\"%3\" (it is a link or not a folder). Nothing was changed.")
                .arg(native(shown(root)), shown(project.name), native(projects));
        // A link to a neighbour's folder stays inside, but cleaning through
        // it would delete the neighbour's files.
        if (rootInfo.isSymLink())
            return QStringLiteral("The output folder \"%1\" of the project \"%2\" is a link to "
                                  "\"%3\"; the compile follows no link. Nothing was changed.")
                .arg(native(shown(root)), shown(project.name), native(canonicalRoot));
    }

    // Sound names become the names of the copies in the sounds folder.
    if (project.soundCount > 0) {
        const ReferenceList& sounds = project.tables[row::Sounds];
        for (int k = 0; k < heldCount(sounds.ItemCount, sounds.Texts); ++k) {
            const QString& name = sounds.Texts[k];
            if (const QString problem = plainNameProblem(name); !problem.isEmpty())
                return QStringLiteral("The sound file name \"%1\" (sound %2) cannot be copied "
                                      "into the output folder \"%3\": %4. Nothing was changed.")
                    .arg(shown(name), QString::number(k), native(root), problem);
        }
    }
    return {};
}

} // namespace tarvo
