// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "search/FoundWords.h"
#include "widgets/LineDelegate.h"

/// Marks the words of a keyword search in the names of a list. Without words, it paints as its base does.
class FoundWordsDelegate final : public LineDelegate
{
    Q_OBJECT

public:
    using LineDelegate::LineDelegate;

    void setWords(FoundWords words) { m_words = std::move(words); }
    [[nodiscard]] const FoundWords& words() const { return m_words; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    FoundWords m_words;
};
