// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "DataPage.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

/// The bytes of an Access file from the test data, to be changed before they are written as another file.
class AccessFile
{
public:
    explicit AccessFile(const std::string& name);

    std::string bytes;

    /// Changes a table's name in the catalog, to one of the same length.
    void renameTable(const std::string& from, const std::string& to);

    /// Changes the name of a column to one of the same length, in the definition of one table.
    void renameColumn(const std::string& table, const std::string& from, const std::string& to);

    /// Exchanges the names of two columns of one table; they are equally long.
    void exchangeColumns(const std::string& table, const std::string& one, const std::string& other);

    /// Sets the long integer at the start of the n-th row of a table (from 0), which is its first column.
    void setFirstNumber(const std::string& table, std::size_t row, std::uint32_t value);

    /// Makes the first column of that row null.
    void clearFirstNumber(const std::string& table, std::size_t row);

    /// Changes the number of rows that the table's definition states.
    void addToStatedRows(const std::string& table, int difference);

    /// Sets the kind of object that the catalog says a table is.
    void setCatalogType(const std::string& table, char type);

    /// Scrambles or unscrambles the part of the first page where keys and passwords are.
    void unscramble();

private:
    struct Place
    {
        std::size_t start = 0;
        std::size_t size = 0;
    };
    Place rowOf(const std::string& table, std::size_t row) const; ///< the n-th present row
    std::size_t definitionOf(const std::string& table) const;
    Place catalogEntryOf(const std::string& table) const;
    Place
    findRow(std::uint32_t owner,
            const std::function<bool(accessimport::DataPage::RowKind, accessimport::Bytes)>& isWanted) const;

    std::string m_path;
};
