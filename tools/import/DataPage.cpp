// SPDX-License-Identifier: GPL-3.0-or-later

#include "DataPage.h"

#include "SourceFile.h"

namespace accessimport {

namespace {

constexpr std::uint8_t dataPageType = 1;
constexpr std::size_t firstRowOffset = 14;
constexpr std::uint16_t offsetMask = 0x1fff;
constexpr std::uint16_t hiddenFlag = 0x8000;
constexpr std::uint16_t movedFlag = 0x4000;

} // namespace

std::optional<DataPage> DataPage::open(Bytes page)
{
    if (page.size() != pageSize || page[0] != dataPageType) return std::nullopt;
    const DataPage opened(page);
    if (firstRowOffset + opened.m_rowCount * 2 > pageSize) return std::nullopt;
    return opened;
}

DataPage::RowKind DataPage::rowKind(std::size_t row) const
{
    const std::uint16_t entry = read16(m_page, firstRowOffset + row * 2);
    if (entry & hiddenFlag) return RowKind::Hidden;
    return entry & movedFlag ? RowKind::Moved : RowKind::Present;
}

std::optional<Bytes> DataPage::row(std::size_t row) const
{
    if (row >= m_rowCount) return std::nullopt;
    const std::size_t start = read16(m_page, firstRowOffset + row * 2) & offsetMask;
    const std::size_t end = row == 0 ? pageSize : read16(m_page, firstRowOffset + row * 2 - 2) & offsetMask;
    if (start < firstRowOffset + m_rowCount * 2 || start > end || end > pageSize) return std::nullopt;
    return m_page.subspan(start, end - start);
}

std::size_t DataPage::liveRows() const
{
    std::size_t count = 0;
    for (std::size_t row = 0; row < m_rowCount; ++row)
        if (rowKind(row) != RowKind::Hidden) ++count;
    return count;
}

} // namespace accessimport
