// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

#include <vector>

class Output;

/// A table for people, with each column as wide as its texts.
class TextTable
{
public:
    explicit TextTable(QStringList titles);

    void add(QStringList row);
    void write(Output& output) const;

private:
    void write(const QStringList& row, Output& output) const;

    std::vector<QStringList> m_rows; ///< the first has the titles
    std::vector<qsizetype> m_widths; ///< in columns of a terminal
};
