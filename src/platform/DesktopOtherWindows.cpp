// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopOtherWindows.h"

#include "util/Logging.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>

#include <utility>

namespace {

constexpr int callPatience = 5000;    ///< milliseconds for a call and its answer
constexpr int callerPatience = 5000;  ///< milliseconds until a caller who says nothing is sent away
constexpr int pauseBetweenCalls = 20; ///< milliseconds
constexpr int shortNameLength = 16;
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

QString lockOf(const QString& door)
{
    return door + QStringLiteral(".lock");
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
    explicit Door(QString door) : name(std::move(door)), lock(lockOf(name))
    {
        lock.setStaleLockTime(0);
        server.setSocketOptions(QLocalServer::UserAccessOption);
    }

    QString name;
    QLockFile lock;
    QLocalServer server;
};

DesktopOtherWindows::DesktopOtherWindows() = default;
DesktopOtherWindows::~DesktopOtherWindows() = default;

/// Where the door of a database is; empty if there is no such file or no place for doors.
QString DesktopOtherWindows::doorOf(const QString& database)
{
    // the user's own folder; asked for once, since Qt warns each time if the session has named none
    if (m_folder.isNull()) m_folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    const QString file = QFileInfo(database).canonicalFilePath();
    if (file.isEmpty() || m_folder.isEmpty()) return {};
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(m_folder.toUtf8() + '\0' + file.toUtf8());
    // the whole of it would make the path longer than a socket's may be
    const QString name =
        QStringLiteral("orvik-database-") + QString::fromLatin1(hash.result().toHex().first(shortNameLength));
    return QDir(m_folder).filePath(name);
}

bool DesktopOtherWindows::listen(const QString& database)
{
    const QString name = doorOf(database);
    if (m_door && m_door->name == name) return true;
    if (name.isEmpty()) {
        m_door.reset();
        return true;
    }
    auto door = std::make_unique<Door>(name);
    if (!door->lock.tryLock(0) && door->lock.error() == QLockFile::LockFailedError) return false;
    m_door.reset();
    if (!door->lock.isLocked()) return true;
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
    const QString name = doorOf(database);
    if (name.isEmpty() || (m_door && m_door->name == name)) return false;
    const QDeadlineTimer patience(callPatience);
    const QByteArray message = what.message();
    do {
        QLockFile lock(lockOf(name));
        lock.setStaleLockTime(0);
        const bool isNobodyThere = lock.tryLock(0) || lock.error() != QLockFile::LockFailedError;
        if (isNobodyThere) return false;
        if (deliver(name, message, patience)) return true;
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
