// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/CellText.h"
#include "export/ExportFile.h"
#include "export/ExportFormat.h"
#include "export/ExportTexts.h"
#include "export/Workbook.h"
#include "util/DateTimeText.h"
#include "util/Error.h"

#include <QLocale>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t mostInTitle = 255; ///< of a document, in units of UTF-16
constexpr std::size_t narrowest = 6;     ///< of columns, in characters
constexpr std::size_t widest = 50;
constexpr std::size_t filterButton = 4;
constexpr qint64 mostExact = 1'000'000'000'000'000; ///< programs that calculate keep 15 digits of a number

std::string firstPart(const QString& text, std::size_t most = CellText::most)
{
    return CellText::parts(text.toStdString(), most).front();
}

/// How many characters the first line of a text has.
std::size_t widthOf(std::string_view utf8)
{
    const std::string_view line = utf8.substr(0, std::min(utf8.find('\n'), 4 * widest));
    return static_cast<std::size_t>(
        std::count_if(line.begin(), line.end(), [](char each) { return (each & 0xC0) != 0x80; }));
}

/// The number that a cell can hold as such.
std::optional<double> numberOf(const ExportField& field, const ExportedValue& value)
{
    using Type = ExportedValue::Type;
    if (field.field.form != FieldForm::Text || !std::isfinite(value.real)) return std::nullopt;
    if (value.type == Type::Real) return value.real;
    if (value.type == Type::Whole && std::abs(value.real) < static_cast<double>(mostExact)) return value.real;
    // the file holds amounts as texts, so that they are exact
    const std::string_view text = value.text;
    const bool isAmount = field.field.column == u"AnnualBudget" && text.size() <= std::size_t{15} &&
                          text.find_first_not_of("0123456789.") == std::string_view::npos;
    bool isNumber = false;
    const double amount = isAmount ? QString::fromStdString(value.text).toDouble(&isNumber) : 0;
    return isNumber ? std::optional(amount) : std::nullopt;
}

/// A sheet with a row for each record: numbers, dates and times as such, the rest as texts. A text that is
/// too long for a cell is cut there, and stands on a sheet of its own in as many parts as it takes.
class XlsxWriter final : public RecordWriter
{
public:
    XlsxWriter(const ExportOrder& order, ExportFile& file)
        : m_table(order.kind, order.fields, order.options.fields),
          m_hasIdentifier(order.options.fields == FieldChoice::All),
          m_workbook(file.unfinished(), QString::fromStdString(firstPart(order.options.caption, mostInTitle)))
    {
        if (order.count >= Workbook::mostRows)
            throw Error(EFBIG, ExportTexts::tr("A sheet has no room for more than %1 records.")
                                   .arg(QLocale().toString(static_cast<qint64>(Workbook::mostRows) - 1)));
        std::vector<std::string> titles;
        for (std::size_t column = 0; column < m_table.count(); ++column) {
            titles.push_back(firstPart(m_table.title(column)));
            m_widths.push_back(std::max(narrowest, widthOf(titles.back()) + filterButton));
        }
        m_sheet = m_workbook.addSheet(titleOf(order.kind), titles);
    }

    void add(const ExportedRecord& record) override
    {
        ++m_row;
        for (std::size_t column = 0; column < m_table.count(); ++column)
            if (!addValue(record, column)) addText(record, column);
        m_workbook.requireRows();
    }

    bool finish() override
    {
        if (!std::exchange(m_isEnded, true)) {
            m_workbook.endSheet(m_sheet, m_row, m_widths);
            if (m_longTexts != nullptr) m_workbook.endSheet(m_longTexts, m_longRow, {10, 25, 8, 100});
        }
        return m_workbook.finish();
    }

    bool abandon() override { return m_workbook.isFinishing(); }

private:
    /// Returns false if the value has to be written as a text.
    bool addValue(const ExportedRecord& record, std::size_t column)
    {
        const Workbook::Cell cell{m_sheet, m_row, column};
        const ExportField* field = m_table.field(column);
        const ExportedValue* value = m_table.value(record, column);
        if (m_hasIdentifier && column == 0 && record.identifier < mostExact) {
            m_workbook.write(cell, static_cast<double>(record.identifier));
            return true;
        }
        if (value == nullptr || field == nullptr) return false;
        if (const std::optional<double> number = numberOf(*field, *value)) {
            m_workbook.write(cell, *number);
            return true;
        }
        const FieldForm form = field->field.form;
        if (form == FieldForm::Date) return addDate(cell, value->text);
        return form == FieldForm::Time && addTime(cell, value->text);
    }

    bool addDate(const Workbook::Cell& cell, std::string_view text)
    {
        const std::optional<QDate> date = DateTimeText::dateFromHeld(text);
        if (!date || !Workbook::hasDay(*date)) return false;
        m_workbook.write(cell, *date);
        m_widths[cell.column] = std::max(m_widths[cell.column], std::size_t{11});
        return true;
    }

    bool addTime(const Workbook::Cell& cell, std::string_view text)
    {
        const std::optional<QTime> time = DateTimeText::timeFromHeld(text);
        if (time) m_workbook.write(cell, *time);
        return time.has_value();
    }

    void addText(const ExportedRecord& record, std::size_t column)
    {
        m_text.clear();
        m_table.appendText(record, column, m_text);
        if (m_text.empty()) return;
        const std::vector<std::string> parts = CellText::parts(m_text);
        if (parts.size() > 1) {
            addLongText(record.identifier, column, parts);
        } else {
            m_workbook.write({m_sheet, m_row, column}, parts.front());
        }
        m_widths[column] = std::max(m_widths[column], std::min(widest, widthOf(parts.front())));
    }

    void addLongText(qint64 identifier, std::size_t column, const std::vector<std::string>& parts)
    {
        const QString name = ExportTexts::tr("Long Texts");
        if (m_longTexts == nullptr) {
            m_longTexts = m_workbook.addSheet(
                name, {firstPart(ExportTexts::tr("ID")), firstPart(ExportTexts::tr("Field")),
                       firstPart(ExportTexts::tr("Part")), firstPart(ExportTexts::tr("Text"))});
        }
        const std::string hint =
            (u" … "_s + ExportTexts::tr("(whole on the sheet “%1”)").arg(name)).toStdString();
        m_workbook.write({m_sheet, m_row, column},
                         CellText::parts(m_text, CellText::most - hint.size()).front() + hint);
        for (std::size_t part = 0; part < parts.size(); ++part) {
            if (++m_longRow == Workbook::mostRows)
                throw Error(EFBIG, ExportTexts::tr("There are too many long texts for a sheet."));
            m_workbook.write({m_longTexts, m_longRow, 0}, static_cast<double>(identifier));
            m_workbook.write({m_longTexts, m_longRow, 1}, firstPart(m_table.title(column)));
            m_workbook.write({m_longTexts, m_longRow, 2}, static_cast<double>(part + 1));
            m_workbook.write({m_longTexts, m_longRow, 3}, parts[part]);
        }
    }

    ExportTable m_table;
    bool m_hasIdentifier; ///< in its first column
    Workbook m_workbook;
    lxw_worksheet* m_sheet;
    lxw_worksheet* m_longTexts = nullptr; ///< begun with the first of them
    std::size_t m_row = 0;                ///< the last one written
    std::size_t m_longRow = 0;
    std::vector<std::size_t> m_widths; ///< of the columns, in characters
    std::string m_text;
    bool m_isEnded = false;
};

} // namespace

ExportFormat xlsxFormat()
{
    return {.name = u"xlsx"_s,
            .title = QT_TRANSLATE_NOOP("Export", "Spreadsheet (XLSX)"),
            .remark = QT_TRANSLATE_NOOP("Export", "A table to sort, filter, count and calculate with."),
            .ending = u".xlsx"_s,
            .hasChoiceOfFields = true,
            .begin = [](const ExportOrder& order, ExportFile& file) -> std::unique_ptr<RecordWriter> {
                return std::make_unique<XlsxWriter>(order, file);
            }};
}
