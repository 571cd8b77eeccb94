#pragma once

#include "dialogs/resource_dialogs.h"

#include <QDialog>

class QComboBox;
class QLineEdit;
class QListWidget;
class QTabWidget;

namespace tarvo {
class ProjectDocument;
struct ProjectChange;
struct Workspace;
} // namespace tarvo

namespace tarvo::gui {

// The script variables, one tab per kind: flags (rename, value), groups (new,
// delete, rename) and numbers (new, delete, rename, value). Each change is a
// core command on the project document; the lists follow its change signal.
class VariablesDialog : public QDialog
{
    Q_OBJECT
public:
    explicit VariablesDialog(ProjectDocument& document, QWidget* parent = nullptr);

    void LoadFlags();
    void LoadGroups();
    void LoadIntegers();
    void setReferenceFinder(const ReferenceFinder& finder) { m_finder = finder; }

private:
    QWidget* makeFlagsPage();
    QWidget* makeGroupsPage();
    QWidget* makeNumbersPage();

    void findReferences();
    void follow(const ProjectChange& change);
    void showValues();
    void newGroup();
    void newNumber();
    void deleteGroup();
    void deleteNumber();
    void rename(int table, QListWidget* list, const QString& label);
    void showFlagValue();
    void storeFlagValue();
    void showNumberValue();
    void updateNumberValue();

    ProjectDocument& m_document;
    Workspace& m_workspace;
    QTabWidget* m_tabs;
    QListWidget* m_flags;
    QComboBox* m_flagValue;
    QListWidget* m_groups;
    QListWidget* m_numbers;
    QLineEdit* m_numberValue;
    ReferenceFinder m_finder;
    bool m_showingFlag = false; // the value box follows the list, it is no choice
    bool m_toldAboutSideNames = false;
};

} // namespace tarvo::gui
