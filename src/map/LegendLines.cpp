// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/LegendLines.h"

#include "map/MapTexts.h"
#include "util/ReadableLine.h"

#include <map>

namespace {

constexpr qsizetype mostNames = 20;

} // namespace

QString functionName(const clsCities& place)
{
    if (!place.functionName.isEmpty()) return place.functionName;
    return place.functionId ? MapTexts::tr("Function %1").arg(*place.functionId) : MapTexts::tr("None");
}

QString LegendLine::text() const
{
    if (names.size() <= mostNames) return readableLine(names.join(QStringLiteral(", ")));
    return MapTexts::tr("%1 and %n more", nullptr, static_cast<int>(names.size() - mostNames))
        .arg(readableLine(names.first(mostNames).join(QStringLiteral(", "))));
}

std::vector<LegendLine> legendLines(const std::vector<clsCities>& places)
{
    std::map<std::optional<qint64>, const clsCities*> functions;
    for (const clsCities& place : places)
        functions.try_emplace(place.functionId, &place);
    std::map<int, QStringList> byColour;
    for (const auto& [identifier, place] : functions)
        byColour[place->colour] << functionName(*place);
    std::vector<LegendLine> lines;
    for (auto& [colour, names] : byColour) {
        names.removeDuplicates();
        names.sort(Qt::CaseInsensitive);
        lines.push_back({colour, names});
    }
    return lines;
}
