// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/DatabaseUpgrade.h"

#include "data/DatabaseSession.h"
#include "data/EngineError.h"
#include "data/EngineRules.h"
#include "data/RollbackJournal.h"
#include "data/SchemaVersion.h"
#include "files/DatabaseFile.h"
#include "files/DatabaseLock.h"
#include "files/VersionCopies.h"
#include "opening/NewDatabaseTexts.h"
#include "opening/OpeningTexts.h"
#include "util/FileAccess.h"
#include "util/Logging.h"

#include <QFile>
#include <QFileInfo>

#include <string>
#include <vector>

namespace {

/// A quick look, for nearly every file is up to date. What is wrong with a file shows when it is opened.
bool isUpToDate(const QString& path)
{
    try {
        refuseForeignJournal(path);
        return callEngine([&path] {
            StatementWatch watch;
            SQLite::Database database(QFile::encodeName(path).toStdString(), SQLite::OPEN_READWRITE);
            watch.beginStep();
            addSchemaLimits(database.getHandle(), &watch);
            return SchemaVersion::ageOf(database) != SchemaVersion::Age::Older;
        });
    } catch (const Error&) {
        return false;
    }
}

bool mayBeUpgraded(const QString& file, const QString& folder)
{
    DatabaseSession session;
    session.open(file);
    return session.age() == SchemaVersion::Age::Older && isWritable(file) && isWritable(folder);
}

bool hasObject(SQLite::Database& database, const std::string& name)
{
    SQLite::Statement named(database, "SELECT 1 FROM sqlite_master WHERE name = ? COLLATE NOCASE");
    named.bind(1, name);
    return named.executeStep();
}

/// The statements of the schema that make the journal and its index, as far as the database lacks them.
std::vector<std::string> missingStatements(SQLite::Database& database)
{
    SQLite::Database model(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    model.exec(std::string(NewDatabaseTexts::schema()));
    SQLite::Statement objects(
        model, "SELECT name, sql FROM sqlite_master WHERE tbl_name = 'Journal' ORDER BY rowid");
    std::vector<std::string> statements;
    while (objects.executeStep()) {
        if (!hasObject(database, objects.getColumn(0))) statements.push_back(objects.getColumn(1));
    }
    return statements;
}

void addJournal(SQLite::Database& database)
{
    for (const std::string& statement : missingStatements(database))
        database.exec(statement);
    database.exec("PRAGMA user_version = " + std::to_string(SchemaVersion::current));
}

/// Removes a file unless it is kept.
class Removed
{
public:
    explicit Removed(QString file) : m_file(std::move(file)) {}
    ~Removed()
    {
        if (!m_file.isEmpty()) QFile::remove(m_file);
    }
    Removed(const Removed&) = delete;
    Removed& operator=(const Removed&) = delete;

    void keep() { m_file.clear(); }

private:
    QString m_file;
};

/// The copy is made while nobody else can write to the file, so that it holds just what is upgraded.
void upgrade(const QString& file)
{
    DatabaseLock lock(file);
    SQLite::Database& database = lock.database();
    // another start of the program may have been quicker
    if (SchemaVersion::ageOf(database) != SchemaVersion::Age::Older) return;
    if (hasObject(database, "Journal") && !SchemaVersion::hasJournal(database)) {
        throw Error(SQLITE_ERROR,
                    OpeningTexts::tr("It has a table or query named Journal, which is not the program's."));
    }
    const QString path = VersionCopies::freePath(file, SchemaVersion::numberOf(database));
    copyDatabase(file, path);
    Removed copy(path);
    QFile::setPermissions(path, QFile::permissions(file));
    addJournal(database);
    lock.commit();
    copy.keep();
    qCInfo(startLog).noquote() << "brought up to date:" << file << "after a copy:" << path;
}

} // namespace

std::optional<Error> DatabaseUpgrade::bringUpToDate(const QString& file)
{
    // what stands beside a database stands beside the file itself, not beside a link to it
    const QString path = QFileInfo(file).canonicalFilePath();
    if (path.isEmpty() || isUpToDate(path) || !mayBeUpgraded(file, QFileInfo(path).path()))
        return std::nullopt;
    try {
        callEngine([&path] { upgrade(path); });
    } catch (const Error& error) {
        QString description = error.description();
        description.replace(path, file);
        if (!description.contains(file)) description += QStringLiteral(" (%1)").arg(file);
        const Error hindrance(error.number(), description);
        if (error.isOfLock()) throw hindrance;
        return hindrance;
    }
    return std::nullopt;
}
