#include "dialogs/sounds_dialog.h"

#include "base/checked.h"
#include "document/project_document.h"
#include "records/reference_list.h"
#include "resources/resource_commands.h"
#include "shell/guard.h"
#include "ui/prompter.h"
#include "ui/sound_player.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvo::gui {

namespace {

QPushButton* button(const QString& name, const QString& caption, QWidget* parent)
{
    auto* result = new QPushButton(caption, parent);
    result->setObjectName(name);
    result->setAutoDefault(false);
    result->setMinimumWidth(96);
    result->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return result;
}

} // namespace

SoundsDialog::SoundsDialog(ProjectDocument& document, SoundPlayer& player, QWidget* parent)
    : QDialog(parent)
    , m_document(document)
    , m_workspace(document.workspace())
    , m_player(player)
    , m_list(new QListWidget(this))
    , m_idLabel(new QLabel(this))
{
    setObjectName(QStringLiteral("SoundsDialog"));
    setWindowTitle(QStringLiteral("Sounds"));
    m_list->setObjectName(QStringLiteral("List1"));
    m_idLabel->setObjectName(QStringLiteral("Label1"));
    m_idLabel->setMinimumWidth(40);

    QPushButton* add = button(QStringLiteral("Command1"), QStringLiteral("Add..."), this);
    QPushButton* remove = button(QStringLiteral("Command2"), QStringLiteral("Remove"), this);
    QPushButton* play = button(QStringLiteral("Command4"), QStringLiteral("Play"), this);
    QPushButton* stop = button(QStringLiteral("Command5"), QStringLiteral("Stop"), this);
    QPushButton* more = button(QStringLiteral("Command6"), QStringLiteral("More..."), this);
    QPushButton* close = button(QStringLiteral("Command3"), QStringLiteral("Close"), this);
    QPushButton* references
        = button(QStringLiteral("FindReferences"), QStringLiteral("Find References"), this);

    auto* format = new QLabel(
        QStringLiteral("Audio format: PCM (uncompressed), 11,025 Hz, 8 Bit, Mono"), this);
    format->setObjectName(QStringLiteral("Label2"));

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addSpacing(12);
    buttons->addWidget(play);
    buttons->addWidget(stop);
    buttons->addSpacing(12);
    auto* idRow = new QHBoxLayout;
    idRow->addWidget(new QLabel(QStringLiteral("ID:"), this));
    idRow->addWidget(m_idLabel, 1);
    buttons->addLayout(idRow);
    buttons->addStretch(1);
    buttons->addWidget(references);
    buttons->addWidget(close);

    auto* formatRow = new QHBoxLayout;
    formatRow->addWidget(format, 1);
    formatRow->addWidget(more);

    auto* layout = new QGridLayout(this);
    layout->addWidget(m_list, 0, 0);
    layout->addLayout(buttons, 0, 1);
    layout->addLayout(formatRow, 1, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    resize(480, 300);

    const auto on = [this](auto handler) { return guard(m_workspace.prompter, handler); };
    connect(add, &QPushButton::clicked, this, on([this] { addSound(); }));
    connect(remove, &QPushButton::clicked, this, on([this] { removeSound(); }));
    connect(play, &QPushButton::clicked, this, on([this] { playSound(); }));
    connect(stop, &QPushButton::clicked, this, on([this] { m_player.stop(); }));
    connect(more, &QPushButton::clicked, this, on([this] { showMore(); }));
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    connect(references, &QPushButton::clicked, this, on([this] {
        if (m_finder && m_list->currentRow() >= 0)
            m_finder(row::Sounds, m_list->currentRow());
        else
            m_workspace.prompter.beep();
    }));
    connect(m_list, &QListWidget::currentRowChanged, this, on([this] { showSelectedId(); }));
    connect(m_list, &QListWidget::itemDoubleClicked, this, on([this] { playSound(); }));

    m_player.setErrorHandler([this](const QString& path, const QString& reason) {
        m_workspace.prompter.addStatusLine(QStringLiteral("error"),
            QStringLiteral("Can't play '") + path + QStringLiteral("': ") + reason);
    });
    // The list follows every change of the sounds, the dialog's own and undo's.
    connect(&m_document, &ProjectDocument::changed, this, [this](const ProjectChange& change) {
        if (change.sounds || change.everything)
            showSounds();
    });
    showSounds();
}

void SoundsDialog::done(int result)
{
    m_player.stop();
    m_player.setErrorHandler({});
    guarded(m_workspace.prompter, [this] { CloseSounds(m_document); });
    QCoreApplication::processEvents();
    QDialog::done(result);
}

void SoundsDialog::showSounds()
{
    QStringList lines;
    const Project& project = m_workspace.project;
    for (int i = 0; i < heldCount(project.soundCount, project.sounds); ++i)
        lines.append(project.sounds.at(i).firstText);
    syncLines(m_list, lines);
    showSelectedId();
}

void SoundsDialog::addSound()
{
    const QString path = m_workspace.prompter.openFileName(
        QStringLiteral("Open wav file..."), QStringLiteral("Wav files|*.wav"));
    AddSound(m_document, path);
}

void SoundsDialog::removeSound()
{
    const RemovalResult result = RemoveSound(m_document, m_list->currentRow());
    if (!result.removed)
        return;
    showLine(m_list, result.selection);
    showSelectedId();
}

void SoundsDialog::playSound()
{
    const int position = m_list->currentRow();
    if (position < 0 || position >= m_workspace.project.soundCount) {
        m_workspace.prompter.beep();
        return;
    }
    const Project& project = m_workspace.project;
    m_player.play(soundFilePath(project, project.sounds.at(position)));
}

void SoundsDialog::showMore()
{
    m_workspace.prompter.message(
        QStringLiteral("Some programs, like 'MS Sound Recorder' can have problems producing wav "
                       "files which are compatible with VN, thererofe i advice you to use such "
                       "programs as 'Sound Forge'."),
        Prompter::Icon::Information);
}

void SoundsDialog::showSelectedId()
{
    const int position = m_list->currentRow();
    if (position < 0 || position >= m_workspace.project.soundCount) {
        m_idLabel->clear();
        return;
    }
    m_idLabel->setText(QString::number(m_workspace.project.sounds.at(position).id));
}

} // namespace tarvo::gui
