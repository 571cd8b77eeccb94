#pragma once

#include "catalogue/project_places.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tarvo {
class ProjectDocument;
}

namespace tarvo::gui {

// Edit > Replace: the text to find and its replacement, the Whole word and
// Match case options, and a preview of every place that would change, each
// with a box to leave it out. Places the project file cannot hold are listed
// with the reason and cannot be chosen. Replace changes the chosen places as
// one step of the history; the dialog stays open on what is left.
class ReplaceDialog : public QDialog
{
    Q_OBJECT
public:
    explicit ReplaceDialog(ProjectDocument& document, QWidget* parent = nullptr);

    void setFindText(const QString& text);

private:
    void refresh();
    void replaceChosen();
    void updateButton();

    ProjectDocument& m_document;
    QLineEdit* m_find;
    QLineEdit* m_replace;
    QCheckBox* m_wholeWord;
    QCheckBox* m_matchCase;
    QLabel* m_heading;
    QListWidget* m_places;
    QPushButton* m_replaceButton;
    QList<ProjectPlace> m_shown; // the place of each line
};

} // namespace tarvo::gui
