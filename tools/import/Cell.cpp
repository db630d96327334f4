// SPDX-License-Identifier: GPL-3.0-or-later

#include "Cell.h"

#include "JetText.h"
#include "JetValues.h"
#include "LongValue.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

namespace accessimport {

namespace {

void setInteger(Cell& cell, std::int64_t value)
{
    cell.kind = Cell::Kind::Integer;
    cell.integer = value;
}

void setText(Cell& cell, std::string text)
{
    cell.kind = Cell::Kind::Text;
    cell.text = std::move(text);
}

/// The target has no place for "not a number" among its numbers.
void setReal(Cell& cell, double value)
{
    cell.kind = std::isnan(value) ? Cell::Kind::Null : Cell::Kind::Real;
    cell.real = value;
    if (std::isnan(value)) cell.unfit = "NaN";
}

void setDate(Cell& cell, double serial)
{
    if (const std::optional<DateTime> date = dateFromSerial(serial)) {
        cell.kind = Cell::Kind::Date;
        cell.date = *date;
    } else {
        setText(cell, shortestText(serial));
    }
}

void setBlob(Cell& cell, Bytes bytes)
{
    cell.kind = Cell::Kind::Blob;
    cell.text.assign(bytes.begin(), bytes.end());
}

void setFixed(const SourceColumn& column, Bytes bytes, Cell& cell)
{
    switch (column.type) {
    case ColumnType::Byte:
        return setInteger(cell, bytes[0]);
    case ColumnType::Integer:
        return setInteger(cell, std::bit_cast<std::int16_t>(read16(bytes, 0)));
    case ColumnType::LongInteger:
    case ColumnType::Complex:
        return setInteger(cell, std::bit_cast<std::int32_t>(read32(bytes, 0)));
    case ColumnType::LargeInteger:
        return setInteger(cell, std::bit_cast<std::int64_t>(read64(bytes, 0)));
    case ColumnType::Currency:
        return setText(cell, currencyText(std::bit_cast<std::int64_t>(read64(bytes, 0))));
    case ColumnType::Single:
        return setReal(cell, widened(std::bit_cast<float>(read32(bytes, 0))));
    case ColumnType::Double:
        return setReal(cell, std::bit_cast<double>(read64(bytes, 0)));
    case ColumnType::DateTime:
        return setDate(cell, std::bit_cast<double>(read64(bytes, 0)));
    case ColumnType::Identifier:
        return setText(cell, identifierText(bytes));
    case ColumnType::Decimal:
        return setText(cell, decimalText(bytes, column.scale));
    default:
        return setBlob(cell, bytes);
    }
}

/// The value as text, for the record of what a form could not hold.
std::string wholeText(const Cell& cell)
{
    switch (cell.kind) {
    case Cell::Kind::Integer:
        return std::to_string(cell.integer);
    case Cell::Kind::Real:
        return shortestText(cell.real);
    case Cell::Kind::Date:
        return dateTimeText(cell.date);
    default:
        return cell.text;
    }
}

void dropAsUnfit(Cell& cell)
{
    cell.unfit = wholeText(cell);
    cell.kind = Cell::Kind::Null;
}

void bringIntoDateForm(HeldForm form, Cell& cell)
{
    std::optional<DateTime> date;
    if (cell.kind == Cell::Kind::Date) date = cell.date;
    if (cell.kind == Cell::Kind::Text) date = dateFromText(cell.text);
    if (!date) return dropAsUnfit(cell);
    const bool losesPart =
        (form == HeldForm::Date && date->hasTime()) || (form == HeldForm::Time && !date->isDayZero());
    if (losesPart) cell.unfit = wholeText(cell);
    if (form == HeldForm::Date) return setText(cell, dateText(*date));
    setText(cell, form == HeldForm::Time ? timeText(*date) : dateTimeText(*date));
}

void bringIntoBooleanForm(Cell& cell)
{
    const auto isOneOf = [&cell](std::initializer_list<const char*> words) {
        return std::any_of(words.begin(), words.end(),
                           [&cell](const char* word) { return isSameName(cell.text, word); });
    };
    if (cell.kind == Cell::Kind::Integer && cell.integer >= -1 && cell.integer <= 1)
        setInteger(cell, cell.integer != 0);
    else if (cell.kind == Cell::Kind::Text && isOneOf({"yes", "true", "1", "-1"}))
        setInteger(cell, 1);
    else if (cell.kind == Cell::Kind::Text && isOneOf({"no", "false", "0"}))
        setInteger(cell, 0);
    else
        dropAsUnfit(cell);
}

} // namespace

void readCell(SourceFile& file, const RowReader& rows, const SourceColumn& column, Cell& cell)
{
    cell.kind = Cell::Kind::Null;
    cell.unfit.reset();
    if (column.type == ColumnType::YesNo) return setInteger(cell, rows.flag(column) ? 1 : 0);
    const std::optional<Bytes> value = rows.value(column);
    if (!value) return;
    switch (column.type) {
    case ColumnType::Text:
        cell.kind = Cell::Kind::Text;
        return decodeText(*value, cell.text);
    case ColumnType::Memo:
        readLongValue(file, *value, cell.longValue);
        cell.kind = Cell::Kind::Text;
        return decodeText(cell.longValue, cell.text);
    case ColumnType::Ole:
        readLongValue(file, *value, cell.longValue);
        return setBlob(cell, cell.longValue);
    default:
        if (value->size() < fixedSize(column.type))
            rows.fail("the value of " + column.name + " is cut short");
        return setFixed(column, *value, cell);
    }
}

void bringIntoForm(HeldForm form, Cell& cell)
{
    if (cell.kind == Cell::Kind::Null) return;
    switch (form) {
    case HeldForm::Date:
    case HeldForm::Time:
    case HeldForm::DateTime:
        return bringIntoDateForm(form, cell);
    case HeldForm::Boolean:
        return bringIntoBooleanForm(cell);
    case HeldForm::MonthDayYear:
        if (cell.kind == Cell::Kind::Date) return setText(cell, monthDayYearText(cell.date));
        break;
    case HeldForm::Text:
        // The database's own way from number to text keeps 15 digits only.
        if (cell.kind == Cell::Kind::Integer || cell.kind == Cell::Kind::Real) setText(cell, wholeText(cell));
        break;
    case HeldForm::Plain:
        break;
    }
    if (cell.kind == Cell::Kind::Date) setText(cell, dateTimeText(cell.date));
}

} // namespace accessimport
