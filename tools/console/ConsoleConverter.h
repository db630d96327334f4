// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ConsoleWorks.h"
#include "opening/DatabaseConverter.h"

#include <QString>

namespace console {

/// Has the program beside the tool convert an Access file, in a process of its own.
class ConsoleConverter final : public DatabaseConverter
{
public:
    /// `works` must outlive the converter.
    explicit ConsoleConverter(ConsoleWorks& works) : m_works(works) {}

    [[nodiscard]] Result convert(const QString& source, const QString& target, bool replace) override;

private:
    ConsoleWorks& m_works;
    QString m_step; ///< what was done last
};

} // namespace console
