// SPDX-License-Identifier: GPL-3.0-or-later

#include "Dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <QTreeView>

namespace {

std::string rowsOf(const QTreeView& table)
{
    const QAbstractItemModel& model = *table.model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList texts;
        for (int column = 0; column < model.columnCount(); ++column)
            texts << model.index(row, column).data().toString();
        rows << (table.selectionModel()->isRowSelected(row) ? u"*"_s : QString()) + texts.join(u'|');
    }
    return rows.join(u'\n').toStdString();
}

} // namespace

void OpenDialog::type(const char* field, const QString& text)
{
    QWidget& widget = find<QWidget>(field);
    widget.setFocus();
    QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&widget, Qt::Key_Delete);
    // the text of the key, since not every letter has a key of its own
    for (const QChar letter : text) {
        QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
}

void OpenDialog::click(const char* button)
{
    QTest::mouseClick(&find<QAbstractButton>(button), Qt::LeftButton);
}

void OpenDialog::press(Qt::Key key)
{
    QWidget* target = m_dialog.focusWidget();
    QTest::keyClick(target == nullptr ? &m_dialog : target, key);
}

void OpenDialog::inDialog(const char* name, const char* button, const std::function<void(OpenDialog&)>& work)
{
    ::inDialog(
        name, [&] { click(button); }, work);
}

std::string OpenDialog::text(const char* field)
{
    QWidget& widget = find<QWidget>(field);
    if (const auto* line = qobject_cast<QLineEdit*>(&widget)) return line->text().toStdString();
    if (const auto* text = qobject_cast<QPlainTextEdit*>(&widget)) return text->toPlainText().toStdString();
    if (const auto* combo = qobject_cast<QComboBox*>(&widget)) return combo->currentText().toStdString();
    if (const auto* button = qobject_cast<QAbstractButton*>(&widget)) return button->text().toStdString();
    if (const auto* table = qobject_cast<QTreeView*>(&widget)) return rowsOf(*table);
    const auto* list = qobject_cast<QListWidget*>(&widget);
    if (list == nullptr) throw std::runtime_error(std::string("has no text: ") + field);
    QStringList items;
    for (int row = 0; row < list->count(); ++row) {
        const QListWidgetItem& item = *list->item(row);
        items << (item.checkState() == Qt::Checked ? u'*' + item.text() : item.text());
    }
    return items.join(u'|').toStdString();
}

void OpenDialog::tick(const char* list, const QString& item)
{
    auto& widget = find<QListWidget>(list);
    const QList<QListWidgetItem*> found = widget.findItems(item, Qt::MatchExactly);
    if (found.isEmpty()) throw std::runtime_error("no such item: " + item.toStdString());
    widget.setFocus();
    widget.setCurrentItem(found.front());
    QTest::keyClick(&widget, Qt::Key_Space);
}

void OpenDialog::choose(const char* dropDown, const QString& entry)
{
    auto& combo = find<QComboBox>(dropDown);
    const int index = combo.findText(entry);
    if (index < 0) throw std::runtime_error("no such entry: " + entry.toStdString());
    combo.setCurrentIndex(index);
}

std::string OpenDialog::focus() const
{
    const QWidget* widget = m_dialog.focusWidget();
    return widget == nullptr ? std::string() : widget->objectName().toStdString();
}

void discard(OpenDialog& dialog, ScriptedMessages& messages)
{
    messages.expectQuestion(u"Close without saving your changes?"_s, true, Question::Discard);
    dialog.click("cmdCancel");
    messages.finish();
}

void addEntry(OpenDialog& window, const char* button, const QString& name)
{
    window.inDialog("frmListEntry", button, [&](OpenDialog& entry) {
        entry.type("txtName", name);
        entry.click("cmdOK");
    });
}

namespace {

/// There is no window manager here to give a window the focus.
bool makeActive(QWidget& window)
{
    window.activateWindow();
    return QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; });
}

void workIn(const char* name, const std::function<void(OpenDialog&)>& work)
{
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog->objectName() != QString::fromUtf8(name)) {
        ADD_FAILURE() << "the open dialog is not " << name;
        if (dialog != nullptr) dialog->done(QDialog::Rejected);
        return;
    }
    if (!makeActive(*dialog)) ADD_FAILURE() << name << " is not active";
    OpenDialog open(*dialog);
    try {
        work(open);
    } catch (const std::exception& exception) {
        ADD_FAILURE() << name << ": " << exception.what();
    }
    if (!dialog->isVisible()) return;
    ADD_FAILURE() << name << " was left open";
    dialog->done(QDialog::Rejected);
}

} // namespace

void inDialog(const char* name, const std::function<void()>& open,
              const std::function<void(OpenDialog&)>& work)
{
    QWidget* before = QApplication::activeWindow();
    // a menu is gone once it has opened the dialog
    if (qobject_cast<QMenu*>(before) != nullptr) before = before->parentWidget()->window();
    bool hasOpened = false;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        hasOpened = true;
        workIn(name, work);
    });
    timer.start(0);
    open();
    if (!hasOpened) ADD_FAILURE() << name << " never opened";
    if (before != nullptr && !makeActive(*before)) ADD_FAILURE() << "the window is not active again";
}
