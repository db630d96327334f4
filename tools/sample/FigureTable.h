// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <vector>

/// One table of public figures: a label, the number that charts show, and further columns. With the columns
/// `Latitude` and `Longitude` it can be drawn as a map.
struct FigureTable
{
    struct Place
    {
        double latitude;
        double longitude;
    };

    struct Row
    {
        QStringList cells;
        double value; ///< the second cell, not negative
        std::optional<Place> place;
    };

    QString title;
    QString source;
    QStringList columns;
    std::vector<Row> rows;

    [[nodiscard]] bool hasPlaces() const { return !rows.empty() && rows.front().place.has_value(); }
};

/// All tables that `figures.tsv` names, each read from the folder `figures`.
class FigureTables
{
public:
    explicit FigureTables(const QDir& source);

    /// Null if there is no such table.
    [[nodiscard]] const FigureTable* find(const QString& name) const;

private:
    std::map<QString, FigureTable> m_tables;
};
