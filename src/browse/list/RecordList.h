// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "browse/list/ListLayout.h"
#include "data/RecordSet.h"

#include <QString>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// The rows of one list, in the order of the query that they were read from. Texts are kept as the file holds
/// them, one after the other, so that tens of thousands of rows take little time and memory; a cell's text is
/// made when it is needed. Rows count from 0.
class RecordList
{
public:
    explicit RecordList(RecordKind kind, Years years = Years::TwoDigits)
        : m_kind(kind), m_layout(&listLayout(kind, years))
    {
    }

    [[nodiscard]] RecordKind kind() const { return m_kind; }
    [[nodiscard]] const std::vector<ListColumn>& columns() const { return m_layout->columns; }
    [[nodiscard]] std::size_t count() const { return m_rows.size(); }

    /// Finds the fields among the query's columns. Throws Error if one is missing.
    void beginReading(const RecordSet& rows);

    /// Adds the record set's current row.
    void append(const RecordSet& rows);

    [[nodiscard]] qint64 identifier(std::size_t row) const { return m_rows[row].identifier; }
    [[nodiscard]] bool contains(qint64 identifier) const;
    [[nodiscard]] QString text(std::size_t row, int column) const;

    /// Appends the texts of all columns to a text in UTF-8, each ended by a line feed; not what stands for a
    /// picture.
    void appendTexts(std::size_t row, std::string& texts) const;

    [[nodiscard]] QString toolTip(std::size_t row, int column) const;

    /// Whether the record is marked as a key record.
    [[nodiscard]] bool isKey(std::size_t row) const { return m_rows[row].isKey; }

    /// A document's file name; empty for other kinds.
    [[nodiscard]] QString fileLocation(std::size_t row) const;

    /// The icon of a document: `d` and its file type. If the file is not in the documents folder, `cd`
    /// follows if the document may be shown from a disc, `ng` if not.
    [[nodiscard]] QString documentIcon(std::size_t row, bool isInFolder) const;

    /// The icon that is drawn for a row's: a type of the user's own looks like the known one of its name.
    [[nodiscard]] QString drawnIcon(std::size_t row, const QString& icon) const;

    /// The rows in the order of a column's sort keys; rows with equal keys keep their order.
    [[nodiscard]] std::vector<std::uint32_t> sorted(int column, bool descending) const;

    /// The text of the status bar for a number of rows.
    static QString countText(RecordKind kind, std::size_t count);

private:
    struct Row
    {
        qint64 identifier = 0;
        std::size_t begin = 0; ///< of its texts, among all
        std::array<std::uint32_t, ListRow::mostFields> lengths{};
        std::int32_t number = 0;
        bool isKey = false;
        bool isReleased = false;
    };

    [[nodiscard]] ListRow at(std::size_t row) const;
    [[nodiscard]] const ListColumn& column(int index) const
    {
        return columns()[static_cast<std::size_t>(index)];
    }

    RecordKind m_kind;
    const ListLayout* m_layout;
    std::string m_texts;
    std::vector<Row> m_rows;
    int m_identifierColumn = 0;
    int m_numberColumn = -1;
    int m_isKeyColumn = -1;
    int m_isReleasedColumn = -1;
    std::array<int, ListRow::mostFields> m_fieldColumns{};
};
