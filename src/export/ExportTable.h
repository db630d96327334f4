// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "browse/list/ListLayout.h"
#include "export/ExportFields.h"
#include "export/ExportedRecord.h"

#include <QString>

#include <array>
#include <string>
#include <vector>

/// Which fields of its records an export has.
enum class FieldChoice
{
    All,
    OfList ///< what the list of the window shows
};

/// Exported records as rows of a table: its columns, and the text of each cell. With all fields, the first
/// column is the identifier, and dates are written `YYYY-MM-DD`; a list shows them as the window does, with
/// four digits of a year.
class ExportTable
{
public:
    /// The fields must outlive the table.
    ExportTable(RecordKind kind, const std::vector<ExportField>& fields, FieldChoice choice);

    [[nodiscard]] std::size_t count() const { return m_titles.size(); }
    [[nodiscard]] const QString& title(std::size_t column) const { return m_titles[column]; }

    /// The field that a column shows; null if it shows several, or the identifier.
    [[nodiscard]] const ExportField* field(std::size_t column) const;

    /// The value of that field; null if the column has none.
    [[nodiscard]] const ExportedValue* value(const ExportedRecord& record, std::size_t column) const;

    /// Appends the text of a cell in UTF-8; several links are separated by `; `.
    void appendText(const ExportedRecord& record, std::size_t column, std::string& text) const;

private:
    void addListColumns(RecordKind kind);
    [[nodiscard]] ListRow listRow(const ExportedRecord& record) const;

    const std::vector<ExportField>& m_fields;
    const ListLayout* m_layout = nullptr; ///< null with all fields
    std::vector<QString> m_titles;
    std::array<int, ListRow::mostFields> m_listFields{}; ///< the field of each text of the list's row
    int m_number = -1;                                   ///< the fields of the row's number and mark
    int m_isKey = -1;
};

/// Whether the list of the window shows a field, be it with others in one column.
[[nodiscard]] bool isOfList(RecordKind kind, const ExportField& field);

/// Appends the value of a field as its user reads it, in UTF-8; dates and times as the program writes them.
void appendReadable(const ExportField& field, const ExportedValue& value, std::string& text);
