// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <fstream>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

/// Reads an SQLite file page by page, past SQLite, which gives up at the first damaged page on its way. Every
/// page may hold anything; what does not fit together is left out.
class DatabasePages
{
public:
    enum class Kind
    {
        TableLeaf,
        TableInterior,
        IndexLeaf,
        IndexInterior,
        Other ///< damaged, free, or a continuation of a long row
    };

    struct Blob
    {
        std::string bytes;
    };

    /// Texts are UTF-8.
    using Cell = std::variant<std::monostate, std::int64_t, double, std::string, Blob>;

    /// A row of a table, or an entry of an index.
    struct Row
    {
        std::int64_t number = 0; ///< the rowid; 0 for an entry of an index, which ends with it
        std::vector<Cell> cells;
        bool isCut = false; ///< whether its end could not be read, so that cells are missing or cut off
    };

    /// A page and what was found in it.
    struct Page
    {
        Kind kind = Kind::Other;
        std::vector<Row> rows;
        std::vector<std::uint32_t> children;   ///< of an interior page, in order
        std::set<std::uint32_t> continuations; ///< the pages that its long rows go on in
        int lost = 0;                          ///< rows that could not be read
    };

    /// Throws Error if the file cannot be opened or if its first page is not that of a database.
    explicit DatabasePages(const QString& file);

    /// The number of pages; they are counted from 1.
    [[nodiscard]] std::uint32_t count() const { return m_count; }

    /// Never fails: what the disk cannot read is a page of the kind Other.
    [[nodiscard]] Page read(std::uint32_t number);

    /// The pages that the file does not use, which may still hold rows that were deleted.
    [[nodiscard]] std::vector<bool> freePages();

private:
    struct Payload
    {
        std::string bytes;
        bool isCut = false;
    };

    [[nodiscard]] bool load(std::uint32_t number, std::string& page);
    [[nodiscard]] std::optional<Payload> payload(const std::string& page, std::size_t at, std::uint64_t size,
                                                 bool isIndex, Page& found);
    [[nodiscard]] std::optional<Row> record(const Payload& payload) const;
    [[nodiscard]] std::string textOf(const std::string& bytes) const;
    void readLeafRow(const std::string& page, std::size_t at, Page& found);
    void readEntry(const std::string& page, std::size_t at, Page& found);

    QString m_file;
    std::ifstream m_stream;
    std::size_t m_pageSize = 0;
    std::size_t m_usable = 0;
    std::uint32_t m_count = 0;
    int m_encoding = 1;
    std::uint32_t m_firstFree = 0;
};
