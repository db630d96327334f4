// SPDX-License-Identifier: GPL-3.0-or-later

#include "LongValue.h"

#include "ImportError.h"
#include "ImportTool.h"
#include "support/Testing.h"

using namespace accessimport;

namespace {

std::string number(std::uint32_t value)
{
    std::string bytes;
    for (int byte = 0; byte < 4; ++byte)
        bytes += static_cast<char>(value >> (8 * byte));
    return bytes;
}

/// A page of long values whose rows are these, from the end of the page backwards.
std::string longValuePage(const std::vector<std::string>& rows)
{
    std::string page(pageSize, '\0');
    page[0] = 1;
    page.replace(4, 4, "LVAL");
    page[12] = static_cast<char>(rows.size());
    std::size_t end = pageSize;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        end -= rows[at].size();
        page.replace(end, rows[at].size(), rows[at]);
        page.replace(14 + 2 * at, 2, number(static_cast<std::uint32_t>(end)), 0, 2);
    }
    return page;
}

std::uint32_t place(std::uint32_t page, std::uint32_t row)
{
    return page << 8 | row;
}

} // namespace

TEST(LongValue, isPutTogetherOrRefused)
{
    const std::string sound = readFile(testData("small.mdb"));
    const auto page = static_cast<std::uint32_t>(sound.size() / pageSize);
    const TemporaryFolder folder;
    writeFile(folder.path("it.mdb"), sound + longValuePage({
                                                 "whole",
                                                 number(place(page, 2)) + "first ",
                                                 number(0) + "second",
                                                 number(place(page, 3)) + "round and round",
                                                 number(place(page, 4)),
                                                 number(place(page + 1, 0)) + "into nothing",
                                             }));
    SourceFile file(folder.path("it.mdb"));

    constexpr std::uint32_t inPlace = 0x80000000;
    constexpr std::uint32_t single = 0x40000000;
    const std::vector<std::tuple<std::uint32_t, std::uint32_t, std::string, std::string>> cases = {
        {inPlace | 4, 0, "here", "here"},
        {inPlace | 0, 0, "", ""},
        {inPlace | 5, 0, "here", "refused"},
        {single | 5, place(page, 0), "", "whole"},
        {single | 6, place(page, 0), "", "refused"},
        {12, place(page, 1), "", "first second"},
        {6, place(page, 1), "", "refused"},
        {13, place(page, 1), "", "refused"},
        {1000000, place(page, 3), "", "refused"}, // a chain that leads to itself
        {1000000, place(page, 4), "", "refused"}, // the same, with nothing in it
        {12, place(page, 5), "", "refused"},      // a page that is not there
        {5, place(page, 9), "", "refused"},       // a row that is not there
        {single | 5, place(2, 0), "", "refused"}, // a page of another kind
        {0x3fffffff, place(page, 1), "", "refused"},
    };
    for (const auto& [header, at, rest, expected] : cases) {
        const std::string field = number(header) + number(at) + number(0) + rest;
        std::vector<std::uint8_t> value;
        std::string found;
        try {
            readLongValue(file, Bytes(reinterpret_cast<const std::uint8_t*>(field.data()), field.size()),
                          value);
            found.assign(value.begin(), value.end());
        } catch (const ImportError& error) {
            EXPECT_EQ(error.status(), ExitStatus::Damaged);
            found = "refused";
        }
        EXPECT_EQ(found, expected) << std::hex << header << ' ' << at;
    }
}
