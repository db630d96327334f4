// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/ComparedText.h"

#include <QTextCursor>

using Kind = DifferenceRun::Kind;

namespace {

constexpr QColor removedTint(220, 40, 40);
constexpr QColor addedTint(30, 160, 70);
constexpr double strength = 0.3; ///< of a tint on the palette's ground

constexpr qsizetype longStretch = 400; ///< of what is equal, in characters
constexpr qsizetype keptOfIt = 120;    ///< at each end that something different is beside

QColor mixed(const QColor& ground, const QColor& tint)
{
    const auto part = [](int from, int to) { return from + static_cast<int>((to - from) * strength); };
    return {part(ground.red(), tint.red()), part(ground.green(), tint.green()),
            part(ground.blue(), tint.blue())};
}

/// The beginning of a stretch, up to the end of a word.
QString beginningOf(const QString& text)
{
    const qsizetype blank = text.lastIndexOf(u' ', keptOfIt);
    return text.first(blank > 0 ? blank + 1 : keptOfIt);
}

QString endOf(const QString& text)
{
    const qsizetype blank = text.indexOf(u' ', text.size() - keptOfIt);
    return blank < 0 ? text.last(keptOfIt) : text.sliced(blank);
}

/// Writes at the end of a cell, on a line of its own if it is not empty.
QTextCursor cursorFor(QTextTable& table, int row, int column)
{
    const QTextTableCell cell = table.cellAt(row, column);
    QTextCursor cursor = cell.lastCursorPosition();
    if (cell.firstPosition() != cell.lastPosition()) cursor.insertBlock();
    return cursor;
}

} // namespace

ComparedText::ComparedText(const QPalette& palette)
{
    const QColor ground = palette.color(QPalette::Base);
    m_removed.setBackground(mixed(ground, removedTint));
    m_removed.setFontStrikeOut(true);
    m_added.setBackground(mixed(ground, addedTint));
    m_added.setFontUnderline(true);
    m_note.setFontItalic(true);
    m_heading.setFontWeight(QFont::Bold);
}

const QTextCharFormat& ComparedText::formatOf(Kind kind) const
{
    if (kind == Kind::Equal) return m_equal;
    return kind == Kind::Removed ? m_removed : m_added;
}

void ComparedText::writeRuns(QTextTable& table, int row, int column, const std::vector<DifferenceRun>& runs,
                             Kind side) const
{
    QTextCursor cursor = cursorFor(table, row, column);
    for (const DifferenceRun& run : runs) {
        if (run.kind != Kind::Equal && run.kind != side) continue;
        QString text = run.text;
        // the end of a line that was added or removed would not be seen
        if (run.kind != Kind::Equal) text.replace(u'\n', QStringLiteral("¶\n"));
        cursor.insertText(text, formatOf(run.kind));
    }
}

void ComparedText::writeLine(QTextTable& table, int row, int column, const QString& text) const
{
    cursorFor(table, row, column).insertText(text, m_equal);
}

/// The sign is enough to tell a link by: a dash that is struck out could not be read.
void ComparedText::writeLink(QTextTable& table, int row, int column, const QString& name, Kind kind) const
{
    QTextCharFormat format = formatOf(kind);
    format.setFontStrikeOut(false);
    format.setFontUnderline(false);
    const QString sign = kind == Kind::Equal   ? QString()
                         : kind == Kind::Added ? QStringLiteral("+ ")
                                               : QStringLiteral("\u2212 ");
    cursorFor(table, row, column).insertText(sign + name, format);
}

void ComparedText::writeNote(QTextTable& table, int row, int column, const QString& text) const
{
    cursorFor(table, row, column).insertText(text, m_note);
}

void ComparedText::writeHeading(QTextTable& table, int row, int column, const QString& text) const
{
    cursorFor(table, row, column).insertText(text, m_heading);
}

std::vector<DifferenceRun> ComparedText::shortened(std::vector<DifferenceRun> runs)
{
    for (std::size_t i = 0; i < runs.size(); ++i) {
        QString& text = runs[i].text;
        if (runs[i].kind != Kind::Equal || text.size() <= longStretch) continue;
        const QString beginning = i > 0 ? beginningOf(text) : QString();
        const QString end = i + 1 < runs.size() ? endOf(text) : QString();
        text = beginning + u'…' + end;
    }
    return runs;
}
