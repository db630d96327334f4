// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/FolderNames.h"
#include "files/ProgramFolder.h"
#include "support/Testing.h"

TEST(StoredNames, AWebPageIsFoundUnderEitherEnding)
{
    const QTemporaryDir place;
    const ProgramFolder folder(place.path());
    const QString documents = u"\\data\\documents\\"_s;
    const QString path = folder.machinePath(documents);
    for (const char* name : {"5.htm", "6.HTML", "7.htm", "7.html", "8.pdf"})
        writeFile(path + QLatin1String(name));

    const std::pair<QString, QString> cases[] = {{u"5.html"_s, u"5.htm"_s},  {u"5.HTM"_s, u"5.htm"_s},
                                                 {u"6.htm"_s, u"6.HTML"_s},  {u"7.htm"_s, u"7.htm"_s},
                                                 {u"7.Html"_s, u"7.html"_s}, {u"8.html"_s, QString()},
                                                 {u"5.htmll"_s, QString()},  {u"5"_s, QString()}};
    const FolderNames names(path);
    for (const auto& [sought, found] : cases) {
        const QString file = folder.find(documents, sought).value_or(QString());
        EXPECT_EQ(file, found.isEmpty() ? QString() : path + found) << qPrintable(sought);
        EXPECT_EQ(names.contains(sought), !found.isEmpty()) << qPrintable(sought);
    }
}

TEST(StoredNames, ALinkIsAFileOfItsFolderOnlyWithinIt)
{
    const QTemporaryDir place;
    const QString path = place.filePath(u"data/documents/"_s);
    for (const char* name : {"elsewhere/1.pdf", "elsewhere/2.pdf", "secret"})
        writeFile(place.filePath(QString::fromLatin1(name)));
    QDir().mkpath(place.filePath(u"data"_s));
    // the folder itself may be kept elsewhere
    ASSERT_TRUE(QFile::link(place.filePath(u"elsewhere"_s), place.filePath(u"data/documents"_s)));
    const std::tuple<QString, QString, bool> cases[] = {{u"2.pdf"_s, QString(), true},
                                                        {u"3.pdf"_s, u"2.pdf"_s, true},
                                                        {u"4.pdf"_s, path + u"2.pdf"_s, true},
                                                        {u"5.pdf"_s, u"../secret"_s, false},
                                                        {u"6.pdf"_s, place.filePath(u"secret"_s), false},
                                                        {u"7.pdf"_s, u"nowhere"_s, false}};
    for (const auto& [name, target, isFound] : cases) {
        ASSERT_TRUE(target.isEmpty() || QFile::link(target, path + name)) << qPrintable(name);
    }
    const ProgramFolder folder(place.path());
    const FolderNames names(path);
    for (const auto& [name, target, isFound] : cases) {
        EXPECT_EQ(folder.find(u"\\data\\documents\\"_s, name).has_value(), isFound) << qPrintable(name);
        EXPECT_EQ(names.contains(name), isFound) << qPrintable(name);
    }
}

TEST(StoredNames, PathsOfTheMachineHaveAProgramForm)
{
    EXPECT_EQ(ProgramFolder::programForm(u"/home/a b/c.pdf"_s), u"\\home\\a b\\c.pdf"_s);
    EXPECT_EQ(ProgramFolder::programForm(u"C:\\a\\c.pdf"_s), u"C:\\a\\c.pdf"_s);
}
