#include "catalogue/catalogue_lint.h"
#include "commands.h"
#include "base/file_error.h"

#include <QDir>

int runCheckCatalogues(const QStringList& args, const QString& programDir)
{
    if (args.size() != 1) {
        printLine(stderr, QStringLiteral("usage: tarvo-cli check-catalogues [--program-dir DIR]"));
        return 2;
    }
    QList<tarvo::CatalogueFinding> findings;
    try {
        findings = tarvo::lintProgramCatalogues(tarvo::ProgramPaths {programDir});
    } catch (const tarvo::FileError& error) {
        printLine(stderr, error.message());
        return 2;
    }
    for (tarvo::CatalogueFinding& finding : findings) {
        finding.file = QDir::toNativeSeparators(finding.file);
        printLine(stdout, tarvo::findingLine(finding));
    }
    return tarvo::hasErrors(findings) ? 1 : 0;
}
