// The window comes back where it was left. The test platform, like an X
// server with no window manager, draws no frame: the case where Qt's own
// restore made room for a title bar and moved the window down.
#include "shell/window_geometry.h"

#include <QMainWindow>
#include <gtest/gtest.h>

namespace {

// Where a window left at `left` is, and where it comes back.
std::pair<QRect, QRect> placeAfterRestart(const QRect& left)
{
    QByteArray stored;
    QRect was;
    {
        QMainWindow window;
        window.setGeometry(left);
        window.show();
        was = window.geometry();
        stored = window.saveGeometry();
    }
    QMainWindow restarted;
    restarted.resize(1000, 680);
    tarvo::gui::restoreWindowGeometry(restarted, stored);
    restarted.show();
    return {was, restarted.geometry()};
}

TEST(WindowGeometry, ComesBackExactlyWhereItWasLeft)
{
    for (const QRect& left :
        {QRect(0, 0, 900, 600), QRect(3, 7, 880, 560), QRect(150, 90, 1000, 680)}) {
        const auto [was, is] = placeAfterRestart(left);
        EXPECT_EQ(is, was);
    }
}

TEST(WindowGeometry, NothingStoredKeepsTheFirstSize)
{
    QMainWindow window;
    window.resize(1000, 680);
    tarvo::gui::restoreWindowGeometry(window, QByteArray());
    EXPECT_EQ(window.size(), QSize(1000, 680));
}

} // namespace
