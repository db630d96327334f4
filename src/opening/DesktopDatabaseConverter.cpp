// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/DesktopDatabaseConverter.h"

#include "opening/frmImport.h"

#include <QApplication>

DatabaseConverter::Result DesktopDatabaseConverter::convert(const QString& source, const QString& target,
                                                            bool replace)
{
    frmImport window(m_tool, QApplication::activeWindow());
    return window.run(source, target, replace);
}
