// What every editor owes to the keyboard and to small screens.

#include "Dialogs.h"
#include "Journey.h"

#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct EditorCase
{
    const char* dialog;
    const char* command;
    const char* required; ///< what must not be empty, as a screen reader names it

    friend std::ostream& operator<<(std::ostream& out, const EditorCase& editor)
    {
        return out << editor.command;
    }
};

class Form : public ::testing::TestWithParam<EditorCase>
{
protected:
    Form() { journey.start(); }

    void open(const std::function<void(OpenDialog&)>& work)
    {
        inDialog(
            GetParam().dialog, [&] { journey.trigger(GetParam().command); }, work);
    }

    Journey journey;
};

/// The letter that a caption is reached by, or nothing.
QString mnemonic(const QString& caption)
{
    const qsizetype mark = caption.indexOf(u'&');
    return mark < 0 ? QString() : QString(caption.mid(mark + 1, 1).toLower());
}

TEST_P(Form, ReachesEveryFieldByAKeyOfItsOwnAndNamesIt)
{
    open([](OpenDialog& dialog) {
        QSet<QString> keys;
        QStringList required;
        for (const QLabel* label : dialog.dialog().findChildren<QLabel*>()) {
            if (!label->isVisible() || label->text().isEmpty()) continue;
            if (label->objectName() == QStringLiteral("lblRequired")) continue;
            const QString key = mnemonic(label->text());
            EXPECT_FALSE(key.isEmpty()) << label->text().toStdString();
            EXPECT_FALSE(keys.contains(key)) << label->text().toStdString();
            ASSERT_NE(label->buddy(), nullptr) << label->text().toStdString();
            EXPECT_NE(label->buddy()->focusPolicy(), Qt::NoFocus) << label->text().toStdString();
            keys.insert(key);
            if (label->text().endsWith(u'*')) required << label->buddy()->accessibleName();
        }
        EXPECT_GT(keys.size(), 8);
        static const QRegularExpression field(QStringLiteral("^(txt|rtb|cmb|dtp|l)"));
        for (const QWidget* part : dialog.dialog().findChildren<QWidget*>(field)) {
            if (part->focusPolicy() == Qt::NoFocus) continue;
            EXPECT_FALSE(part->accessibleName().isEmpty()) << part->objectName().toStdString();
        }
        for (const QPushButton* button : dialog.dialog().findChildren<QPushButton*>())
            EXPECT_EQ(button->autoDefault(), button->isDefault()) << button->objectName().toStdString();
        EXPECT_EQ(required.join(u'|').toStdString(), GetParam().required);
        dialog.click("cmdCancel");
    });
}

TEST_P(Form, ScrollsWhereTheWindowIsSmallAndRemembersItsSize)
{
    open([](OpenDialog& dialog) {
        dialog.dialog().resize(400, 300);
        EXPECT_LE(dialog.dialog().width(), 500);
        auto& area = dialog.find<QScrollArea>("scrollArea");
        QTest::qWait(1);
        EXPECT_GT(area.verticalScrollBar()->maximum(), 0);
        dialog.dialog().resize(640, 480);
        dialog.click("cmdCancel");
    });
    open([](OpenDialog& dialog) {
        EXPECT_EQ(dialog.dialog().size(), QSize(640, 480));
        dialog.click("cmdCancel");
    });
}

INSTANTIATE_TEST_SUITE_P(
    Editors, Form,
    ::testing::Values(EditorCase{"frmDocument", "mnuRecordAddNewDocument",
                                 "Title, required|Document file, required|Description, required"},
                      EditorCase{"frmEvent", "mnuRecordAddNewEvent",
                                 "Title, required|Description, required|Venues, required"},
                      EditorCase{"frmOrganization", "mnuRecordAddNewOrganization", "Name, required"}),
    [](const auto& editor) { return std::string(editor.param.dialog); });

} // namespace
