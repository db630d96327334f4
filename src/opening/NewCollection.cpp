// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/NewCollection.h"

#include "opening/NewDatabaseFile.h"
#include "opening/OpeningTexts.h"
#include "util/Error.h"
#include "util/FileAccess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <cerrno>

namespace {

/// What some system does not allow in a name; a collection may be carried from one to another.
const QString& forbidden()
{
    static const QString characters = QStringLiteral("/\\:*?\"<>|");
    return characters;
}

/// In bytes: names can have 255, of which the ending of the database and that of its journal take some.
constexpr qsizetype longestName = 230;

void makeFolder(const QString& path)
{
    if (QDir().mkpath(path)) return;
    throw Error(errno, OpeningTexts::tr("The folder cannot be made. (%1)").arg(path));
}

} // namespace

QString NewCollection::folder() const
{
    return QDir::cleanPath(m_place + u'/' + m_name);
}

QString NewCollection::hindrance() const
{
    QString name = nameHindrance();
    if (!name.isEmpty()) return name;
    const QFileInfo place(m_place);
    if (!QDir::isAbsolutePath(m_place) || !place.isDir()) {
        return OpeningTexts::tr("There is no such place: choose a folder that exists.");
    }
    if (isTaken()) return OpeningTexts::tr("This name is taken: the place has a file or folder called so.");
    if (!isWritable(m_place)) return OpeningTexts::tr("Nothing can be written in this place.");
    return {};
}

QString NewCollection::nameHindrance() const
{
    if (m_name.isEmpty()) return OpeningTexts::tr("The collection needs a name.");
    const bool isForbidden = std::any_of(m_name.begin(), m_name.end(), [](QChar c) {
        return forbidden().contains(c) || c.category() == QChar::Other_Control;
    });
    if (isForbidden) {
        return OpeningTexts::tr("A name cannot have any of these characters: %1")
            .arg(QString(forbidden()).split(QString(), Qt::SkipEmptyParts).join(u' '));
    }
    if (m_name.startsWith(u'.') || m_name.endsWith(u'.')) {
        return OpeningTexts::tr("A name cannot begin or end with a period.");
    }
    if (m_name.compare(QStringLiteral("data"), Qt::CaseInsensitive) == 0) {
        return OpeningTexts::tr("This name is the program's own: each collection has a folder called so.");
    }
    return QFile::encodeName(m_name).size() > longestName ? OpeningTexts::tr("This name is too long.")
                                                          : QString();
}

/// Whether the place has an entry of that name in any letter case.
bool NewCollection::isTaken() const
{
    const QStringList entries =
        QDir(m_place).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    return entries.contains(m_name, Qt::CaseInsensitive);
}

QString NewCollection::make(const QString& listsFrom) const
{
    if (const QString reason = hindrance(); !reason.isEmpty()) throw Error(EINVAL, reason);
    // it takes its name last, so that what a killed program leaves behind is not taken for a collection
    const QTemporaryDir unfinished(m_place + QStringLiteral("/.new-XXXXXX"));
    if (!unfinished.isValid()) throw Error(EIO, unfinished.errorString());
    const QString made = unfinished.filePath(m_name);
    const QString database = QStringLiteral("/data/%1.sqlite").arg(m_name);
    for (const char* files : {"/data/documents", "/data/orgcharts"})
        makeFolder(made + QLatin1StringView(files));
    NewDatabaseFile::make(made + database, listsFrom);
    if (!QDir().rename(made, folder())) {
        throw Error(errno, OpeningTexts::tr("The folder cannot be made. (%1)").arg(folder()));
    }
    return folder() + database;
}
