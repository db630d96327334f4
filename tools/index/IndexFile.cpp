// SPDX-License-Identifier: GPL-3.0-or-later

#include "IndexFile.h"

#include "filetext/FileTextIndex.h"

#include <QFile>
#include <QFileInfo>

#include <string>

namespace {

constexpr int patience = 30'000; ///< milliseconds, if another process writes the same index

int versionOf(SQLite::Database& database)
{
    return database.execAndGet("PRAGMA user_version").getInt();
}

SQLite::Database openedAt(const QString& path)
{
    // a link may lead to what is no index
    if (QFileInfo(path).isSymLink()) QFile::remove(path);
    const int mode = SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE;
    SQLite::Database database(QFile::encodeName(path).toStdString(), mode, patience);
    const int found = versionOf(database);
    if (found == FileTextIndex::version) return database;
    const bool isNew = database.execAndGet("SELECT count(*) FROM sqlite_master").getInt() == 0;
    if (isNew) return database;
    IndexFile::remove(path);
    return SQLite::Database(QFile::encodeName(path).toStdString(), mode, patience);
}

void bindOptional(SQLite::Statement& statement, int index, const std::optional<qint64>& value)
{
    if (value) statement.bind(index, static_cast<int64_t>(*value));
}

std::optional<qint64> optionalOf(const SQLite::Column& column)
{
    if (column.isNull()) return std::nullopt;
    return column.getInt64();
}

} // namespace

IndexFile::IndexFile(const QString& path) : m_database(openedAt(path))
{
    // readers are shut out only while changes are brought to the disk
    m_database.exec("PRAGMA cache_spill = OFF");
    m_database.exec("PRAGMA synchronous = NORMAL");
    if (versionOf(m_database) == FileTextIndex::version) return;
    SQLite::Transaction transaction(m_database, SQLite::TransactionBehavior::IMMEDIATE);
    if (versionOf(m_database) != FileTextIndex::version) {
        m_database.exec(FileTextIndex::tables);
        m_database.exec("PRAGMA user_version = " + std::to_string(FileTextIndex::version));
    }
    transaction.commit();
}

void IndexFile::remove(const QString& path)
{
    QFile::remove(path);
    QFile::remove(path + QStringLiteral("-journal"));
}

QHash<QString, IndexedFile> IndexFile::files()
{
    QHash<QString, IndexedFile> files;
    SQLite::Statement rows(m_database, "SELECT Name, Size, Changed, Hash, Failure FROM File");
    while (rows.executeStep()) {
        const SQLite::Column hash = rows.getColumn(3);
        IndexedFile& file = files[QString::fromUtf8(rows.getColumn(0).getText())];
        file.size = optionalOf(rows.getColumn(1));
        file.changed = optionalOf(rows.getColumn(2));
        file.hash = QByteArray(static_cast<const char*>(hash.getBlob()), hash.getBytes());
        file.failure = QString::fromUtf8(rows.getColumn(4).getText());
    }
    return files;
}

void IndexFile::note(const QString& name, const IndexedFile& file)
{
    change();
    SQLite::Statement row(
        m_database, "INSERT INTO File (Name, Size, Changed, Hash, Failure) VALUES (?, ?, ?, ?, ?) "
                    "ON CONFLICT (Name) DO UPDATE SET Size = excluded.Size, Changed = excluded.Changed, "
                    "Hash = excluded.Hash, Failure = excluded.Failure");
    row.bind(1, name.toStdString());
    bindOptional(row, 2, file.size);
    bindOptional(row, 3, file.changed);
    if (!file.hash.isEmpty()) row.bind(4, file.hash.constData(), static_cast<int>(file.hash.size()));
    if (!file.failure.isEmpty()) row.bind(5, file.failure.toStdString());
    row.exec();
}

void IndexFile::store(const QString& name, const IndexedFile& file, const QString& text)
{
    change();
    note(name, file);
    const qint64 key = keyOf(name).value();
    SQLite::Statement removal(m_database, "DELETE FROM FileText WHERE rowid = ?");
    removal.bind(1, static_cast<int64_t>(key));
    removal.exec();
    if (!file.failure.isEmpty()) return;
    SQLite::Statement row(m_database, "INSERT INTO FileText (rowid, Text) VALUES (?, ?)");
    row.bind(1, static_cast<int64_t>(key));
    row.bind(2, text.toStdString());
    row.exec();
}

void IndexFile::forget(const QString& name)
{
    const auto key = keyOf(name);
    if (!key) return;
    change();
    for (const char* statement :
         {"DELETE FROM FileText WHERE rowid = ?", "DELETE FROM File WHERE FileID = ?"}) {
        SQLite::Statement removal(m_database, statement);
        removal.bind(1, static_cast<int64_t>(*key));
        removal.exec();
    }
}

void IndexFile::keep()
{
    if (m_transaction == nullptr) return;
    m_transaction->commit();
    m_transaction.reset();
}

void IndexFile::change()
{
    if (m_transaction != nullptr) return;
    m_transaction = std::make_unique<SQLite::Transaction>(m_database, SQLite::TransactionBehavior::IMMEDIATE);
}

std::optional<qint64> IndexFile::keyOf(const QString& name)
{
    SQLite::Statement row(m_database, "SELECT FileID FROM File WHERE Name = ?");
    row.bind(1, name.toStdString());
    if (!row.executeStep()) return std::nullopt;
    return row.getColumn(0).getInt64();
}
