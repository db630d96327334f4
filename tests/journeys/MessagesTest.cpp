// SPDX-License-Identifier: GPL-3.0-or-later

#include "Dialogs.h"
#include "platform/DesktopMessages.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

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
