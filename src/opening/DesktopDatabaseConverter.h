// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "opening/DatabaseConverter.h"

/// Converts with the program's own tool, a process of its own, under a window that shows the progress.
class DesktopDatabaseConverter final : public DatabaseConverter
{
public:
    /// `tool` is the path of the program that converts.
    explicit DesktopDatabaseConverter(QString tool) : m_tool(std::move(tool)) {}

    [[nodiscard]] Result convert(const QString& source, const QString& target, bool replace) override;

private:
    QString m_tool;
};
