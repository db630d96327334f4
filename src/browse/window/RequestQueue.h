// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "opening/StartRequest.h"

#include <QObject>

#include <deque>
#include <functional>

class OtherWindows;
class QWidget;
struct WindowCall;

/// What this start of the program and others ask of the window. Another's call brings the window to the front
/// at once; what is asked for waits until nothing else is under way: no dialog or menu is open, and nothing
/// that the user began is still being done. Requests become due in the order in which they came. Lives as
/// long as the window.
class RequestQueue final : public QObject
{
    Q_OBJECT

public:
    /// `isBusy` says whether the window yields in the middle of something. Becomes a child of the window;
    /// `others` must outlive it.
    RequestQueue(QWidget& window, OtherWindows& others, std::function<bool()> isBusy);
    ~RequestQueue() override;

    void add(StartRequest request);

Q_SIGNALS:
    void due(const StartRequest& request);

    /// A request waits for a dialog; the text says so.
    void delayed(const QString& text);

private:
    void receive(const WindowCall& call);
    void tellOfDelay(const StartRequest& request);
    void comeToFront(const QString& activationToken);
    void look();
    void performNext();
    [[nodiscard]] bool isIdle() const;

    QWidget& m_window;
    OtherWindows& m_others;
    std::function<bool()> m_isBusy;
    std::deque<StartRequest> m_requests;
};
