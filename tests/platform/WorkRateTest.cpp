// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/WorkRate.h"

#include "support/Testing.h"

#include <QLocale>

namespace {

constexpr qint64 megabyte = 1'000'000;

/// Work that goes on evenly for some time, seen ten times a second.
void goOn(WorkRate& rate, WorkBytes& bytes, qint64& moment, qint64 milliseconds, qint64 bytesPerSecond)
{
    for (const qint64 end = moment + milliseconds; moment < end;) {
        moment += 100;
        bytes.done += bytesPerSecond / 10;
        rate.note(moment, bytes);
    }
}

TEST(WorkRate, SaysHowFastAndHowLong)
{
    QLocale::setDefault(QLocale::c());
    const struct
    {
        qint64 seconds; ///< that it goes on
        qint64 rate;
        qint64 all;
        const char* text;
    } cases[] = {
        {1, 12 * megabyte, 2000 * megabyte, ""},
        {4, 12 * megabyte, 1500 * megabyte, "12 MB/s, about 2 minutes left"},
        {4, 12 * megabyte, 800 * megabyte, "12 MB/s, about 1 minute left"},
        {4, 2'500'000, 100 * megabyte, "2.5 MB/s, about 35 seconds left"},
        {4, 12 * megabyte, 60 * megabyte, "12 MB/s, a few seconds left"},
        {4, megabyte, 11'000 * megabyte, "1.0 MB/s, about 3 hours left"},
        {4, 0, 60 * megabyte, ""},
    };
    for (const auto& [seconds, rate, all, text] : cases) {
        WorkRate work;
        WorkBytes bytes{0, all};
        qint64 moment = 500;
        goOn(work, bytes, moment, seconds * 1000, rate);
        EXPECT_EQ(work.text().toStdString(), text);
    }
}

TEST(WorkRate, StaysSteadyAndFollowsWithinSeconds)
{
    QLocale::setDefault(QLocale::c());
    WorkRate work;
    WorkBytes bytes{0, 100'000 * megabyte};
    qint64 moment = 0;
    goOn(work, bytes, moment, 20'000, 20 * megabyte);
    goOn(work, bytes, moment, 500, 1000 * megabyte);
    EXPECT_EQ(work.text().left(7), QStringLiteral("20 MB/s")) << "a short burst is not said at once";
    goOn(work, bytes, moment, 9'000, 10 * megabyte);
    EXPECT_EQ(work.text().left(7), QStringLiteral("10 MB/s"));
    bytes.done = 0;
    goOn(work, bytes, moment, 500, 10 * megabyte);
    EXPECT_EQ(work.text(), QString()) << "what begins anew has no past";
}

} // namespace
