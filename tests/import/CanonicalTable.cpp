// SPDX-License-Identifier: GPL-3.0-or-later

#include "CanonicalTable.h"

#include "ImportTool.h"

#include <QCryptographicHash>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <map>
#include <sstream>

namespace {

std::string escaped(const std::string& text)
{
    std::string result;
    for (const char character : text) {
        const std::size_t at = std::string_view("\\\t\n\r").find(character);
        if (at == std::string_view::npos)
            result += character;
        else
            result += std::string("\\") + "\\tnr"[at];
    }
    return result;
}

/// The way the expected tables write numbers: plain from 0.001 below 10,000,000, with an exponent elsewhere,
/// always with a decimal, and the smallest numbers with two digits.
template <typename Number>
std::string numberText(Number value)
{
    if (value == 0) return std::signbit(value) ? "-0.0" : "0.0";
    std::array<char, 64> buffer{};
    const Number size = std::abs(value);
    const bool isPlain = size >= static_cast<Number>(1e-3) && size < static_cast<Number>(1e7);
    const auto format = isPlain ? std::chars_format::fixed : std::chars_format::scientific;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format).ptr;
    std::string text(buffer.data(), end);
    if (isPlain) return text.find('.') == std::string::npos ? text + ".0" : text;
    const std::size_t mark = text.find('e');
    std::string digits = text.substr(0, mark);
    if (value == std::numeric_limits<Number>::denorm_min()) digits = sizeof(Number) == 4 ? "1.4" : "4.9";
    if (digits.find('.') == std::string::npos) digits += ".0";
    return digits + 'E' + std::to_string(std::stoi(text.substr(mark + 1)));
}

/// MM/DD/YYYY, with a time of day or without.
std::string fromMonthDayYear(const std::string& text)
{
    const std::string time = text.size() > 10 ? text.substr(11) : "00:00:00";
    return text.substr(6, 4) + '-' + text.substr(0, 2) + '-' + text.substr(3, 2) + ' ' + time;
}

std::string canonical(const SQLite::Column& value, const std::string& column, const std::string& type,
                      bool isSingle)
{
    if (value.isNull()) return "\\N";
    const std::string text = value.getString();
    if (column == "DocumentDate") return fromMonthDayYear(text);
    if (type == "DATE TEXT") return text + " 00:00:00";
    if (type == "TIME TEXT") return "1899-12-30 " + text + (text.size() == 5 ? ":00" : "");
    if (isSingle) return numberText(static_cast<float>(value.getDouble()));
    if (type == "REAL") return numberText(value.getDouble());
    return escaped(text);
}

} // namespace

std::vector<std::string> importedLines(SQLite::Database& database, const std::string& table,
                                       const std::vector<std::string>& columns,
                                       const std::vector<std::string>& singles)
{
    std::map<std::string, std::string> types;
    SQLite::Statement info(database, "SELECT name, type FROM pragma_table_info(?)");
    info.bind(1, table);
    while (info.executeStep())
        types[info.getColumn(0)] = info.getColumn(1).getString();

    std::string names;
    for (const std::string& column : columns)
        names += (names.empty() ? "\"" : ", \"") + column + '"';
    SQLite::Statement rows(database, "SELECT " + names + " FROM \"" + table + '"');
    std::vector<std::string> lines;
    while (rows.executeStep()) {
        std::string line;
        for (std::size_t at = 0; at < columns.size(); ++at) {
            const bool isSingle = std::find(singles.begin(), singles.end(), columns[at]) != singles.end();
            if (at > 0) line += '\t';
            line +=
                canonical(rows.getColumn(static_cast<int>(at)), columns[at], types[columns[at]], isSingle);
        }
        lines.push_back(std::move(line));
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

ExpectedTable readExpectedTable(const std::string& path)
{
    ExpectedTable table;
    std::istringstream text(readFile(path));
    std::string line;
    std::getline(text, line);
    table.columns = divided(line, '\t');
    while (std::getline(text, line))
        table.lines.push_back(line);
    std::sort(table.lines.begin(), table.lines.end());
    return table;
}

std::vector<ManifestLine> readManifest(const std::string& path)
{
    std::vector<ManifestLine> manifest;
    std::istringstream text(readFile(path));
    std::string line;
    std::getline(text, line);
    while (std::getline(text, line)) {
        const std::vector<std::string> fields = divided(line, '\t');
        manifest.push_back(
            {fields.at(0), std::stoul(fields.at(2)), divided(fields.at(3), ','), fields.at(5)});
    }
    return manifest;
}

std::string sha256Of(const std::vector<std::string>& lines)
{
    QCryptographicHash sum(QCryptographicHash::Sha256);
    for (const std::string& line : lines)
        sum.addData(QByteArray::fromStdString(line + '\n'));
    return sum.result().toHex().toStdString();
}
