// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/NewCollection.h"

#include "files/CollectionNames.h"
#include "opening/NewDatabaseFile.h"
#include "opening/OpeningTexts.h"
#include "opening/UnfinishedCollection.h"
#include "util/Error.h"
#include "util/FileAccess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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

/// Whether the name, or the one for the time being, is taken.
bool NewCollection::isTaken() const
{
    return CollectionNames::isTaken(m_place, m_name) ||
           CollectionNames::isTaken(m_place, UnfinishedCollection::workName(m_name));
}

QString NewCollection::make(const QString& listsFrom) const
{
    if (const QString reason = hindrance(); !reason.isEmpty()) throw Error(EINVAL, reason);
    UnfinishedCollection collection(m_place, m_name);
    const QString file = m_name + QStringLiteral(".sqlite");
    NewDatabaseFile::make(collection.dataFolder() + file, listsFrom);
    collection.complete();
    return collection.target() + file;
}
