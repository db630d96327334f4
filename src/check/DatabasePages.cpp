// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/DatabasePages.h"

#include "check/CheckTexts.h"
#include "files/FileBlocks.h"
#include "util/Error.h"

#include <QFile>
#include <QStringDecoder>

#include <sqlite3.h>

#include <algorithm>
#include <bit>
#include <string_view>

namespace {

constexpr std::size_t headerSize = 100;
constexpr std::size_t leafHeader = 8;
constexpr std::size_t interiorHeader = 12;
constexpr std::size_t mostColumns = 32767; ///< that SQLite can be made to take

std::uint64_t number(const std::string& bytes, std::size_t at, std::size_t length)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < length; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes.at(at + i));
    return value;
}

/// A number of one to nine bytes, and the place after it; std::nullopt beyond the end.
std::optional<std::uint64_t> variable(const std::string& bytes, std::size_t& at)
{
    std::uint64_t value = 0;
    for (int i = 0; i < 9; ++i) {
        if (at >= bytes.size()) return std::nullopt;
        const auto byte = static_cast<unsigned char>(bytes[at++]);
        if (i == 8) return value << 8 | byte;
        value = value << 7 | (byte & 0x7FU);
        if ((byte & 0x80U) == 0) return value;
    }
    return std::nullopt;
}

std::size_t lengthOf(std::uint64_t type)
{
    constexpr std::size_t lengths[] = {0, 1, 2, 3, 4, 6, 8, 8, 0, 0};
    return type < 10 ? lengths[type] : static_cast<std::size_t>((type - 12) / 2);
}

std::int64_t signedNumber(const std::string& bytes)
{
    std::uint64_t value = number(bytes, 0, bytes.size());
    const std::size_t unused = 64 - bytes.size() * 8;
    return static_cast<std::int64_t>(value << unused) >> unused;
}

} // namespace

DatabasePages::DatabasePages(const QString& file)
    : m_file(file), m_stream(FileBlocks::open(QFile::encodeName(file).toStdString()))
{
    std::string header(headerSize, '\0');
    m_stream.read(header.data(), static_cast<std::streamsize>(header.size()));
    const std::size_t size = number(header, 16, 2);
    m_pageSize = size == 1 ? 65536 : size;
    const bool isDatabase = m_stream && header.starts_with("SQLite format 3") && m_pageSize >= 512 &&
                            std::has_single_bit(m_pageSize);
    if (!isDatabase) {
        throw Error(SQLITE_NOTADB,
                    CheckTexts::tr("The beginning of the database is damaged. (%1)").arg(file));
    }
    m_usable = m_pageSize - number(header, 20, 1);
    m_firstFree = static_cast<std::uint32_t>(number(header, 32, 4));
    m_encoding = static_cast<int>(number(header, 56, 4));
    m_count = static_cast<std::uint32_t>(static_cast<std::size_t>(QFile(file).size()) / m_pageSize);
}

bool DatabasePages::load(std::uint32_t number, std::string& page)
{
    if (number < 1 || number > m_count) return false;
    page.resize(m_pageSize);
    m_stream.clear();
    m_stream.seekg(static_cast<std::streamoff>(number - 1) * static_cast<std::streamoff>(m_pageSize));
    m_stream.read(page.data(), static_cast<std::streamsize>(page.size()));
    return static_cast<bool>(m_stream);
}

DatabasePages::Page DatabasePages::read(std::uint32_t number)
{
    Page found;
    std::string page;
    if (!load(number, page)) return found;
    const std::size_t begin = number == 1 ? headerSize : 0;
    switch (static_cast<unsigned char>(page[begin])) {
    case 0x02:
        found.kind = Kind::IndexInterior;
        break;
    case 0x05:
        found.kind = Kind::TableInterior;
        break;
    case 0x0A:
        found.kind = Kind::IndexLeaf;
        break;
    case 0x0D:
        found.kind = Kind::TableLeaf;
        break;
    default:
        return found;
    }
    const bool isInterior = found.kind == Kind::TableInterior || found.kind == Kind::IndexInterior;
    const std::size_t cells = ::number(page, begin + 3, 2);
    const std::size_t pointers = begin + (isInterior ? interiorHeader : leafHeader);
    if (pointers + 2 * cells > m_usable) return {};
    for (std::size_t i = 0; i < cells; ++i) {
        std::size_t at = ::number(page, pointers + 2 * i, 2);
        if (at < pointers + 2 * cells || at + 4 > m_usable) {
            ++found.lost;
            continue;
        }
        if (isInterior) {
            found.children.push_back(static_cast<std::uint32_t>(::number(page, at, 4)));
            at += 4;
        }
        if (found.kind == Kind::TableLeaf)
            readLeafRow(page, at, found);
        else if (found.kind != Kind::TableInterior)
            readEntry(page, at, found);
    }
    if (isInterior) found.children.push_back(static_cast<std::uint32_t>(::number(page, begin + 8, 4)));
    return found;
}

void DatabasePages::readLeafRow(const std::string& page, std::size_t at, Page& found)
{
    const auto size = variable(page, at);
    const auto rowNumber = variable(page, at);
    const auto content = size && rowNumber ? payload(page, at, *size, false, found) : std::nullopt;
    auto row = content ? record(*content) : std::nullopt;
    // rows are in the order of their numbers; one that is not has a number that is not its own
    const auto own = static_cast<std::int64_t>(rowNumber.value_or(0));
    if (!row || (!found.rows.empty() && found.rows.back().number >= own)) {
        ++found.lost;
        return;
    }
    row->number = own;
    found.rows.push_back(std::move(*row));
}

void DatabasePages::readEntry(const std::string& page, std::size_t at, Page& found)
{
    const auto size = variable(page, at);
    const auto content = size ? payload(page, at, *size, true, found) : std::nullopt;
    auto row = content ? record(*content) : std::nullopt;
    if (row && !row->isCut)
        found.rows.push_back(std::move(*row));
    else
        ++found.lost;
}

/// The bytes of a row, the end of which may lie in other pages.
std::optional<DatabasePages::Payload> DatabasePages::payload(const std::string& page, std::size_t at,
                                                             std::uint64_t size, bool isIndex, Page& found)
{
    if (size > static_cast<std::uint64_t>(m_count) * m_pageSize) return std::nullopt;
    const std::size_t most = isIndex ? (m_usable - 12) * 64 / 255 - 23 : m_usable - 35;
    const std::size_t least = (m_usable - 12) * 32 / 255 - 23;
    std::size_t local = static_cast<std::size_t>(size);
    if (size > most) {
        const std::size_t wanted = least + (static_cast<std::size_t>(size) - least) % (m_usable - 4);
        local = wanted <= most ? wanted : least;
    }
    const bool goesOn = local < size;
    if (at + local + (goesOn ? 4 : 0) > m_usable) return std::nullopt;
    Payload content{page.substr(at, local), false};
    if (!goesOn) return content;
    auto next = static_cast<std::uint32_t>(number(page, at + local, 4));
    std::string other;
    while (content.bytes.size() < size) {
        // a page that belongs to the row, or to another one, already may lead round and round
        if (next == 1 || !load(next, other) || !found.continuations.insert(next).second) {
            content.isCut = true;
            break;
        }
        const std::size_t part =
            std::min<std::size_t>(m_usable - 4, static_cast<std::size_t>(size) - content.bytes.size());
        content.bytes.append(other, 4, part);
        next = static_cast<std::uint32_t>(number(other, 0, 4));
    }
    return content;
}

std::optional<DatabasePages::Row> DatabasePages::record(const Payload& payload) const
{
    const std::string& bytes = payload.bytes;
    std::size_t at = 0;
    const auto size = variable(bytes, at);
    if (!size || *size > bytes.size()) return std::nullopt;
    Row row;
    row.isCut = payload.isCut;
    std::size_t value = static_cast<std::size_t>(*size);
    while (at < *size) {
        const auto type = variable(bytes, at);
        if (!type || at > *size || *type == 10 || *type == 11) return std::nullopt;
        if (row.cells.size() == mostColumns) return std::nullopt;
        const std::size_t length = lengthOf(*type);
        if (length > bytes.size() || value + length > bytes.size()) {
            if (!payload.isCut) return std::nullopt;
            const bool isText = *type >= 13 && *type % 2 == 1 && value < bytes.size();
            if (isText) row.cells.emplace_back(textOf(bytes.substr(value)));
            return row;
        }
        const std::string content = bytes.substr(value, length);
        value += length;
        if (*type == 0)
            row.cells.emplace_back();
        else if (*type == 7)
            row.cells.emplace_back(std::bit_cast<double>(number(content, 0, 8)));
        else if (*type < 7)
            row.cells.emplace_back(signedNumber(content));
        else if (*type < 10)
            row.cells.emplace_back(static_cast<std::int64_t>(*type - 8));
        else if (*type % 2 == 0)
            row.cells.emplace_back(Blob{content});
        else
            row.cells.emplace_back(textOf(content));
    }
    // what is left over shows that the row is not what its head says
    if (!payload.isCut && value != bytes.size()) return std::nullopt;
    return row;
}

std::string DatabasePages::textOf(const std::string& bytes) const
{
    constexpr int littleEndian = 2;
    constexpr int bigEndian = 3;
    if (m_encoding != littleEndian && m_encoding != bigEndian) return bytes;
    QStringDecoder decoder(m_encoding == littleEndian ? QStringConverter::Utf16LE
                                                      : QStringConverter::Utf16BE);
    const QString text = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return text.toStdString();
}

std::vector<bool> DatabasePages::freePages()
{
    std::vector<bool> free(m_count + 1, false);
    std::string page;
    for (std::uint32_t trunk = m_firstFree; trunk != 0 && trunk <= m_count && !free[trunk];) {
        free[trunk] = true;
        if (!load(trunk, page)) break;
        const std::size_t leaves = std::min<std::size_t>(number(page, 4, 4), m_usable / 4 - 2);
        for (std::size_t i = 0; i < leaves; ++i) {
            const std::uint64_t leaf = number(page, 8 + 4 * i, 4);
            if (leaf > 0 && leaf <= m_count) free[leaf] = true;
        }
        trunk = static_cast<std::uint32_t>(number(page, 0, 4));
    }
    return free;
}
