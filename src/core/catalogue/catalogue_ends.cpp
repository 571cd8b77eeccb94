#include "catalogue/catalogue_ends.h"

#include "catalogue/workspace.h"

#include <QFile>
#include <QFileInfo>
#include <optional>

namespace tarvo {

namespace {

// The catalogue's fault at its end, or nothing when it looks whole.
std::optional<FileError> cutShort(const QString& path, const char* which, qsizetype kinds)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    const QString name = QFileInfo(path).fileName();
    if (bytes.isEmpty())
        return FileError(path, 1,
            QStringLiteral("the %1 catalogue is empty (%2 may be cut short)")
                .arg(QLatin1String(which), name));
    if (bytes.endsWith('\n'))
        return std::nullopt;
    const int line = int(bytes.count('\n')) + 1;
    return FileError(path, line,
        QStringLiteral("the %1 catalogue ends here without a line end, after %2 kinds: %3 may be "
                       "cut short")
            .arg(QLatin1String(which))
            .arg(kinds)
            .arg(name));
}

} // namespace

FileError blameCutCatalogue(const Workspace& workspace, const FileError& projectError)
{
    const std::pair<QString, const Catalogue*> catalogues[] = {
        {workspace.paths.conditionCatalogue(), &workspace.conditionCatalogue},
        {workspace.paths.actionCatalogue(), &workspace.actionCatalogue},
    };
    for (const auto& [path, catalogue] : catalogues) {
        const char* which = catalogue == &workspace.conditionCatalogue ? "condition" : "action";
        if (const auto fault = cutShort(path, which, catalogue->size()))
            return FileError(fault->file(), fault->line(),
                fault->sentence() + QStringLiteral("; the project did not load against it: ")
                    + projectError.message());
    }
    return projectError;
}

} // namespace tarvo
