// SPDX-License-Identifier: GPL-3.0-or-later
// What the tool says of itself, in its help, in the man page and when a command line is completed.

#include "console/Tool.h"
#include "export/ExportFormats.h"
#include "support/Testing.h"

namespace {

/// All that a pattern's group finds in a text.
QStringList allIn(const QString& text, const QString& pattern)
{
    QStringList found;
    auto matches = QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (matches.hasNext())
        found << matches.next().captured(1);
    return found;
}

QString helpOf(const QString& command)
{
    const ToolRun run = runTool({command, u"--help"_s});
    EXPECT_EQ(run.status, 0) << command.toStdString();
    EXPECT_EQ(run.error, QString());
    return run.output;
}

QStringList commands()
{
    return allIn(runTool({u"--help"_s}).output, u"^  (\\w+) "_s);
}

QStringList optionsOf(const QString& command)
{
    return allIn(helpOf(command), u"^  (?:-\\w, )?(--[\\w-]+) "_s);
}

/// What bash offers for the last of some words.
QSet<QString> offered(const QStringList& words, const QString& folder = {})
{
    QStringList quoted;
    for (const QString& word : words)
        quoted << u"'%1'"_s.arg(word);
    const QString script = u"cd '%1'; source '%2'; COMP_WORDS=(orvik-tool %3); COMP_CWORD=%4; _orvik_tool; "
                           "printf '%s\\n' \"${COMPREPLY[@]}\""_s
                               .arg(folder, QStringLiteral(ORVIK_COMPLETION), quoted.join(u' '))
                               .arg(words.size());
    const QStringList lines = outputOf(u"bash"_s, {u"-c"_s, script}).split(u'\n', Qt::SkipEmptyParts);
    return {lines.begin(), lines.end()};
}

QSet<QString> setOf(const QStringList& texts)
{
    return {texts.begin(), texts.end()};
}

TEST(ToolHelp, ManPageAndCompletionNameEveryCommandAndOption)
{
    const QString page =
        QString::fromUtf8(contentOf(QStringLiteral(ORVIK_MAN_PAGE))).replace(u"\\-"_s, u"-"_s);
    ASSERT_EQ(commands().size(), 10);
    EXPECT_EQ(setOf(commands() << u"--help"_s << u"--version"_s), offered({QString()}));
    const QString sections = page.section(u".SH COMMANDS"_s, 1).section(u".SH OPTIONS"_s, 0, 0);
    EXPECT_EQ(allIn(sections, u"^\\.TP\n\\.BI (\\w+) "_s), commands()) << "in the order of the help";
    const QString formats = page.section(u".SH \"JSON DOCUMENTS\""_s, 1);
    EXPECT_EQ(setOf(allIn(formats, u"^\\.TP\n\\.B (\\w+)\n"_s)).intersect(setOf(commands())),
              setOf(commands()));
    for (const QString& command : commands()) {
        const QStringList options = optionsOf(command);
        EXPECT_EQ(setOf(options), offered({command, u"--"_s})) << command.toStdString();
        for (const QString& option : options)
            EXPECT_TRUE(page.contains(QRegularExpression(u"^\\.BR? %1( |$)|^\\.BR -h .* %1$"_s.arg(option),
                                                         QRegularExpression::MultilineOption)))
                << option.toStdString();
    }
    const QString complaints =
        outputOf(u"bash"_s,
                 {u"-c"_s, u"man --warnings -l '%1' 2>&1 >/dev/null"_s.arg(QStringLiteral(ORVIK_MAN_PAGE))});
    EXPECT_EQ(complaints, QString());
}

TEST(ToolHelp, CompletionOffersKindsAndTheFilesThatACommandTakes)
{
    const QTemporaryDir folder;
    for (const char* name : {"a.zip", "a.tar.zst", "a.mdb", "a.sqlite", "a.txt", "An older one/a"})
        writeFile(folder.filePath(QString::fromLatin1(name)));
    const QString folders = u"An older one"_s;
    const QSet<QString> kinds{u"documents"_s, u"events"_s, u"organizations"_s};
    EXPECT_EQ(offered({u"list"_s, u"Rivers"_s, {}}), kinds);
    EXPECT_EQ(offered({u"show"_s, u"Rivers"_s, u"ev"_s}), QSet<QString>{u"events:"_s});
    EXPECT_EQ(offered({u"restore"_s, {}}, folder.path()),
              (QSet<QString>{u"a.zip"_s, u"a.tar.zst"_s, folders}));
    EXPECT_EQ(offered({u"import"_s, {}}, folder.path()), (QSet<QString>{u"a.mdb"_s, folders}));
    EXPECT_EQ(offered({u"check"_s, u"--files"_s, {}}, folder.path()),
              (QSet<QString>{u"a.sqlite"_s, folders}));
    const QString page = QString::fromUtf8(contentOf(QStringLiteral(ORVIK_MAN_PAGE)));
    for (const RecordKind kind : recordKinds) {
        const QString word = recordNames(kind).record.toLower() + u's';
        const QSet<QString> formats = offered({u"export"_s, u"--json"_s, u"Rivers"_s, word, {}});
        for (const ExportFormat& format : exportFormats()) {
            EXPECT_EQ(formats.contains(format.name), format.isFor(kind)) << format.name.toStdString();
            EXPECT_TRUE(page.contains(u"\n.B "_s + format.name) || page.contains(u"\n.BR "_s + format.name));
        }
    }
}

TEST(ToolHelp, TellsItsVersion)
{
    const ToolRun run = runTool({u"--version"_s});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.output.startsWith(u"Orvik Database "_s));
}

} // namespace
