// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/WorkRate.h"

#include "platform/PlatformTexts.h"

#include <QLocale>

#include <cmath>

namespace {

// milliseconds
constexpr qint64 betweenSamples = 200;
constexpr qint64 longestSpan = 8'000;  ///< that is judged by
constexpr qint64 shortestSpan = 1'500; ///< that says something
constexpr qint64 betweenTexts = 1'000;

constexpr double slow = 10'000'000; ///< bytes a second, below which a decimal is of use

/// A time that is rounded more, the longer it is, so that it does not change all the time.
QString timeLeft(double seconds)
{
    constexpr int few = 5;
    constexpr int minute = 60;
    constexpr int hour = 60 * minute;
    const auto rounded = [seconds](int unit) { return static_cast<int>(std::lround(seconds / unit)); };
    if (seconds <= few) return PlatformTexts::tr("a few seconds left");
    if (rounded(few) * few < minute)
        return PlatformTexts::tr("about %n seconds left", nullptr, rounded(few) * few);
    if (rounded(minute) == 1) return PlatformTexts::tr("about 1 minute left");
    if (rounded(minute) < 2 * minute)
        return PlatformTexts::tr("about %n minutes left", nullptr, rounded(minute));
    return PlatformTexts::tr("about %n hours left", nullptr, rounded(hour));
}

} // namespace

void WorkRate::note(qint64 moment, const WorkBytes& bytes)
{
    if (!m_samples.empty() && bytes.done < m_samples.back().done)
        *this = {}; // another part of the work began
    if (!m_samples.empty() && moment - m_samples.back().moment < betweenSamples) return;
    m_samples.push_back({moment, bytes.done});
    while (moment - m_samples.front().moment > longestSpan)
        m_samples.pop_front();
    if (!m_text.isEmpty() && moment - m_said < betweenTexts) return;
    m_text = textNow(bytes.all);
    m_said = moment;
}

QString WorkRate::textNow(qint64 all) const
{
    const auto [since, before] = m_samples.front();
    const auto [now, done] = m_samples.back();
    if (now - since < shortestSpan || done == before) return {};
    const double rate = static_cast<double>(done - before) * 1000 / static_cast<double>(now - since);
    const QString amount =
        QLocale().formattedDataSize(std::llround(rate), rate < slow ? 1 : 0, QLocale::DataSizeSIFormat);
    return PlatformTexts::tr("%1/s, %2").arg(amount, timeLeft(static_cast<double>(all - done) / rate));
}
