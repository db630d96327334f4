// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/EditorTest.h"
#include "records/DocumentStore.h"
#include "records/EventStore.h"
#include "records/OrganizationStore.h"

#include <QFile>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Saves records of every kind in a process that is killed in the middle of a save.
class InterruptedSave : public EditorTest
{
protected:
    /// Saves until the process ends. Each record is added and then changed, and each of its versions differs
    /// in all of its tables, so that a half-written save shows.
    [[noreturn]] void saveForEver(int round)
    {
        try {
            m_state.session.open(
                m_database.fileName()); // a connection must not be shared with another process
            for (int count = 0;; ++count) {
                const QString name = u"%1 of %2"_s.arg(count).arg(round);
                switch ((count + round) % 3) {
                case 0:
                    saveDocument(name);
                    break;
                case 1:
                    saveEvent(name);
                    break;
                default:
                    saveOrganization(name);
                    break;
                }
            }
        } catch (const Error& error) {
            std::fputs(error.what(), stderr);
        }
        _exit(1);
    }

    void saveDocument(const QString& name)
    {
        DocumentStore store(m_state.session, m_state.folder, m_clock);
        DocumentRecord record = store.blank(std::nullopt);
        record.documentName = name;
        record.documentDescription = u"x"_s;
        record.originalFilename = m_file;
        record.volume = u"1"_s;
        (void)store.saveDocument(record);
        record.volume = u"2"_s;
        record.types = {{u"a"_s, 2}, {u"b"_s, 3}};
        record.categories = {{u"a"_s, 2}, {u"b"_s, 3}};
        check(record.venues, {2, 3});
        (void)store.updateDocument(record);
    }

    void saveEvent(const QString& name)
    {
        EventStore store(m_state.session, m_clock);
        EventRecord record = store.blank(std::nullopt);
        record.eventName = name;
        record.notes = u"1"_s;
        check(record.venues, {2});
        (void)store.saveEvent(record);
        record.notes = u"2"_s;
        check(record.venues, {2, 3});
        record.functions = record.documents = record.organizations = {{u"a"_s, 2}, {u"b"_s, 3}};
        (void)store.updateEvent(record);
    }

    void saveOrganization(const QString& name)
    {
        OrganizationStore store(m_state.session, m_state.folder, m_clock);
        OrganizationRecord record = store.blank();
        record.organizationName = name;
        record.notes = record.profile.volunteers = u"1"_s;
        check(record.venues, {2});
        check(record.jurisdictions, {1});
        check(record.populations, {1});
        (void)store.saveOrganization(record);
        record.notes = record.profile.volunteers = u"2"_s;
        check(record.venues, {2, 3});
        check(record.jurisdictions, {1, 2});
        check(record.populations, {1, 2});
        (void)store.updateOrganization(record);
    }

    QString m_file = userFile(u"a.pdf"_s, QByteArray(10000, 'x'));
};

TEST_F(InterruptedSave, LeavesTheWholeSaveOrNoneOfIt)
{
    constexpr int rounds = 60;
    int interruptedWhileWriting = 0;
    std::mt19937 random(20050615);
    m_state.session.close();
    m_database.runFile("editors/rows/HalfWritten.sql");
    for (int round = 0; round < rounds; ++round) {
        const pid_t child = fork();
        if (child == 0) saveForEver(round);
        std::this_thread::sleep_for(std::chrono::microseconds(5000 + random() % 120000));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the saving ended by itself";
        if (QFile::exists(m_database.fileName() + u"-journal"_s)) ++interruptedWhileWriting;
        m_database.run(
            "SELECT count(*) FROM Document"); // the next to open the file rolls back what is unfinished
        ASSERT_EQ(ask("PRAGMA integrity_check"), u"ok"_s);
        ASSERT_EQ(ask("SELECT * FROM HalfWritten"), QString());
    }
    EXPECT_GT(interruptedWhileWriting, 0);
    for (const char* saved : {"SELECT count(*) - 4 FROM Document", "SELECT count(*) - 3 FROM Event",
                              "SELECT count(*) - 5 FROM Organization"}) {
        EXPECT_GT(ask(saved).toInt(), 0) << saved;
    }
    // every document that is there has its file
    EXPECT_EQ(
        ask("SELECT count(*) FROM Document WHERE DocumentID > 4 AND FileLocation <> DocumentID || '.pdf'"),
        u"0"_s);
    for (const QString& id : ask("SELECT DocumentID FROM Document WHERE DocumentID > 4").split(u'\n')) {
        ASSERT_EQ(stored(u"documents/"_s + id + u".pdf"_s).size(), 10000) << qPrintable(id);
    }
}

} // namespace
