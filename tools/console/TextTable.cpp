// SPDX-License-Identifier: GPL-3.0-or-later

#include "TextTable.h"

#include "Output.h"

#include <algorithm>

namespace {

constexpr qsizetype widest = 60; ///< a longer text moves what comes next in its row
constexpr qsizetype gap = 2;

/// Characters that stand on their own, as far as terminals agree on it.
qsizetype widthOf(const QString& text)
{
    return std::count_if(text.begin(), text.end(), [](QChar each) {
        return !each.isLowSurrogate() && !each.isMark() && each.category() != QChar::Other_Format;
    });
}

} // namespace

TextTable::TextTable(QStringList titles) : m_widths(static_cast<std::size_t>(titles.size()), 0)
{
    add(std::move(titles));
}

void TextTable::add(QStringList row)
{
    for (std::size_t i = 0; i < m_widths.size(); ++i) {
        QString& cell = row[static_cast<qsizetype>(i)];
        cell = Output::printable(std::move(cell));
        m_widths[i] = std::max(m_widths[i], std::min(widest, widthOf(cell)));
    }
    m_rows.push_back(std::move(row));
}

void TextTable::write(Output& output) const
{
    for (const QStringList& row : m_rows)
        write(row, output);
}

void TextTable::write(const QStringList& row, Output& output) const
{
    QString line;
    qsizetype width = 0;
    qsizetype begin = 0; // of the column
    for (std::size_t i = 0; i < m_widths.size(); ++i) {
        const QString& cell = row[static_cast<qsizetype>(i)];
        if (!cell.isEmpty()) {
            const qsizetype blanks = width == 0 ? begin : std::max(gap, begin - width);
            line += QString(blanks, u' ') + cell;
            width += blanks + widthOf(cell);
        }
        begin += m_widths[i] + gap;
    }
    output.line(line);
}
