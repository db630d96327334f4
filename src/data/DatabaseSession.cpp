// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/DatabaseSession.h"

#include "data/CatalogReader.h"
#include "data/DataTexts.h"
#include "data/EngineError.h"
#include "data/RollbackJournal.h"
#include "data/StatementShape.h"
#include "data/StatementTranslator.h"
#include "util/Error.h"
#include "util/FileAccess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace {

constexpr int lockPatienceMilliseconds = 1000;
constexpr auto dataVersionStatement = "PRAGMA data_version";
constexpr auto fileVersionStatement = "PRAGMA user_version";

/// Grants an access for as long as it lives.
class AccessGranted
{
public:
    AccessGranted(Access& access, Access granted) : m_access(access) { m_access = granted; }
    ~AccessGranted() { m_access = Access::Read; }
    AccessGranted(const AccessGranted&) = delete;
    AccessGranted& operator=(const AccessGranted&) = delete;

private:
    Access& m_access;
};

/// A file in write-ahead mode can be neither moved nor copied by hand without losing changes. It stays in
/// that mode while another program has it open; what is written is safe in either.
void setRollbackJournal(SQLite::Database& database)
{
    if (sqlite3_db_readonly(database.getHandle(), "main") == 1) return;
    sqlite3_exec(database.getHandle(), "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
}

/// A path that SQLite cannot take for anything else, such as `:memory:` or `file:`.
QString absolutePath(const QString& file)
{
    // to Qt, a path that begins with a colon names a resource of the program
    if (file.startsWith(u':')) return QDir::currentPath() + u'/' + file;
    return QDir::current().absoluteFilePath(file);
}

QString newerText(const QString& file)
{
    return DataTexts::tr("The database was made by a newer version of the program: it can be read, but not "
                         "changed. (%1)")
        .arg(file);
}

} // namespace

DatabaseSession::DatabaseSession() = default;
DatabaseSession::~DatabaseSession() = default;

/// Opens a file in SQLite, with bounds for what reading its schema may cost.
std::shared_ptr<SQLite::Database> DatabaseSession::connect(const QString& path, Access access)
{
    auto opened = callEngine([&path, access] {
        const int mode = access == Access::Read ? SQLite::OPEN_READONLY : SQLite::OPEN_READWRITE;
        // one thread works with the file, so SQLite needs no locks of its own
        return std::make_shared<SQLite::Database>(QFile::encodeName(path).toStdString(),
                                                  mode | SQLite::OPEN_NOMUTEX, lockPatienceMilliseconds);
    });
    m_watch.beginStep();
    addSchemaLimits(opened->getHandle(), &m_watch);
    callEngine([&opened] {
        opened->exec("PRAGMA synchronous = FULL; PRAGMA cell_size_check = ON; PRAGMA cache_size = -16000");
    });
    return opened;
}

void DatabaseSession::open(const QString& file, Access access)
{
    try {
        const QString path = absolutePath(file);
        refuseForeignJournal(path);
        auto opened = connect(path, access);
        // this is also the first look into the file
        Catalog catalog = readCatalog(*opened);
        const auto age = callEngine([&opened] { return SchemaVersion::ageOf(*opened); });
        if (age != SchemaVersion::Age::Current) opened = connect(path, Access::Read);
        setRollbackJournal(*opened);
        const auto numberOf = [&opened](const char* statement) {
            return callEngine([&] { return opened->execAndGet(statement).getInt64(); });
        };
        const qint64 dataVersion = numberOf(dataVersionStatement);
        const qint64 fileVersion = numberOf(fileVersionStatement);
        const bool keepsJournal = callEngine([&opened] { return SchemaVersion::hasJournal(*opened); });
        addLimits(opened->getHandle());
        addTextRules(opened->getHandle());
        addAuthorizer(opened->getHandle(), &m_access);
        addWatch(opened->getHandle(), &m_watch);
        m_database = std::move(opened);
        m_catalog = std::move(catalog);
        m_prepared = std::make_shared<PreparedStatements>();
        m_heldPrepared.clear();
        m_fileName = file;
        m_dataVersion = dataVersion;
        m_fileVersion = fileVersion;
        m_opened = access;
        m_age = age;
        m_keepsJournal = keepsJournal;
    } catch (const Error& error) {
        throw Error(error.number(), QStringLiteral("%1 (%2)").arg(error.description(), file));
    }
}

void DatabaseSession::close()
{
    m_prepared.reset();
    m_heldPrepared.clear();
    m_database.reset();
    m_catalog = {};
    m_fileName.clear();
}

const std::shared_ptr<SQLite::Database>& DatabaseSession::database() const
{
    if (!m_database) throw Error(SQLITE_MISUSE, DataTexts::tr("No database is open."));
    return m_database;
}

bool DatabaseSession::isReadOnly() const
{
    return m_database && (hasReadOnlyFile() || !isWritable(folder()));
}

void DatabaseSession::requireWritable() const
{
    if (!isReadOnly()) return;
    throw Error(SQLITE_READONLY, hindrance());
}

/// Throws Error if another version of the program has taken the file over since it was opened.
void DatabaseSession::requireSameVersion()
{
    if (setting(fileVersionStatement) != m_fileVersion) throw Error(SQLITE_READONLY, newerText(m_fileName));
}

/// Why the open file can be read but not changed.
QString DatabaseSession::hindrance() const
{
    if (!QFileInfo::exists(m_fileName))
        return DataTexts::tr("The database was moved or deleted while it was open. (%1)").arg(m_fileName);
    if (m_age == SchemaVersion::Age::Newer) return newerText(m_fileName);
    const bool isOlder = m_age == SchemaVersion::Age::Older;
    if (isOlder && m_opened != Access::Read && isWritable(m_fileName) && isWritable(folder())) {
        return DataTexts::tr("The database was made by an earlier version of the program and was not brought "
                             "up to date: it can be read, but not changed. (%1)")
            .arg(m_fileName);
    }
    const bool isOfFile = isOlder ? m_opened == Access::Read || !isWritable(m_fileName) : hasReadOnlyFile();
    return isOfFile
               ? DataTexts::tr("The database can be read, but not changed. (%1)").arg(m_fileName)
               : DataTexts::tr("The database can be read, but not changed: its folder is read-only. (%1)")
                     .arg(folder());
}

bool DatabaseSession::wasChangedOutside()
{
    int hasMoved = 0;
    sqlite3_file_control(database()->getHandle(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    // programs that keep folders of two machines the same put a new file in place of the old one
    if (hasMoved != 0 && QFileInfo(m_fileName).isFile()) {
        open(m_fileName, m_opened);
        return true;
    }
    const qint64 before = std::exchange(m_dataVersion, setting(dataVersionStatement));
    if (m_dataVersion == before) return false;
    // a newer version of the program may have brought the file up to its own
    if (setting(fileVersionStatement) != m_fileVersion) open(m_fileName, m_opened);
    return true;
}

qint64 DatabaseSession::setting(const char* statement)
{
    EngineStatement asked = prepare(QString::fromLatin1(statement), Access::Read);
    asked.step();
    return asked.integer(0);
}

bool DatabaseSession::hasReadOnlyFile() const
{
    return sqlite3_db_readonly(m_database->getHandle(), "main") == 1;
}

bool DatabaseSession::isInTransaction() const
{
    return m_database && sqlite3_get_autocommit(m_database->getHandle()) == 0;
}

QString DatabaseSession::folder() const
{
    // SQLite has followed symbolic links
    return QFileInfo(QFile::decodeName(sqlite3_db_filename(m_database->getHandle(), "main"))).path();
}

RecordSet DatabaseSession::read(const QString& statement)
{
    database();
    auto log = StatementLog::begin(statement);
    auto prepared = prepareToRead(statement);
    if (log) log->setPrepared(prepared->statement.expandedSql());
    return {std::move(prepared), m_watch, std::move(log)};
}

PreparedStatements::Loan DatabaseSession::prepareToRead(const QString& statement)
{
    const auto shape = shapeOf(statement);
    if (!shape) return prepareOnce(StatementTranslator(m_catalog).select(statement).sql);
    auto prepared = PreparedStatements::take(m_prepared, shape->text);
    if (!prepared) {
        const QString sql = StatementTranslator(m_catalog).select(statement, shape->dates).sql;
        prepared = PreparedStatements::lend(m_prepared, shape->text,
                                            PreparedStatement(prepare(sql, Access::Read), m_catalog));
    }
    for (int i = 0; i < shape->dates.size(); ++i)
        prepared->statement.bind(i + 1, shape->dates[i]);
    return prepared;
}

/// Prepares a statement of SQLite that is not kept.
PreparedStatements::Loan DatabaseSession::prepareOnce(const QString& engineStatement)
{
    return PreparedStatements::lend({}, {},
                                    PreparedStatement(prepare(engineStatement, Access::Read), m_catalog));
}

/// Prepares a statement of SQLite with values for its `?`, or takes one that was prepared for the same
/// access.
PreparedStatements::Loan DatabaseSession::prepareHeld(const QString& engineStatement, Access access)
{
    database();
    auto& owner = m_heldPrepared[access];
    if (!owner) owner = std::make_shared<PreparedStatements>();
    auto prepared = PreparedStatements::take(owner, engineStatement);
    m_watch.beginStep();
    if (prepared) return prepared;
    return PreparedStatements::lend(owner, engineStatement,
                                    PreparedStatement(prepare(engineStatement, access), m_catalog));
}

RecordSet DatabaseSession::readOnce(const QString& engineStatement, const QString& built)
{
    auto log = StatementLog::begin(built);
    auto prepared = prepareOnce(engineStatement);
    if (log) log->setPrepared(prepared->statement.expandedSql());
    return {std::move(prepared), m_watch, std::move(log)};
}

RecordTable DatabaseSession::readAll(const QString& statement)
{
    return RecordTable(read(statement));
}

EditableRecordSet DatabaseSession::edit(const QString& statement)
{
    database();
    const TranslatedStatement translated = StatementTranslator(m_catalog).selectForEditing(statement);
    return {*this, translated.table, readOnce(translated.sql, statement)};
}

int DatabaseSession::execute(const QString& statement)
{
    database();
    EngineStatement prepared = prepare(StatementTranslator(m_catalog).change(statement).sql, writeAccess());
    run(prepared, statement);
    return database()->getChanges();
}

EngineStatement DatabaseSession::prepare(const QString& engineStatement, Access access)
{
    const AccessGranted granted(m_access, access);
    m_watch.beginStep();
    EngineStatement prepared(database(), engineStatement.toStdString());
    if (access == Access::Read && !prepared.isReadOnly()) {
        throw Error(SQLITE_AUTH, DataTexts::tr("A statement that reads cannot change anything."));
    }
    return prepared;
}

void DatabaseSession::runInEngine(const QString& engineStatement)
{
    EngineStatement prepared = prepare(engineStatement, writeAccess());
    run(prepared);
}

void DatabaseSession::run(EngineStatement& statement, const QString& built)
{
    // granted here too: SQLite prepares a statement once more if the schema has changed meanwhile
    const AccessGranted granted(m_access, writeAccess());
    const auto log = StatementLog::begin(built);
    if (log) log->setPrepared(statement.expandedSql());
    m_watch.beginStep();
    if (log) log->beginStep();
    const bool hasRow = statement.step();
    if (log) log->endStep(hasRow);
}

Transaction::Transaction(DatabaseSession& session) : m_session(session)
{
    m_session.runInEngine(QStringLiteral("BEGIN IMMEDIATE"));
    try {
        m_session.requireSameVersion();
    } catch (const Error&) {
        rollBack();
        throw;
    }
}

Transaction::~Transaction()
{
    if (!m_open) return;
    try {
        commit();
    } catch (const Error&) {
        // the error that led here is the one the user sees; the file is as it was
    }
}

void Transaction::commit()
{
    m_open = false;
    try {
        m_session.runInEngine(QStringLiteral("COMMIT"));
    } catch (const Error&) {
        if (isCommitted(sqlite3_extended_errcode(m_session.database()->getHandle()))) return;
        rollBack();
        throw;
    }
}

void Transaction::rollBack()
{
    m_open = false;
    try {
        m_session.runInEngine(QStringLiteral("ROLLBACK"));
    } catch (const Error&) {
        // SQLite has rolled back by itself
    }
}
