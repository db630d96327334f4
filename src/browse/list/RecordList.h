#pragma once

#include "browse/list/EventTimes.h"
#include "data/RecordSet.h"
#include "views/clsView.h"

#include <QString>

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// A column of a list.
struct ListColumn
{
    const char* title = ""; ///< to be translated
    int widthInTwips = 0;   ///< 1/1440 inch; 0 for the list's own default
};

/// The columns of each kind that has a list.
const std::vector<ListColumn>& listColumns(ViewKind kind);

/// The rows of one list, as read from a query, in the query's order. Texts are kept as the file holds them,
/// one after the other, so that tens of thousands of rows cost little time and memory; what the user sees
/// is made of them when it is asked for. Rows count from 0.
class RecordList
{
public:
    explicit RecordList(ViewKind kind) : m_kind(kind) {}

    [[nodiscard]] ViewKind kind() const { return m_kind; }
    [[nodiscard]] std::size_t count() const { return m_rows.size(); }

    /// Finds the columns of the query's rows. Throws Error where one that the list shows is missing.
    void beginReading(const RecordSet& rows);

    /// Adds the record set's current row.
    void append(const RecordSet& rows);

    [[nodiscard]] qint64 identifier(std::size_t row) const { return m_rows[row].identifier; }
    [[nodiscard]] QString text(std::size_t row, int column) const;
    [[nodiscard]] QString toolTip(std::size_t row, int column) const;

    /// Whether the record is marked as a key record.
    [[nodiscard]] bool isKey(std::size_t row) const { return m_rows[row].flag; }

    /// A document's file name, empty for other kinds.
    [[nodiscard]] QString fileLocation(std::size_t row) const;

    /// The icon of a document: `d` and its file type, followed by `cd` where the file is not in the documents
    /// folder and may be shown from a disc, or by `ng` where it may not.
    [[nodiscard]] QString documentIcon(std::size_t row, bool isInFolder) const;

    /// The rows in the order of a column: dates as dates, numbers as numbers, texts without regard to case;
    /// rows that are equal there keep their order.
    [[nodiscard]] std::vector<std::uint32_t> sorted(int column, bool descending) const;

    /// What a status bar says of so many rows of a kind.
    static QString countText(ViewKind kind, std::size_t count);

private:
    static constexpr std::size_t fieldCount = 6;

    struct Row
    {
        qint64 identifier = 0;
        std::size_t begin = 0;
        std::array<std::uint32_t, fieldCount> lengths{};
        std::int32_t number = 0; ///< a document's file type, an organization's sub-type
        bool flag = false;       ///< marked as a key record
        bool released = false;   ///< a document that may be shown
    };

    [[nodiscard]] std::string_view field(const Row& row, std::size_t index) const;
    [[nodiscard]] EventTimes times(const Row& row) const;
    [[nodiscard]] std::string utf8(const Row& row, int column) const;
    [[nodiscard]] std::string_view sortText(const Row& row, int column, std::string& scratch) const;
    [[nodiscard]] std::vector<qint64> dateOrders() const;

    ViewKind m_kind;
    std::string m_texts;
    std::vector<Row> m_rows;
    int m_identifierColumn = 0;
    int m_numberColumn = -1;
    int m_flagColumn = -1;
    int m_releasedColumn = -1;
    std::array<int, fieldCount> m_fieldColumns{};
    std::size_t m_fieldCount = 0;
};
