// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace accessimport {

/// The column types of an Access file, by their numbers in it.
enum class ColumnType : std::uint8_t
{
    YesNo = 0x01,
    Byte = 0x02,
    Integer = 0x03,
    LongInteger = 0x04,
    Currency = 0x05,
    Single = 0x06,
    Double = 0x07,
    DateTime = 0x08,
    Binary = 0x09,
    Text = 0x0a,
    Ole = 0x0b,
    Memo = 0x0c,
    Identifier = 0x0f, ///< a replication identifier of 16 bytes
    Decimal = 0x10,
    Complex = 0x12, ///< a number that leads to a list of values in a table of its own
    LargeInteger = 0x13,
    ExtendedDateTime = 0x14 ///< carried over as the bytes it is
};

/// The bytes that a value takes whose type has one length; 0 for the other types.
constexpr std::size_t fixedSize(ColumnType type)
{
    switch (type) {
    case ColumnType::Byte:
        return 1;
    case ColumnType::Integer:
        return 2;
    case ColumnType::LongInteger:
    case ColumnType::Complex:
    case ColumnType::Single:
        return 4;
    case ColumnType::Currency:
    case ColumnType::Double:
    case ColumnType::DateTime:
        return 8;
    case ColumnType::Identifier:
        return 16;
    case ColumnType::Decimal:
        return 17;
    default:
        return 0;
    }
}

/// A column as its table's definition describes it.
struct SourceColumn
{
    std::string name;
    ColumnType type = ColumnType::Text;
    std::uint16_t number = 0;        ///< position in the null mask
    bool isFixed = false;            ///< held in the row's fixed part
    std::uint16_t fixedOffset = 0;   ///< from the start of the fixed part, in bytes
    std::uint16_t variableIndex = 0; ///< position among the variable columns
    std::uint16_t size = 0;          ///< as defined, in bytes
    int scale = 0;                   ///< decimals of a Decimal
};

/// The bytes that the column's value takes in the fixed part of a row.
constexpr std::size_t fixedSize(const SourceColumn& column)
{
    return fixedSize(column.type) != 0 ? fixedSize(column.type) : column.size;
}

/// A table as the file's catalog and the table's definition describe it.
struct SourceTable
{
    std::string name;
    std::uint32_t definitionPage = 0;
    std::uint32_t statedRows = 0; ///< the count that the definition states; what is there may differ
    bool hasVariableColumns = false;
    std::vector<SourceColumn> columns;
    std::vector<std::uint32_t> pages; ///< the data pages that the table owns, ascending
};

/// What the file's catalog lists for its user.
struct SourceCatalog
{
    std::vector<SourceTable> tables;
    std::vector<std::string> linkedTables;      ///< tables that are kept in another file
    std::vector<std::uint32_t> definitionPages; ///< of all tables, those of the system included
};

} // namespace accessimport
