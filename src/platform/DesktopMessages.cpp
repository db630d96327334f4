#include "platform/DesktopMessages.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {

/// A box as wide as its text needs, with the text as it is: what a record holds is never read as markup.
void prepare(QMessageBox& box, QMessageBox::Icon icon, const QString& text)
{
    box.setIcon(icon);
    box.setWindowTitle(QApplication::applicationDisplayName());
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
}

} // namespace

void DesktopMessages::show(const QString& text)
{
    QMessageBox box(QApplication::activeWindow());
    prepare(box, QMessageBox::NoIcon, text);
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

bool DesktopMessages::ask(const QString& text, Question about)
{
    QMessageBox box(QApplication::activeWindow());
    prepare(box, QMessageBox::Question, text);
    const bool isDiscard = about == Question::Discard;
    QPushButton* yes = box.addButton(isDiscard ? QMessageBox::Discard : QMessageBox::Yes);
    QPushButton* no = box.addButton(isDiscard ? QMessageBox::Cancel : QMessageBox::No);
    if (isDiscard) {
        yes->setText(QStringLiteral("&Discard"));
        no->setText(QStringLiteral("&Keep Editing"));
    }
    box.setDefaultButton(about == Question::Harmless ? yes : no);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes;
}

void DesktopMessages::beep()
{
    QApplication::beep();
}
