// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Messages.h"

/// Messages as boxes of the desktop, over whichever window is active.
class DesktopMessages final : public Messages
{
public:
    void show(const QString& text) override;
    [[nodiscard]] bool ask(const QString& text, Question about) override;
    [[nodiscard]] std::optional<int> choose(const QString& text, const QStringList& answers) override;
    void beep() override;
};
