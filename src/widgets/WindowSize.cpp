// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/WindowSize.h"

#include "platform/StdREG.h"

#include <QScreen>
#include <QStringList>
#include <QWidget>

namespace {

/// Room for the frame that the desktop adds around a window.
constexpr QSize frame(16, 48);

QString section()
{
    return QStringLiteral("Window");
}

} // namespace

void WindowSize::restore(QWidget& dialog, SettingsStore& settings, QSize first)
{
    const QStringList saved = StdREG(settings).GetRegString(section(), dialog.objectName()).split(u' ');
    QSize size = first;
    if (saved.size() == 2) size = QSize(saved[0].toInt(), saved[1].toInt());
    dialog.resize(size.expandedTo(dialog.minimumSizeHint())
                      .boundedTo(dialog.screen()->availableGeometry().size() - frame));
}

void WindowSize::save(const QWidget& dialog, SettingsStore& settings)
{
    StdREG(settings).WriteRegString(section(), dialog.objectName(),
                                    QStringLiteral("%1 %2").arg(dialog.width()).arg(dialog.height()));
}
