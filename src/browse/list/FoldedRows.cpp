// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/FoldedRows.h"

#include "util/TextCompare.h"

void FoldedRows::follow(const RecordList& list)
{
    std::string texts;
    std::string folded;
    m_ends.reserve(list.count());
    for (std::size_t row = m_ends.size(); row < list.count(); ++row) {
        texts.clear();
        list.appendTexts(row, texts);
        TextCompare::foldWithoutAccents(texts, folded);
        m_texts += folded;
        m_ends.push_back(m_texts.size());
    }
}

void FoldedRows::clear()
{
    m_texts.clear();
    m_ends.clear();
}

std::string_view FoldedRows::row(std::size_t row) const
{
    const std::size_t begin = row == 0 ? 0 : m_ends[row - 1];
    return std::string_view(m_texts).substr(begin, m_ends[row] - begin);
}
