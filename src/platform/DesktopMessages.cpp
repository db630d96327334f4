#include "platform/DesktopMessages.h"

#include <QApplication>
#include <QMessageBox>

namespace {

/// A box as wide as its text needs, with the text as it is: what a record holds is never read as markup.
QMessageBox::StandardButton run(QMessageBox::Icon icon, const QString& text,
                                QMessageBox::StandardButtons buttons, QMessageBox::StandardButton escape)
{
    QMessageBox box(icon, QApplication::applicationDisplayName(), text, buttons,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(escape);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

void DesktopMessages::show(const QString& text)
{
    run(QMessageBox::NoIcon, text, QMessageBox::Ok, QMessageBox::Ok);
}

bool DesktopMessages::ask(const QString& question)
{
    return run(QMessageBox::Question, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

void DesktopMessages::beep()
{
    QApplication::beep();
}
