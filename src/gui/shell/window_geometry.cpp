#include "shell/window_geometry.h"

#include <QDataStream>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QWidget>

namespace tarvo::gui {

namespace {

// The start of what QWidget::saveGeometry writes (version 3, Qt 6): a
// marker, the version, the frame's and the client area's rectangles.
struct StoredPlace
{
    QRect frame;
    QRect normal;
    bool maximized = false;
    bool fullScreen = false;
};

bool readStoredPlace(const QByteArray& stored, StoredPlace& place)
{
    QDataStream stream(stored);
    stream.setVersion(QDataStream::Qt_4_0);
    quint32 marker = 0;
    quint16 major = 0, minor = 0;
    qint32 screen = 0;
    quint8 maximized = 0, fullScreen = 0;
    stream >> marker >> major >> minor >> place.frame >> place.normal >> screen >> maximized
        >> fullScreen;
    place.maximized = maximized != 0;
    place.fullScreen = fullScreen != 0;
    return marker == 0x1D9D0CB && major == 3 && stream.status() == QDataStream::Ok;
}

bool onSomeScreen(const QRect& rect)
{
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen->availableGeometry().contains(rect.topLeft()))
            return true;
    }
    return false;
}

} // namespace

void restoreWindowGeometry(QWidget& window, const QByteArray& stored)
{
    if (!window.restoreGeometry(stored))
        return;
    StoredPlace place;
    if (!readStoredPlace(stored, place) || place.maximized || place.fullScreen)
        return;
    // Qt keeps room for a title bar above the client area. Where the stored
    // frame itself was on a screen, its top was visible as it is: the window
    // goes back to the very place it was left, not lower.
    if (onSomeScreen(place.frame) && window.size() == place.normal.size()
        && window.geometry().topLeft() != place.normal.topLeft())
        window.setGeometry(place.normal);
}

} // namespace tarvo::gui
