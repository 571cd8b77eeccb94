#pragma once

#include "dialogs/resource_dialogs.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace tarvo {
class ProjectDocument;
class SoundPlayer;
struct Workspace;
} // namespace tarvo

namespace tarvo::gui {

// The project's wav files: add, audition, remove. Removing a sound that
// actions use asks once and clears those arguments. Closing, in any way,
// stops the sound and refills the sounds row of the reference lists when it
// differs from the sounds.
class SoundsDialog : public QDialog
{
    Q_OBJECT
public:
    SoundsDialog(ProjectDocument& document, SoundPlayer& player, QWidget* parent = nullptr);

    void done(int result) override;
    void setReferenceFinder(const ReferenceFinder& finder) { m_finder = finder; }

private:
    void showSounds();
    void addSound();
    void removeSound();
    void playSound();
    void showMore();
    void showSelectedId();

    ProjectDocument& m_document;
    Workspace& m_workspace;
    SoundPlayer& m_player;
    QListWidget* m_list;
    ReferenceFinder m_finder;
    QLabel* m_idLabel;
};

} // namespace tarvo::gui
