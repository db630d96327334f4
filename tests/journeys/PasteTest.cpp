// What the fields of the editors take from the clipboard and from a drag.

#include "Dialogs.h"
#include "Journey.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>

#include <gtest/gtest.h>

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
        if (action->text().contains(QStringLiteral("Paste"))) action->trigger();
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

class Paste : public ::testing::Test
{
protected:
    Paste() { journey.start(); }

    void inEditor(const char* dialog, const char* command, const std::function<void(OpenDialog&)>& work)
    {
        journey.inDialog(dialog, command, work);
    }

    Journey journey;
};

TEST_F(Paste, AnEmptyClipboardLeavesATextAsItIs)
{
    inEditor("frmDocument", "mnuRecordAddNewDocument", [](OpenDialog& dialog) {
        dialog.type("rtbNotes", QStringLiteral("kept"));
        QApplication::clipboard()->setMimeData(new QMimeData);
        auto& field = dialog.find<QWidget>("rtbNotes");
        pasteByKey(field);
        pasteByOtherKey(field);
        EXPECT_EQ(dialog.text("rtbNotes"), "kept");
        QApplication::clipboard()->setText(QStringLiteral(" one\ntwo"));
        pasteByKey(field);
        EXPECT_EQ(dialog.text("rtbNotes"), "kept one\ntwo");
        dialog.dialog().done(QDialog::Rejected);
    });
}

TEST_F(Paste, LineEndsBecomeBlanksInALine)
{
    const struct
    {
        const char* dialog;
        const char* command;
        std::vector<const char*> fields;
    } editors[] = {
        {"frmDocument",
         "mnuRecordAddNewDocument",
         {"txtDocumentName", "txtAuthor", "txtURL", "txtOriginalFilename", "cmbOrganizationNames"}},
        {"frmEvent", "mnuRecordAddNewEvent", {"txtEventName", "dtpStartDate", "dtpEndTime"}},
        {"frmOrganization", "mnuRecordAddNewOrganization", {"txtCity", "txtOrganizationChart"}}};
    const struct
    {
        QString pasted;
        const char* taken;
    } texts[] = {{QStringLiteral("a\nb\r\nc\rd\u2028e"), "a b c d e"}, {QStringLiteral("plain"), "plain"}};
    for (const auto& [dialogName, command, fields] : editors) {
        inEditor(dialogName, command, [&](OpenDialog& dialog) {
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
