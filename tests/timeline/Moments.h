// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/Moment.h"

#include <stdexcept>
#include <string_view>

/// The moment of `YYYY-MM-DD` or `YYYY-MM-DD HH:MM`.
inline Moment at(std::string_view text)
{
    const auto moment =
        momentOfHeld(text.substr(0, 10), text.size() > 11 ? text.substr(11) : std::string_view());
    if (!moment) throw std::runtime_error("no such moment");
    return *moment;
}
