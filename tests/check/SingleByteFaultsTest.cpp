// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/CheckedCollection.h"
#include "journal/Snapshot.h"
#include "records/EventStore.h"
#include "records/OrganizationStore.h"

namespace {

constexpr int faults = 250; ///< of the database, and as many of the files

/// A collection that the program's own editors filled: the journal tells of every record, and of every file.
void fill(CheckedCollection& collection)
{
    const QByteArray text = QByteArray("The river rose and the board met. ").repeated(40);
    writeFile(collection.folder() + u"/in/page_files/a.gif"_s, text.first(700));
    for (int i = 0; i < 12; ++i)
        collection.addDocument(u"Document %1 of the flood"_s.arg(i), text.first(200 + 90 * i),
                               i == 3 ? u"page.htm"_s : u"a.txt"_s);
    writeFile(collection.folder() + u"/in/chart.pdf"_s, text);
    const ProgramFolder folder = collection.files();
    EventStore events(collection.session(), collection.clock());
    OrganizationStore organizations(collection.session(), folder, collection.clock());
    for (int i = 0; i < 12; ++i) {
        EventRecord event = events.blank(std::nullopt);
        event.eventName = u"Event %1 of the flood"_s.arg(i);
        event.eventDescription = QString::fromLatin1(text.first(400));
        event.startDate = u"06/1%1/2005"_s.arg(i % 10);
        event.documents = {{u"-"_s, 2 + i}};
        ASSERT_FALSE(events.saveEvent(event));
        OrganizationRecord organization = organizations.blank();
        organization.organizationName = u"Board %1"_s.arg(i);
        organization.responseActivities = QString::fromLatin1(text.first(300));
        organization.profile.missionStatement = QString::fromLatin1(text.first(250));
        if (i == 5) organization.profile.organizationChart = collection.folder() + u"/in/chart.pdf"_s;
        ASSERT_FALSE(organizations.saveOrganization(organization));
    }
    static_cast<void>(events.deleteEvent(7));
    collection.session().close();
}

/// Changes one bit of a file, at a place and in a way that depend on the number of the fault alone. Most of a
/// small database is empty; what is 0 is passed over.
QByteArray withFault(QByteArray content, int fault)
{
    auto at = static_cast<qsizetype>((static_cast<quint64>(fault) * 2654435761U) %
                                     static_cast<quint64>(content.size()));
    while (content[at] == 0)
        at = (at + 1) % content.size();
    content[at] = static_cast<char>(content[at] ^ (1 << (fault % 8)));
    return content;
}

QString textOf(const Value& json)
{
    return isNull(json) ? QString() : std::get<QString>(json);
}

/// All that belongs to each record, by its kind and identifier; empty if the file cannot be read.
std::map<std::pair<RecordKind, qint64>, QString> recordsOf(const QString& file)
{
    std::map<std::pair<RecordKind, qint64>, QString> found;
    try {
        DatabaseSession session;
        session.open(file, Access::Read);
        for (const RecordKind kind : recordKinds)
            for (qint64 identifier = 1; identifier < 20; ++identifier)
                found[{kind, identifier}] =
                    textOf(Snapshots::toJson(Snapshots::ofRecord(session, kind, identifier)));
    } catch (const Error&) {
        return {};
    }
    return found;
}

/// What SQLite reads of all tables, or why it cannot.
QString contentOfTables(const QString& file)
{
    QString content;
    try {
        SQLite::Database database(QFile::encodeName(file).toStdString(), SQLite::OPEN_READONLY);
        SQLite::Statement names(database,
                                "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name");
        while (names.executeStep()) {
            SQLite::Statement rows(database, "SELECT * FROM " + names.getColumn(0).getString());
            while (rows.executeStep())
                for (int i = 0; i < rows.getColumnCount(); ++i)
                    content += QString::fromLatin1(rows.getColumn(i).getString().c_str()) + u'|';
        }
    } catch (const SQLite::Exception& exception) {
        content += QString::fromUtf8(exception.what());
    }
    return content;
}

/// Of the database, a fault is found unless it changes nothing that any statement reads, or unless it lies in
/// what is kept only once and may be anything: former versions, what the journal says of earlier steps, the
/// names in lists. A record that changed is always named, by SQLite's own check or by that of the records.
TEST(SingleByteFaults, OfTheDatabaseAreFound)
{
    CheckedCollection collection;
    fill(collection);
    ASSERT_EQ(collection.found(), "");
    const QByteArray sound = contentOf(collection.database());
    const auto before = recordsOf(collection.database());
    const QString tables = contentOfTables(collection.database());
    ASSERT_FALSE(before.empty());
    int found = 0;
    int harmless = 0;
    int unseen = 0;
    for (int fault = 0; fault < faults; ++fault) {
        SCOPED_TRACE(fault);
        writeFile(collection.database(), withFault(sound, fault));
        const std::vector<CheckResult> results = collection.check();
        const bool isFound = !CheckedCollection::textOf(results).empty();
        found += isFound ? 1 : 0;
        const auto now = recordsOf(collection.database());
        if (!isFound) ++(contentOfTables(collection.database()) == tables ? harmless : unseen);
        const bool isStructureSound = results.front().findings.empty() && results.front().hindrance.isEmpty();
        if (!isStructureSound) continue;
        for (const auto& [record, content] : before) {
            const auto other = now.find(record);
            if (other == now.end() || other->second == content) continue;
            bool isNamed = false;
            for (const CheckResult& result : results)
                for (const Finding& finding : result.findings)
                    isNamed = isNamed || (finding.record && finding.record->kind == record.first &&
                                          finding.record->identifier == record.second);
            EXPECT_TRUE(isNamed) << recordNames(record.first).record.toStdString() << ' ' << record.second
                                 << ' ' << CheckedCollection::textOf(results);
        }
    }
    RecordProperty("found", found);
    RecordProperty("harmless", harmless);
    RecordProperty("unseen", unseen);
    EXPECT_EQ(found + harmless + unseen, faults);
    EXPECT_GT(found, faults * 9 / 10);
    EXPECT_LT(unseen, faults / 10) << "found " << found << ", harmless " << harmless;
}

/// Of the files of records, every fault is found, and the file is named.
TEST(SingleByteFaults, OfTheFilesAreFound)
{
    CheckedCollection collection;
    fill(collection);
    ASSERT_EQ(collection.found(), "");
    QStringList files;
    for (int i = 2; i < 14; ++i)
        files << (i == 5 ? u"documents/5.htm"_s : u"documents/%1.txt"_s.arg(i));
    files << u"documents/5_files/a.gif"_s << u"orgcharts/7.pdf"_s;
    for (int fault = 0; fault < faults; ++fault) {
        const QString file = files[fault % files.size()];
        const QByteArray sound = contentOf(collection.data() + file);
        writeFile(collection.data() + file, withFault(sound, fault));
        CollectionCheck check(collection.database(), collection.files(), CheckScope::StructureAndFiles);
        while (check.step()) {
        }
        QStringList named;
        for (const CheckResult& result : check.results())
            for (const Finding& finding : result.findings)
                named << checkName(result.topic) + u' ' + finding.file;
        EXPECT_EQ(named, QStringList{u"changed-files "_s + file}) << fault;
        writeFile(collection.data() + file, sound);
    }
    EXPECT_EQ(collection.found(), "");
}

} // namespace
