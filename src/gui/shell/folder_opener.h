#pragma once

#include <QString>

namespace tarvo::gui {

// Shows a folder in the system's file manager. Behind an interface so tests
// can see what would have been opened.
class FolderOpener
{
public:
    virtual ~FolderOpener() = default;
    virtual void openFolder(const QString& path) = 0;
};

// Through QDesktopServices; a missing folder is the file manager's matter.
class DesktopFolderOpener : public FolderOpener
{
public:
    void openFolder(const QString& path) override;
};

} // namespace tarvo::gui
