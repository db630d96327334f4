// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/IniSettingsStore.h"

#include "platform/PlatformTexts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QMap>
#include <QVariant>

#include <algorithm>
#include <cstdio>
#include <optional>

namespace {

#ifdef Q_OS_WIN
constexpr auto format = QSettings::NativeFormat;
#else
constexpr auto format = QSettings::IniFormat;

constexpr int lockPatienceMilliseconds = 1000;

using Values = QMap<QString, QVariant>;

/// Whether the text of a file of settings sets any.
bool holdsValues(const QByteArray& text)
{
    const QList<QByteArray> lines = text.split('\n');
    return std::any_of(lines.begin(), lines.end(), [](const QByteArray& line) {
        return line.contains('=') && !line.trimmed().startsWith(';');
    });
}

/// All that a file holds; std::nullopt if it cannot be read.
std::optional<Values> valuesIn(const QString& file)
{
    // to Qt, a file of which the system tells nothing holds nothing
    QFile content(file);
    if (!content.open(QIODevice::ReadOnly) && QFile::exists(file)) return std::nullopt;
    const bool isEmpty = !content.isOpen() || !holdsValues(content.readAll());
    if (content.error() != QFileDevice::NoError && content.isOpen()) return std::nullopt;
    const QSettings settings(file, format);
    Values values;
    for (const QString& key : settings.allKeys())
        values.insert(key, settings.value(key));
    // what Qt does not understand it has always left out
    if (settings.status() == QSettings::AccessError || (values.isEmpty() && !isEmpty)) return std::nullopt;
    return values;
}
#endif

} // namespace

IniSettingsStore::IniSettingsStore()
    : m_settings(format, QSettings::UserScope, QStringLiteral("Orvik"), QStringLiteral("Orvik Database"))
{
}

QString IniSettingsStore::value(const QString& path) const
{
    const auto unwritten = m_unwritten.constFind(path);
    if (unwritten != m_unwritten.constEnd()) return *unwritten;
    // another window, a process of its own, may have written meanwhile
    m_settings.sync();
    return m_settings.value(path).toString();
}

void IniSettingsStore::setValue(const QString& path, const QString& value)
{
    m_unwritten.insert(path, value);
    if (write(m_unwritten)) m_unwritten.clear();
    m_settings.sync();
}

QString IniSettingsStore::hindrance() const
{
    if (m_unwritten.isEmpty()) return {};
    return PlatformTexts::tr("The settings cannot be written. (%1)").arg(m_settings.fileName());
}

#ifdef Q_OS_WIN

bool IniSettingsStore::write(const QMap<QString, QString>& changes)
{
    for (auto each = changes.constBegin(); each != changes.constEnd(); ++each)
        m_settings.setValue(each.key(), each.value());
    m_settings.sync();
    return m_settings.status() == QSettings::NoError;
}

#else

/// Writes the settings anew under another name, and gives them theirs once they can be read there: if the
/// system cannot take them, Qt would put what it took in place of the old ones.
bool IniSettingsStore::write(const QMap<QString, QString>& changes)
{
    const QString canonical = QFileInfo(m_settings.fileName()).canonicalFilePath(); // the file may be a link
    const QString file = canonical.isEmpty() ? m_settings.fileName() : canonical;
    if (!QDir().mkpath(QFileInfo(file).path())) return false;
    QLockFile lock(file + QStringLiteral(".lock"));
    if (!lock.tryLock(lockPatienceMilliseconds)) return false;
    std::optional<Values> values = valuesIn(file);
    if (!values) return false;
    for (auto each = changes.constBegin(); each != changes.constEnd(); ++each)
        values->insert(each.key(), each.value());

    const QString written = file + QStringLiteral(".new");
    // Qt remembers what it wrote under a name, and would not look
    const QString readAgain = QStringLiteral("%1.%2.part").arg(file).arg(++m_writes);
    QFile::remove(written);
    {
        QSettings settings(written, format);
        for (auto each = values->constBegin(); each != values->constEnd(); ++each)
            settings.setValue(each.key(), each.value());
    }
    QFile::remove(readAgain);
    const bool isWhole =
        QFile::rename(written, readAgain) && valuesIn(readAgain) == values && replace(file, readAgain);
    QFile::remove(written);
    if (!isWhole) QFile::remove(readAgain);
    return isWhole;
}

/// Qt tells a file that was changed by its time, which is never the same twice, however quick the machine is.
bool IniSettingsStore::replace(const QString& file, const QString& by)
{
    if (QFile::exists(file)) QFile::setPermissions(by, QFile::permissions(file));
    m_written = std::max(m_written.addMSecs(1), QDateTime::currentDateTimeUtc());
    QFile content(by);
    if (content.open(QIODevice::ReadWrite)) content.setFileTime(m_written, QFileDevice::FileModificationTime);
    content.close();
    return std::rename(QFile::encodeName(by).constData(), QFile::encodeName(file).constData()) == 0;
}

#endif
