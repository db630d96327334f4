// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Shell.h"

/// Opens files and addresses with the programs that the user's desktop is set to use.
class DesktopShell final : public Shell
{
public:
    [[nodiscard]] bool open(const QUrl& url) override;
    [[nodiscard]] bool start(const QString& program, const QString& file) override;
};
