// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/OtherWindows.h"
#include "platform/WindowDoor.h"

#include <QObject>

#include <memory>
#include <vector>

class QLocalSocket;

/// Windows of one user on one machine, which reach each other by a socket for each open database, in the
/// folder that the system keeps for what is running. What a killed process left behind there is replaced.
class DesktopOtherWindows final : public QObject, public OtherWindows
{
    Q_OBJECT

public:
    DesktopOtherWindows();
    ~DesktopOtherWindows() override;

    [[nodiscard]] bool listen(const QString& database) override;
    [[nodiscard]] bool call(const QString& database, const WindowCall& what) override;
    void setReceiver(Receiver receiver) override;

private:
    struct Door;

    [[nodiscard]] WindowDoor doorOf(const QString& database);
    [[nodiscard]] bool isOwn(const WindowDoor& door) const;
    void answer();
    void read(QLocalSocket& caller);
    void receive(const WindowCall& call);

    QString m_folder;             ///< of all doors
    std::unique_ptr<Door> m_door; ///< null without an open database
    Receiver m_receiver;
    std::vector<WindowCall> m_early; ///< calls from before there was a receiver
};
