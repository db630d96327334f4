// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/WindowPlace.h"

#include "platform/StdREG.h"

#include <QApplication>
#include <QScreen>
#include <QStringList>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace {

/// In pixels, beyond any screen.
constexpr int farthest = 100000;

QString section()
{
    return QStringLiteral("Window");
}

QString valueName()
{
    return QStringLiteral("Place");
}

/// The room of the screen that shows most of a place, else of the first one.
QRect roomFor(const QRect& place)
{
    const auto shown = [&place](const QScreen* screen) {
        const QRect part = screen->availableGeometry() & place;
        return static_cast<qint64>(part.width()) * part.height();
    };
    const QList<QScreen*> screens = QApplication::screens();
    const auto best =
        std::max_element(screens.begin(), screens.end(),
                         [&shown](const QScreen* a, const QScreen* b) { return shown(a) < shown(b); });
    // what the desktop adds on top of a window has to fit as well
    const int titleBar = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return (*best)->availableGeometry().adjusted(0, titleBar, 0, 0);
}

QRect fitted(QRect place, const QSize& smallest)
{
    const QRect room = roomFor(place);
    place.setSize(place.size().expandedTo(smallest).boundedTo(room.size()));
    place.moveLeft(std::clamp(place.left(), room.left(), room.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), room.top(), room.bottom() + 1 - place.height()));
    return place;
}

} // namespace

bool WindowPlace::restore(QWidget& window, SettingsStore& settings)
{
    const QStringList saved = StdREG(settings).GetRegString(section(), valueName()).split(u' ');
    if (saved.size() < 4) return false;
    const auto number = [&saved](int i) { return std::clamp(saved[i].toInt(), -farthest, farthest); };
    const QRect wanted(number(0), number(1), number(2), number(3));
    if (wanted.isEmpty()) return false;
    window.setGeometry(fitted(wanted, window.minimumSizeHint()));
    if (saved.size() > 4) window.setWindowState(Qt::WindowMaximized);
    return true;
}

void WindowPlace::save(const QWidget& window, SettingsStore& settings)
{
    const bool isMaximized = window.isMaximized();
    // without the frame, whose size is unknown while the window is maximized
    const QRect place = isMaximized ? window.normalGeometry() : window.geometry();
    QString text = QStringLiteral("%1 %2 %3 %4")
                       .arg(place.left())
                       .arg(place.top())
                       .arg(place.width())
                       .arg(place.height());
    if (isMaximized) text += QStringLiteral(" maximized");
    StdREG(settings).WriteRegString(section(), valueName(), text);
}
