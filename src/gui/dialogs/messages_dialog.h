#pragma once

#include "dialogs/resource_dialogs.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;

namespace tarvo {
class ProjectDocument;
struct Workspace;
} // namespace tarvo

namespace tarvo::gui {

// The project's text messages: type one and add it, double click one to edit
// it and update it in place (its ID stays), remove one. Every change keeps
// the messages row of the reference lists current.
class MessagesDialog : public QDialog
{
    Q_OBJECT
public:
    explicit MessagesDialog(ProjectDocument& document, QWidget* parent = nullptr);

    void done(int result) override;
    void setReferenceFinder(const ReferenceFinder& finder) { m_finder = finder; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void showMessages();
    void addMessage();
    void updateMessage();
    void removeMessage();
    void editSelected();
    void showSelectedId();
    void backToText();

    ProjectDocument& m_document;
    Workspace& m_workspace;
    QLineEdit* m_text;
    QListWidget* m_list;
    ReferenceFinder m_finder;
    QLabel* m_idLabel;
};

} // namespace tarvo::gui
