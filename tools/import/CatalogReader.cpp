// SPDX-License-Identifier: GPL-3.0-or-later

#include "CatalogReader.h"

#include "ImportError.h"
#include "JetText.h"
#include "RowReader.h"
#include "UsageMap.h"

#include <mdbtools.h>

#include <algorithm>
#include <bit>
#include <memory>
#include <set>
#include <sys/mman.h>
#include <utility>

namespace accessimport {

namespace {

constexpr std::uint32_t catalogPage = 2;
constexpr std::int32_t tableObject = 1;
constexpr std::int32_t linkedOdbcObject = 4;
constexpr std::int32_t linkedAccessObject = 6;
/// Tables of the system, and those that the program which made the file hides from its user.
constexpr std::uint32_t systemFlags = 0x80000002;

/// The whole file as memory for libmdb. It opens files by name only, which would change the access time.
class MappedFile
{
public:
    explicit MappedFile(const SourceFile& file) : m_size(std::size_t{file.pageCount()} * pageSize)
    {
        m_memory = ::mmap(nullptr, m_size, PROT_READ, MAP_PRIVATE, file.descriptor(), 0);
        if (m_memory == MAP_FAILED)
            throw ImportError(ExitStatus::SourceUnreadable, "The file cannot be read into memory.");
    }
    ~MappedFile() { ::munmap(m_memory, m_size); }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    void* memory() const { return m_memory; }
    std::size_t size() const { return m_size; }

private:
    void* m_memory = nullptr;
    std::size_t m_size;
};

using Handle = std::unique_ptr<MdbHandle, decltype(&mdb_close)>;
using Definition = std::unique_ptr<MdbTableDef, decltype(&mdb_free_tabledef)>;

ImportError damagedDefinition(const std::string& name)
{
    return {ExitStatus::Damaged, "The file is damaged: the definition of table " + name + " cannot be read."};
}

SourceColumn columnOf(const MdbColumn& found)
{
    SourceColumn column;
    column.name = found.name;
    column.type = static_cast<ColumnType>(found.col_type);
    column.number = static_cast<std::uint16_t>(found.col_num);
    column.isFixed = found.is_fixed != 0;
    column.fixedOffset = static_cast<std::uint16_t>(found.fixed_offset);
    column.variableIndex = static_cast<std::uint16_t>(found.var_col_num);
    column.size = static_cast<std::uint16_t>(found.col_size);
    column.scale = found.col_scale;
    return column;
}

bool isKnownType(ColumnType type)
{
    const auto number = static_cast<int>(type);
    return (number >= 0x01 && number <= 0x0c) || number == 0x0f || number == 0x10 ||
           (number >= 0x12 && number <= 0x14);
}

/// Access allows no control characters in names, and the target's statements end at a zero.
bool isName(const std::string& name)
{
    return !name.empty() && std::none_of(name.begin(), name.end(), [](char character) {
        return static_cast<unsigned char>(character) < 0x20;
    });
}

/// Whether every column has a place of its own in the null mask and in the rows. A changed byte in a
/// definition would otherwise make one column's values appear in another.
bool arePlacesDistinct(const std::vector<SourceColumn>& columns)
{
    std::set<std::size_t> numbers;
    std::set<std::size_t> variable;
    std::set<std::size_t> fixed; // every byte taken
    for (const SourceColumn& column : columns) {
        if (!numbers.insert(column.number).second) return false;
        if (column.type == ColumnType::YesNo) continue;
        if (!column.isFixed) {
            if (!variable.insert(column.variableIndex).second) return false;
            continue;
        }
        for (std::size_t at = 0; at < fixedSize(column); ++at)
            if (!fixed.insert(column.fixedOffset + at).second) return false;
    }
    return true;
}

bool isSound(const SourceTable& table)
{
    return std::all_of(
               table.columns.begin(), table.columns.end(),
               [](const SourceColumn& column) { return isKnownType(column.type) && isName(column.name); }) &&
           arePlacesDistinct(table.columns);
}

SourceTable readDefinition(SourceFile& file, MdbHandle& handle, const std::string& name, std::uint32_t page)
{
    if (file.page(page)[0] != MDB_PAGE_TABLE) throw damagedDefinition(name);
    MdbCatalogEntry entry = {};
    entry.mdb = &handle;
    entry.object_type = MDB_TABLE;
    entry.table_pg = page;
    name.copy(entry.object_name, MDB_MAX_OBJ_NAME);

    const Definition definition(mdb_read_table(&entry), &mdb_free_tabledef);
    if (!definition || !mdb_read_columns(definition.get())) throw damagedDefinition(name);
    if (!definition->usage_map || definition->columns->len != definition->num_cols ||
        definition->num_cols == 0)
        throw damagedDefinition(name);

    SourceTable table;
    table.name = name;
    table.definitionPage = page;
    table.statedRows = definition->num_rows;
    table.hasVariableColumns = definition->num_var_cols > 0;
    for (guint at = 0; at < definition->columns->len; ++at)
        table.columns.push_back(
            columnOf(*static_cast<MdbColumn*>(g_ptr_array_index(definition->columns, at))));
    if (!isName(name) || !isSound(table)) throw damagedDefinition(name);
    table.pages = markedPages(file, Bytes(definition->usage_map, definition->map_sz));
    return table;
}

const SourceColumn& columnNamed(const SourceTable& table, const char* name)
{
    const auto found = std::find_if(table.columns.begin(), table.columns.end(),
                                    [name](const SourceColumn& column) { return column.name == name; });
    if (found == table.columns.end()) throw damagedDefinition(table.name);
    return *found;
}

std::int64_t numberOf(const RowReader& rows, const SourceColumn& column)
{
    const std::optional<Bytes> value = rows.value(column);
    if (!value) return 0;
    if (value->size() == 2) return std::bit_cast<std::int16_t>(read16(*value, 0));
    if (value->size() == 4) return std::bit_cast<std::int32_t>(read32(*value, 0));
    rows.fail("an entry of the catalog is malformed");
}

struct CatalogEntry
{
    std::string name;
    std::uint32_t page = 0;
    std::int64_t type = 0;
    std::uint32_t flags = 0;
};

std::vector<CatalogEntry> readEntries(SourceFile& file, const SourceTable& catalog)
{
    const SourceColumn& id = columnNamed(catalog, "Id");
    const SourceColumn& name = columnNamed(catalog, "Name");
    const SourceColumn& type = columnNamed(catalog, "Type");
    const SourceColumn& flags = columnNamed(catalog, "Flags");
    std::vector<CatalogEntry> entries;
    RowReader rows(file, catalog);
    while (rows.next()) {
        CatalogEntry entry;
        if (const std::optional<Bytes> stored = rows.value(name)) decodeText(*stored, entry.name);
        entry.page = static_cast<std::uint32_t>(numberOf(rows, id)) & 0xffffff;
        entry.type = numberOf(rows, type);
        entry.flags = static_cast<std::uint32_t>(numberOf(rows, flags));
        entries.push_back(std::move(entry));
    }
    if (entries.size() < catalog.statedRows)
        throw ImportError(ExitStatus::Damaged, "The file is damaged: its catalog lists " +
                                                   std::to_string(entries.size()) + " objects of " +
                                                   std::to_string(catalog.statedRows) + ".");
    return entries;
}

} // namespace

SourceCatalog readCatalog(SourceFile& file)
{
    const MappedFile memory(file);
    const Handle handle(mdb_open_buffer(memory.memory(), memory.size(), MDB_NOFLAGS), &mdb_close);
    if (!handle)
        throw ImportError(ExitStatus::Damaged, "The file is damaged: its first page cannot be read.");

    SourceCatalog catalog;
    const SourceTable objects = readDefinition(file, *handle, "MSysObjects", catalogPage);
    for (const CatalogEntry& entry : readEntries(file, objects)) {
        if (entry.type == linkedOdbcObject || entry.type == linkedAccessObject)
            catalog.linkedTables.push_back(entry.name);
        if (entry.type != tableObject) continue;
        catalog.definitionPages.push_back(entry.page);
        if ((entry.flags & systemFlags) == 0)
            catalog.tables.push_back(readDefinition(file, *handle, entry.name, entry.page));
    }
    return catalog;
}

} // namespace accessimport
