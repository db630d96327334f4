// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "platform/StdREG.h"
#include "support/SizeLimit.h"

namespace {

QString loadFailure(int number, const QString& description, const QString& file)
{
    return u"Form_Load Error (%1): %2 (%3)"_s.arg(QString::number(number), description, file);
}

/// With no database open the window stands, and each command answers with its own message.
void expectWindowWithoutData(Journey& journey)
{
    EXPECT_TRUE(journey.program->window()->isVisible());
    EXPECT_TRUE(journey.find<QWidget>("pnlHome").isVisible());
    EXPECT_EQ(journey.viewPanel(), u"Home Page"_s);
    const std::pair<const char*, const char*> commands[] = {{"mnuViewDocuments", "showDocuments"},
                                                            {"mnuViewEvents", "showEvents"},
                                                            {"mnuViewOrganizations", "showOrganizations"},
                                                            {"mnuViewRefresh", "showOrganizations"}};
    for (const auto& [command, procedure] : commands) {
        journey.desktop.messages.expectMessage(
            u"%1 Error (21): No database is open."_s.arg(QString::fromUtf8(procedure)));
        journey.trigger(command);
        journey.desktop.messages.finish();
        EXPECT_EQ(journey.find<QLabel>("lblEmptyResult").text(), u"No database is open."_s);
        EXPECT_FALSE(journey.find<QWidget>("lblSearchAgain").isVisible());
    }
    journey.trigger("mnuNavigateHome");
    EXPECT_TRUE(journey.find<QWidget>("pnlHome").isVisible());
}

/// A display that takes its time with the splash window, as real ones do: it notes whether the splash was
/// drawn before the main window was made.
class SlowDisplay final : public QObject
{
public:
    SlowDisplay() { qApp->installEventFilter(this); }

    std::optional<bool> wasSplashDrawn;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const QString name = watched->objectName();
        if (name == u"frmMain"_s && !wasSplashDrawn) wasSplashDrawn = m_isDrawn;
        if (event->type() == QEvent::Paint && name == u"frmSplash"_s) m_isDrawn = true;
        const bool isWordOfDisplay = event->type() == QEvent::Expose || event->type() == QEvent::Paint;
        if (!isWordOfDisplay || name != u"frmSplashWindow"_s || m_isOnScreen) return false;
        if (event->type() == QEvent::Expose) {
            QTimer::singleShot(20, watched, [this, watched] { bringOnScreen(*watched); });
        }
        return true;
    }

private:
    void bringOnScreen(QObject& window)
    {
        m_isOnScreen = true;
        const QRect whole(QPoint(), dynamic_cast<QWindow&>(window).size());
        QExposeEvent exposed(whole);
        QApplication::sendEvent(&window, &exposed);
        QPaintEvent painted(whole);
        QApplication::sendEvent(&window, &painted);
    }

    bool m_isOnScreen = false;
    bool m_isDrawn = false;
};

TEST(StartUp, OpensTheDatabaseThatTheSettingsNameWhileTheSplashIsSeen)
{
    Journey journey;
    const SlowDisplay display;
    journey.start();
    EXPECT_TRUE(journey.find<QWidget>("pnlHome").isVisible());
    EXPECT_EQ(journey.historyMenu(), "[Home Page]");
    EXPECT_EQ(journey.program->state().session.fileName(), journey.dataFolder() + u"test.sqlite"_s);
    EXPECT_FALSE(journey.find<QAction>("mnuViewRefresh").isEnabled());
    EXPECT_EQ(display.wasSplashDrawn, true);
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_NE(window->objectName(), u"frmSplash"_s) << "it goes when the window comes";
}

TEST(StartUp, SaysOnceWhatIsWrongWithADatabaseAndOpensTheWindow)
{
    const std::tuple<const char*, int, const char*> cases[] = {
        {"", 14, "unable to open database file"},
        {"missing.sqlite", 14, "unable to open database file"},
        {"folder", 14, "unable to open database file"},
        {"text.sqlite", 26, "file is not a database"},
        {"empty.sqlite", 1, "This is no Orvik database: it has no Document"},
        {"test.sqlite", 5, "database is locked"}, // for the program waits for no other
    };
    for (const auto& [file, number, description] : cases) {
        SCOPED_TRACE(file);
        Journey journey;
        QDir(journey.dataFolder()).mkdir(u"folder"_s);
        writeFile(journey.dataFolder() + u"text.sqlite"_s, QByteArray(5000, 'x'));
        writeFile(journey.dataFolder() + u"empty.sqlite"_s);
        SQLite::Database other(journey.database.fileName().toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN EXCLUSIVE");

        const QString name = QString::fromUtf8(file);
        journey.desktop.messages.expectMessage(
            loadFailure(number, QString::fromUtf8(description), journey.dataFolder() + name));
        journey.start(name);
        journey.desktop.messages.finish();
        expectWindowWithoutData(journey);
        EXPECT_FALSE(QFile::exists(journey.dataFolder() + u"missing.sqlite"_s));
    }
}

TEST(StartUp, MakesAReadOnlyDatabaseWritableAndClearsWhatAKilledUploadLeft)
{
    Journey journey;
    const QString leftOver = journey.dataFolder() + u"documents/.upload-5"_s;
    writeFile(leftOver);
    ASSERT_TRUE(QFile::setPermissions(journey.database.fileName(), QFile::ReadOwner));
    journey.start();
    EXPECT_TRUE(QFile::permissions(journey.database.fileName()) & QFile::WriteOwner);
    EXPECT_FALSE(journey.program->state().session.isReadOnly());
    EXPECT_FALSE(QFile::exists(leftOver));
}

TEST(StartUp, BringsADatabaseOfAnEarlierVersionUpToDateUnlessItIsOnlyRead)
{
    constexpr auto newer = "Form_Load Error (8): The database was made by a newer version of the program: it "
                           "can be read, but not "
                           "changed. (%1)";
    constexpr auto foreign = "Form_Load Error (1): The database was made by an earlier version of the "
                             "program and cannot be brought "
                             "up to date: It has a table or query named Journal, which is not the program's. "
                             "(%1)\n\nIt can be read, "
                             "but not changed.";
    constexpr auto full = "Form_Load Error (10): The database was made by an earlier version of the program "
                          "and cannot be brought "
                          "up to date: disk I/O error (%1)\n\nIt can be read, but not changed.";
    struct Case
    {
        const char* statements;
        bool readOnly;
        const char* message; ///< about the file %1
        bool isUpgraded;
        bool isFull = false; ///< the disk
    };
    const Case cases[] = {{"PRAGMA user_version = 1; DROP TABLE Journal", false, "", true},
                          {"PRAGMA user_version = 1; DROP TABLE Journal", false, full, false, true},
                          {"PRAGMA user_version = 1; DROP TABLE Journal", true, "", false},
                          {"PRAGMA user_version = 9", false, newer, false},
                          {"PRAGMA user_version = 9", true, "", false},
                          {"DROP TABLE Journal; CREATE VIEW Journal AS SELECT 1", false, foreign, false}};
    for (const auto& [statements, readOnly, message, isUpgraded, isFull] : cases) {
        SCOPED_TRACE(statements);
        Journey journey;
        journey.database.run(statements);
        const QString file = journey.dataFolder() + u"old.sqlite"_s;
        ASSERT_TRUE(QFile::copy(journey.database.fileName(), file));
        const QByteArray before = contentOf(file);
        if (*message != '\0') journey.desktop.messages.expectMessage(QString::fromUtf8(message).arg(file));
        StartRequest request;
        request.readOnly = readOnly;
        {
            std::optional<SizeLimit> limit;
            if (isFull) limit.emplace(static_cast<rlim_t>(before.size() / 2));
            journey.start(u"old.sqlite"_s, request);
        }
        journey.desktop.messages.finish();
        EXPECT_EQ(journey.program->state().session.isReadOnly(), !isUpgraded);
        EXPECT_EQ(journey.program->window()->windowTitle().endsWith(u"[read-only]"_s), !isUpgraded);
        EXPECT_EQ(journey.find<QAction>("mnuRecordAddNewDocument").isEnabled(), isUpgraded);
        EXPECT_EQ(contentOf(file) != before, isUpgraded);
        EXPECT_EQ(QFile::exists(file + u".version1"_s), isUpgraded);
    }
}

TEST(StartUp, FillsANewProgramFolderAndNamesItsDatabase)
{
    Journey journey;
    const QString sample = journey.database.folder() + u"/sample"_s;
    QDir().mkpath(sample + u"/data"_s);
    QFile::copy(journey.database.fileName(), sample + u"/data/first.sqlite"_s);
    const QString root = journey.database.folder() + u"/new"_s;
    journey.program.emplace(journey.desktop.platform(), *journey.converter, ProgramFolder(root), sample);
    journey.program->Main();
    EXPECT_TRUE(journey.program->state().session.isOpen());
    EXPECT_EQ(journey.program->state().session.fileName(), root + u"/Sample/data/first.sqlite"_s);
    EXPECT_EQ(StdREG(journey.desktop.settings).GetRegString(QString(), u"DBFile"_s),
              u"../Sample/data/first.sqlite"_s);
}

TEST(StartUp, EndsOnlyWhenTheUserSaysYes)
{
    Journey journey;
    journey.start();
    const QString question = u"Are you sure you want to exit?"_s;
    journey.desktop.messages.expectQuestion(question, false, Question::Loss);
    journey.trigger("mnuNavigateExit");
    EXPECT_TRUE(journey.program->window()->isVisible());
    journey.desktop.messages.expectQuestion(question, false, Question::Loss);
    journey.program->window()->close();
    EXPECT_TRUE(journey.program->window()->isVisible());
    journey.desktop.messages.expectQuestion(question, true, Question::Loss);
    journey.program->window()->close();
    EXPECT_FALSE(journey.program->window()->isVisible());
}

} // namespace
