#include "map/LegendLines.h"

#include <map>

QString functionName(const clsCities& place)
{
    if (!place.functionName.isEmpty()) return place.functionName;
    return place.functionId ? QStringLiteral("Function %1").arg(*place.functionId) : QStringLiteral("None");
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
