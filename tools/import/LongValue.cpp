// SPDX-License-Identifier: GPL-3.0-or-later

#include "LongValue.h"

#include "DataPage.h"
#include "ImportError.h"

#include <optional>
#include <string>

namespace accessimport {

namespace {

constexpr std::size_t fieldHeader = 12;
constexpr std::uint32_t lengthMask = 0x3fffffff;
constexpr std::uint32_t inPlaceFlag = 0x80000000;
constexpr std::uint32_t singlePartFlag = 0x40000000;

[[noreturn]] void fail(const std::string& what)
{
    throw ImportError(ExitStatus::Damaged, "The file is damaged: " + what + ".");
}

/// The bytes at a place: the row in the lowest byte, the page in the others.
Bytes partAt(SourceFile& file, std::uint32_t place)
{
    const std::uint32_t pageNumber = place >> 8;
    const std::optional<DataPage> page = DataPage::open(file.page(pageNumber));
    const std::size_t number = place & 0xff;
    if (page && page->owner() == DataPage::longValueOwner)
        if (const std::optional<Bytes> part = page->row(number);
            part && page->rowKind(number) == DataPage::RowKind::Present)
            return *part;
    fail("a part of a long text is missing on page " + std::to_string(pageNumber));
}

void readChain(SourceFile& file, std::uint32_t place, std::size_t length, std::vector<std::uint8_t>& into)
{
    while (place != 0) {
        const Bytes part = partAt(file, place);
        // Without content there would be no end to a chain that runs in a circle.
        if (part.size() <= 4 || into.size() + part.size() - 4 > length)
            fail("a long text has too many parts");
        into.insert(into.end(), part.begin() + 4, part.end());
        place = read32(part, 0);
    }
}

} // namespace

void readLongValue(SourceFile& file, Bytes field, std::vector<std::uint8_t>& into)
{
    into.clear();
    if (field.empty()) return;
    if (field.size() < fieldHeader) fail("a long text's place is cut short");
    const std::uint32_t header = read32(field, 0);
    const std::size_t length = header & lengthMask;
    if (length > std::size_t{file.pageCount()} * pageSize) fail("a long text is longer than the file");

    if (header & inPlaceFlag) {
        const Bytes value = field.subspan(fieldHeader);
        into.assign(value.begin(), value.end());
    } else if (header & singlePartFlag) {
        const Bytes value = partAt(file, read32(field, 4));
        into.assign(value.begin(), value.end());
    } else {
        readChain(file, read32(field, 4), length, into);
    }
    if (into.size() != length) fail("a long text is not as long as it should be");
}

} // namespace accessimport
