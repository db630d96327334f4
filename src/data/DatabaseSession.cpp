#include "data/DatabaseSession.h"

#include "data/EngineError.h"
#include "data/StatementShape.h"
#include "data/StatementTranslator.h"
#include "util/Error.h"

#include <QDir>
#include <QFile>

#include <array>

namespace {

constexpr int lockPatienceMilliseconds = 1000;

constexpr std::array expectedTables{u"Document",
                                    u"Event",
                                    u"Organization",
                                    u"OrganizationProfile",
                                    u"DocumentEvents",
                                    u"OrganizationEvents",
                                    u"EventFunctions",
                                    u"DocumentTypes",
                                    u"DocumentCategories",
                                    u"DocumentVenues",
                                    u"EventVenues",
                                    u"OrganizationVenues",
                                    u"OrganizationProfileJurisdictions",
                                    u"OrganizationProfilePopulations",
                                    u"DocumentType",
                                    u"DocumentCategory",
                                    u"Function",
                                    u"Venue",
                                    u"FileTypes",
                                    u"OrganizationTypes",
                                    u"OrganizationSubTypes",
                                    u"JurisdictionTypes",
                                    u"PopulationTypes",
                                    u"States",
                                    u"CityLocations",
                                    u"Document_HIST",
                                    u"Event_HIST",
                                    u"Organization_HIST"};
constexpr std::array expectedQueries{u"Q_Document", u"Q_Event", u"Q_Organization"};

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

QString textOf(const SQLite::Statement& statement, int column)
{
    return QString::fromUtf8(statement.getColumn(column).getText());
}

void readTables(SQLite::Database& database, Catalog& catalog)
{
    SQLite::Statement columns(database, "SELECT m.name, p.name, p.type, p.pk FROM sqlite_master AS m "
                                        "JOIN pragma_table_info(m.name) AS p WHERE m.type = 'table' "
                                        "AND m.name NOT LIKE 'sqlite^_%' ESCAPE '^' ORDER BY m.name, p.cid");
    CatalogTable table;
    int keyParts = 0;
    const auto finish = [&] {
        if (keyParts != 1) table.keyColumn.clear();
        if (!table.name.isEmpty()) catalog.addTable(table);
        table = {};
        keyParts = 0;
    };
    while (columns.executeStep()) {
        const QString name = textOf(columns, 0);
        if (name != table.name) {
            finish();
            table.name = name;
        }
        const QString column = textOf(columns, 1);
        const QString type = textOf(columns, 2);
        table.columns.push_back({column, Catalog::formOfDeclaredType(type)});
        if (columns.getColumn(3).getInt() == 0) continue;
        ++keyParts;
        if (type.compare(u"INTEGER", Qt::CaseInsensitive) == 0) table.keyColumn = column;
    }
    finish();
}

void readStoredQueries(SQLite::Database& database, Catalog& catalog)
{
    const auto keyOfTable = [&catalog](const QString& name) {
        const CatalogTable* table = catalog.findTable(name);
        return table == nullptr ? QString() : table->keyColumn;
    };
    SQLite::Statement views(database, "SELECT name, sql FROM sqlite_master WHERE type = 'view'");
    while (views.executeStep()) {
        for (const QStringView expected : expectedQueries) {
            if (textOf(views, 0).compare(expected, Qt::CaseInsensitive) != 0) continue;
            catalog.addStoredQuery(StoredQuery::parse(textOf(views, 1), keyOfTable));
        }
    }
}

void readIndexes(SQLite::Database& database, Catalog& catalog)
{
    SQLite::Statement indexes(database, "SELECT name FROM sqlite_master WHERE type = 'index'");
    while (indexes.executeStep())
        catalog.addIndex(textOf(indexes, 0));
}

Catalog readCatalog(SQLite::Database& database)
{
    Catalog catalog;
    readTables(database, catalog);
    readStoredQueries(database, catalog);
    readIndexes(database, catalog);
    const auto require = [](bool found, QStringView name) {
        if (found) return;
        throw Error(SQLITE_ERROR, QStringLiteral("This is no Orvik database: it has no %1").arg(name));
    };
    for (const QStringView table : expectedTables)
        require(catalog.findTable(table) != nullptr, table);
    for (const QStringView query : expectedQueries)
        require(catalog.findStoredQuery(query) != nullptr, query);
    return catalog;
}

/// A path that the engine can take for nothing else, as it does with `:memory:` and `file:`.
QString absolutePath(const QString& file)
{
    // to Qt, a colon begins the name of something inside the program
    if (file.startsWith(u':')) return QDir::currentPath() + u'/' + file;
    return QDir::current().absoluteFilePath(file);
}

} // namespace

DatabaseSession::DatabaseSession() = default;
DatabaseSession::~DatabaseSession() = default;

void DatabaseSession::open(const QString& file)
{
    try {
        auto opened = callEngine([&file] {
            // one thread works with the file, so the engine needs no locks of its own
            return std::make_shared<SQLite::Database>(QFile::encodeName(absolutePath(file)).toStdString(),
                                                      SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX,
                                                      lockPatienceMilliseconds);
        });
        addLimits(opened->getHandle());
        Catalog catalog = callEngine([&opened] {
            // the first of these is also the first look into the file
            opened->exec(
                "PRAGMA synchronous = FULL; PRAGMA cell_size_check = ON; PRAGMA cache_size = -16000");
            return readCatalog(*opened);
        });
        addTextRules(opened->getHandle());
        addAuthorizer(opened->getHandle(), &m_access);
        addWatch(opened->getHandle(), &m_watch);
        m_database = std::move(opened);
        m_catalog = std::move(catalog);
        m_prepared = std::make_shared<PreparedStatements>();
        m_fileName = file;
    } catch (const Error& error) {
        throw Error(error.number(), QStringLiteral("%1 (%2)").arg(error.description(), file));
    }
}

void DatabaseSession::close()
{
    m_prepared.reset();
    m_database.reset();
    m_catalog = {};
    m_fileName.clear();
}

const std::shared_ptr<SQLite::Database>& DatabaseSession::database() const
{
    if (!m_database) throw Error(SQLITE_MISUSE, QStringLiteral("No database is open."));
    return m_database;
}

bool DatabaseSession::isReadOnly() const
{
    return m_database && sqlite3_db_readonly(m_database->getHandle(), "main") == 1;
}

RecordSet DatabaseSession::read(const QString& statement)
{
    database();
    const auto shape = shapeOf(statement);
    if (!shape) return readOnce(StatementTranslator(m_catalog).select(statement).sql);
    auto prepared = PreparedStatements::take(m_prepared, shape->text);
    if (!prepared) {
        const QString sql = StatementTranslator(m_catalog).select(statement, shape->dates).sql;
        prepared = PreparedStatements::lend(m_prepared, shape->text,
                                            PreparedStatement(prepare(sql, Access::Read), m_catalog));
    }
    for (int i = 0; i < shape->dates.size(); ++i)
        prepared->statement.bind(i + 1, shape->dates[i]);
    return {std::move(prepared), m_watch};
}

/// Reads a statement of the engine that is not kept.
RecordSet DatabaseSession::readOnce(const QString& engineStatement)
{
    return {PreparedStatements::lend({}, {},
                                     PreparedStatement(prepare(engineStatement, Access::Read), m_catalog)),
            m_watch};
}

RecordTable DatabaseSession::readAll(const QString& statement)
{
    return RecordTable(read(statement));
}

EditableRecordSet DatabaseSession::edit(const QString& statement)
{
    database();
    return {*this, StatementTranslator(m_catalog).selectForEditing(statement)};
}

int DatabaseSession::execute(const QString& statement)
{
    database();
    EngineStatement prepared = prepare(StatementTranslator(m_catalog).change(statement).sql, Access::Write);
    run(prepared);
    return database()->getChanges();
}

EngineStatement DatabaseSession::prepare(const QString& engineStatement, Access access)
{
    const AccessGranted granted(m_access, access);
    m_watch.beginStep();
    EngineStatement prepared(database(), engineStatement.toStdString());
    if (access == Access::Read && !prepared.isReadOnly()) {
        throw Error(SQLITE_AUTH, QStringLiteral("A statement that reads cannot change anything."));
    }
    return prepared;
}

void DatabaseSession::runInEngine(const QString& engineStatement)
{
    EngineStatement prepared = prepare(engineStatement, Access::Write);
    run(prepared);
}

void DatabaseSession::run(EngineStatement& statement)
{
    // granted here too: where the schema changed meanwhile, the engine prepares the statement once more
    const AccessGranted granted(m_access, Access::Write);
    m_watch.beginStep();
    statement.step();
}

Transaction::Transaction(DatabaseSession& session) : m_session(session)
{
    m_session.runInEngine(QStringLiteral("BEGIN IMMEDIATE"));
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
        try {
            m_session.runInEngine(QStringLiteral("ROLLBACK"));
        } catch (const Error&) {
            // the engine has rolled back by itself
        }
        throw;
    }
}
