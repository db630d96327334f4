// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/frmSplash.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QScreen>
#include <QTimer>

namespace {

constexpr QSize splashSize(420, 180);
constexpr int pictureSize = 96;
constexpr int margin = 32;
constexpr int longestWaitMilliseconds = 500;

} // namespace

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmSplash"));
    setAccessibleName(tr("Orvik Database is starting"));
    setFixedSize(splashSize);
    move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
}

void frmSplash::showAtOnce()
{
    QEventLoop untilPainted;
    // queued, since the picture is on the screen only after the paint event is over
    connect(this, &frmSplash::painted, &untilPainted, &QEventLoop::quit, Qt::QueuedConnection);
    QTimer::singleShot(longestWaitMilliseconds, &untilPainted, &QEventLoop::quit);
    show();
    untilPainted.exec(QEventLoop::ExcludeUserInputEvents);
}

void frmSplash::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(0x1f, 0x4e, 0x79));
    QIcon(QStringLiteral(":/pictures/orvik-database.svg"))
        .paint(&painter, margin, (height() - pictureSize) / 2, pictureSize, pictureSize);
    QRect text = rect().adjusted(margin * 2 + pictureSize, 0, -margin, 0);
    painter.setPen(Qt::white);
    QFont font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 1.8);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(text.adjusted(0, 0, 0, -margin / 2), Qt::AlignVCenter | Qt::AlignLeft,
                     tr("Orvik Database"));
    painter.setFont(this->font());
    painter.drawText(text.adjusted(0, margin, 0, margin), Qt::AlignVCenter | Qt::AlignLeft,
                     tr("Version %1").arg(QCoreApplication::applicationVersion()));
    Q_EMIT painted();
}
