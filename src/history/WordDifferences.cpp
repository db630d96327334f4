// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/WordDifferences.h"

#include <QHash>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <optional>

using Kind = DifferenceRun::Kind;

namespace {

/// How many pieces may be removed and added before texts are compared more coarsely; time and room grow with
/// its square.
constexpr int mostChanges = 700;

using Pieces = std::vector<QStringView>;

/// Words, and what stands between them.
Pieces wordsOf(QStringView text)
{
    Pieces words;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, text.data(), text.size());
    for (qsizetype begin = 0, end = finder.toNextBoundary(); end >= 0; end = finder.toNextBoundary()) {
        words.push_back(text.sliced(begin, end - begin));
        begin = end;
    }
    return words;
}

/// Lines with their ends.
Pieces linesOf(QStringView text)
{
    Pieces lines;
    for (qsizetype begin = 0; begin < text.size();) {
        const qsizetype lineEnd = text.indexOf(u'\n', begin);
        const qsizetype end = lineEnd < 0 ? text.size() : lineEnd + 1;
        lines.push_back(text.sliced(begin, end - begin));
        begin = end;
    }
    return lines;
}

/// Adds a piece to the last run if that is of the same kind.
void append(std::vector<DifferenceRun>& runs, Kind kind, QStringView text)
{
    if (text.isEmpty()) return;
    if (runs.empty() || runs.back().kind != kind)
        runs.push_back({kind, text.toString()});
    else
        runs.back().text += text;
}

/// The shortest way from one sequence of pieces to another, by E. W. Myers' greedy algorithm ("An O(ND)
/// Difference Algorithm and Its Variations", 1986).
class ShortestEdit
{
public:
    ShortestEdit(const Pieces& older, const Pieces& newer) : m_older(older), m_newer(newer)
    {
        QHash<QStringView, int> numbers;
        const auto numbersOf = [&numbers](const Pieces& pieces) {
            std::vector<int> found;
            found.reserve(pieces.size());
            for (const QStringView piece : pieces) {
                if (!numbers.contains(piece)) numbers.insert(piece, static_cast<int>(numbers.size()));
                found.push_back(numbers.value(piece));
            }
            return found;
        };
        m_old = numbersOf(older);
        m_new = numbersOf(newer);
    }

    /// std::nullopt if more than `mostChanges` pieces differ.
    [[nodiscard]] std::optional<std::vector<DifferenceRun>> runs()
    {
        if (!search()) return std::nullopt;
        return walkBack();
    }

private:
    [[nodiscard]] int oldCount() const { return static_cast<int>(m_old.size()); }
    [[nodiscard]] int newCount() const { return static_cast<int>(m_new.size()); }

    /// Whether a step to diagonal `k` adds a piece rather than removing one. `ends` holds how many old pieces
    /// are used up at the end of each diagonal from `-changes` to `changes`.
    static bool isAddition(const std::vector<int>& ends, int changes, int k)
    {
        return k == -changes || (k != changes && at(ends, k - 1) < at(ends, k + 1));
    }

    static int at(const std::vector<int>& ends, int k) { return ends[placeOf(k, mostChanges)]; }

    /// Where a diagonal is among those from `-changes - 1` to `changes + 1`.
    static std::size_t placeOf(int k, int changes)
    {
        const int place = k + changes + 1;
        return static_cast<std::size_t>(place);
    }

    /// Goes as far as each number of changes leads, and notes the ends, until both texts are used up.
    bool search()
    {
        std::vector<int> ends(2 * mostChanges + 3, 0);
        for (int changes = 0; changes <= mostChanges; ++changes) {
            m_trace.emplace_back(ends.begin() + mostChanges - changes,
                                 ends.begin() + mostChanges + changes + 3);
            for (int k = -changes; k <= changes; k += 2) {
                int x = isAddition(ends, changes, k) ? at(ends, k + 1) : at(ends, k - 1) + 1;
                while (x < oldCount() && x - k < newCount() && x - k >= 0 && areEqual(x, x - k))
                    ++x;
                ends[placeOf(k, mostChanges)] = x;
                if (x >= oldCount() && x - k >= newCount()) return true;
            }
        }
        return false;
    }

    [[nodiscard]] bool areEqual(int x, int y) const
    {
        return m_old[static_cast<std::size_t>(x)] == m_new[static_cast<std::size_t>(y)];
    }

    /// Collects the pieces from the last to the first.
    std::vector<DifferenceRun> walkBack() const
    {
        std::vector<std::pair<Kind, QStringView>> steps;
        int x = oldCount();
        int y = newCount();
        for (int changes = static_cast<int>(m_trace.size()) - 1; changes >= 0; --changes) {
            const std::vector<int>& ends = m_trace[static_cast<std::size_t>(changes)];
            const auto end = [&](int k) { return ends[placeOf(k, changes)]; };
            const int k = x - y;
            const bool isAddition = k == -changes || (k != changes && end(k - 1) < end(k + 1));
            const int before = isAddition ? end(k + 1) : end(k - 1);
            const int begin = changes == 0 ? 0 : isAddition ? before : before + 1;
            for (; x > begin; --x, --y)
                steps.emplace_back(Kind::Equal, m_older[static_cast<std::size_t>(x - 1)]);
            if (changes == 0) break;
            if (isAddition)
                steps.emplace_back(Kind::Added, m_newer[static_cast<std::size_t>(--y)]);
            else
                steps.emplace_back(Kind::Removed, m_older[static_cast<std::size_t>(--x)]);
        }
        std::vector<DifferenceRun> runs;
        for (auto step = steps.rbegin(); step != steps.rend(); ++step)
            append(runs, step->first, step->second);
        return runs;
    }

    const Pieces& m_older;
    const Pieces& m_newer;
    std::vector<int> m_old; ///< equal pieces have equal numbers
    std::vector<int> m_new;
    std::vector<std::vector<int>> m_trace; ///< for each number of changes, the ends before its steps
};

/// Joins what was replaced: several words with nothing but blanks between them read as one piece.
std::vector<DifferenceRun> joined(const std::vector<DifferenceRun>& runs)
{
    std::vector<DifferenceRun> result;
    QString removed;
    QString added;
    const auto flush = [&] {
        QString blanks; // at the end of both
        while (!removed.isEmpty() && removed.back() == u' ' && added.endsWith(u' ')) {
            removed.chop(1);
            added.chop(1);
            blanks += u' ';
        }
        append(result, Kind::Removed, removed);
        append(result, Kind::Added, added);
        append(result, Kind::Equal, blanks);
        removed.clear();
        added.clear();
    };
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const DifferenceRun& run = runs[i];
        const bool isPending = !removed.isEmpty() || !added.isEmpty();
        const bool isBetween = run.kind == Kind::Equal && isPending && i + 1 < runs.size() &&
                               run.text.trimmed().isEmpty() && !run.text.contains(u'\n');
        if (run.kind == Kind::Equal && !isBetween) flush();
        if (run.kind == Kind::Equal && !isBetween) append(result, Kind::Equal, run.text);
        if (run.kind == Kind::Removed || isBetween) removed += run.text;
        if (run.kind == Kind::Added || isBetween) added += run.text;
    }
    flush();
    return result;
}

std::vector<DifferenceRun> wholes(QStringView older, QStringView newer)
{
    std::vector<DifferenceRun> runs;
    append(runs, Kind::Removed, older);
    append(runs, Kind::Added, newer);
    return runs;
}

/// How many pieces at the beginning of both are equal.
std::size_t commonPieces(const Pieces& older, const Pieces& newer)
{
    const auto found = std::mismatch(older.begin(), older.end(), newer.begin(), newer.end());
    return static_cast<std::size_t>(found.first - older.begin());
}

} // namespace

std::vector<DifferenceRun> WordDifferences::between(const QString& older, const QString& newer)
{
    for (const auto& piecesOf : {wordsOf, linesOf}) {
        Pieces old = piecesOf(older);
        Pieces now = piecesOf(newer);
        // what is equal at both ends costs nothing
        const std::size_t first = commonPieces(old, now);
        const auto skip = static_cast<std::ptrdiff_t>(first);
        std::vector<DifferenceRun> runs;
        for (std::size_t i = 0; i < first; ++i)
            append(runs, Kind::Equal, old[i]);
        old.erase(old.begin(), old.begin() + skip);
        now.erase(now.begin(), now.begin() + skip);
        const auto found = ShortestEdit(old, now).runs();
        if (!found) continue;
        for (const DifferenceRun& run : *found)
            append(runs, run.kind, run.text);
        return joined(runs);
    }
    return wholes(older, newer);
}
