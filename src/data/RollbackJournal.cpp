// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/RollbackJournal.h"

#include "data/DataTexts.h"
#include "util/Error.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <sqlite3.h>

#include <array>

namespace {

// a journal that names a file ends in the name, its length, its checksum and these bytes
constexpr std::array<unsigned char, 8> magic{0xd9, 0xd5, 0x05, 0xf9, 0x20, 0xa1, 0x63, 0xd7};
constexpr qint64 tailLength = 16;

} // namespace

QString rollbackJournalOf(const QString& database)
{
    const QString canonical = QFileInfo(database).canonicalFilePath();
    return (canonical.isEmpty() ? database : canonical) + QStringLiteral("-journal");
}

void refuseForeignJournal(const QString& database)
{
    QFile journal(rollbackJournalOf(database));
    if (!journal.open(QIODevice::ReadOnly) || journal.size() < tailLength) return;
    journal.seek(journal.size() - tailLength);
    const QByteArray tail = journal.read(tailLength);
    const QByteArray end(reinterpret_cast<const char*>(magic.data()), magic.size());
    if (!tail.endsWith(end) || qFromBigEndian<quint32>(tail.constData()) == 0) return;
    throw Error(SQLITE_CANTOPEN,
                DataTexts::tr("The journal beside the database belongs to a change of several databases, "
                              "which only the program that began it can finish or undo."));
}
