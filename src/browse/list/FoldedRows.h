// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "browse/list/RecordList.h"

#include <string>
#include <string_view>
#include <vector>

/// The texts of a list's rows without case and accents, as a filter compares them: made once, so that each
/// key of the user only has to look through them.
class FoldedRows
{
public:
    /// Adds the rows of the list that came since the last time.
    void follow(const RecordList& list);

    void clear();

    /// The texts of a row's columns, one after the other.
    [[nodiscard]] std::string_view row(std::size_t row) const;

private:
    std::string m_texts;
    std::vector<std::size_t> m_ends; ///< of each row among all texts
};
