#include "util/FileStrings.h"

#include "support/TextPrinting.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(FileStrings, CutsAPathIntoItsParts)
{
    const struct
    {
        QString path;
        QString drive;
        QString directory;
        QString baseName;
        QString extension;
        QString fullPath;
    } cases[] = {{u"C:\\My files\\report.v2.pdf"_s, u"C:\\"_s, u"C:\\My files\\"_s, u"report.v2"_s, u"pdf"_s,
                  u"C:\\My files\\report.v2.pdf"_s},
                 {u"57.htm"_s, {}, {}, u"57"_s, u"htm"_s, u"57.htm"_s},
                 {u"\\folder.d\\name"_s, {}, u"\\folder.d\\"_s, u"name"_s, {}, u"\\folder.d\\name."_s},
                 {u"\\a\\.hidden"_s, {}, u"\\a\\"_s, {}, u"hidden"_s, u"\\a\\.hidden"_s},
                 {u"\\a\\"_s, {}, u"\\a\\"_s, {}, {}, u"\\a\\."_s},
                 {u":x"_s, u":\\"_s, {}, u":x"_s, {}, u":x."_s},
                 {QString(), {}, {}, {}, {}, u"."_s}};
    FileStrings parts;
    for (const auto& expected : cases) {
        parts.CrackFileName(expected.path);
        EXPECT_EQ(parts.drive(), expected.drive) << qPrintable(expected.path);
        EXPECT_EQ(parts.directory(), expected.directory) << qPrintable(expected.path);
        EXPECT_EQ(parts.baseName(), expected.baseName) << qPrintable(expected.path);
        EXPECT_EQ(parts.extension(), expected.extension) << qPrintable(expected.path);
        EXPECT_EQ(parts.fullPath(), expected.fullPath) << qPrintable(expected.path);
    }
}

} // namespace
