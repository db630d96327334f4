// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/StartRequest.h"

#include "opening/OpeningTexts.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <array>

namespace {

const QString readOnlyName = QStringLiteral("read-only");
const QString searchName = QStringLiteral("search");
const QString showName = QStringLiteral("show");
const QString helpName = QStringLiteral("help");
const QString versionName = QStringLiteral("version");

/// Those of Qt, which takes them from the command line when the windows are made.
constexpr std::array valuesOfQt{"platform", "platformpluginpath", "platformtheme", "plugin",
                                "style",    "stylesheet",         "session",       "display",
                                "geometry", "qwindowgeometry",    "icon",          "qwindowicon",
                                "title",    "qwindowtitle"};
constexpr std::array flagsOfQt{"reverse", "widgetcount", "nograb", "dograb", "sync"};

constexpr std::array<const char*, recordKinds.size()> kindWords{"document", "event", "organization"};

QString wordOf(RecordKind kind)
{
    return QString::fromLatin1(kindWords[static_cast<std::size_t>(kind)]);
}

QString helpText()
{
    return OpeningTexts::tr(
        "Usage: orvik-database [OPTION]... [FILE or FOLDER]\n"
        "Keeps a reference collection of documents, events and organizations.\n"
        "\n"
        "FILE is a database or an Access file, FOLDER that of a collection. Without one, the\n"
        "database opens that was open last. If it is open already, its window comes to the front.\n"
        "\n"
        "  --read-only           changes nothing in the database\n"
        "  --search WORDS        searches all records for up to four words\n"
        "  --show KIND:NUMBER    shows a record, such as document:12, event:7 or organization:3\n"
        "  -h, --help            prints this text\n"
        "  -v, --version         prints the version\n");
}

void addOptions(QCommandLineParser& parser)
{
    // Qt takes its own with one dash as with two
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QString value = QStringLiteral("value");
    parser.addOption(QCommandLineOption(readOnlyName));
    parser.addOption(QCommandLineOption(searchName, {}, value));
    parser.addOption(QCommandLineOption(showName, {}, value));
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("h"), helpName}));
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("v"), versionName}));
    for (const char* name : valuesOfQt)
        parser.addOption(QCommandLineOption(QString::fromLatin1(name), {}, value));
    for (const char* name : flagsOfQt)
        parser.addOption(QCommandLineOption(QString::fromLatin1(name)));
}

/// Reads a record such as `document:12`.
std::optional<RecordReference> recordOf(const QString& text)
{
    const qsizetype colon = text.indexOf(u':');
    bool isNumber = false;
    const qint64 identifier = text.mid(colon + 1).toLongLong(&isNumber);
    const auto* const kind = std::find_if(recordKinds.begin(), recordKinds.end(), [&](RecordKind each) {
        return text.left(colon).compare(wordOf(each), Qt::CaseInsensitive) == 0;
    });
    if (colon < 0 || !isNumber || identifier < 1 || kind == recordKinds.end()) return std::nullopt;
    return RecordReference{*kind, identifier};
}

CommandLine refusal(const QString& reason)
{
    return {std::nullopt, QStringLiteral("orvik-database: %1\n").arg(reason), true};
}

} // namespace

QStringList StartRequest::arguments() const
{
    QStringList all;
    if (readOnly) all << QStringLiteral("--") + readOnlyName;
    if (!keywords.isEmpty()) all << QStringLiteral("--") + searchName + u'=' + keywords;
    if (record) {
        all << QStringLiteral("--%1=%2:%3").arg(showName, wordOf(record->kind)).arg(record->identifier);
    }
    if (!path.isEmpty()) all << QStringLiteral("--") << path;
    return all;
}

CommandLine CommandLine::read(const QStringList& arguments, const QString& folder)
{
    QCommandLineParser parser;
    addOptions(parser);
    const bool isUnderstood = parser.parse(QStringList(QString()) + arguments);
    if (!isUnderstood) return refusal(parser.errorText());
    if (parser.isSet(helpName)) return {std::nullopt, helpText(), false};
    if (parser.isSet(versionName)) {
        return {std::nullopt,
                QStringLiteral("Orvik Database %1\n").arg(QCoreApplication::applicationVersion()), false};
    }
    const QStringList paths = parser.positionalArguments();
    if (paths.size() > 1) return refusal(OpeningTexts::tr("Only one file or folder can be opened."));
    if (paths.contains(QString())) return refusal(OpeningTexts::tr("The name of the file is empty."));
    StartRequest request;
    if (!paths.isEmpty()) request.path = QDir::cleanPath(QDir(folder).absoluteFilePath(paths.front()));
    request.readOnly = parser.isSet(readOnlyName);
    request.keywords = parser.value(searchName);
    if (parser.isSet(searchName) && request.keywords.trimmed().isEmpty()) {
        return refusal(OpeningTexts::tr("--search takes the words to search for."));
    }
    request.record = recordOf(parser.value(showName));
    if (parser.isSet(showName) && !request.record) {
        return refusal(
            OpeningTexts::tr("--show takes a record such as document:12, event:7 or organization:3."));
    }
    return {request, {}, false};
}
