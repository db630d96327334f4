// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Bytes.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace accessimport {

/// Checked access to the rows of one data page. Refers to the page's bytes, which must outlive it.
///
/// A data page starts with its type, its owner and a table of row offsets whose upper bits are flags.
class DataPage
{
public:
    enum class RowKind
    {
        Present, ///< the row is here
        Moved,   ///< four bytes that say where the row is
        Hidden   ///< deleted, or the new place of a moved row
    };

    /// What stands in the owner's place on pages that hold long values: the letters LVAL.
    static constexpr std::uint32_t longValueOwner = 0x4c41564c;

    /// std::nullopt if the bytes are no data page or its table of rows does not fit.
    static std::optional<DataPage> open(Bytes page);

    std::uint32_t owner() const { return read32(m_page, 4); }
    std::size_t rowCount() const { return m_rowCount; }
    RowKind rowKind(std::size_t row) const;

    /// The bytes of a row, whatever its kind. std::nullopt if the row does not exist or leads out of the
    /// page.
    std::optional<Bytes> row(std::size_t row) const;

    /// The number of rows that a reader sees: present and moved ones.
    std::size_t liveRows() const;

private:
    explicit DataPage(Bytes page) : m_page(page), m_rowCount(read16(page, 12)) {}

    Bytes m_page;
    std::size_t m_rowCount;
};

} // namespace accessimport
