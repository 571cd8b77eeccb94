#pragma once

#include <QDialog>
#include <functional>

class QComboBox;
class QLineEdit;
class QListWidget;
class QTabWidget;

namespace tarvo {
struct Workspace;
}

namespace tarvo::gui {

// The script variables, one tab per kind: flags (rename, value), groups (new,
// delete, rename) and numbers (new, delete, rename, value). It edits the
// project's rows in place; the rules live in the variables core module.
class VariablesDialog : public QDialog
{
    Q_OBJECT
public:
    explicit VariablesDialog(Workspace& workspace, QWidget* parent = nullptr);

    void LoadFlags();
    void LoadGroups();
    void LoadIntegers();

private:
    QWidget* makeFlagsPage();
    QWidget* makeGroupsPage();
    QWidget* makeNumbersPage();

    // Buttons that change the project run guarded (see guardedCall).
    std::function<void()> guarded(void (VariablesDialog::*work)());

    void newGroup();
    void newNumber();
    void deleteGroup();
    void deleteNumber();
    void rename(int table, QListWidget* list);
    void renameGroup();
    void reload(QListWidget* list);
    void showFlagValue();
    void storeFlagValue();
    void showNumberValue();
    void updateNumberValue();

    Workspace& m_workspace;
    QTabWidget* m_tabs;
    QListWidget* m_flags;
    QComboBox* m_flagValue;
    QListWidget* m_groups;
    QListWidget* m_numbers;
    QLineEdit* m_numberValue;
    bool m_showingFlag = false; // the value box follows the list, it is no choice
};

} // namespace tarvo::gui
