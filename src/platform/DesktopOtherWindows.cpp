// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopOtherWindows.h"

#include "util/Logging.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>
#include <QTimer>

#include <utility>

namespace {

constexpr int callPatience = 5000;    ///< milliseconds for a call and its answer
constexpr int callerPatience = 5000;  ///< milliseconds until a caller who says nothing is sent away
constexpr int pauseBetweenCalls = 20; ///< milliseconds
constexpr auto heardProperty = "heard";
const QByteArray taken = "taken\n";

QString socketOf(const QString& door)
{
#ifdef Q_OS_WIN
    return QFileInfo(door).fileName(); // the name of a pipe has no folders
#else
    return door;
#endif
}

/// Hands a message to the window behind a door; false if nobody is there or nobody answers in time.
bool deliver(const QString& door, const QByteArray& message, const QDeadlineTimer& patience)
{
    const auto rest = [&patience] { return static_cast<int>(patience.remainingTime()); };
    QLocalSocket socket;
    socket.connectToServer(socketOf(door));
    if (!socket.waitForConnected(rest())) return false;
    socket.write(message);
    while (!socket.canReadLine())
        if (!socket.waitForReadyRead(rest())) return false;
    return socket.readLine() == taken;
}

} // namespace

/// The lock says which process has the door; the socket behind it can be made anew by that one alone.
struct DesktopOtherWindows::Door
{
    explicit Door(WindowDoor own) : door(std::move(own))
    {
        server.setSocketOptions(QLocalServer::UserAccessOption);
    }

    WindowDoor door;
    QLocalServer server;
};

DesktopOtherWindows::DesktopOtherWindows() = default;
DesktopOtherWindows::~DesktopOtherWindows() = default;

WindowDoor DesktopOtherWindows::doorOf(const QString& database)
{
    if (m_folder.isNull()) m_folder = WindowDoor::folder();
    return {m_folder, database};
}

bool DesktopOtherWindows::isOwn(const WindowDoor& door) const
{
    return m_door && m_door->door.name() == door.name();
}

bool DesktopOtherWindows::listen(const QString& database)
{
    WindowDoor wanted = doorOf(database);
    if (isOwn(wanted)) return true;
    const QString name = wanted.name();
    if (name.isEmpty()) {
        m_door.reset();
        return true;
    }
    const bool isTaken = wanted.take();
    if (wanted.isOfAnother()) return false;
    m_door.reset();
    if (!isTaken) return true;
    auto door = std::make_unique<Door>(std::move(wanted));
    QLocalServer::removeServer(socketOf(name));
    if (!door->server.listen(socketOf(name))) {
        qCInfo(startLog).noquote() << "no other start can reach this window:" << door->server.errorString();
        return true;
    }
    connect(&door->server, &QLocalServer::newConnection, this, &DesktopOtherWindows::answer);
    m_door = std::move(door);
    return true;
}

bool DesktopOtherWindows::call(const QString& database, const WindowCall& what)
{
    const WindowDoor wanted = doorOf(database);
    if (wanted.name().isEmpty() || isOwn(wanted)) return false;
    const QDeadlineTimer patience(callPatience);
    const QByteArray message = what.message();
    do {
        WindowDoor door = doorOf(database);
        door.take();
        if (!door.isOfAnother()) return false;
        if (deliver(wanted.name(), message, patience)) return true;
        // the other process may have the lock and not the socket yet
        QThread::msleep(pauseBetweenCalls);
    } while (!patience.hasExpired());
    qCInfo(startLog).noquote() << "the other window does not answer:" << database;
    return false;
}

void DesktopOtherWindows::setReceiver(Receiver receiver)
{
    m_receiver = std::move(receiver);
    if (!m_receiver) return;
    for (const WindowCall& call : std::exchange(m_early, {}))
        m_receiver(call);
}

void DesktopOtherWindows::answer()
{
    while (QLocalSocket* caller = m_door->server.nextPendingConnection()) {
        connect(caller, &QLocalSocket::readyRead, this, [this, caller] { read(*caller); });
        connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
        QTimer::singleShot(callerPatience, caller, &QLocalSocket::abort);
    }
}

void DesktopOtherWindows::read(QLocalSocket& caller)
{
    const QByteArray heard =
        caller.property(heardProperty).toByteArray() + caller.read(WindowCall::longestMessage + 1);
    if (!WindowCall::isBegun(heard)) return caller.abort();
    caller.setProperty(heardProperty, heard);
    if (!WindowCall::isWhole(heard)) return;
    const auto call = WindowCall::fromMessage(heard);
    if (!call) return caller.abort();
    caller.write(taken);
    caller.flush();
    caller.disconnectFromServer();
    receive(*call);
}

void DesktopOtherWindows::receive(const WindowCall& call)
{
    qCInfo(startLog).noquote() << "called by another start:" << call.arguments.join(u' ');
    if (m_receiver) {
        m_receiver(call);
    } else {
        m_early.push_back(call);
    }
}
