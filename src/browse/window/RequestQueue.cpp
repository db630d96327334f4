// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/RequestQueue.h"

#include "platform/OtherWindows.h"
#include "util/ReadableLine.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QThread>
#include <QTimer>
#include <QWidget>

RequestQueue::RequestQueue(QWidget& window, OtherWindows& others, std::function<bool()> isBusy)
    : QObject(&window), m_window(window), m_others(others), m_isBusy(std::move(isBusy))
{
    // a loop that only yields to the window in the middle of something never blocks
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &RequestQueue::look);
    m_others.setReceiver([this](const WindowCall& call) { receive(call); });
}

RequestQueue::~RequestQueue()
{
    m_others.setReceiver({});
}

void RequestQueue::add(StartRequest request)
{
    m_requests.push_back(std::move(request));
}

void RequestQueue::receive(const WindowCall& call)
{
    const CommandLine line = CommandLine::read(call.arguments, {});
    if (!line.request) return;
    if (QApplication::activeModalWidget() != nullptr) tellOfDelay(*line.request);
    if (m_window.isVisible()) comeToFront(call.activationToken);
    add(*line.request);
}

void RequestQueue::tellOfDelay(const StartRequest& request)
{
    if (!request.keywords.isEmpty()) {
        Q_EMIT delayed(tr("The search for \"%1\" begins when the dialog is closed.")
                           .arg(readableLine(request.keywords)));
    } else if (request.record) {
        Q_EMIT delayed(tr("The record asked for is shown when the dialog is closed."));
    }
}

void RequestQueue::comeToFront(const QString& activationToken)
{
    // a desktop with such tokens gets it from Qt, which looks for it here when it activates a window
    if (!activationToken.isEmpty() && QGuiApplication::platformName() == QStringLiteral("wayland")) {
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    }
    if (m_window.isMinimized()) m_window.setWindowState(m_window.windowState() & ~Qt::WindowMinimized);
    for (QWidget* window : {&m_window, QApplication::activeModalWidget()}) {
        if (window == nullptr) continue;
        window->raise();
        window->activateWindow();
    }
}

void RequestQueue::look()
{
    if (!m_requests.empty() && isIdle()) QTimer::singleShot(0, this, &RequestQueue::performNext);
}

void RequestQueue::performNext()
{
    // an event that came first may have begun something
    if (m_requests.empty() || !isIdle()) return;
    const StartRequest request = m_requests.front();
    m_requests.pop_front();
    Q_EMIT due(request);
}

bool RequestQueue::isIdle() const
{
    return m_window.isVisible() && QThread::currentThread()->loopLevel() <= 1 &&
           QApplication::activeModalWidget() == nullptr && QApplication::activePopupWidget() == nullptr &&
           !m_isBusy();
}
