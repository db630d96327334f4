// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/FileHints.h"

#include "support/Testing.h"

TEST(FileHints, TellTheTypeAndATitleByTheNameOfAFile)
{
    const std::vector<ListEntry> types{
        {QStringLiteral("None"), 1},          {QStringLiteral("Adobe PDF"), 2},
        {QStringLiteral("Word Document"), 3}, {QStringLiteral("Web Page"), 4},
        {QStringLiteral("Picture"), 5},       {QStringLiteral("Film"), 6},
        {QStringLiteral("Video"), 7},         {QStringLiteral("GPX (track)"), 8}};
    const struct
    {
        const char* path;
        std::optional<qint64> type;
        const char* title;
    } cases[] = {
        {"/in/flood_report-final.PDF", 2, "flood report final"},
        {"C:\\in\\My page.htm", 4, "My page"},
        {"/in/2001-09-11_letter.docx", 3, "2001-09-11 letter"},
        {"/in/map.v2.jpeg", 5, "map.v2"},
        {"/in/walk.gpx", 8, "walk"},            // by the extension itself
        {"/in/clip.mp4", std::nullopt, "clip"}, // two types could be meant
        {"/in/data.xyz", std::nullopt, "data"}, // no type is
        {"/in.pdf/README", std::nullopt, "README"},
    };
    for (const auto& [path, type, title] : cases) {
        EXPECT_EQ(FileHints::fileType(QString::fromLatin1(path), types), type) << path;
        EXPECT_EQ(FileHints::title(QString::fromLatin1(path)), QString::fromLatin1(title)) << path;
    }
}

TEST(FileHints, TellWhatATypeOfTheUsersOwnLooksLike)
{
    const struct
    {
        int type;
        const char* name;
        int known;
    } cases[] = {{2, "Adobe PDF", 2},           {15, "PDF/A", 2}, {9, "Scanned JPEG", 6},
                 {12, "Web archive (html)", 4}, {2, "Video", 0},  {3, "Office file", 3},
                 {11, "Field book", 11},        {8, "", 8}};
    for (const auto& [type, name, known] : cases)
        EXPECT_EQ(FileHints::knownType(type, QString::fromLatin1(name)), known) << name;
}
