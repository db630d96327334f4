// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "JetDate.h"
#include "RowReader.h"
#include "SourceFile.h"
#include "SourceTable.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace accessimport {

/// In which form a column of the target holds its values.
enum class HeldForm
{
    Plain,        ///< as it is; a date as YYYY-MM-DD HH:MM:SS
    Date,         ///< YYYY-MM-DD
    Time,         ///< HH:MM, or HH:MM:SS if there are seconds
    DateTime,     ///< YYYY-MM-DD HH:MM:SS
    MonthDayYear, ///< a date as MM/DD/YYYY, with the time of day if it has one
    Boolean,      ///< 0 or 1
    Text          ///< numbers as exact text, dates as YYYY-MM-DD HH:MM:SS
};

/// One value on its way from the source to the target. Kept from row to row for its buffers.
struct Cell
{
    enum class Kind
    {
        Null,
        Integer,
        Real,
        Text,
        Blob,
        Date
    };

    Kind kind = Kind::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string text; ///< of a Text, and the bytes of a Blob
    DateTime date;
    /// What could not be put into the value: a number that is no date, or no number.
    std::optional<std::string> unfit;
    std::vector<std::uint8_t> longValue;
};

/// Reads a column's value from the current row. Throws ImportError(Damaged).
void readCell(SourceFile& file, const RowReader& rows, const SourceColumn& column, Cell& cell);

/// Brings a value into its held form. What that form cannot hold is left in `unfit` as text, complete.
void bringIntoForm(HeldForm form, Cell& cell);

} // namespace accessimport
