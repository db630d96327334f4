// SPDX-License-Identifier: GPL-3.0-or-later

#include "WordSource.h"

#include <chrono>
#include <cstdio>

namespace {

const std::vector<std::string_view> placeFirst{
    "Cedar",   "Mill",   "Stone", "Spring", "North", "River", "Fair",   "Oak",   "Clear", "Iron",
    "Prairie", "Harbor", "Lake",  "Red",    "Elm",   "Grand", "Silver", "Cañon", "Ash",   "Maple"};
const std::vector<std::string_view> placeSecond{"ville",  " Creek",    "field", " Falls", "ton",
                                                " Bluff", " Point",    "wood",  " Hills", " Ridge",
                                                "ford",   " Junction", "burg",  " Bay"};
const std::vector<std::string_view> hazards{"Flood",     "Tornado",     "Wildfire",    "Hurricane",
                                            "Ice Storm", "Earthquake",  "Landslide",   "Blizzard",
                                            "Heat Wave", "Dam Failure", "Storm Surge", "Drought"};
const std::vector<std::string_view> bodies{"Emergency Management Agency",
                                           "Fire Department",
                                           "Water District",
                                           "Geological Survey",
                                           "Health Office",
                                           "Forest Service",
                                           "Weather Office",
                                           "Red Cross Chapter",
                                           "Highway Authority",
                                           "Port Authority",
                                           "Rescue Squad",
                                           "Research Institute"};
const std::vector<std::string_view> subjects{
    "The county office",  "A survey team",   "The state agency",   "The review board", "The water district",
    "Each local station", "The field party", "The weather office", "An early report",  "The final account"};
const std::vector<std::string_view> verbs{"recorded", "measured", "described", "compared",   "published",
                                          "revised",  "mapped",   "estimated", "summarized", "confirmed"};
const std::vector<std::string_view> objects{
    "the height of the river",         "the path of the storm",         "the damage to roads and bridges",
    "the warnings given in advance",   "the number of shelters opened", "the cost of the recovery plan",
    "the fire behaviour on the ridge", "the time of the first shock",   "the rainfall of three days",
    "the supply of drinking water"};
const std::vector<std::string_view> tails{"for the whole basin.",     "after the second night.",
                                          "in the coastal towns.",    "with the help of volunteers.",
                                          "before the season ended.", "along the railway line.",
                                          "for the annual summary.",  "at eleven gauges."};

using Days = std::chrono::days;
const std::chrono::sys_days firstDay = std::chrono::year(1900) / 1 / 1;
constexpr std::uint64_t daysInSpan = 44195; // to the end of 2020

} // namespace

std::string WordSource::place()
{
    return std::string(oneOf(placeFirst)).append(oneOf(placeSecond));
}

std::string WordSource::hazard()
{
    return std::string(oneOf(hazards));
}

std::string WordSource::agency()
{
    return place() + ' ' + std::string(oneOf(bodies));
}

std::string WordSource::sentences(std::size_t length)
{
    std::string text;
    while (text.size() < length) {
        if (!text.empty()) text += ' ';
        text.append(oneOf(subjects)).append(" ").append(oneOf(verbs)).append(" ");
        text.append(oneOf(objects)).append(" ").append(oneOf(tails));
    }
    return text;
}

std::string WordSource::date(int& daysSinceStart)
{
    daysSinceStart = static_cast<int>(below(daysInSpan));
    return dateAfter(daysSinceStart);
}

std::string WordSource::dateAfter(int daysSinceStart)
{
    const std::chrono::year_month_day day(firstDay + Days(daysSinceStart));
    char text[16];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(day.year()),
                  static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
    return text;
}

std::string WordSource::time()
{
    char text[16];
    std::snprintf(text, sizeof text, "%02u:%02u", static_cast<unsigned>(below(24)),
                  static_cast<unsigned>(below(60)));
    return text;
}
