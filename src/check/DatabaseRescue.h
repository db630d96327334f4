// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/CheckedDatabase.h"
#include "check/DatabasePages.h"
#include "data/RecordKind.h"
#include "platform/SteppedWork.h"

#include <QStringList>

#include <SQLiteCpp/SQLiteCpp.h>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

/// Makes a new database of what can still be read of a damaged one, which is only read.
///
/// Every page is read by itself, so that a damaged page costs no more than the rows that lie on it. Of rows
/// that are lost, an index may still know a part, such as the title of a document; that is taken from there.
/// What a record was linked to stays, even if that is lost.
class DatabaseRescue final : public SteppedWork
{
public:
    /// `target` does not exist yet; what there is of it when the work fails or is given up is for the caller
    /// to remove. Throws Error.
    DatabaseRescue(const QString& database, QString target);
    ~DatabaseRescue() override;

    /// Throws Error if nothing can be rescued because the beginning of the file, or the description of its
    /// tables, is damaged.
    bool step() override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString text() const override;
    [[nodiscard]] std::optional<int> percent() const override;

    /// What became of a table.
    struct Table
    {
        QString name;
        qint64 rows = 0;   ///< that were rescued
        qint64 partly = 0; ///< of these, those of which only a part is known
        int damagedPages = 0;
        int damagedRows = 0; ///< on pages that could be read
    };

    /// One for each table of the database, once all is done.
    [[nodiscard]] std::vector<Table> tables() const;

    /// What the user should know: how many records there are, and which tables lost some.
    [[nodiscard]] QStringList lines() const;

private:
    enum class Stage
    {
        Preparing,
        Tables,
        Strays,
        Indexes,
        Finishing,
        Done
    };

    struct Column
    {
        std::string name;
        char affinity; ///< `I`nteger, `R`eal, `T`ext or anything else, `?`
    };

    struct Source
    {
        Table table;
        std::uint32_t root = 0;
        std::vector<Column> columns;
        std::optional<std::size_t> alias; ///< the column that is the row's number
        std::map<std::size_t, std::unique_ptr<SQLite::Statement>> inserts; ///< by the number of columns
        std::set<std::int64_t> partly; ///< the numbers of rows that are known in part

        [[nodiscard]] bool isDamaged() const { return table.damagedPages > 0 || table.damagedRows > 0; }
    };

    struct Index
    {
        std::string name;
        std::uint32_t root = 0;
        std::size_t table = 0;
        std::vector<std::optional<std::size_t>> columns; ///< of the table; std::nullopt for a computed one
        bool isWhole = false;                            ///< whether it knows every column of the table
    };

    void open();
    void readSchema(SQLite::Database& source);
    void addTable(SQLite::Database& source, const std::string& name, std::uint32_t root,
                  const std::string& sql);
    void addIndex(SQLite::Database& source, const std::string& name, std::uint32_t root,
                  const std::string& table);
    bool walkTable();
    bool lookForStrays();
    bool walkIndex();
    void finish();
    void showRecordsKnownInPart();
    void countRecords();
    void take(Source& table, const DatabasePages::Page& page);
    bool insert(Source& table, const DatabasePages::Row& row);
    void complete(Source& table, const Index& index, const DatabasePages::Row& entry);
    [[nodiscard]] static std::string quotedName(const std::string& name);
    [[nodiscard]] static bool fits(const Source& table, const DatabasePages::Row& row);
    [[nodiscard]] bool claim(std::uint32_t page);

    CheckedDatabase m_source;
    QString m_target;
    Stage m_stage = Stage::Preparing;
    std::unique_ptr<DatabasePages> m_pages;
    std::unique_ptr<SQLite::Database> m_reading; ///< keeps others from changing the source
    std::unique_ptr<SQLite::Database> m_database;
    std::vector<Source> m_tables;
    std::vector<Index> m_indexes;
    std::vector<std::string> m_laterStatements; ///< that make indexes and views
    std::vector<std::uint32_t> m_toRead;        ///< pages of the tree that is walked, the next one last
    std::size_t m_current = 0;                  ///< the table, then the index
    std::vector<bool> m_claimed;                ///< pages that were read
    std::vector<bool> m_free;
    std::map<RecordKind, qint64> m_records; ///< that were rescued
    std::uint32_t m_stray = 0;
    qint64 m_read = 0;
};
