#pragma once

#include "ui/sound_player.h"

#include <QObject>

class QSoundEffect;

namespace tarvo::gui {

// Plays wav files through Qt Multimedia. The file is decoded in the
// background, so play() returns at once; a file that is missing or cannot be
// decoded reaches the error handler instead of stopping anything.
class QtSoundPlayer : public QObject, public SoundPlayer
{
    Q_OBJECT
public:
    explicit QtSoundPlayer(QObject* parent = nullptr);
    ~QtSoundPlayer() override;

    void play(const QString& path) override;
    void stop() override;

    bool isPlaying() const;

private:
    void onStatusChanged();

    QSoundEffect* m_effect;
    QString m_path;
    bool m_wantsToPlay = false;
};

} // namespace tarvo::gui
