// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Bytes.h"
#include "SourceFile.h"
#include "SourceTable.h"

#include <cstdint>
#include <optional>
#include <string>

namespace accessimport {

/// Walks the rows of one table, page by page, and takes each row apart with its own null mask.
///
/// Everything that the file says about places and lengths is checked before it is used; what does not fit is
/// an ImportError(Damaged) that names the table and the page.
class RowReader
{
public:
    /// Both must outlive the reader.
    RowReader(SourceFile& file, const SourceTable& table) : m_file(file), m_table(table) {}

    /// Goes to the next row; false after the last.
    bool next();

    /// The value's bytes in the current row, valid until next(); std::nullopt if the value is null.
    std::optional<Bytes> value(const SourceColumn& column) const;

    /// A Yes/No value; it lives in the null mask and is never null.
    bool flag(const SourceColumn& column) const;

    /// The error for something wrong in the current row.
    [[noreturn]] void fail(const std::string& what) const;

private:
    bool openNextPage();
    Bytes follow(Bytes reference);
    void takeApart(Bytes row);
    bool maskBit(const SourceColumn& column) const;
    std::optional<std::size_t> variableOffset(std::size_t index) const;

    SourceFile& m_file;
    const SourceTable& m_table;
    std::size_t m_nextPage = 0;
    std::uint32_t m_pageNumber = 0;
    Page m_page{};
    Page m_movedPage{};
    std::size_t m_rowCount = 0;
    std::size_t m_nextRow = 0;

    Bytes m_row;
    Bytes m_mask;
    std::size_t m_columnCount = 0;
    std::size_t m_variableCount = 0;
    std::size_t m_fixedEnd = 0;
};

} // namespace accessimport
