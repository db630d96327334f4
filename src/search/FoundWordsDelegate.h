#pragma once

#include "search/FoundWords.h"
#include "widgets/LineDelegate.h"

/// Shows the names of a list with the words marked that a keyword search looked for. With no words, it is
/// like any other delegate.
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
