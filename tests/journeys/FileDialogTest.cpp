// SPDX-License-Identifier: GPL-3.0-or-later

#include "Dialogs.h"
#include "platform/DesktopFileDialogs.h"
#include "support/TestFiles.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

bool isListed(OpenDialog& dialog, const char* name)
{
    auto& list = dialog.find<QAbstractItemView>("listView");
    return QTest::qWaitFor([&] {
        const QAbstractItemModel& model = *list.model();
        return !model.match(model.index(0, 0, list.rootIndex()), Qt::DisplayRole, QString::fromUtf8(name))
                    .isEmpty();
    });
}

TEST(FileDialog, ShowsTheTextsOfItsFilterAndFilesWithoutAPoint)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"README"_s);
    writeFile(file);
    DesktopFileDialogs dialogs;
    const auto open = [&](const std::function<void(OpenDialog&)>& work) {
        QString chosen;
        inDialog(
            "QFileDialog",
            [&] {
                chosen = dialogs.openFile(u"A File"_s, u"All Files (*.*)| *.*|Pages (*.htm)|*.htm *.html"_s);
            },
            work);
        return chosen;
    };
    EXPECT_EQ(open([&](OpenDialog& dialog) {
                  EXPECT_EQ(dialog.title(), "A File");
                  const auto& types = dialog.find<QComboBox>("fileTypeCombo");
                  EXPECT_EQ(types.itemText(0), u"All Files (*.*)"_s);
                  EXPECT_EQ(types.itemText(1), u"Pages (*.htm)"_s);
                  dialog.type("fileNameEdit", file);
                  dialog.press(Qt::Key_Return);
              }),
              file);
    EXPECT_EQ(open([](OpenDialog& dialog) {
                  EXPECT_TRUE(isListed(dialog, "README")) << "begins in the folder used last";
                  dialog.press(Qt::Key_Escape);
              }),
              QString());
}

TEST(FileDialog, CompletesANameByTheKindOfFileThatTheUserChose)
{
    const QTemporaryDir folder;
    DesktopFileDialogs dialogs;
    const auto save = [&](int kind) {
        QString chosen;
        inDialog(
            "QFileDialog",
            [&] {
                chosen = dialogs.saveFile(u"A Picture"_s, folder.filePath(u"map.png"_s),
                                          u"PNG (*.png)|*.png|Others (*.svg *.svgz)|*.svg *.svgz|"_s);
            },
            [&](OpenDialog& dialog) {
                auto& kinds = dialog.find<QComboBox>("fileTypeCombo");
                EXPECT_EQ(kinds.itemText(1), u"Others (*.svg *.svgz)"_s);
                kinds.setFocus();
                if (kind > 0) QTest::keyClick(&kinds, Qt::Key_Down);
                dialog.type("fileNameEdit", u"mine"_s);
                dialog.press(Qt::Key_Return);
            });
        return chosen;
    };
    EXPECT_EQ(save(0), folder.filePath(u"mine.png"_s));
    EXPECT_EQ(save(1), folder.filePath(u"mine.svg"_s));
}

TEST(FileDialog, ChoosesAFolderBeginningWhereItIsAskedTo)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkpath(u"discs/OrvikDB"_s);
    DesktopFileDialogs dialogs;
    QString chosen;
    const auto choose = [&](const QString& start, const std::function<void(OpenDialog&)>& work) {
        inDialog(
            "QFileDialog", [&] { chosen = dialogs.chooseFolder(u"A Folder"_s, start); }, work);
        return chosen;
    };
    EXPECT_EQ(choose(folder.filePath(u"discs"_s),
                     [](OpenDialog& dialog) {
                         EXPECT_EQ(dialog.title(), "A Folder");
                         EXPECT_TRUE(isListed(dialog, "OrvikDB"));
                         dialog.type("fileNameEdit", u"OrvikDB"_s);
                         dialog.press(Qt::Key_Return);
                     }),
              folder.filePath(u"discs/OrvikDB"_s));
    EXPECT_EQ(choose(folder.filePath(u"gone"_s), [](OpenDialog& dialog) { dialog.press(Qt::Key_Escape); }),
              QString());
}

} // namespace
