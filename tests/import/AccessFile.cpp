// SPDX-License-Identifier: GPL-3.0-or-later

#include "AccessFile.h"

#include "CatalogReader.h"
#include "FileHeader.h"
#include "ImportTool.h"

#include <stdexcept>

using namespace accessimport;

namespace {

const SourceTable& tableNamed(const SourceCatalog& catalog, const std::string& name)
{
    for (const SourceTable& table : catalog.tables)
        if (table.name == name) return table;
    throw std::runtime_error("no table " + name);
}

Bytes bytesOf(const std::string& text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// A text as it stands in an Access file: two bytes for each character.
std::string wide(const std::string& text)
{
    std::string units;
    for (const char character : text)
        units += {character, '\0'};
    return units;
}

} // namespace

AccessFile::AccessFile(const std::string& name) : bytes(readFile(testData(name))), m_path(testData(name)) {}

void AccessFile::renameTable(const std::string& from, const std::string& to)
{
    const Place entry = catalogEntryOf(from);
    const std::size_t at = bytes.find(wide(from), entry.start);
    if (at >= entry.start + entry.size || from.size() != to.size())
        throw std::runtime_error("cannot rename " + from);
    bytes.replace(at, wide(to).size(), wide(to));
}

std::size_t AccessFile::definitionOf(const std::string& table) const
{
    SourceFile file(m_path);
    return std::size_t{tableNamed(readCatalog(file), table).definitionPage} * pageSize;
}

void AccessFile::renameColumn(const std::string& table, const std::string& from, const std::string& to)
{
    const auto stored = [](const std::string& name) {
        return std::string{static_cast<char>(name.size() * 2), '\0'} + wide(name);
    };
    const std::size_t page = definitionOf(table);
    const std::size_t at = bytes.find(stored(from), page);
    if (at >= page + pageSize || from.size() != to.size()) throw std::runtime_error("cannot rename " + from);
    bytes.replace(at, stored(to).size(), stored(to));
}

void AccessFile::exchangeColumns(const std::string& table, const std::string& one, const std::string& other)
{
    const std::string between(one.size(), '#');
    renameColumn(table, one, between);
    renameColumn(table, other, one);
    renameColumn(table, between, other);
}

AccessFile::Place AccessFile::findRow(std::uint32_t owner,
                                      const std::function<bool(DataPage::RowKind, Bytes)>& isWanted) const
{
    for (std::size_t start = 0; start + pageSize <= bytes.size(); start += pageSize) {
        const std::optional<DataPage> page = DataPage::open(bytesOf(bytes).subspan(start, pageSize));
        for (std::size_t at = 0; page && page->owner() == owner && at < page->rowCount(); ++at) {
            if (!isWanted(page->rowKind(at), *page->row(at))) continue;
            return {static_cast<std::size_t>(page->row(at)->data() - bytesOf(bytes).data()),
                    page->row(at)->size()};
        }
    }
    throw std::runtime_error("no such row");
}

AccessFile::Place AccessFile::rowOf(const std::string& table, std::size_t row) const
{
    const auto owner = static_cast<std::uint32_t>(definitionOf(table) / pageSize);
    return findRow(owner, [&row](DataPage::RowKind kind, Bytes) {
        return kind == DataPage::RowKind::Present && row-- == 0;
    });
}

/// The catalog is the table at page 2; the first column of an entry is the page of its definition.
/// An entry may have moved within it.
AccessFile::Place AccessFile::catalogEntryOf(const std::string& table) const
{
    const auto page = static_cast<std::uint32_t>(definitionOf(table) / pageSize);
    return findRow(2, [page](DataPage::RowKind kind, Bytes row) {
        return kind != DataPage::RowKind::Moved && read32(row, 2) == page;
    });
}

void AccessFile::setFirstNumber(const std::string& table, std::size_t row, std::uint32_t value)
{
    const std::size_t at = rowOf(table, row).start + 2;
    for (std::size_t byte = 0; byte < 4; ++byte)
        bytes[at + byte] = static_cast<char>(value >> (8 * byte));
}

void AccessFile::clearFirstNumber(const std::string& table, std::size_t row)
{
    const Place place = rowOf(table, row);
    const std::size_t maskSize = (static_cast<std::size_t>(bytes[place.start]) + 7) / 8;
    char& mask = bytes[place.start + place.size - maskSize];
    mask = static_cast<char>(mask & ~1);
}

void AccessFile::addToStatedRows(const std::string& table, int difference)
{
    char& count = bytes[definitionOf(table) + 16];
    count = static_cast<char>(count + difference);
}

void AccessFile::setCatalogType(const std::string& table, char type)
{
    bytes[catalogEntryOf(table).start + 2 + 8] = type;
}

void AccessFile::unscramble()
{
    unscrambleHeader({reinterpret_cast<std::uint8_t*>(bytes.data()), pageSize});
}
