#include "commands.h"
int runGitSetup(const QStringList&, const QString&)
{
    return 2;
}
