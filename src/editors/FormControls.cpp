// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/FormControls.h"

#include "editors/CheckList.h"
#include "editors/EntryCombo.h"
#include "editors/LinkList.h"
#include "editors/ReadingText.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

#include <limits>

namespace {

constexpr int hintOpacity = 128;
constexpr int litShare = 3; ///< a lit line takes one third of its ground from the highlight

/// The lines of a form, without those of the drop-downs.
QList<QLineEdit*> linesOf(const QWidget& form)
{
    QList<QLineEdit*> lines = form.findChildren<QLineEdit*>();
    lines.removeIf(
        [](QLineEdit* line) { return qobject_cast<EntryCombo*>(line->parentWidget()) != nullptr; });
    return lines;
}

/// A locked choice is not greyed out: it is there to be read, like a locked text.
void setReadable(QWidget& field, bool locked)
{
    field.setEnabled(!locked);
    QPalette palette = field.palette();
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText}) {
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Active, role));
    }
    field.setPalette(palette);
}

/// A locked field looks like text of the window, without a frame.
void showLocked(QWidget& field, bool locked)
{
    QPalette palette = field.palette();
    palette.setColor(QPalette::Base,
                     field.parentWidget()->palette().color(locked ? QPalette::Window : QPalette::Base));
    // some dark desktops leave the hint of an empty line black; a locked line needs none
    QColor hint = palette.color(QPalette::Text);
    hint.setAlpha(locked ? 0 : hintOpacity);
    palette.setColor(QPalette::PlaceholderText, hint);
    field.setPalette(palette);
    if (auto* frame = qobject_cast<QFrame*>(&field)) {
        frame->setFrameShape(locked ? QFrame::NoFrame : QFrame::StyledPanel);
    }
}

void lockLines(QWidget& form, bool locked)
{
    for (QLineEdit* line : linesOf(form)) {
        line->setReadOnly(locked);
        line->setFrame(!locked);
        showLocked(*line, locked);
        locked ? ReadingText::showOver(*line) : ReadingText::remove(*line);
    }
    const auto combos = form.findChildren<EntryCombo*>();
    for (EntryCombo* combo : combos) {
        setReadable(*combo, locked);
        locked ? ReadingText::showOver(*combo) : ReadingText::remove(*combo);
    }
}

void setLocked(QWidget& form, bool locked)
{
    lockLines(form, locked);
    const auto texts = form.findChildren<QPlainTextEdit*>();
    for (QPlainTextEdit* text : texts) {
        text->setReadOnly(locked);
        showLocked(*text, locked);
    }
    const auto lists = form.findChildren<QListWidget*>();
    for (QListWidget* list : lists) {
        if (auto* checks = qobject_cast<CheckList*>(list)) checks->setLocked(locked);
        showLocked(*list, locked);
    }
    const auto links = form.findChildren<LinkList*>();
    for (LinkList* list : links)
        list->setLocked(locked);
    const auto checks = form.findChildren<QCheckBox*>();
    for (QCheckBox* check : checks)
        setReadable(*check, locked);
    const auto buttons = form.findChildren<QPushButton*>();
    for (QPushButton* button : buttons)
        button->setEnabled(!locked);
}

} // namespace

void FormControls::lock(QWidget& form)
{
    setLocked(form, true);
}

void FormControls::unlock(QWidget& form)
{
    setLocked(form, false);
}

void FormControls::light(QWidget& line, bool isLit)
{
    const QPalette around = line.parentWidget()->palette();
    QPalette palette = line.palette();
    QColor ground = around.color(QPalette::Base);
    if (isLit) {
        const QColor highlight = around.color(QPalette::Highlight);
        const auto mixed = [](int from, int to) { return from + (to - from) / litShare; };
        ground = QColor(mixed(ground.red(), highlight.red()), mixed(ground.green(), highlight.green()),
                        mixed(ground.blue(), highlight.blue()));
    }
    palette.setColor(QPalette::Base, ground);
    line.setPalette(palette);
}

void FormControls::clear(QWidget& form)
{
    for (QLineEdit* line : linesOf(form))
        line->clear();
    const auto texts = form.findChildren<QPlainTextEdit*>();
    for (QPlainTextEdit* text : texts)
        text->clear();
    const auto combos = form.findChildren<EntryCombo*>();
    for (EntryCombo* combo : combos)
        combo->setCurrentIndex(-1);
    const auto checks = form.findChildren<QCheckBox*>();
    for (QCheckBox* check : checks)
        check->setChecked(false);
    const auto links = form.findChildren<LinkList*>();
    for (LinkList* list : links)
        list->setEntries({});
    const auto checkLists = form.findChildren<CheckList*>();
    for (CheckList* list : checkLists)
        list->untickAll();
}

void FormControls::takeAnyLength(QWidget& form)
{
    const auto lines = form.findChildren<QLineEdit*>();
    for (QLineEdit* line : lines)
        line->setMaxLength(std::numeric_limits<int>::max());
}

void FormControls::showBeginnings(QWidget& form)
{
    const auto lines = form.findChildren<QLineEdit*>();
    for (QLineEdit* line : lines)
        line->setCursorPosition(0);
}

QString FormControls::text(const QPlainTextEdit& field, const QString& stored)
{
    if (!field.document()->isModified()) return stored;
    QString typed = field.toPlainText();
    if (stored.contains(QStringLiteral("\r\n"))) typed.replace(u'\n', QStringLiteral("\r\n"));
    return typed;
}

FormControls::State FormControls::state(const QWidget& form)
{
    State state;
    for (const QLineEdit* line : linesOf(form))
        state[line->objectName()] = line->text();
    const auto texts = form.findChildren<QPlainTextEdit*>();
    for (const QPlainTextEdit* text : texts)
        state[text->objectName()] = text->toPlainText();
    const auto combos = form.findChildren<EntryCombo*>();
    for (const EntryCombo* combo : combos)
        state[combo->objectName()] = QString::number(combo->currentIndex()) + u' ' + combo->currentText();
    const auto checks = form.findChildren<QCheckBox*>();
    for (const QCheckBox* check : checks)
        state[check->objectName()] = QString::number(check->checkState());
    const auto lists = form.findChildren<QListWidget*>();
    for (const QListWidget* list : lists) {
        QString& items = state[list->objectName()];
        for (int row = 0; row < list->count(); ++row) {
            const QListWidgetItem* item = list->item(row);
            items += item->data(Qt::UserRole).toString() + u' ' + QString::number(item->checkState()) + u'|';
        }
    }
    return state;
}
