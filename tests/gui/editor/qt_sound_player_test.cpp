#include "dialogs/qt_sound_player.h"
#include "wav_file.h"

#include <QAudioDevice>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QMediaDevices>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using tarvo::gui::QtSoundPlayer;

namespace {

struct Failure
{
    QString path;
    QString reason;
};

class QtSoundPlayerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        player.setErrorHandler([this](const QString& path, const QString& reason) {
            failures.append({path, reason});
        });
    }

    // Decoding runs in the background: wait until the player has given its
    // verdict or a generous limit has passed.
    void waitFor(const std::function<bool()>& done)
    {
        QDeadlineTimer deadline(10000);
        while (!done() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    }

    QTemporaryDir dir;
    QtSoundPlayer player;
    QList<Failure> failures;
};

TEST_F(QtSoundPlayerTest, AMissingFileIsReportedAtOnce)
{
    const QString path = dir.filePath("missing.wav");
    player.play(path);
    ASSERT_EQ(failures.size(), 1);
    EXPECT_EQ(failures[0].path, path);
    EXPECT_EQ(failures[0].reason, "the file does not exist");
    EXPECT_FALSE(player.isPlaying());
}

TEST_F(QtSoundPlayerTest, AFileThatIsNoWavIsReportedNotThrown)
{
    const QString path = dir.filePath("notes.wav");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("These are notes, not sound.");
    file.close();

    player.play(path);
    waitFor([this] { return !failures.isEmpty(); });
    ASSERT_EQ(failures.size(), 1);
    EXPECT_EQ(failures[0].path, path);
    EXPECT_EQ(failures[0].reason, "it is not a wav file that can be played");
    EXPECT_FALSE(player.isPlaying());
}

TEST_F(QtSoundPlayerTest, AGoodFilePlaysUntilStopped)
{
    if (QMediaDevices::audioOutputs().isEmpty()) {
        const QString path = dir.filePath("tone.wav");
        ASSERT_TRUE(writeTone(path, 11025));
        player.play(path);
        waitFor([this] { return !failures.isEmpty(); });
        ASSERT_EQ(failures.size(), 1);
        EXPECT_EQ(failures[0].reason, "no sound output is available");
        GTEST_SKIP() << "no sound output here to play through";
    }
    const QString path = dir.filePath("tone.wav");
    ASSERT_TRUE(writeTone(path, 11025 * 5));
    player.play(path);
    waitFor([this] { return player.isPlaying() || !failures.isEmpty(); });
    EXPECT_TRUE(failures.isEmpty()) << failures.value(0).reason.toStdString();
    EXPECT_TRUE(player.isPlaying());
    player.stop();
    EXPECT_FALSE(player.isPlaying());
}

} // namespace
