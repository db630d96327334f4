#include "Journey.h"
#include "app/StdREG.h"
#include "app/frmImport.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QTimer>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

namespace {

QString accessFile()
{
    return QStringLiteral(ORVIK_ACCESS_FILE);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

/// The program with the real tool that converts, on a copy of a real Access file.
class OpenDatabase : public ::testing::Test
{
protected:
    void useTool() { journey.desktop.converter = &m_converter; }

    QString copyAccessFile(const QString& path)
    {
        EXPECT_TRUE(QFile::copy(accessFile(), path));
        QFile::setPermissions(path, QFile::ReadOwner);
        return path;
    }

    void expectConverted(const QString& name, const QString& target)
    {
        journey.desktop.messages.expectMessage(
            QStringLiteral(
                "The Access file %1 was converted to the database %2, which the program uses from now on. "
                "The "
                "Access file is unchanged.\n\n28 tables with 2528 rows were taken over and checked.\nNot "
                "shown in "
                "lists: Document: 8 deleted, 1 without a status; Event: 7 deleted, 1 without a status; "
                "Organization: 3 deleted, 1 without a status.")
                .arg(name, target));
    }

    QString setting() const
    {
        return StdREG(const_cast<MemorySettings&>(journey.desktop.settings))
            .GetRegString(QString(), QStringLiteral("DBFile"));
    }

    Journey journey;

private:
    DesktopDatabaseConverter m_converter{QStringLiteral(ORVIK_IMPORT_TOOL)};
};

TEST_F(OpenDatabase, ConvertsAnAccessFileThatTheSettingsName)
{
    useTool();
    const QString source = copyAccessFile(journey.dataFolder() + QStringLiteral("Users.dat"));
    const QByteArray content = contentOf(source);
    const QFileInfo before(source);
    expectConverted(QStringLiteral("Users.dat"), journey.dataFolder() + QStringLiteral("Users.sqlite"));
    journey.start(QStringLiteral("Users.dat"));
    journey.desktop.messages.finish();

    EXPECT_EQ(setting(), QStringLiteral("Users.sqlite"));
    EXPECT_EQ(contentOf(source), content);
    EXPECT_EQ(QFileInfo(source).permissions(), before.permissions());
    EXPECT_EQ(QFileInfo(source).lastModified(), before.lastModified());
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.statusPanel(), QStringLiteral("Displaying 140 Documents"));
    EXPECT_EQ(QDir(journey.dataFolder()).entryList({QStringLiteral("*part*")}).size(), 0);

    // named again, the database that came of it is kept unless the user says otherwise
    journey.program.reset();
    journey.database.run("SELECT 1");
    SQLite::Database((journey.dataFolder() + QStringLiteral("Users.sqlite")).toStdString(),
                     SQLite::OPEN_READWRITE)
        .exec("UPDATE Document SET dStatus = 'DELETED' WHERE DocumentID = 2");
    journey.desktop.messages.expectQuestion(
        QStringLiteral("Users.dat was converted before, to Users.sqlite.\n\nDo you want to convert it again "
                       "and replace that "
                       "database? Whatever was added to it since is then lost. No opens it as it is."),
        false, Question::Loss);
    journey.start(QStringLiteral("Users.dat"));
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.statusPanel(), QStringLiteral("Displaying 139 Documents"));
}

TEST_F(OpenDatabase, TakesAnAccessFileOfTheUsersChoice)
{
    useTool();
    journey.start();
    journey.trigger("mnuViewEvents");
    const QString source = copyAccessFile(journey.database.folder() + QStringLiteral("/mine.mdb"));
    journey.desktop.fileDialogs.files = {QString(), source};
    journey.trigger("mnuOpenDatabase");
    EXPECT_EQ(journey.viewPanel(), QStringLiteral("View ALL Events"))
        << "a dialog that is closed changes nothing";

    expectConverted(QStringLiteral("mine.mdb"), journey.dataFolder() + QStringLiteral("mine.sqlite"));
    journey.trigger("mnuOpenDatabase");
    journey.desktop.messages.finish();
    EXPECT_EQ(setting(), QStringLiteral("mine.sqlite"));
    EXPECT_EQ(journey.historyMenu(), "[Home Page]");
    journey.trigger("mnuViewOrganizations");
    EXPECT_EQ(journey.statusPanel(), QStringLiteral("Displaying 35 Organizations"));
}

TEST_F(OpenDatabase, BringsADatabaseOfTheProgramIntoTheDataFolderAndReplacesNoneUnasked)
{
    TestDatabase other;
    other.run("INSERT INTO Event (EventID, EventName, Status) VALUES (2, 'Other', 'ACTIVE')");
    journey.start();
    journey.desktop.fileDialogs.files = {other.fileName(), other.fileName()};
    const QString question =
        QStringLiteral("The data folder holds a database test.sqlite already.\n\nDo you want to replace "
                       "it? What it holds is then lost.");
    journey.desktop.messages.expectQuestion(question, false, Question::Loss);
    journey.trigger("mnuOpenDatabase");
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(journey.column(0), "");

    journey.desktop.messages.expectQuestion(question, true, Question::Loss);
    journey.trigger("mnuOpenDatabase");
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(journey.column(0), "Other");
}

TEST_F(OpenDatabase, KeepsWhatWasOpenWhenAFileIsNoneOfThese)
{
    useTool();
    journey.database.run("INSERT INTO Event (EventID, EventName, Status) VALUES (2, 'Mine', 'ACTIVE')");
    journey.start();
    const auto make = [this](const char* name, const QByteArray& content) {
        const QString path = journey.database.folder() + u'/' + QString::fromUtf8(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path;
    };
    QFile whole(accessFile());
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QString cut = make("cut.mdb", whole.read(300000));
    const QString text = make("text.sqlite", QByteArray(4000, 'x'));
    const QString bare = make("bare.sqlite", {});
    SQLite::Database(bare.toStdString(), SQLite::OPEN_READWRITE).exec("CREATE TABLE t (x)");

    const std::pair<QString, QString> files[] = {
        {cut, QStringLiteral("openDatabase Error (")},
        {text, QStringLiteral("openDatabase Error (26): file is not a database (%1)").arg(text)},
        {bare, QStringLiteral("openDatabase Error (1): This is no Orvik database: it has no Document (%1)")
                   .arg(bare)},
        {journey.database.folder() + QStringLiteral("/gone.sqlite"),
         QStringLiteral("openDatabase Error (14)")},
    };
    for (const auto& [file, message] : files) {
        SCOPED_TRACE(file.toStdString());
        journey.desktop.fileDialogs.files = {file};
        journey.desktop.messages.expectMessageBeginning(message);
        journey.trigger("mnuOpenDatabase");
        journey.desktop.messages.finish();
        EXPECT_EQ(setting(), QStringLiteral("test.sqlite"));
        journey.trigger("mnuViewEvents");
        EXPECT_EQ(journey.column(0), "Mine");
    }
    EXPECT_EQ(QDir(journey.dataFolder()).entryList(QDir::Files).join(u' ').toStdString(), "test.sqlite");
}

TEST_F(OpenDatabase, ACancelledConversionLeavesNothing)
{
    useTool();
    copyAccessFile(journey.dataFolder() + QStringLiteral("mine.mdb"));
    // answers the window as soon as it is there
    QTimer clicker;
    QObject::connect(&clicker, &QTimer::timeout, [] {
        auto* window = qobject_cast<frmImport*>(QApplication::activeModalWidget());
        if (window != nullptr) window->findChild<QPushButton*>(QStringLiteral("cmdCancel"))->click();
    });
    clicker.start(0);
    journey.desktop.messages.expectMessage(
        QStringLiteral("Form_Load Error (125): The conversion was cancelled. (%1mine.mdb)")
            .arg(journey.dataFolder()));
    journey.start(QStringLiteral("mine.mdb"));
    clicker.stop();
    journey.desktop.messages.finish();
    EXPECT_FALSE(journey.program->state().session.isOpen());
    EXPECT_EQ(QDir(journey.dataFolder()).entryList(QDir::Files).join(u' ').toStdString(), "mine.mdb");
    EXPECT_EQ(setting(), QStringLiteral("mine.mdb"));
}

TEST(Converter, SurvivesAToolThatIsMissingCrashesOrHangs)
{
    const QTemporaryDir folder;
    const auto script = [&folder](const char* name, const char* text) {
        const QString path = folder.filePath(QString::fromUtf8(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    };
    using End = DatabaseConverter::Result::End;
    const QString nothing = folder.filePath(QStringLiteral("x"));
    EXPECT_EQ(DesktopDatabaseConverter(folder.filePath(QStringLiteral("missing")))
                  .convert(nothing, nothing, false)
                  .end,
              End::Failed);

    const auto crashed = DesktopDatabaseConverter(script("crash", "#!/bin/sh\nkill -SEGV $$\n"))
                             .convert(nothing, nothing, false);
    EXPECT_EQ(crashed.end, End::Failed);
    EXPECT_EQ(crashed.error, QStringLiteral("The conversion ended without a word."));

    const auto failed = DesktopDatabaseConverter(
                            script("fail", "#!/bin/sh\nprintf 'error\\tIt is encrypted.\\n' >&2\nexit 4\n"))
                            .convert(nothing, nothing, false);
    EXPECT_EQ(failed.status, 4);
    EXPECT_EQ(failed.error, QStringLiteral("It is encrypted."));

    // deaf to every request to stop; only ending it helps
    QTimer clicker;
    QObject::connect(&clicker, &QTimer::timeout, [] {
        if (auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget())) window->reject();
    });
    clicker.start(50);
    const auto stopped =
        DesktopDatabaseConverter(script("hang", "#!/bin/sh\ntrap '' TERM\nwhile :; do sleep 0.1; done\n"))
            .convert(nothing, nothing, false);
    EXPECT_EQ(stopped.end, End::Cancelled);
}

} // namespace
