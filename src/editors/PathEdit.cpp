// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/PathEdit.h"

#include "files/FileUpload.h"

PathEdit::PathEdit(QWidget* parent) : LineEdit(parent)
{
    setPlaceholderText(tr("Browse, type a path or drop a file here"));
}

QString PathEdit::path() const
{
    return isModified() ? FileUpload::typedPath(text()) : text();
}
