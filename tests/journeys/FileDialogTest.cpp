// SPDX-License-Identifier: GPL-3.0-or-later

#include "Dialogs.h"
#include "platform/DesktopFileDialogs.h"
#include "platform/DesktopMessages.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

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

TEST(Messages, WhatLosesSomethingIsNotWhatReturnMeans)
{
    const struct
    {
        Question about;
        const char* yes;
        const char* no;
        bool answerToReturn;
    } questions[] = {{Question::Harmless, "&Yes", "&No", true},
                     {Question::Loss, "&Yes", "&No", false},
                     {Question::Discard, "&Discard", "&Keep Editing", false}};
    DesktopMessages messages;
    const auto ask = [&](Question about, const std::function<void(QMessageBox&)>& work) {
        bool answer = false;
        inDialog(
            "", [&] { answer = messages.ask(u"<b>Sure?</b>"_s, about); },
            [&](OpenDialog& dialog) { work(static_cast<QMessageBox&>(dialog.dialog())); });
        return answer;
    };
    const auto press = [](Qt::Key key) {
        return [key](QMessageBox& box) { QTest::keyClick(box.focusWidget(), key); };
    };
    for (const auto& [about, yes, no, answerToReturn] : questions) {
        EXPECT_EQ(ask(about, press(Qt::Key_Return)), answerToReturn) << yes;
        EXPECT_FALSE(ask(about, press(Qt::Key_Escape))) << yes;
        EXPECT_FALSE(ask(about, [](QMessageBox& box) { box.close(); })) << yes;
        for (const char* text : {yes, no}) {
            const bool answer = ask(about, [&](QMessageBox& box) {
                EXPECT_EQ(box.textFormat(), Qt::PlainText);
                for (QAbstractButton* button : box.buttons()) {
                    if (button->text() == QString::fromLatin1(text)) button->click();
                }
            });
            EXPECT_EQ(answer, text == yes) << text;
        }
    }
}

TEST(Messages, AChoiceIsTheAnswerThatWasPressed)
{
    const std::pair<QString, std::optional<int>> cases[] = {
        {u"Return"_s, 0}, {u"Escape"_s, std::nullopt}, {u"&First"_s, 0}, {u"&Second"_s, 1}};
    DesktopMessages messages;
    for (const auto& [pressed, answer] : cases) {
        std::optional<int> chosen = 2;
        inDialog(
            "",
            [&] {
                chosen = messages.choose(u"Which?"_s, {u"&First"_s, u"&Second"_s});
            },
            [&, &pressed = pressed](OpenDialog& dialog) {
                for (QAbstractButton* button : dialog.dialog().findChildren<QAbstractButton*>())
                    if (button->text() == pressed) return button->click();
                QTest::keyClick(&dialog.dialog(), pressed == u"Return"_s ? Qt::Key_Return : Qt::Key_Escape);
            });
        EXPECT_EQ(chosen, answer) << qPrintable(pressed);
    }
}

} // namespace
