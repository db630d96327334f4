// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/FileDialogs.h"

/// The desktop's own file dialogs, each beginning in the folder used last.
class DesktopFileDialogs final : public FileDialogs
{
public:
    [[nodiscard]] QString openFile(const QString& title, const QString& filter) override;
    [[nodiscard]] QString saveFile(const QString& title, const QString& proposed,
                                   const QString& filter) override;
    [[nodiscard]] QString chooseFolder(const QString& title, const QString& start) override;

private:
    QString m_lastFolder;
};
