// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <vector>

/// A run of characters of a text, counted from 0.
struct TextRange
{
    qsizetype begin = 0;
    qsizetype end = 0; ///< one past its last character

    friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// Returns the ranges from left to right; those that touch or overlap become one.
[[nodiscard]] std::vector<TextRange> merged(std::vector<TextRange> ranges);
