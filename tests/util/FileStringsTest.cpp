// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/FileStrings.h"

#include "support/Testing.h"

TEST(FileStrings, CutsAPathIntoItsParts)
{
    // a path, and its drive, directory, name, extension and whole path
    const std::pair<QString, QString> cases[] = {
        {u"C:\\My files\\report.v2.pdf"_s,
         u"C:\\|C:\\My files\\|report.v2|pdf|C:\\My files\\report.v2.pdf"_s},
        {u"57.htm"_s, u"||57|htm|57.htm"_s},
        {u"\\folder.d\\name"_s, u"|\\folder.d\\|name||\\folder.d\\name."_s},
        {u"\\a\\.hidden"_s, u"|\\a\\||hidden|\\a\\.hidden"_s},
        {u"\\a\\"_s, u"|\\a\\|||\\a\\."_s},
        {u":x"_s, u":\\||:x||:x."_s},
        {QString(), u"||||."_s},
    };
    FileStrings parts;
    for (const auto& [path, expected] : cases) {
        parts.CrackFileName(path);
        const QStringList found{parts.drive(), parts.directory(), parts.baseName(), parts.extension(),
                                parts.fullPath()};
        EXPECT_EQ(found.join(u'|'), expected);
    }
}
