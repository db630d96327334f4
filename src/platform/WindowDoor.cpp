// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/WindowDoor.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

constexpr int shortNameLength = 16;

} // namespace

QString WindowDoor::folder()
{
#ifdef Q_OS_UNIX
    // a timer's job has no session to name the folder, but the windows of its user have
    QString usual = QStringLiteral("/run/user/%1").arg(::getuid());
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR") && QFileInfo(usual).isWritable()) return usual;
#endif
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

WindowDoor::WindowDoor(const QString& folder, const QString& database)
{
    const QString file = QFileInfo(database).canonicalFilePath();
    if (file.isEmpty() || folder.isEmpty()) return;
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(folder.toUtf8() + '\0' + file.toUtf8());
    // the whole of it would make the path longer than a socket's may be
    const QString name =
        QStringLiteral("orvik-database-") + QString::fromLatin1(hash.result().toHex().first(shortNameLength));
    m_name = QDir(folder).filePath(name);
    m_lock = std::make_unique<QLockFile>(m_name + QStringLiteral(".lock"));
    m_lock->setStaleLockTime(0);
}

bool WindowDoor::take()
{
    if (!m_lock) return false;
    const bool isTaken = m_lock->tryLock(0);
    m_isOfAnother = !isTaken && m_lock->error() == QLockFile::LockFailedError;
    return isTaken;
}
