// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/DialogButtons.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

QPushButton* DialogButtons::command(QDialog& dialog, const char* name, const QString& text,
                                    const QString& statusTip)
{
    auto* button = new QPushButton(text, &dialog);
    button->setObjectName(QString::fromLatin1(name));
    button->setStatusTip(statusTip);
    button->setAutoDefault(false);
    return button;
}

QDialogButtonBox* DialogButtons::okAndCancel(QDialog& dialog)
{
    auto* box = new QDialogButtonBox(&dialog);
    const auto add = [&](const char* name, const QString& text, QDialogButtonBox::ButtonRole role) {
        auto* button = new QPushButton(text, &dialog);
        button->setObjectName(QString::fromLatin1(name));
        box->addButton(button, role);
        return button;
    };
    add("cmdOK", QCoreApplication::translate("DialogButtons", "OK"), QDialogButtonBox::AcceptRole)
        ->setDefault(true);
    add("cmdCancel", QCoreApplication::translate("DialogButtons", "Cancel"), QDialogButtonBox::RejectRole);
    QObject::connect(box, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return box;
}

QLabel* DialogButtons::outcome(QDialog& dialog)
{
    auto* label = new QLabel(&dialog);
    label->setObjectName(QStringLiteral("lblOutcome"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QHBoxLayout* DialogButtons::closingRow(QDialog& dialog, QLabel& outcome)
{
    QPushButton* close =
        command(dialog, "cmdClose", QCoreApplication::translate("DialogButtons", "Close"), {});
    QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::accept);
    auto* row = new QHBoxLayout;
    row->addWidget(&outcome, 1);
    row->addWidget(close);
    return row;
}
