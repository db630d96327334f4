// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <variant>

/// A value of a record: missing, a whole number, a real number or a text. Dates and times are texts in
/// program form (`mm/dd/yyyy`, `hh:mm`).
using Value = std::variant<std::monostate, qint64, double, QString>;

inline bool isNull(const Value& value)
{
    return std::holds_alternative<std::monostate>(value);
}
