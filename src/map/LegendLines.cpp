// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/LegendLines.h"

#include "map/MapTexts.h"
#include "util/ReadableLine.h"

#include <algorithm>
#include <map>

namespace {

constexpr qsizetype mostNames = 20;

} // namespace

QString functionName(const clsCities& place)
{
    if (!place.functionName.isEmpty()) return place.functionName;
    return place.functionId ? MapTexts::tr("Function %1").arg(*place.functionId) : MapTexts::tr("None");
}

int LegendLine::organizations() const
{
    int all = 0;
    for (const LegendFunction& function : functions)
        all += function.organizations;
    return all;
}

QString LegendLine::text() const
{
    QStringList names;
    for (const LegendFunction& function : functions) {
        if (names.size() == mostNames) break;
        names << QStringLiteral("%1 (%2)").arg(function.name, QString::number(function.organizations));
    }
    const QString line = readableLine(names.join(QStringLiteral(", ")));
    const auto more = static_cast<int>(functions.size()) - static_cast<int>(names.size());
    return more == 0 ? line : MapTexts::tr("%1 and %n more", nullptr, more).arg(line);
}

QString LegendLine::hiddenText() const
{
    return MapTexts::tr("%1: hidden on the map").arg(text());
}

std::vector<LegendLine> legendLines(const std::vector<clsCities>& places)
{
    struct Function
    {
        const clsCities* place;
        int organizations = 0;
    };
    std::map<std::optional<qint64>, Function> functions;
    for (const clsCities& place : places)
        functions.try_emplace(place.functionId, Function{&place}).first->second.organizations +=
            place.organizations;
    // functions of one colour and the same name are one to the reader
    std::map<int, std::map<QString, int>> byColour;
    for (const auto& [identifier, function] : functions)
        byColour[function.place->colour][functionName(*function.place)] += function.organizations;
    std::vector<LegendLine> lines;
    for (const auto& [colour, names] : byColour) {
        LegendLine line{colour, {}};
        for (const auto& [name, organizations] : names)
            line.functions.push_back({name, organizations});
        std::ranges::stable_sort(line.functions, [](const LegendFunction& a, const LegendFunction& b) {
            return a.name.compare(b.name, Qt::CaseInsensitive) < 0;
        });
        lines.push_back(line);
    }
    return lines;
}
