// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportFile.h"
#include "export/ExportFormat.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// A table as RFC 4180 describes it: commas, quotes doubled within quotes, lines that end in CR LF. Made for
/// programs that calculate, it begins with a byte-order mark, by which they know UTF-8, and a text that they
/// would take for a formula begins with an apostrophe, which says that it is a text.
class CsvWriter final : public RecordWriter
{
public:
    CsvWriter(const ExportOrder& order, ExportFile& file)
        : m_table(order.kind, order.fields, order.options.fields),
          m_text(file.text()),
          m_forSpreadsheet(order.options.forSpreadsheet)
    {
        if (m_forSpreadsheet) m_text += byteOrderMark;
        for (std::size_t column = 0; column < m_table.count(); ++column) {
            // Excel takes a file that begins with the letters ID for one of another format
            const bool isFirst = column == 0 && !m_forSpreadsheet;
            addCell(column, m_table.title(column).toStdString(), isFirst);
        }
        m_text += "\r\n";
    }

    void add(const ExportedRecord& record) override
    {
        for (std::size_t column = 0; column < m_table.count(); ++column) {
            m_cell.clear();
            m_table.appendText(record, column, m_cell);
            if (m_forSpreadsheet && isTakenForFormula(record, column)) m_cell.insert(0, 1, '\'');
            addCell(column, m_cell);
        }
        m_text += "\r\n";
    }

    bool finish() override { return false; }

private:
    [[nodiscard]] bool isTakenForFormula(const ExportedRecord& record, std::size_t column) const
    {
        const ExportedValue* value = m_table.value(record, column);
        const bool isNumber = value != nullptr && (value->type == ExportedValue::Type::Whole ||
                                                   value->type == ExportedValue::Type::Real);
        return !m_cell.empty() && !isNumber &&
               std::string_view("=+-@\t\r").find(m_cell.front()) != std::string_view::npos;
    }

    void addCell(std::size_t column, std::string_view cell, bool isQuoted = false)
    {
        if (column > 0) m_text += ',';
        if (!isQuoted && cell.find_first_of("\",\r\n") == std::string_view::npos) {
            m_text += cell;
            return;
        }
        m_text += '"';
        for (std::size_t quote = cell.find('"'); quote != std::string_view::npos; quote = cell.find('"')) {
            m_text += cell.substr(0, quote + 1);
            m_text += '"';
            cell.remove_prefix(quote + 1);
        }
        m_text += cell;
        m_text += '"';
    }

    ExportTable m_table;
    std::string& m_text;
    bool m_forSpreadsheet;
    std::string m_cell;
};

} // namespace

ExportFormat csvFormat()
{
    return {.name = u"csv"_s,
            .title = QT_TRANSLATE_NOOP("Export", "Table as text (CSV)"),
            .remark =
                QT_TRANSLATE_NOOP("Export", "A line for each record, which almost every program can read."),
            .ending = u".csv"_s,
            .hasChoiceOfFields = true,
            .hasChoiceOfSpreadsheet = true,
            .begin = [](const ExportOrder& order, ExportFile& file) -> std::unique_ptr<RecordWriter> {
                return std::make_unique<CsvWriter>(order, file);
            }};
}
