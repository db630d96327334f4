// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/FolderField.h"

#include "files/FileUpload.h"
#include "platform/FileDialogs.h"
#include "widgets/LineEdit.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

FolderField::FolderField(const QString& name, const QString& title, FileDialogs& dialogs, QWidget* parent)
    : QWidget(parent),
      m_dialogs(dialogs),
      m_title(title),
      m_path(new LineEdit(this)),
      m_note(new QLabel(this))
{
    m_path->setObjectName(QStringLiteral("txt") + name);
    m_path->setAccessibleName(title);
    m_path->setClearButtonEnabled(true);
    m_note->setObjectName(QStringLiteral("lbl") + name);
    m_note->setText(tr("This folder does not exist."));
    auto* browse = new QPushButton(tr("Choose…"), this);
    browse->setObjectName(QStringLiteral("cmd") + name);
    browse->setAccessibleName(tr("Choose: %1").arg(title));
    browse->setAutoDefault(false);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_path, 0, 0);
    layout->addWidget(browse, 0, 1);
    layout->addWidget(m_note, 1, 0, 1, 2);
    setFocusProxy(m_path);
    connect(m_path, &QLineEdit::textChanged, this, &FolderField::check);
    connect(browse, &QPushButton::clicked, this, &FolderField::choose);
    check();
}

void FolderField::setFolder(const QString& folder)
{
    m_path->setText(folder);
}

void FolderField::setHint(const QString& hint)
{
    m_path->setPlaceholderText(hint);
}

QString FolderField::folder() const
{
    return FileUpload::typedPath(m_path->text());
}

void FolderField::choose()
{
    const QString chosen = m_dialogs.chooseFolder(m_title, folder());
    if (!chosen.isEmpty()) setFolder(chosen);
}

void FolderField::check()
{
    m_note->setVisible(!folder().isEmpty() && !QFileInfo(folder()).isDir());
}
