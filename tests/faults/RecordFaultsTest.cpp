// SPDX-License-Identifier: GPL-3.0-or-later

#include "faults/FaultScene.h"
#include "files/FileUpload.h"
#include "journal/FormerFiles.h"
#include "journal/UndoSteps.h"
#include "lists/ListStore.h"
#include "records/DocumentStore.h"
#include "records/EventStore.h"
#include "records/OrganizationStore.h"
#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"

namespace {

/// Throws what no act throws: it would be lost in the other process.
void require(bool isDone)
{
    if (!isDone) throw std::logic_error("it was refused");
}

/// What a program has that changes records.
struct Program
{
    explicit Program(const QString& place) : folder(place), user(place + u"/user/"_s)
    {
        session.open(place + u"/data/records.sqlite"_s);
    }

    DatabaseSession session;
    ProgramFolder folder;
    QString user; ///< the folder with the user's files
    ScriptedClock clock;
};

/// A collection in which something is changed, with the session open before.
class RecordScene : public FaultScene
{
public:
    /// Makes what the user typed, and returns the change.
    using Typing = std::function<Act(Program&)>;

    RecordScene(Typing typing, bool isOfList) : m_typing(std::move(typing)) { keepsTables = !isOfList; }

protected:
    void prepare(const QString& folder) override
    {
        const TestDatabase database;
        database.runFile("editors/rows/Editor.sql");
        writeFile(folder + u"/data/records.sqlite"_s, database.bytes());
        writeFile(folder + u"/data/documents/2.pdf"_s, "old document");
        writeFile(folder + u"/data/orgcharts/2.png"_s, "old chart");
        writeFile(folder + u"/user/chart.png"_s, "new chart");
        writeFile(folder + u"/user/report.pdf"_s, "new document");
        writeFile(folder + u"/user/page.htm"_s, R"(<img src="page_files/a.gif">)");
        writeFile(folder + u"/user/page_files/a.gif"_s, "GIF");
    }

    Act begin(const QString& folder) override
    {
        auto program = std::make_shared<Program>(folder);
        return [program, change = m_typing(*program)] { change(); };
    }

    void startAgain(const QString& folder) override
    {
        Program program(folder);
        FileUpload(program.folder).clearUnfinished();
        FormerFiles::settle(program.session, program.folder);
    }

    /// A kill may leave the files of a document that is not there yet, and an empty folder of former charts.
    [[nodiscard]] bool isSpare(const QString& name) const override
    {
        return FaultScene::isSpare(name) || name.startsWith(u"data/documents/5"_s) ||
               name == u"data/orgcharts/former";
    }

private:
    Typing m_typing;
};

FaultScene::Act savingDocument(Program& program, const QString& file)
{
    DocumentStore store(program.session, program.folder, program.clock);
    DocumentRecord record = store.blank(std::nullopt);
    record.documentName = u"Storm survey"_s;
    record.originalFilename = program.user + file;
    record.venues.front().isChecked = true;
    return [store, record]() mutable { require(!store.saveDocument(record)); };
}

FaultScene::Act savingChart(Program& program)
{
    OrganizationStore store(program.session, program.folder, program.clock);
    OrganizationRecord record = store.load(2).record;
    record.organizationName = u"Zebra Rescue East"_s;
    record.profile.organizationChart = program.user + u"chart.png"_s;
    return [store, record]() mutable { require(!store.updateOrganization(record)); };
}

FaultScene::Act savingEvent(Program& program)
{
    EventStore store(program.session, program.clock);
    EventRecord record = store.load(2).record;
    record.notes = u"High water"_s;
    record.venues.front().isChecked = !record.venues.front().isChecked;
    record.functions = record.documents = record.organizations = {{u"a"_s, 2}, {u"b"_s, 3}};
    return [store, record]() mutable { require(!store.updateEvent(record)); };
}

/// A save with a chart is taken back.
class UndoScene final : public RecordScene
{
public:
    UndoScene() : RecordScene(undoing, false) {}

protected:
    void prepare(const QString& folder) override
    {
        RecordScene::prepare(folder);
        Program program(folder);
        savingChart(program)();
    }

private:
    static Act undoing(Program& program)
    {
        return [&program] {
            require(UndoSteps(program.session, program.clock, program.folder).undo().isDone());
        };
    }
};

TEST(RecordFaults, ADocumentIsSavedWithItsFile)
{
    RecordScene([](Program& program) { return savingDocument(program, u"report.pdf"_s); }, false)
        .expectWholeOrNone();
}

TEST(RecordFaults, ADocumentIsSavedWithItsWebPage)
{
    RecordScene([](Program& program) { return savingDocument(program, u"page.htm"_s); }, false)
        .expectWholeOrNone();
}

TEST(RecordFaults, AnOrganizationIsSavedWithANewChart)
{
    RecordScene(savingChart, false).expectWholeOrNone();
}

TEST(RecordFaults, AnEventIsDeleted)
{
    const auto typing = [](Program& program) -> FaultScene::Act {
        EventStore store(program.session, program.clock);
        return [store]() mutable { store.deleteEvent(2); };
    };
    RecordScene(typing, false).expectWholeOrNone();
}

TEST(RecordFaults, ListEntriesAreMerged)
{
    const auto typing = [](Program& program) -> FaultScene::Act {
        ListStore store(program.session, program.clock);
        return [store]() mutable { require(store.merge(ListKind::Venues, 12, 3).problem.isEmpty()); };
    };
    RecordScene(typing, true).expectWholeOrNone();
}

TEST(RecordKills, LeaveTheWholeOfASaveOrOfAnUndoOrNothing)
{
    const auto savingPage = [](Program& program) { return savingDocument(program, u"page.htm"_s); };
    int killed = 0;
    killed += RecordScene(savingPage, false).expectWholeOrNoneAfterKills(60);
    killed += RecordScene(savingEvent, false).expectWholeOrNoneAfterKills(60);
    killed += RecordScene(savingChart, false).expectWholeOrNoneAfterKills(60);
    killed += UndoScene().expectWholeOrNoneAfterKills(60);
    EXPECT_EQ(killed, 240);
}

} // namespace
