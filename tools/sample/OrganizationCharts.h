// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

#include <vector>

/// One box of an organization chart with the boxes below it.
struct ChartUnit
{
    QString name;
    std::vector<ChartUnit> below;
};

/// The organization charts of `orgcharts.tsv`: one head, its branches, and the units of each branch.
class OrganizationCharts
{
public:
    explicit OrganizationCharts(const QDir& source);

    /// The organizations that have a chart.
    [[nodiscard]] QStringList organizations() const;

    /// Draws one chart on a page of US Letter. Throws SourceError if the file cannot be written.
    void write(const QString& organization, const QString& path) const;

private:
    struct Chart
    {
        QString organization;
        ChartUnit head;
    };

    std::vector<Chart> m_charts;
};
