// SPDX-License-Identifier: GPL-3.0-or-later

#include "RowReader.h"

#include "DataPage.h"
#include "ImportError.h"

namespace accessimport {

void RowReader::fail(const std::string& what) const
{
    throw ImportError(ExitStatus::Damaged, "The file is damaged: table " + m_table.name + ", page " +
                                               std::to_string(m_pageNumber) + ": " + what + ".");
}

bool RowReader::openNextPage()
{
    if (m_nextPage == m_table.pages.size()) return false;
    m_pageNumber = m_table.pages[m_nextPage++];
    m_page = m_file.page(m_pageNumber);
    const std::optional<DataPage> page = DataPage::open(m_page);
    if (!page) fail("it holds no rows");
    if (page->owner() != m_table.definitionPage) fail("it belongs to another table");
    m_rowCount = page->rowCount();
    m_nextRow = 0;
    return true;
}

bool RowReader::next()
{
    while (true) {
        while (m_nextRow == m_rowCount)
            if (!openNextPage()) return false;
        const DataPage page = *DataPage::open(m_page);
        const std::size_t number = m_nextRow++;
        const DataPage::RowKind kind = page.rowKind(number);
        if (kind == DataPage::RowKind::Hidden) continue;
        const std::optional<Bytes> row = page.row(number);
        if (!row) fail("a row reaches out of the page");
        takeApart(kind == DataPage::RowKind::Moved ? follow(*row) : *row);
        return true;
    }
}

/// A row that grew stands on another page of its table; it does not move a second time from there.
Bytes RowReader::follow(Bytes reference)
{
    if (reference.size() < 4) fail("a moved row has no new place");
    const std::uint32_t place = read32(reference, 0);
    m_movedPage = m_file.page(place >> 8);
    const std::optional<DataPage> page = DataPage::open(m_movedPage);
    if (!page || page->owner() != m_table.definitionPage) fail("a moved row is not where it should be");
    const std::size_t number = place & 0xff;
    const std::optional<Bytes> row = page->row(number);
    if (!row || page->rowKind(number) != DataPage::RowKind::Hidden)
        fail("a moved row is not where it should be");
    return *row;
}

/// A row is: column count, fixed part, variable part, ends of the variable values (backwards), their count,
/// null mask. Rows written before a column was added count fewer columns.
void RowReader::takeApart(Bytes row)
{
    if (row.size() < 3) fail("a row is too short");
    m_row = row;
    m_columnCount = read16(row, 0);
    const std::size_t maskSize = (m_columnCount + 7) / 8;
    if (m_columnCount == 0 || 2 + maskSize > row.size()) fail("a row is too short for its columns");
    const std::size_t maskStart = row.size() - maskSize;
    m_mask = row.subspan(maskStart);
    m_variableCount = 0;
    m_fixedEnd = maskStart;
    if (!m_table.hasVariableColumns) return;

    if (maskStart < 4) fail("a row is too short for its columns");
    m_variableCount = read16(row, maskStart - 2);
    if (m_variableCount > m_columnCount || 2 + 2 + 2 * (m_variableCount + 1) > maskStart)
        fail("a row is too short for its columns");
    const std::optional<std::size_t> start = variableOffset(0);
    if (!start || *start < 2) fail("a row's values do not fit into it");
    m_fixedEnd = *start;
}

bool RowReader::maskBit(const SourceColumn& column) const
{
    return column.number < m_columnCount && (m_mask[column.number / 8] >> (column.number % 8) & 1) != 0;
}

bool RowReader::flag(const SourceColumn& column) const
{
    return maskBit(column);
}

/// Where a variable value starts; the entry after the last says where the last one ends.
std::optional<std::size_t> RowReader::variableOffset(std::size_t index) const
{
    const std::size_t maskStart = m_row.size() - m_mask.size();
    const std::size_t tableStart = maskStart - 2 - 2 * (m_variableCount + 1);
    const std::size_t offset = read16(m_row, maskStart - 4 - 2 * index);
    if (offset > tableStart) return std::nullopt;
    return offset;
}

std::optional<Bytes> RowReader::value(const SourceColumn& column) const
{
    if (!maskBit(column)) return std::nullopt;
    if (column.isFixed) {
        const std::size_t size = fixedSize(column);
        const std::size_t start = 2 + std::size_t{column.fixedOffset};
        if (start + size > m_fixedEnd) fail("the value of " + column.name + " does not fit into its row");
        return m_row.subspan(start, size);
    }
    if (column.variableIndex >= m_variableCount) return std::nullopt;
    const std::optional<std::size_t> start = variableOffset(column.variableIndex);
    const std::optional<std::size_t> end = variableOffset(column.variableIndex + std::size_t{1});
    if (!start || !end || *start > *end) fail("the value of " + column.name + " does not fit into its row");
    return m_row.subspan(*start, *end - *start);
}

} // namespace accessimport
