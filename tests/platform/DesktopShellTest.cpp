// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopShell.h"

#include "support/Testing.h"

#include <chrono>
#include <thread>

namespace {

/// A desktop of its own: two kinds of file by their names, and one program, which is the default for the
/// first kind and writes down what it is asked to open.
class DesktopShellTest : public testing::Test
{
protected:
    // the desktop's settings are read once a process, so all tests share one
    static void SetUpTestSuite()
    {
        desktop = std::make_unique<QTemporaryDir>();
        writeFile(at("data/mime/globs2"), "50:application/x-known:*.known\n"
                                          "50:application/x-unknown:*.unknown\n");
        writeFile(at("data/applications/viewer.desktop"),
                  "[Desktop Entry]\nType=Application\nName=Viewer\nMimeType=application/x-known;\nExec=" +
                      viewer().toUtf8() + " %f\n");
        writeFile(at("config/mimeapps.list"), "[Default Applications]\napplication/x-known=viewer.desktop\n");
        writeFile(viewer(), "#!/bin/sh\nprintf %s \"$1\" > '%1.new'\nmv '%1.new' '%1'\n"_ba.replace(
                                "%1", record().toUtf8()));
        QFile::setPermissions(viewer(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(at("config")));
        qputenv("XDG_DATA_HOME", QFile::encodeName(at("data")));
        qputenv("XDG_DATA_DIRS", QFile::encodeName(at("none")));
        qputenv("XDG_CONFIG_DIRS", QFile::encodeName(at("none")));
    }

    static void TearDownTestSuite() { desktop.reset(); }
    void SetUp() override { QFile::remove(record()); }

    static QString at(const char* path) { return desktop->filePath(QString::fromUtf8(path)); }
    static QString viewer() { return at("viewer"); }
    static QString record() { return at("opened"); }

    static QString file(const char* name)
    {
        writeFile(at(name), "text");
        return at(name);
    }

    /// What the viewer was asked to open, once it has said so.
    static QString asked()
    {
        using namespace std::chrono_literals;
        for (int i = 0; i < 500 && !QFile::exists(record()); ++i)
            std::this_thread::sleep_for(20ms);
        return QString::fromUtf8(contentOf(record()));
    }

    static std::unique_ptr<QTemporaryDir> desktop;
    DesktopShell shell;
};

std::unique_ptr<QTemporaryDir> DesktopShellTest::desktop;

TEST_F(DesktopShellTest, OpensAFileWithTheDefaultProgramForItsKindIfThereIsOne)
{
    const QString report = file("Häuser & \"Höfe\" 100%.known");
    EXPECT_TRUE(shell.open(QUrl::fromLocalFile(report)));
    EXPECT_EQ(asked().toStdString(), report.toStdString());
    EXPECT_FALSE(shell.open(QUrl::fromLocalFile(file("report.unknown"))));
    EXPECT_FALSE(shell.open(QUrl(u"nobodys-scheme:address"_s)));
}

TEST_F(DesktopShellTest, StartsAProgramWithAFile)
{
    const QString report = file("two words.unknown");
    EXPECT_TRUE(shell.start(viewer(), report));
    EXPECT_EQ(asked().toStdString(), report.toStdString());
    EXPECT_FALSE(shell.start(at("missing"), report));
    EXPECT_FALSE(shell.start(report, report)) << "a file that is no program";
}

} // namespace
