// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/FilterWords.h"

#include "util/TextCompare.h"

#include <QStringList>

#include <algorithm>

namespace {

std::string folded(QStringView text)
{
    std::string result;
    TextCompare::foldWithoutAccents(text.toUtf8().toStdString(), result);
    return result;
}

/// A text as words are compared with it, and where each byte of that came from.
struct FoldedText
{
    explicit FoldedText(QStringView text)
    {
        for (qsizetype i = 0; i < text.size();) {
            const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size();
            const qsizetype length = isPair ? 2 : 1;
            const std::string letter = folded(text.mid(i, length));
            bytes += letter;
            origins.insert(origins.end(), letter.size(), i);
            i += length;
        }
        origins.push_back(text.size());
    }

    std::string bytes;
    std::vector<qsizetype> origins; ///< one more than bytes: the end of the text
};

} // namespace

FilterWords::FilterWords(const QString& typed)
{
    const QStringList words = typed.simplified().split(u' ', Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const bool leavesOut = word.startsWith(u'-');
        std::string text = folded(leavesOut ? QStringView(word).mid(1) : QStringView(word));
        std::vector<std::string>& list = leavesOut ? m_unwanted : m_wanted;
        const bool isNew = std::find(list.begin(), list.end(), text) == list.end();
        if (!text.empty() && isNew) list.push_back(std::move(text));
    }
}

bool FilterWords::match(std::string_view folded) const
{
    const auto isIn = [folded](const std::string& word) { return folded.find(word) != folded.npos; };
    return std::all_of(m_wanted.begin(), m_wanted.end(), isIn) &&
           std::none_of(m_unwanted.begin(), m_unwanted.end(), isIn);
}

std::vector<TextRange> FilterWords::in(const QString& text) const
{
    if (m_wanted.empty()) return {};
    const FoldedText folded(text);
    std::vector<TextRange> places;
    for (const std::string& word : m_wanted) {
        std::size_t found = folded.bytes.find(word);
        while (found != std::string::npos) {
            places.push_back({folded.origins[found], folded.origins[found + word.size()]});
            found = folded.bytes.find(word, found + 1);
        }
    }
    return merged(std::move(places));
}
