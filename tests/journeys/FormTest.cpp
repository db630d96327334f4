// SPDX-License-Identifier: GPL-3.0-or-later

// Every editor on a small screen, and what its fields take from the clipboard and from a drag.

#include "Journey.h"

namespace {

void pasteByKey(QWidget& field)
{
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
}

void pasteByOtherKey(QWidget& field)
{
    QTest::keyClick(&field, Qt::Key_Insert, Qt::ShiftModifier);
}

void pasteByMenu(QWidget& field)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), field.mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(&field, &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->actions()) {
        if (action->text().contains(u"Paste"_s)) action->trigger();
    }
    menu->close();
}

void drop(QWidget& field)
{
    const QMimeData* data = QApplication::clipboard()->mimeData();
    QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &enter);
    QDropEvent event(QPointF(2, 2), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &event);
    EXPECT_TRUE(event.isAccepted());
}

class Form : public ::testing::Test
{
protected:
    Form() { journey.start(); }

    Journey journey;
};

/// The editors, and fields of one line that each of them has.
const struct
{
    const char* dialog;
    const char* command;
    std::vector<const char*> fields;
} forms[] = {{"frmDocument",
              "mnuRecordAddNewDocument",
              {"txtDocumentName", "txtAuthor", "txtURL", "txtOriginalFilename", "cmbOrganizationNames"}},
             {"frmEvent", "mnuRecordAddNewEvent", {"txtEventName", "dtpStartDate", "dtpEndTime"}},
             {"frmOrganization", "mnuRecordAddNewOrganization", {"txtCity", "txtOrganizationChart"}}};

TEST_F(Form, ScrollsIfTheWindowIsSmallAndRemembersItsSize)
{
    for (const auto& [name, command, fields] : forms) {
        SCOPED_TRACE(name);
        journey.inDialog(name, command, [](OpenDialog& dialog) {
            dialog.dialog().resize(400, 300);
            EXPECT_LE(dialog.dialog().width(), 500);
            QTest::qWait(1);
            EXPECT_GT(dialog.find<QScrollArea>("scrollArea").verticalScrollBar()->maximum(), 0);
            dialog.dialog().resize(640, 480);
            dialog.click("cmdCancel");
        });
        journey.inDialog(name, command, [](OpenDialog& dialog) {
            EXPECT_EQ(dialog.dialog().size(), QSize(640, 480));
            dialog.click("cmdCancel");
        });
    }
}

TEST_F(Form, AnEmptyClipboardLeavesATextAsItIs)
{
    journey.inDialog("frmDocument", "mnuRecordAddNewDocument", [](OpenDialog& dialog) {
        dialog.type("rtbNotes", u"kept"_s);
        QApplication::clipboard()->setMimeData(new QMimeData);
        auto& field = dialog.find<QWidget>("rtbNotes");
        pasteByKey(field);
        pasteByOtherKey(field);
        EXPECT_EQ(dialog.text("rtbNotes"), "kept");
        QApplication::clipboard()->setText(u" one\ntwo"_s);
        pasteByKey(field);
        EXPECT_EQ(dialog.text("rtbNotes"), "kept one\ntwo");
        dialog.dialog().done(QDialog::Rejected);
    });
}

TEST_F(Form, LineEndsBecomeBlanksInALine)
{
    const struct
    {
        QString pasted;
        const char* taken;
    } texts[] = {{u"a\nb\r\nc\rd\u2028e"_s, "a b c d e"}, {u"plain"_s, "plain"}};
    for (const auto& [dialogName, command, fields] : forms) {
        journey.inDialog(dialogName, command, [&, &fields = fields](OpenDialog& dialog) {
            for (const char* name : fields) {
                auto& part = dialog.find<QWidget>(name);
                auto* line = qobject_cast<QLineEdit*>(&part);
                if (line == nullptr) line = part.findChild<QLineEdit*>();
                line->setFocus();
                for (const auto& [pasted, taken] : texts) {
                    for (const auto paste : {pasteByKey, pasteByOtherKey, pasteByMenu, drop}) {
                        line->clear();
                        QApplication::clipboard()->setText(pasted);
                        paste(*line);
                        EXPECT_EQ(line->text().toStdString(), taken) << name;
                    }
                    line->undo();
                    EXPECT_EQ(line->text().toStdString(), "") << name;
                }
            }
            dialog.dialog().done(QDialog::Rejected);
        });
    }
}

} // namespace
