// SPDX-License-Identifier: GPL-3.0-or-later

// What goes into each control of an editor, and where it comes out again.

#include "Journey.h"
#include "Portrait.h"
#include "editors/RecordEditors.h"
#include "support/CaseFile.h"

namespace {

/// A control, what its user enters there, and what it shows when the record is opened again. Items of a list
/// are divided by `|`. `FILE` stands for a file of the user.
struct Control
{
    QByteArray name;
    QString entered;
    QString shown;
};

/// The controls of a form, a line each: `name = entered`, and ` => shown` if that is not what was entered.
std::vector<Control> controlsOf(const char* form)
{
    std::vector<Control> controls;
    for (const FileCase& editor : casesIn("journeys/cases/controls.txt", 3)) {
        if (editor.asked != QLatin1StringView(form)) continue;
        for (const QString& line : editor.expected.chopped(1).split(u'\n')) {
            const QStringList texts = line.section(u" = "_s, 1).split(u" => "_s);
            controls.push_back({line.section(u" = "_s, 0, 0).toLatin1(), texts.front(), texts.back()});
        }
    }
    return controls;
}

struct Editor
{
    RecordKind kind;
    const char* form;
    const char* history;
    const char* saved;   ///< the portrait of the rows that a save leaves
    const char* unshown; ///< sets what the editor does not know

    friend std::ostream& operator<<(std::ostream& out, const Editor& editor) { return out << editor.form; }
};

const Editor editors[] = {{RecordKind::Document, "frmDocument", "Document_HIST", "saved-document",
                           "UPDATE Document SET ReleaseForm = 0, UserID = 5, POCID = 6, Status = 'REVIEWED'"},
                          {RecordKind::Event, "frmEvent", "Event_HIST", "saved-event",
                           "UPDATE Event SET UserID = 7, StartTime = '13:05:30'"},
                          {RecordKind::Organization, "frmOrganization", "Organization_HIST",
                           "saved-organization",
                           "UPDATE Organization SET UserID = 7, ParentID = 23, Lat = 46.2, Lon = -123.8"}};

/// Takes entries over from the pick list.
void pick(OpenDialog& dialog, QListWidget& list, const QStringList& names)
{
    QPushButton* add = nullptr;
    for (auto* button : list.parentWidget()->findChildren<QPushButton*>()) {
        if (button->objectName().startsWith(u"cmdAdd"_s)) add = button;
    }
    ASSERT_NE(add, nullptr);
    inDialog(
        "frmPicList", [&] { dialog.click(add->objectName().toUtf8().constData()); },
        [&](OpenDialog& picker) {
            auto& view = picker.find<QTreeView>("lvPicList");
            for (const QString& name : names) {
                const auto found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, name);
                if (found.isEmpty()) throw std::runtime_error("nothing to pick: " + name.toStdString());
                view.setCurrentIndex(found.front());
                QTest::keyClick(&view, Qt::Key_Space);
            }
            picker.click("cmdOK");
        });
}

void bringForward(OpenDialog& dialog, const QWidget& part)
{
    auto* tabs = dialog.dialog().findChild<QTabWidget*>();
    if (tabs != nullptr) tabs->setCurrentIndex(tabs->widget(1)->isAncestorOf(&part) ? 1 : 0);
}

/// The controls of a form that the tab key reaches, apart from plain buttons and the tabs themselves.
QList<QWidget*> inputs(OpenDialog& dialog)
{
    QList<QWidget*> parts = dialog.find<QWidget>("scrollArea").findChildren<QWidget*>();
    parts.removeIf([&](const QWidget* part) {
        const auto* button = qobject_cast<const QAbstractButton*>(part);
        const bool isReached = part->window() == &dialog.dialog() && part->focusProxy() == nullptr &&
                               (part->focusPolicy() & Qt::TabFocus) != 0;
        return !isReached || (button != nullptr && !button->isCheckable()) ||
               qobject_cast<const QTabBar*>(part) != nullptr;
    });
    return parts;
}

class RoundTrip : public testing::TestWithParam<Editor>
{
protected:
    RoundTrip()
    {
        journey.database.runFile("journeys/rows/RoundTrip.sql");
        QDir().mkpath(journey.dataFolder() + u"orgcharts"_s);
        writeFile(file);
        journey.start();
    }

    /// A text with the user's file in it.
    [[nodiscard]] QString with(const QString& text) const { return QString(text).replace(u"FILE"_s, file); }

    void enter(OpenDialog& dialog, const Control& control)
    {
        auto& part = dialog.find<QWidget>(control.name);
        bringForward(dialog, part);
        const QStringList items = control.entered.split(u'|');
        if (qobject_cast<QComboBox*>(&part) != nullptr) {
            dialog.choose(control.name, control.entered);
        } else if (qobject_cast<QCheckBox*>(&part) != nullptr) {
            part.setFocus();
            dialog.press(Qt::Key_Space);
        } else if (auto* list = qobject_cast<QListWidget*>(&part); list == nullptr) {
            dialog.type(control.name, with(control.entered));
        } else if (list->item(0)->data(Qt::CheckStateRole).isValid()) {
            for (const QString& item : items)
                dialog.tick(control.name, item);
        } else {
            pick(dialog, *list, items);
        }
    }

    static std::string shown(OpenDialog& dialog, const char* name)
    {
        const auto* box = qobject_cast<QCheckBox*>(&dialog.find<QWidget>(name));
        if (box == nullptr) return dialog.text(name);
        return box->isChecked() ? "on" : "off";
    }

    void expectAll(OpenDialog& dialog)
    {
        for (const Control& control : controls)
            EXPECT_EQ(shown(dialog, control.name), with(control.shown).toStdString()) << control.name.data();
    }

    void open(EditorMode mode, const std::function<void(OpenDialog&)>& work)
    {
        auto& records = journey.find<RecordEditors>("");
        const RecordKind kind = GetParam().kind;
        inDialog(
            GetParam().form,
            [&] {
                if (mode == EditorMode::Add) records.add(kind, std::nullopt);
                if (mode == EditorMode::Edit) records.edit(kind, id());
                if (mode == EditorMode::View) records.view(kind, id());
            },
            work);
    }

    static qint64 id() { return GetParam().kind == RecordKind::Organization ? 25 : 28; }

    Journey journey;
    QString file = journey.database.folder() + u"/scan.PDF"_s;
    std::vector<Control> controls = controlsOf(GetParam().form);
};

/// Keys that change something wherever a control takes them.
void pressAll(QWidget& part)
{
    part.setFocus();
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_Space, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Down})
        QTest::keyClick(&part, key);
    QTest::keyClick(&part, Qt::Key_X, Qt::ControlModifier);
}

TEST_P(RoundTrip, BringsEveryControlIntoTheFileAndBack)
{
    const QStringList rowsBefore = journey.dump();
    open(EditorMode::Add, [&](OpenDialog& dialog) {
        QStringList known;
        for (const Control& control : controls) {
            known << QString::fromLatin1(control.name);
            enter(dialog, control);
        }
        for (const QWidget* part : inputs(dialog)) {
            if (known.contains(part->parentWidget()->objectName())) continue;
            EXPECT_TRUE(known.contains(part->objectName())) << part->objectName().toStdString();
        }
        dialog.click("cmdOK");
    });
    QStringList saved = journey.dump();
    saved.removeIf([&](const QString& row) { return rowsBefore.contains(row); });
    expectPortrait(GetParam().saved, saved.replaceInStrings(file, u"FILE"_s));

    journey.database.run(GetParam().unshown);
    QStringList before = journey.dump();
    open(EditorMode::View, [&](OpenDialog& dialog) {
        expectAll(dialog);
        for (const Control& control : controls) {
            auto& part = dialog.find<QWidget>(control.name);
            bringForward(dialog, part);
            pressAll(part);
        }
        expectAll(dialog);
        for (const auto* button : dialog.find<QWidget>("scrollArea").findChildren<QPushButton*>()) {
            const bool onlyShows = button->objectName() == u"cmdViewOrganization"_s;
            EXPECT_EQ(button->isEnabled(), onlyShows) << button->objectName().toStdString();
        }
        dialog.press(Qt::Key_Escape);
    });
    EXPECT_EQ(journey.dump(), before);

    journey.desktop.clock.moment = journey.desktop.clock.moment.addSecs(1);
    open(EditorMode::Edit, [&](OpenDialog& dialog) {
        expectAll(dialog);
        dialog.click("cmdOK");
    });
    const QString history = QString::fromLatin1(GetParam().history);
    QStringList after = journey.dump();
    const QStringList versions = before.filter(u"'%1'|"_s.arg(history));
    ASSERT_EQ(versions.size(), 1);
    before << QString(versions.front()).replace(u"12:00:00"_s, u"12:00:01"_s);
    before.sort();
    after.sort();
    EXPECT_EQ(after, before);
}

INSTANTIATE_TEST_SUITE_P(Editors, RoundTrip, testing::ValuesIn(editors),
                         [](const auto& editor) { return std::string(editor.param.form); });

} // namespace
