// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <ostream>

/// Prints a text as text when a test fails.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
