// What every editor owes to small screens.

#include "Dialogs.h"
#include "Journey.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct EditorCase
{
    const char* dialog;
    const char* command;

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
        journey.inDialog(GetParam().dialog, GetParam().command, work);
    }

    Journey journey;
};

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

INSTANTIATE_TEST_SUITE_P(Editors, Form,
                         ::testing::Values(EditorCase{"frmDocument", "mnuRecordAddNewDocument"},
                                           EditorCase{"frmEvent", "mnuRecordAddNewEvent"},
                                           EditorCase{"frmOrganization", "mnuRecordAddNewOrganization"}),
                         [](const auto& editor) { return std::string(editor.param.dialog); });

} // namespace
