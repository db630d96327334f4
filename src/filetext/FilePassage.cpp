// SPDX-License-Identifier: GPL-3.0-or-later

#include "filetext/FilePassage.h"

#include "filetext/TextWords.h"

#include <algorithm>

namespace {

// all in bytes
constexpr std::size_t mostSearched = 4 << 20; ///< takes a tenth of a second
constexpr int closeTogether = 160;
constexpr int mostBefore = 30; ///< a narrow list shows the word, too
constexpr int mostShown = 500;

/// A word of the text that was looked for.
struct Occurrence
{
    std::size_t sought = 0;
    int begin = 0;
    int end = 0;
};

bool matches(std::string_view word, const SoughtWord& sought)
{
    return sought.isBeginning ? word.starts_with(sought.word) : word == sought.word;
}

/// The occurrences in the order of the text that a passage may show.
class Occurrences
{
public:
    explicit Occurrences(std::size_t sought) : m_inWindow(sought, 0) {}

    /// Adds the next occurrence. Returns false once no place can be better than the best.
    bool add(const Occurrence& occurrence)
    {
        m_all.push_back(occurrence);
        if (m_inWindow[occurrence.sought]++ == 0) ++m_different;
        while (m_all[m_begin].begin + closeTogether < occurrence.begin) {
            if (--m_inWindow[m_all[m_begin].sought] == 0) --m_different;
            ++m_begin;
        }
        if (m_different > m_most) {
            m_most = m_different;
            m_best = m_begin;
        }
        return m_most < m_inWindow.size();
    }

    [[nodiscard]] bool isEmpty() const { return m_all.empty(); }
    [[nodiscard]] int begin() const { return m_all[m_best].begin; }

private:
    std::vector<Occurrence> m_all;
    std::vector<int> m_inWindow; ///< how often each sought word is among the occurrences from `m_begin` on
    std::size_t m_begin = 0;
    std::size_t m_best = 0; ///< the first of the place with the most different words
    std::size_t m_different = 0;
    std::size_t m_most = 0;
};

bool isSpace(char byte)
{
    return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t' || byte == '\f';
}

bool isWithinCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Returns the bytes around a word: whole words of the text, unless they have no end.
std::string_view around(std::string_view text, int word)
{
    const auto at = static_cast<std::size_t>(word);
    std::size_t begin = at < mostBefore ? 0 : at - mostBefore;
    if (begin > 0) {
        const auto* const space = std::find_if(text.begin() + begin, text.begin() + at, isSpace);
        begin = static_cast<std::size_t>(space - text.begin());
    }
    text.remove_prefix(begin);
    if (text.size() <= mostShown) return text;
    std::size_t end = mostShown;
    while (end > mostShown / 2 && !isSpace(text[end]))
        --end;
    while (isWithinCharacter(text[end]))
        --end;
    return text.substr(0, end);
}

/// Appends text, with a blank for any run of white space and of what cannot be seen.
void append(QString& line, std::string_view text)
{
    const QString added = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (const QChar character : added) {
        if (character.isSurrogate() || (character.isPrint() && !character.isSpace())) {
            line += character;
        } else if (!line.isEmpty() && !line.endsWith(u' ')) {
            line += u' ';
        }
    }
}

} // namespace

FilePassage FilePassage::in(std::string_view text, const TextWords& splitter,
                            const std::vector<SoughtWord>& sought)
{
    text = text.substr(0, mostSearched);
    Occurrences occurrences(sought.size());
    splitter.split(text, [&](std::string_view word, int begin, int end) {
        bool goesOn = true;
        for (std::size_t i = 0; i < sought.size(); ++i) {
            if (matches(word, sought[i])) goesOn = occurrences.add({i, begin, end}) && goesOn;
        }
        return goesOn;
    });
    if (occurrences.isEmpty()) return {};

    const std::string_view shown = around(text, occurrences.begin());
    FilePassage passage;
    if (shown.data() != text.data()) passage.text = QStringLiteral("… ");
    std::size_t done = 0;
    splitter.split(shown, [&](std::string_view word, int begin, int end) {
        const auto isWord = [word](const SoughtWord& one) { return matches(word, one); };
        if (std::none_of(sought.begin(), sought.end(), isWord)) return true;
        const auto from = static_cast<std::size_t>(begin);
        const auto to = static_cast<std::size_t>(end);
        append(passage.text, shown.substr(done, from - done));
        const qsizetype marked = passage.text.size();
        append(passage.text, shown.substr(from, to - from));
        passage.marks.push_back({marked, passage.text.size()});
        done = to;
        return true;
    });
    append(passage.text, shown.substr(done));
    if (shown.data() + shown.size() != text.data() + text.size()) passage.text += QStringLiteral(" …");
    return passage;
}
