#include "dialogs/qt_sound_player.h"

#include <QAudioDevice>
#include <QFileInfo>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

namespace tarvo::gui {

QtSoundPlayer::QtSoundPlayer(QObject* parent)
    : QObject(parent)
    , m_effect(new QSoundEffect(this))
{
    connect(m_effect, &QSoundEffect::statusChanged, this, &QtSoundPlayer::onStatusChanged);
}

QtSoundPlayer::~QtSoundPlayer()
{
    m_effect->stop();
}

void QtSoundPlayer::play(const QString& path)
{
    stop();
    if (!QFileInfo(path).isFile()) {
        reportError(path, QStringLiteral("the file does not exist"));
        return;
    }
    const QUrl url = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    m_path = path;
    m_wantsToPlay = true;
    // A new source is decoded first and played once it is ready; the same
    // source again is ready at once.
    if (m_effect->source() != url)
        m_effect->setSource(url);
    onStatusChanged();
}

void QtSoundPlayer::stop()
{
    m_wantsToPlay = false;
    m_effect->stop();
}

bool QtSoundPlayer::isPlaying() const
{
    return m_effect->isPlaying();
}

void QtSoundPlayer::onStatusChanged()
{
    if (!m_wantsToPlay)
        return;
    switch (m_effect->status()) {
    case QSoundEffect::Ready:
        m_wantsToPlay = false;
        if (QMediaDevices::audioOutputs().isEmpty())
            reportError(m_path, QStringLiteral("no sound output is available"));
        else
            m_effect->play();
        break;
    case QSoundEffect::Error:
        m_wantsToPlay = false;
        reportError(m_path, QStringLiteral("it is not a wav file that can be played"));
        break;
    default:
        break;
    }
}

} // namespace tarvo::gui
