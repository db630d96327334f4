// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopMessages.h"

#include "platform/PlatformTexts.h"
#include "util/Logging.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QThread>

namespace {

constexpr int activationPatience = 500; ///< milliseconds

/// Waits until the window manager has given the keyboard back to the window below a box that has closed. If
/// that window were closed before, some managers would leave no window with the keyboard.
void waitForActivation(const QPointer<QWidget>& window)
{
    const QDeadlineTimer patience(activationPatience);
    while (window && window->isVisible() && !window->isActiveWindow() && !patience.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(2);
    }
}

/// Shows the text as it is: what a record holds is never read as markup.
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
    qCInfo(messagesLog).noquote() << "shown:" << text;
    const QPointer<QWidget> below = QApplication::activeWindow();
    QMessageBox box(below);
    prepare(box, QMessageBox::NoIcon, text);
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    waitForActivation(below);
}

bool DesktopMessages::ask(const QString& text, Question about)
{
    const QPointer<QWidget> below = QApplication::activeWindow();
    QMessageBox box(below);
    prepare(box, QMessageBox::Question, text);
    const bool isDiscard = about == Question::Discard;
    QPushButton* yes = box.addButton(isDiscard ? QMessageBox::Discard : QMessageBox::Yes);
    QPushButton* no = box.addButton(isDiscard ? QMessageBox::Cancel : QMessageBox::No);
    if (isDiscard) {
        yes->setText(PlatformTexts::tr("&Discard"));
        no->setText(PlatformTexts::tr("&Keep Editing"));
    }
    box.setDefaultButton(about == Question::Harmless ? yes : no);
    box.setEscapeButton(no);
    box.exec();
    waitForActivation(below);
    const bool isYes = box.clickedButton() == yes;
    qCInfo(messagesLog).noquote() << "asked:" << text << "\n  answer:" << (isYes ? "yes" : "no");
    return isYes;
}

std::optional<int> DesktopMessages::choose(const QString& text, const QStringList& answers)
{
    const QPointer<QWidget> below = QApplication::activeWindow();
    QMessageBox box(below);
    prepare(box, QMessageBox::Question, text);
    QList<QAbstractButton*> buttons;
    for (const QString& answer : answers)
        buttons << box.addButton(answer, QMessageBox::AcceptRole);
    box.setDefaultButton(qobject_cast<QPushButton*>(buttons.front()));
    box.setEscapeButton(box.addButton(QMessageBox::Cancel));
    box.exec();
    waitForActivation(below);
    const auto chosen = static_cast<int>(buttons.indexOf(box.clickedButton()));
    qCInfo(messagesLog).noquote() << "asked:" << text
                                  << "\n  answer:" << answers.value(chosen, QStringLiteral("cancel"));
    return chosen < 0 ? std::nullopt : std::optional(chosen);
}

void DesktopMessages::beep()
{
    QApplication::beep();
}
