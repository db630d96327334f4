// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelineRuler.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// Units from a tick to its label, and from one label to the next.
constexpr int labelOffset = 3;
constexpr int labelGap = 8;

/// Absorbs rounding errors: a tick at the left edge itself counts as in the window.
constexpr double tolerance = 1e-6;

/// The parts that a step is divided into, and how many of them one label of time spans.
struct Division
{
    int parts = 1;
    int partsToLabel = 1;
};

constexpr std::array<Division, TimelineScale::dayLevel + 1> divisions{{
    {5, 1},  // minutes
    {10, 2}, // minutes
    {6, 1},  // 5 minutes
    {6, 1},  // 10 minutes
    {8, 2},  // 15 minutes
    {8, 2},  // half hours
    {8, 2},  // hours
    {8, 2},  // 3 hours
}};

TimelineRuler::Rank rankOf(Moment moment, bool isStep)
{
    using Rank = TimelineRuler::Rank;
    if (minuteOfDay(moment) != 0) return isStep ? Rank::Step : Rank::Part;
    const QDate day = dayOf(moment);
    if (day.day() != 1) return Rank::Day;
    return day.month() == 1 ? Rank::Year : Rank::Month;
}

QString dayText(Moment moment)
{
    return QLocale::c().toString(dayOf(moment), QStringLiteral("ddd ")) + dateText(moment);
}

/// Adds a label if it overlaps none of its row and neither edge.
class LabelRows
{
public:
    LabelRows(int width, const LabelWidth& labelWidth) : m_width(width), m_labelWidth(labelWidth) {}

    void add(const TimelineRuler::Tick& tick, const QString& text, bool isDate)
    {
        const int width = m_labelWidth(text, isDate);
        double left = tick.left + labelOffset;
        // the date of a day that starts close to the right edge moves to the left
        if (isDate) left = std::min(left, static_cast<double>(m_width - width));
        const double right = left + width;
        if (left < 0 || right > m_width) return;
        const bool collides = std::any_of(m_taken.begin(), m_taken.end(), [&](const Taken& taken) {
            return taken.isDate == isDate && left < taken.right + labelGap && taken.left < right + labelGap;
        });
        if (collides) return;
        m_taken.push_back({left, right, isDate});
        m_labels.push_back({left, text, tick.rank, isDate});
    }

    [[nodiscard]] std::vector<TimelineRuler::Label> take() { return std::move(m_labels); }

private:
    struct Taken
    {
        double left = 0;
        double right = 0;
        bool isDate = false;
    };

    int m_width;
    const LabelWidth& m_labelWidth;
    std::vector<Taken> m_taken;
    std::vector<TimelineRuler::Label> m_labels;
};

} // namespace

TimelineRuler rulerOf(const TimeWindow& window, const TimelineScale::Strip& strip,
                      const LabelWidth& labelWidth)
{
    const Division division = divisions.at(static_cast<std::size_t>(window.zoomFactor()));
    const double partWidth = static_cast<double>(TimelineScale::stepWidth) / division.parts;
    const Minutes partMinutes = window.step() / division.parts;

    TimelineRuler ruler;
    std::vector<TimelineRuler::Tick> labelled;
    // a wide picture may reach beyond the strip: the ruler goes on
    for (auto part = static_cast<int>(std::ceil(-strip.left / partWidth - tolerance));; ++part) {
        const double left = strip.left + part * partWidth;
        if (left > window.width()) break;
        const Moment moment = strip.origin + part * partMinutes;
        ruler.ticks.push_back({left, rankOf(moment, part % division.parts == 0), moment});
        if (part % division.partsToLabel == 0) labelled.push_back(ruler.ticks.back());
    }
    // if there is not room for all labels, those of higher rank come first
    std::stable_sort(labelled.begin(), labelled.end(),
                     [](const auto& a, const auto& b) { return a.rank > b.rank; });
    LabelRows rows(window.width(), labelWidth);
    for (const TimelineRuler::Tick& tick : labelled) {
        if (tick.rank >= TimelineRuler::Rank::Day) rows.add(tick, dayText(tick.moment), true);
        rows.add(tick, timeText(tick.moment), false);
    }
    ruler.labels = rows.take();
    return ruler;
}
