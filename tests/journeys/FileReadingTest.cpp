// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "widgets/LinkButton.h"

#include <csignal>

namespace {

constexpr int longerThanIdle = 1500; ///< milliseconds

/// The window with a program in the place of the one that reads files. It notes what it is asked to do, and
/// takes its time until the test lets it go on.
class FileReadingJourney : public testing::Test
{
protected:
    FileReadingJourney()
    {
        const QString program = path("orvik-index");
        writeFile(program, "#!/bin/sh\n"
                           "cd \"$(dirname \"$0\")\"\n"
                           "printf %s $$ >process\n"
                           "{ echo \"$1 $2\"; tr '\\000' '\\n'; echo; } >>asked\n"
                           "if [ -e fail ]; then echo 'no room' >&2; exit 1; fi\n"
                           "until [ -e go ]; do echo 1 2000; sleep 0.1; done\n");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        journey.desktop.programs = journey.database.folder() + u"/programs"_s;
        journey.database.run(
            "INSERT INTO Document (DocumentID, DocumentName, FileLocation, dStatus) VALUES "
            "(2, 'Atlas', '2.pdf', 'ACTIVE'), (3, 'Brief', 'é 3.htm', 'ACTIVE'), (4, 'Chart', "
            "'4.pdf', 'deleted'), (5, 'Diary', '', 'ACTIVE')");
    }

    [[nodiscard]] QString path(const char* name) const
    {
        return journey.database.folder() + u"/programs/"_s + QString::fromUtf8(name);
    }

    /// Whether the program has ended, or does so in a moment.
    [[nodiscard]] bool ends() const
    {
        const pid_t process = contentOf(path("process")).toInt();
        return QTest::qWaitFor([process] { return ::kill(process, 0) != 0; }, 20'000);
    }

    /// Waits until the status line says that of the files, and offers that.
    testing::AssertionResult says(const char* text, const char* link = "")
    {
        const auto& progress = journey.find<QLabel>("pnlProgress");
        const auto& offered = journey.find<LinkButton>("cmdReading");
        const auto isSo = [&] {
            return progress.text() == QString::fromUtf8(text) && offered.text() == QString::fromUtf8(link) &&
                   progress.isVisible() == (*text != '\0');
        };
        if (QTest::qWaitFor(isSo, 20'000)) return testing::AssertionSuccess();
        return testing::AssertionFailure() << progress.text().toStdString();
    }

    void followLink() { QTest::mouseClick(&journey.find<LinkButton>("cmdReading"), Qt::LeftButton); }

    void deleteAtlas()
    {
        journey.trigger("mnuViewDocuments");
        journey.select("Atlas");
        ScriptedMessages& messages = journey.desktop.messages;
        messages.expectQuestion(u"Are you sure you want to delete the Document \"Atlas\"?"_s, true,
                                Question::Loss);
        messages.expectMessage(u"Document ID 2 successfully deleted."_s);
        journey.trigger("mnuRecordDelete");
    }

    Journey journey;
};

TEST_F(FileReadingJourney, GoesOnWhileTheUserDoesNothingAndCanBePaused)
{
    journey.start();
    ASSERT_TRUE(says("Reading files: 1 of 2,000", "Pause"));
    const QByteArray collection =
        (journey.dataFolder() + u"test.sqlite.filetext "_s + journey.dataFolder() + u"documents/"_s).toUtf8();
    const QByteArray first = collection + "\n2.pdf\né 3.htm\n\n";
    EXPECT_EQ(contentOf(path("asked")), first);

    followLink();
    EXPECT_TRUE(says("Reading paused: 1 of 2,000", "Continue"));
    EXPECT_TRUE(ends());
    deleteAtlas();
    QTest::qWait(longerThanIdle);
    EXPECT_EQ(contentOf(path("asked")), first) << "while it is paused";

    followLink();
    EXPECT_TRUE(says("Reading files: 1 of 2,000", "Pause"));
    const QByteArray second = first + collection + "\né 3.htm\n\n";
    EXPECT_EQ(contentOf(path("asked")), second);

    // a change during a reading is for the next one
    journey.trigger("mnuRecordUndo");
    QTest::qWait(longerThanIdle);
    writeFile(path("fail"));
    writeFile(path("go"));
    EXPECT_TRUE(says("The files could not be read.", "Try Again"));
    EXPECT_EQ(journey.find<LinkButton>("cmdReading").toolTip(), u"no room"_s);
    EXPECT_EQ(contentOf(path("asked")), second + first);
    QFile::remove(path("fail"));
    followLink();
    EXPECT_TRUE(says(""));
    QFile::remove(path("go"));
    journey.trigger("mnuRecordRedo");
    EXPECT_TRUE(says("Reading files: 1 of 2,000", "Pause"));
    journey.program.reset();
    EXPECT_TRUE(ends());
}

TEST_F(FileReadingJourney, FollowsDeletionsAndWhatOtherProgramsChange)
{
    const auto write = [this](const char* name, const char* text) {
        writeFile(journey.dataFolder() + u"documents/"_s + QString::fromUtf8(name), text);
    };
    const auto holds = [this](const char* texts) {
        const QString index = journey.dataFolder() + u"test.sqlite.filetext"_s;
        QString held;
        const auto isSo = [&] {
            try {
                held = TestDatabase::answer(index, u"SELECT Text FROM FileText ORDER BY Text"_s);
            } catch (const std::exception& notNow) {
                held = QString::fromUtf8(notNow.what());
            }
            return held == QString::fromUtf8(texts);
        };
        if (QTest::qWaitFor(isSo, 20'000)) return testing::AssertionSuccess();
        return testing::AssertionFailure() << held.toStdString();
    };
    write("2.pdf", "no paper but a text");
    write("é 3.htm", "<p>a <b>b</b>ridge</p>");
    write("4.pdf", "of a deleted document");
    journey.desktop.programs = QCoreApplication::applicationDirPath();
    journey.start();
    EXPECT_TRUE(holds("a bridge\nno paper but a text"));

    write("2.pdf", "a river");
    Q_EMIT qApp->applicationStateChanged(Qt::ApplicationActive);
    EXPECT_TRUE(holds("a bridge\na river"));
    deleteAtlas();
    EXPECT_TRUE(holds("a bridge"));
    journey.trigger("mnuRecordUndo");
    EXPECT_TRUE(holds("a bridge\na river"));
}

TEST_F(FileReadingJourney, LeavesACollectionAloneThatIsOnlyRead)
{
    StartRequest request;
    request.readOnly = true;
    journey.start(u"test.sqlite"_s, request);
    QTest::qWait(longerThanIdle);
    EXPECT_FALSE(QFile::exists(path("asked")));
}

TEST_F(FileReadingJourney, SaysThatTheProgramIsNotInstalled)
{
    QFile::remove(path("orvik-index"));
    journey.start();
    EXPECT_TRUE(says("The files could not be read.", "Try Again"));
    EXPECT_EQ(journey.find<LinkButton>("cmdReading").toolTip(),
              u"The program that reads them is not installed: "_s + path("orvik-index"));
}

} // namespace
