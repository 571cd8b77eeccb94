#include "shell/folder_opener.h"

#include <QDesktopServices>
#include <QUrl>

namespace tarvo::gui {

void DesktopFolderOpener::openFolder(const QString& path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

} // namespace tarvo::gui
