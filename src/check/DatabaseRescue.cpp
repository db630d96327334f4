// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/DatabaseRescue.h"

#include "check/CheckTexts.h"
#include "data/EngineError.h"
#include "data/EngineRules.h"
#include "util/Error.h"

#include <QFile>
#include <QLocale>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using Kind = DatabasePages::Kind;

namespace {

constexpr int pagesAtOnce = 32;

/// As SQLite tells it from the type that a column was declared with.
char affinityOf(const std::string& declared)
{
    const QString type = QString::fromStdString(declared).toUpper();
    if (type.contains(u"INT")) return 'I';
    if (type.contains(u"CHAR") || type.contains(u"CLOB") || type.contains(u"TEXT")) return 'T';
    if (type.contains(u"REAL") || type.contains(u"FLOA") || type.contains(u"DOUB")) return 'R';
    return '?';
}

/// Has SQLite read the description of the tables also if the file is shorter than its header says. The first
/// attempt fails if a table begins beyond the end of the file, but the ones after it know all tables.
void readAlsoIfCut(SQLite::Database& database)
{
    database.exec("PRAGMA writable_schema = ON");
    static_cast<void>(database.tryExec("SELECT 1 FROM sqlite_master"));
}

QString damageText(const DatabaseRescue::Table& table)
{
    QStringList lost;
    if (table.damagedPages > 0)
        lost << (table.damagedPages == 1
                     ? CheckTexts::tr("1 page")
                     : CheckTexts::tr("%n pages", nullptr, static_cast<int>(table.damagedPages)));
    if (table.damagedRows > 0)
        lost << (table.damagedRows == 1
                     ? CheckTexts::tr("1 row")
                     : CheckTexts::tr("%n rows", nullptr, static_cast<int>(table.damagedRows)));
    const QString separator = CheckTexts::tr(" and ");
    QString text =
        CheckTexts::tr("The table %1 is damaged: %2 could not be read. Rows that were rescued: %3.")
            .arg(table.name, lost.join(separator), QLocale().toString(table.rows));
    if (table.partly == 0) return text;
    return text + u' ' +
           CheckTexts::tr("Of %1 of them only a part is known.").arg(QLocale().toString(table.partly));
}

} // namespace

DatabaseRescue::DatabaseRescue(const QString& database, QString target)
    : m_source(database), m_target(std::move(target))
{
}

DatabaseRescue::~DatabaseRescue() = default;

bool DatabaseRescue::step()
{
    return callEngine([this] {
        switch (m_stage) {
        case Stage::Preparing:
            if (m_source.prepare()) return true;
            open();
            m_stage = Stage::Tables;
            return true;
        case Stage::Tables:
            if (walkTable()) return true;
            m_stage = Stage::Strays;
            return true;
        case Stage::Strays:
            if (lookForStrays()) return true;
            m_current = 0;
            m_stage = Stage::Indexes;
            return true;
        case Stage::Indexes:
            if (walkIndex()) return true;
            m_stage = Stage::Finishing;
            return true;
        case Stage::Finishing:
            finish();
            return m_stage != Stage::Done;
        case Stage::Done:
            break;
        }
        return false;
    });
}

void DatabaseRescue::open()
{
    const QString path = m_source.path();
    m_pages = std::make_unique<DatabasePages>(path);
    try {
        m_reading =
            std::make_unique<SQLite::Database>(QFile::encodeName(path).toStdString(), SQLite::OPEN_READONLY);
        readAlsoIfCut(*m_reading);
        m_reading->exec("BEGIN");
        m_database = std::make_unique<SQLite::Database>(QFile::encodeName(m_target).toStdString(),
                                                        SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        addLimits(m_database->getHandle());
        m_database->exec("PRAGMA application_id = " +
                         m_reading->execAndGet("PRAGMA application_id").getString());
        m_database->exec("PRAGMA user_version = " + m_reading->execAndGet("PRAGMA user_version").getString());
        m_database->exec("BEGIN");
        readSchema(*m_reading);
    } catch (const SQLite::Exception& exception) {
        throw Error(
            SQLITE_CORRUPT,
            CheckTexts::tr(
                "The description of the tables is damaged, so that nothing can be rescued: %1. Please "
                "restore a backup.")
                .arg(QString::fromUtf8(exception.what())));
    }
    m_claimed.assign(m_pages->count() + 1, false);
    m_free = m_pages->freePages();
    if (!m_tables.empty()) m_toRead = {m_tables.front().root};
}

void DatabaseRescue::readSchema(SQLite::Database& source)
{
    SQLite::Statement objects(source,
                              "SELECT type, name, tbl_name, rootpage, sql FROM sqlite_master ORDER BY rowid");
    while (objects.executeStep()) {
        const std::string type = objects.getColumn(0);
        const std::string name = objects.getColumn(1);
        const std::string table = objects.getColumn(2);
        const auto root = static_cast<std::uint32_t>(objects.getColumn(3).getInt64());
        const std::string sql = objects.getColumn(4);
        if (sql.empty() || name.starts_with("sqlite_")) continue;
        if (type == "table" && root != 0) {
            addTable(source, name, root, sql);
        } else if (type == "index") {
            addIndex(source, name, root, table);
            m_laterStatements.push_back(sql);
        } else if (type == "view") {
            m_laterStatements.push_back(sql);
        }
    }
    std::reverse(m_laterStatements.begin(), m_laterStatements.end());
}

void DatabaseRescue::addTable(SQLite::Database& source, const std::string& name, std::uint32_t root,
                              const std::string& sql)
{
    m_database->exec(sql);
    Source table;
    table.table.name = QString::fromStdString(name);
    table.root = root;
    int keys = 0;
    SQLite::Statement columns(source, "PRAGMA table_info(" + quotedName(name) + ")");
    while (columns.executeStep()) {
        const std::string declared = columns.getColumn(2);
        table.columns.push_back({columns.getColumn(1), affinityOf(declared)});
        if (columns.getColumn(5).getInt() == 0) continue;
        ++keys;
        if (QString::fromStdString(declared).compare(u"INTEGER", Qt::CaseInsensitive) == 0)
            table.alias = table.columns.size() - 1;
    }
    if (keys > 1) table.alias.reset();
    m_tables.push_back(std::move(table));
}

void DatabaseRescue::addIndex(SQLite::Database& source, const std::string& name, std::uint32_t root,
                              const std::string& table)
{
    const auto owner = std::find_if(m_tables.begin(), m_tables.end(), [&table](const Source& each) {
        return each.table.name.compare(QString::fromStdString(table), Qt::CaseInsensitive) == 0;
    });
    if (owner == m_tables.end()) return;
    Index index{name, root, static_cast<std::size_t>(owner - m_tables.begin()), {}, false};
    SQLite::Statement columns(source, "PRAGMA index_info(" + quotedName(name) + ")");
    while (columns.executeStep()) {
        const int column = columns.getColumn(1).getInt();
        const bool isKnown = column >= 0 && static_cast<std::size_t>(column) < owner->columns.size();
        index.columns.push_back(isKnown ? std::optional(static_cast<std::size_t>(column)) : std::nullopt);
    }
    // of a link, an index knows everything
    std::set<std::size_t> known;
    for (const auto& column : index.columns)
        if (column) known.insert(*column);
    if (owner->alias) known.insert(*owner->alias);
    index.isWhole = known.size() == owner->columns.size();
    m_indexes.push_back(std::move(index));
}

/// Whether a page was not read yet; it is from now on.
bool DatabaseRescue::claim(std::uint32_t page)
{
    if (page < 1 || page > m_pages->count() || m_claimed[page]) return false;
    m_claimed[page] = true;
    ++m_read;
    return true;
}

bool DatabaseRescue::walkTable()
{
    for (int i = 0; i < pagesAtOnce && m_current < m_tables.size(); ++i) {
        Source& table = m_tables[m_current];
        if (m_toRead.empty()) {
            if (++m_current < m_tables.size()) m_toRead = {m_tables[m_current].root};
            continue;
        }
        const std::uint32_t number = m_toRead.back();
        m_toRead.pop_back();
        if (!claim(number)) {
            ++table.table.damagedPages;
            continue;
        }
        const DatabasePages::Page page = m_pages->read(number);
        if (page.kind == Kind::TableInterior) {
            table.table.damagedRows += page.lost;
            m_toRead.insert(m_toRead.end(), page.children.rbegin(), page.children.rend());
        } else if (page.kind == Kind::TableLeaf) {
            take(table, page);
        } else {
            ++table.table.damagedPages;
        }
    }
    return m_current < m_tables.size();
}

void DatabaseRescue::take(Source& table, const DatabasePages::Page& page)
{
    table.table.damagedRows += page.lost;
    // they are not claimed: a damaged row may lead to pages that are those of other rows
    m_read += static_cast<qint64>(page.continuations.size());
    for (const DatabasePages::Row& row : page.rows) {
        if (!fits(table, row) || !insert(table, row)) {
            ++table.table.damagedRows;
            continue;
        }
        ++table.table.rows;
        if (!row.isCut) continue;
        ++table.table.damagedRows;
        table.partly.insert(row.number);
    }
}

/// Pages of rows that no tree leads to any more, because a page above them is damaged. They belong to the one
/// damaged table that their rows fit into; if there are several, only an index can tell.
bool DatabaseRescue::lookForStrays()
{
    const bool isNeeded = std::any_of(m_tables.begin(), m_tables.end(),
                                      [](const Source& table) { return table.table.damagedPages > 0; });
    if (!isNeeded) return false;
    for (int i = 0; i < pagesAtOnce && m_stray < m_pages->count(); ++i) {
        ++m_stray;
        if (m_claimed[m_stray] || m_free[m_stray]) continue;
        const DatabasePages::Page page = m_pages->read(m_stray);
        if (page.kind != Kind::TableLeaf || page.rows.empty()) continue;
        std::vector<Source*> owners;
        for (Source& table : m_tables) {
            const bool isOwner = table.table.damagedPages > 0 &&
                                 std::all_of(page.rows.begin(), page.rows.end(), [&table](const auto& row) {
                                     return row.cells.size() == table.columns.size() && fits(table, row);
                                 });
            if (isOwner) owners.push_back(&table);
        }
        if (owners.size() == 1 && claim(m_stray)) take(*owners.front(), page);
    }
    return m_stray < m_pages->count();
}

bool DatabaseRescue::walkIndex()
{
    for (int i = 0; i < pagesAtOnce && m_current < m_indexes.size(); ++i) {
        const Index& index = m_indexes[m_current];
        Source& table = m_tables[index.table];
        if (m_stage == Stage::Indexes && m_toRead.empty()) {
            if (table.isDamaged() && claim(index.root)) {
                m_toRead = {index.root};
            } else {
                ++m_current;
                continue;
            }
        }
        const std::uint32_t number = m_toRead.back();
        m_toRead.pop_back();
        const DatabasePages::Page page = m_pages->read(number);
        if (page.kind == Kind::IndexInterior || page.kind == Kind::IndexLeaf) {
            for (const DatabasePages::Row& entry : page.rows)
                complete(table, index, entry);
            for (const std::uint32_t child : page.children)
                if (claim(child)) m_toRead.push_back(child);
        }
        if (m_toRead.empty()) ++m_current;
    }
    return m_current < m_indexes.size();
}

/// One index or view at a time, since an index may take its time.
void DatabaseRescue::finish()
{
    for (Source& table : m_tables)
        table.inserts.clear();
    if (!m_laterStatements.empty()) {
        const std::string statement = std::exchange(m_laterStatements.back(), {});
        m_laterStatements.pop_back();
        m_database->exec(statement);
        return;
    }
    showRecordsKnownInPart();
    m_database->exec("COMMIT");
    countRecords();
    m_database.reset();
    m_reading.reset();
    m_stage = Stage::Done;
}

std::vector<DatabaseRescue::Table> DatabaseRescue::tables() const
{
    std::vector<Table> tables;
    for (const Source& source : m_tables) {
        Table table = source.table;
        table.partly = static_cast<qint64>(source.partly.size());
        tables.push_back(table);
    }
    return tables;
}

QStringList DatabaseRescue::lines() const
{
    const QLocale locale;
    const auto count = [&](RecordKind kind) {
        const auto found = m_records.find(kind);
        return locale.toString(found == m_records.end() ? 0 : found->second);
    };
    QStringList lines{
        CheckTexts::tr("Documents: %1, events: %2, organizations: %3.")
            .arg(count(RecordKind::Document), count(RecordKind::Event), count(RecordKind::Organization))};
    for (const Table& table : tables()) {
        if (table.damagedPages > 0 || table.damagedRows > 0) lines << damageText(table);
    }
    return lines;
}

QString DatabaseRescue::title() const
{
    return CheckTexts::tr("Rescue Database");
}

QString DatabaseRescue::text() const
{
    if (m_stage == Stage::Preparing) return CheckTexts::tr("Opening the database …");
    if (m_stage == Stage::Finishing) return CheckTexts::tr("Making the indexes …");
    return CheckTexts::tr("Reading the pages of the database (%1 of %2) …")
        .arg(QLocale().toString(std::min<qint64>(m_read, m_pages->count())),
             QLocale().toString(m_pages->count()));
}

std::optional<int> DatabaseRescue::percent() const
{
    if (m_stage == Stage::Preparing || m_pages->count() == 0) return 0;
    return static_cast<int>(std::min<qint64>(100, m_read * 100 / m_pages->count()));
}
