// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "history/WordDifferences.h"

#include <QPalette>
#include <QTextCharFormat>
#include <QTextTable>

/// How a comparison writes into its table.
class ComparedText
{
public:
    /// The colours of the marks suit the palette.
    explicit ComparedText(const QPalette& palette);

    /// Writes one of the sides of a comparison to a cell: what is equal and what is of the given kind.
    void writeRuns(QTextTable& table, int row, int column, const std::vector<DifferenceRun>& runs,
                   DifferenceRun::Kind side) const;

    void writeLine(QTextTable& table, int row, int column, const QString& text) const;

    /// Adds a line with the name of a link, and what became of it before that.
    void writeLink(QTextTable& table, int row, int column, const QString& name,
                   DifferenceRun::Kind kind) const;

    /// Adds a line that is no part of what is compared.
    void writeNote(QTextTable& table, int row, int column, const QString& text) const;
    void writeHeading(QTextTable& table, int row, int column, const QString& text) const;

    /// The runs with long stretches of what is equal cut down to their ends.
    [[nodiscard]] static std::vector<DifferenceRun> shortened(std::vector<DifferenceRun> runs);

private:
    [[nodiscard]] const QTextCharFormat& formatOf(DifferenceRun::Kind kind) const;

    QTextCharFormat m_equal;
    QTextCharFormat m_removed;
    QTextCharFormat m_added;
    QTextCharFormat m_note;
    QTextCharFormat m_heading;
};
