#include "Journey.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

namespace {

QString loadFailure(int number, const QString& description, const QString& file)
{
    return QStringLiteral("Form_Load Error (%1): %2 (%3)").arg(QString::number(number), description, file);
}

/// With no database open the window stands, and each command answers with its own message.
void expectWindowWithoutData(Journey& journey)
{
    EXPECT_TRUE(journey.program->window()->isVisible());
    EXPECT_TRUE(journey.find<QWidget>("pnlHome").isVisible());
    EXPECT_EQ(journey.viewPanel(), QStringLiteral("Home Page"));
    const std::pair<const char*, const char*> commands[] = {{"mnuViewDocuments", "showDocuments"},
                                                            {"mnuViewEvents", "showEvents"},
                                                            {"mnuViewOrganizations", "showOrganizations"},
                                                            {"mnuViewRefresh", "showOrganizations"}};
    for (const auto& [command, procedure] : commands) {
        journey.desktop.messages.expectMessage(
            QStringLiteral("%1 Error (21): No database is open.").arg(QString::fromUtf8(procedure)));
        journey.trigger(command);
        journey.desktop.messages.finish();
    }
    journey.trigger("mnuNavigateHome");
    EXPECT_TRUE(journey.find<QWidget>("pnlHome").isVisible());
}

TEST(StartUp, OpensTheDatabaseThatTheSettingsNameAndShowsTheHomePage)
{
    Journey journey;
    journey.start();
    EXPECT_TRUE(journey.find<QWidget>("pnlHome").isVisible());
    EXPECT_EQ(journey.historyMenu(), "[Home Page]");
    EXPECT_EQ(journey.program->state().databasePath, journey.dataFolder() + QStringLiteral("test.sqlite"));
    EXPECT_FALSE(journey.find<QAction>("mnuViewRefresh").isEnabled());
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
        if (name == QStringLiteral("frmMain") && !wasSplashDrawn) wasSplashDrawn = m_isDrawn;
        if (event->type() == QEvent::Paint && name == QStringLiteral("frmSplash")) m_isDrawn = true;
        const bool isWordOfDisplay = event->type() == QEvent::Expose || event->type() == QEvent::Paint;
        if (!isWordOfDisplay || name != QStringLiteral("frmSplashWindow") || m_isOnScreen) return false;
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

TEST(StartUp, TheSplashIsSeenWhileTheWindowLoads)
{
    Journey journey;
    const SlowDisplay display;
    journey.start();
    EXPECT_EQ(display.wasSplashDrawn, true);
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_NE(window->objectName(), QStringLiteral("frmSplash")) << "it goes when the window comes";
}

TEST(StartUp, SaysOnceWhatIsWrongWithADatabaseAndOpensTheWindow)
{
    struct Case
    {
        const char* name;
        int number;
        const char* description;
    };
    const Case cases[] = {
        {"", 14, "unable to open database file"},
        {"missing.sqlite", 14, "unable to open database file"},
        {"folder", 14, "unable to open database file"},
        {"text.sqlite", 26, "file is not a database"},
        {"cut.sqlite", 11, "database disk image is malformed"},
        {"empty.sqlite", 1, "This is no Orvik database: it has no Document"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Journey journey;
        QDir(journey.dataFolder()).mkdir(QStringLiteral("folder"));
        QFile text(journey.dataFolder() + QStringLiteral("text.sqlite"));
        ASSERT_TRUE(text.open(QIODevice::WriteOnly));
        text.write(QByteArray(5000, 'x'));
        text.close();
        QFile(journey.dataFolder() + QStringLiteral("empty.sqlite")).open(QIODevice::WriteOnly);
        QFile::copy(journey.database.fileName(), journey.dataFolder() + QStringLiteral("cut.sqlite"));
        QFile cut(journey.dataFolder() + QStringLiteral("cut.sqlite"));
        cut.resize(cut.size() / 2);

        const QString name = QString::fromUtf8(c.name);
        journey.desktop.messages.expectMessage(
            loadFailure(c.number, QString::fromUtf8(c.description), journey.dataFolder() + name));
        journey.start(name);
        journey.desktop.messages.finish();
        expectWindowWithoutData(journey);
        EXPECT_FALSE(QFile::exists(journey.dataFolder() + QStringLiteral("missing.sqlite")));
    }
}

TEST(StartUp, WaitsForNoLockedDatabase)
{
    Journey journey;
    SQLite::Database other(journey.database.fileName().toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    journey.desktop.messages.expectMessage(loadFailure(5, QStringLiteral("database is locked"),
                                                       journey.dataFolder() + QStringLiteral("test.sqlite")));
    journey.start();
    journey.desktop.messages.finish();
    expectWindowWithoutData(journey);
}

TEST(StartUp, MakesAReadOnlyDatabaseWritable)
{
    Journey journey;
    ASSERT_TRUE(QFile::setPermissions(journey.database.fileName(), QFile::ReadOwner));
    journey.start();
    EXPECT_TRUE(QFile::permissions(journey.database.fileName()) & QFile::WriteOwner);
    EXPECT_FALSE(journey.program->state().session.isReadOnly());
}

TEST(StartUp, FillsANewProgramFolderAndNamesItsDatabase)
{
    Journey journey;
    const QString sample = journey.database.folder() + QStringLiteral("/sample");
    QDir().mkpath(sample + QStringLiteral("/data"));
    QFile::copy(journey.database.fileName(), sample + QStringLiteral("/data/first.sqlite"));
    const QString root = journey.database.folder() + QStringLiteral("/new");
    journey.program.emplace(journey.desktop.platform(), ProgramFolder(root), sample);
    journey.program->Main();
    EXPECT_TRUE(journey.program->state().session.isOpen());
    EXPECT_EQ(journey.program->state().databasePath, root + QStringLiteral("/data/first.sqlite"));
}

TEST(StartUp, ClearsWhatAKilledUploadLeft)
{
    Journey journey;
    const QString leftOver = journey.dataFolder() + QStringLiteral("documents/.upload-5");
    QFile::copy(journey.database.fileName(), leftOver);
    journey.start();
    EXPECT_FALSE(QFile::exists(leftOver));
}

TEST(StartUp, EndsOnlyWhenTheUserSaysYes)
{
    Journey journey;
    journey.start();
    const QString question = QStringLiteral("Are you sure you want to exit?");
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
