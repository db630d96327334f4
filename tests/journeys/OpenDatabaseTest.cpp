// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "opening/DesktopDatabaseConverter.h"
#include "opening/frmImport.h"
#include "platform/DesktopWorkRunner.h"
#include "platform/StdREG.h"
#include "platform/SteppedWork.h"
#include "platform/frmProgress.h"

namespace {

QString accessFile()
{
    return QStringLiteral(ORVIK_ACCESS_FILE);
}

/// The program with the real tool that converts, on a copy of a real Access file.
class OpenDatabase : public ::testing::Test
{
protected:
    OpenDatabase() { journey.converter = &m_converter; }

    QString copyAccessFile(const QString& path)
    {
        EXPECT_TRUE(QFile::copy(accessFile(), path));
        QFile::setPermissions(path, QFile::ReadOwner);
        return path;
    }

    void expectConverted(const QString& name, const QString& target, const QString& missing = {})
    {
        journey.desktop.messages.expectMessage(
            u"The Access file %1 was converted to the database %2, which the program uses from now on. The "
            "Access file is unchanged.\n\n28 tables with 2528 rows were taken over and checked.\nNot shown "
            "in "
            "lists: Document: 8 deleted, 1 without a status; Event: 7 deleted, 1 without a status; "
            "Organization: 3 deleted, 1 without a status."_s.arg(name, target) +
            missing);
    }

    void expectPlacement(const QString& file, std::optional<int> answer)
    {
        journey.desktop.messages.expectChoice(
            u"%1 is not in a collection of its own.\n\nDo you want to copy it into a new collection, or to "
            u"use "
            "it where it is? If it is used there, the program keeps the files of its documents and charts "
            "beside it, in the folder %2."_s.arg(QFileInfo(file).fileName(), QFileInfo(file).path()),
            {u"&Copy It"_s, u"&Use It There"_s}, answer);
    }

    QString setting() const
    {
        return StdREG(const_cast<MemorySettings&>(journey.desktop.settings))
            .GetRegString(QString(), u"DBFile"_s);
    }

    Journey journey;

private:
    DesktopDatabaseConverter m_converter{QStringLiteral(ORVIK_IMPORT_TOOL)};
};

TEST_F(OpenDatabase, ConvertsAnAccessFileThatTheSettingsName)
{
    const QString source = copyAccessFile(journey.dataFolder() + u"Users.dat"_s);
    const QByteArray content = contentOf(source);
    const QFileInfo before(source);
    expectConverted(u"Users.dat"_s, journey.dataFolder() + u"Users.sqlite"_s);
    journey.start(u"Users.dat"_s);
    journey.desktop.messages.finish();

    EXPECT_EQ(setting(), u"Users.sqlite"_s);
    EXPECT_EQ(contentOf(source), content);
    EXPECT_EQ(QFileInfo(source).permissions(), before.permissions());
    EXPECT_EQ(QFileInfo(source).lastModified(), before.lastModified());
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.statusPanel(), u"Displaying 140 Documents"_s);
    EXPECT_EQ(QDir(journey.dataFolder()).entryList({u"*part*"_s}).size(), 0);

    // named again, the database that came of it is kept unless the user says otherwise
    journey.program.reset();
    journey.database.run("SELECT 1");
    SQLite::Database((journey.dataFolder() + u"Users.sqlite"_s).toStdString(), SQLite::OPEN_READWRITE)
        .exec("UPDATE Document SET dStatus = 'DELETED' WHERE DocumentID = 2");
    journey.desktop.messages.expectQuestion(
        u"Users.dat was converted before, to Users.sqlite.\n\nDo you want to convert it again "
        "and replace that "
        "database? Whatever was added to it since is then lost. No opens it as it is."_s,
        false, Question::Loss);
    journey.start(u"Users.dat"_s);
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.statusPanel(), u"Displaying 139 Documents"_s);

    // replaced, it is backed up before
    journey.program.reset();
    journey.desktop.messages.expectQuestion(
        u"Users.dat was converted before, to Users.sqlite.\n\nDo you want to convert it again and replace "
        u"that "
        "database? Whatever was added to it since is then lost. No opens it as it is."_s,
        true, Question::Loss);
    expectConverted(u"Users.dat"_s, journey.dataFolder() + u"Users.sqlite"_s);
    journey.start(u"Users.dat"_s);
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.statusPanel(), u"Displaying 140 Documents"_s);
    EXPECT_EQ(QDir(journey.database.folder() + u"/backups"_s).entryList(QDir::Files),
              QStringList(u"Users 2005-06-15 120000.tar.zst"_s));
}

TEST_F(OpenDatabase, MakesACollectionOfAnAccessFileOfTheUsersChoice)
{
    journey.start();
    journey.trigger("mnuViewEvents");
    const QTemporaryDir elsewhere;
    const QString source = copyAccessFile(elsewhere.filePath(u"mine.mdb"_s));
    writeFile(elsewhere.filePath(u"Documents/2.PDF"_s), QByteArray(20'000, 'x'));
    journey.desktop.fileDialogs.files = {QString(), source};
    journey.trigger("mnuOpenDatabase");
    EXPECT_EQ(journey.viewPanel(), u"View ALL Events"_s) << "a dialog that is closed changes nothing";

    journey.desktop.messages.expectQuestion(
        u"The folder Documents beside mine.mdb holds 1 file (20 kB).\n\nDo you want to copy it into the new "
        "collection? The original stays unchanged."_s,
        true);
    const QString data = journey.database.folder() + u"/mine/data/"_s;
    expectConverted(u"mine.mdb"_s, data + u"mine.sqlite"_s,
                    u"\n139 documents name files that are not in the folder documents.\n12 organizations "
                    u"have charts that "
                    "are not in the folder orgcharts."_s);
    journey.trigger("mnuOpenDatabase");
    journey.desktop.messages.finish();
    EXPECT_EQ(setting(), u"../mine/data/mine.sqlite"_s);
    EXPECT_EQ(journey.historyMenu(), "[Home Page]");
    EXPECT_EQ(contentOf(data + u"documents/2.PDF"_s).size(), 20'000);
    EXPECT_EQ(QDir(journey.database.folder()).entryList({u"*.new"_s}).size(), 0);
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.statusPanel(), u"Displaying 140 Documents"_s);
}

TEST_F(OpenDatabase, OpensADatabaseWhereItIsOrCopiesItAsTheUserSays)
{
    journey.start();
    TestDatabase other;
    other.run("INSERT INTO Event (EventID, EventName, Status) VALUES (2, 'Other', 'ACTIVE')");
    const QString shaped = other.folder() + u"/Data/mine.sqlite"_s;
    writeFile(other.folder() + u"/orgcharts/5.pdf"_s, "chart");
    QDir(other.folder()).mkdir(u"Data"_s);
    ASSERT_TRUE(QFile::copy(other.fileName(), shaped));
    const QString link = journey.database.folder() + u"/link.sqlite"_s;
    ASSERT_TRUE(QFile::link(shaped, link));
    const QString home = journey.database.folder();
    QDir(home).mkpath(u"TEST"_s);

    struct Case
    {
        QString file;
        std::optional<std::optional<int>> answer; ///< to the question, if there is one
        QString opened;
        QString setting;
    };
    const Case cases[] = {
        {other.fileName(), std::optional<int>(), {}, u"test.sqlite"_s},
        {shaped, std::nullopt, shaped, shaped},
        {link, std::nullopt, shaped, shaped},
        {other.fileName(), 1, other.fileName(), other.fileName()},
        {other.fileName(), std::nullopt, other.fileName(), other.fileName()}, // it is open there
        {shaped, std::nullopt, shaped, shaped},
        {other.fileName(), 0, home + u"/test 2/data/test.sqlite"_s, u"../test 2/data/test.sqlite"_s},
        {other.fileName(), 0, home + u"/test 3/data/test.sqlite"_s, u"../test 3/data/test.sqlite"_s},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.file.toStdString() + " " + each.setting.toStdString());
        journey.desktop.fileDialogs.files = {each.file};
        if (each.answer) expectPlacement(each.file, *each.answer);
        if (each.answer == 0)
            journey.desktop.messages.expectQuestion(
                u"The folder orgcharts beside test.sqlite holds 1 file (5 bytes).\n\nDo you want to copy it "
                "into the new collection? The original stays unchanged."_s,
                true);
        journey.trigger("mnuOpenDatabase");
        journey.desktop.messages.finish();
        EXPECT_EQ(setting(), each.setting);
        journey.trigger("mnuViewEvents");
        EXPECT_EQ(journey.column(0), each.opened.isEmpty() ? "" : "Other");
        const QString opened = each.opened.isEmpty() ? journey.dataFolder() + u"test.sqlite"_s : each.opened;
        EXPECT_EQ(journey.program->state().session.fileName(), opened);
    }
    EXPECT_EQ(contentOf(home + u"/test 3/data/orgcharts/5.pdf"_s), "chart");
}

TEST_F(OpenDatabase, MakesACollectionOfACopyThatIsKeptFromAnEarlierVersion)
{
    journey.start();
    const QString copy = journey.dataFolder() + u"test.sqlite.version1"_s;
    journey.database.run(
        "PRAGMA user_version = 1; DROP TABLE Journal; INSERT INTO Event (EventID, EventName, "
        "Status) VALUES (2, 'As it was', 'ACTIVE')");
    ASSERT_TRUE(QFile::copy(journey.database.fileName(), copy));
    const QByteArray before = contentOf(copy);
    for (const bool answer : {false, true}) {
        journey.desktop.fileDialogs.files = {copy};
        journey.desktop.messages.expectQuestion(
            u"test.sqlite.version1 is in a folder with other databases, where the files of one could replace "
            "those of another.\n\nDo you want to copy it into a new collection?"_s,
            answer);
        journey.trigger("mnuOpenDatabase");
        journey.desktop.messages.finish();
    }
    const QString opened = journey.database.folder() + u"/test/data/test.sqlite"_s;
    EXPECT_EQ(journey.program->state().session.fileName(), opened);
    EXPECT_FALSE(journey.program->state().session.isReadOnly());
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(journey.column(0), "As it was");
    EXPECT_TRUE(contentOf(copy) == before);
}

TEST_F(OpenDatabase, KeepsWhatWasOpenWhenAFileIsNoneOfThese)
{
    journey.database.run("INSERT INTO Event (EventID, EventName, Status) VALUES (2, 'Mine', 'ACTIVE')");
    journey.start();
    const QString folder = journey.database.folder();
    const QString cut = folder + u"/cut.mdb"_s;
    const QString text = folder + u"/text.sqlite"_s;
    writeFile(cut, contentOf(accessFile()).first(300000));
    writeFile(text, QByteArray(4000, 'x'));
    const QString bare = folder + u"/bare.sqlite"_s;
    SQLite::Database(bare.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("CREATE TABLE t (x)");

    const std::pair<QString, QString> files[] = {
        {cut, u"openDatabase Error ("_s},
        {text, u"openDatabase Error (26): file is not a database (%1)"_s.arg(text)},
        {bare, u"openDatabase Error (1): This is no Orvik database: it has no Document (%1)"_s.arg(bare)},
        {folder + u"/gone.sqlite"_s, u"openDatabase Error (14)"_s},
    };
    for (const auto& [file, message] : files) {
        SCOPED_TRACE(file.toStdString());
        journey.desktop.fileDialogs.files = {file};
        if (file == bare) expectPlacement(file, 1);
        journey.desktop.messages.expectMessageBeginning(message);
        journey.trigger("mnuOpenDatabase");
        journey.desktop.messages.finish();
        EXPECT_EQ(setting(), u"test.sqlite"_s);
        journey.trigger("mnuViewEvents");
        EXPECT_EQ(journey.column(0), "Mine");
    }
    EXPECT_EQ(QDir(journey.dataFolder()).entryList(QDir::Files).join(u' ').toStdString(), "test.sqlite");
}

TEST_F(OpenDatabase, ACancelledConversionLeavesNothing)
{
    copyAccessFile(journey.dataFolder() + u"mine.mdb"_s);
    // answers the window as soon as it is there
    QTimer clicker;
    QObject::connect(&clicker, &QTimer::timeout, [] {
        auto* window = qobject_cast<frmImport*>(QApplication::activeModalWidget());
        if (window != nullptr) window->findChild<QPushButton*>(u"cmdCancel"_s)->click();
    });
    clicker.start(0);
    journey.desktop.messages.expectMessage(
        u"Form_Load Error (125): The conversion was cancelled. (%1mine.mdb)"_s.arg(journey.dataFolder()));
    journey.start(u"mine.mdb"_s);
    clicker.stop();
    journey.desktop.messages.finish();
    EXPECT_FALSE(journey.program->state().session.isOpen());
    EXPECT_EQ(QDir(journey.dataFolder()).entryList(QDir::Files).join(u' ').toStdString(), "mine.mdb");
    EXPECT_EQ(setting(), u"mine.mdb"_s);
}

TEST(Converter, SurvivesAToolThatIsMissingCrashesOrHangs)
{
    const QTemporaryDir folder;
    const auto script = [&folder](const char* name, const char* text) {
        QString path = folder.filePath(QString::fromUtf8(name));
        writeFile(path, text);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    };
    using End = DatabaseConverter::Result::End;
    const QString nothing = folder.filePath(u"x"_s);
    EXPECT_EQ(DesktopDatabaseConverter(folder.filePath(u"missing"_s)).convert(nothing, nothing, false).end,
              End::Failed);

    const auto crashed = DesktopDatabaseConverter(script("crash", "#!/bin/sh\nkill -SEGV $$\n"))
                             .convert(nothing, nothing, false);
    EXPECT_EQ(crashed.end, End::Failed);
    EXPECT_EQ(crashed.error, u"The conversion ended without a word."_s);

    const auto failed = DesktopDatabaseConverter(
                            script("fail", "#!/bin/sh\nprintf 'error\\tIt is encrypted.\\n' >&2\nexit 4\n"))
                            .convert(nothing, nothing, false);
    EXPECT_EQ(failed.status, 4);
    EXPECT_EQ(failed.error, u"It is encrypted."_s);

    // it says what it does, and ignores the request to stop: only a kill ends it
    QTimer clicker;
    QString step;
    int looks = 0;
    QObject::connect(&clicker, &QTimer::timeout, [&] {
        auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (window == nullptr || !step.isEmpty()) return;
        const QString text = window->findChild<QLabel*>(u"lblStep"_s)->text();
        if (text == u"Starting …"_s && ++looks < 40) return;
        step = text;
        window->reject();
    });
    clicker.start(50);
    const auto stopped =
        DesktopDatabaseConverter(
            script("hang", "#!/bin/sh\ntrap '' TERM\nprintf 'phase\\tcopying\\nprogress\\t5\\t\\t\\t\\n'\n"
                           "while :; do sleep 0.1; done\n"))
            .convert(nothing, nothing, false);
    EXPECT_EQ(step, u"Copying …"_s);
    EXPECT_EQ(stopped.end, End::Cancelled);
}

/// Work that ends with the number of steps, or never, or fails then.
class TestWork final : public SteppedWork
{
public:
    explicit TestWork(int steps, bool fails = false) : m_steps(steps), m_fails(fails) {}

    bool step() override
    {
        QThread::msleep(1);
        if (--m_steps != 0) return true;
        if (m_fails) throw Error(28, u"No space left"_s);
        return false;
    }
    bool undoStep() override { return ++undone < 100; }
    [[nodiscard]] QString title() const override { return u"Work"_s; }
    [[nodiscard]] QString text() const override { return u"Counting down"_s; }
    [[nodiscard]] std::optional<int> percent() const override { return 50; }

    int undone = 0;

private:
    int m_steps;
    bool m_fails;
};

TEST(WorkRunner, WorksUntilAllIsDoneOrFailsOrIsCancelled)
{
    DesktopWorkRunner works;
    for (const int steps : {1, 600}) {
        TestWork done(steps);
        EXPECT_TRUE(works.run(done));
        TestWork failing(steps, true);
        EXPECT_EQ(errorNumberOf([&] { return works.run(failing); }), 28);
    }
    QTimer clicker;
    QObject::connect(&clicker, &QTimer::timeout, [] {
        auto* window = qobject_cast<frmProgress*>(QApplication::activeModalWidget());
        if (window == nullptr || !window->findChild<QPushButton*>(u"cmdCancel"_s)->isEnabled()) return;
        EXPECT_EQ(window->findChild<QLabel*>(u"lblStep"_s)->text(), u"Counting down"_s);
        EXPECT_EQ(window->findChild<QProgressBar*>()->value(), 50);
        window->findChild<QPushButton*>(u"cmdCancel"_s)->click();
    });
    clicker.start(0);
    TestWork endless(0);
    EXPECT_FALSE(works.run(endless));
    EXPECT_EQ(endless.undone, 100);
}

} // namespace
