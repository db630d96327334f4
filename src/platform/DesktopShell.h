#pragma once

#include "platform/Shell.h"

/// Opens what it is given by the user's own choice of programs.
class DesktopShell final : public Shell
{
public:
    [[nodiscard]] bool open(const QUrl& url) override;
    [[nodiscard]] bool start(const QString& program, const QString& file) override;
};
