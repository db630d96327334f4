// SPDX-License-Identifier: GPL-3.0-or-later

#include "state/Preferences.h"

#include "platform/StdREG.h"
#include "support/ScriptedPlatform.h"

namespace {

Preferences read(const char* name, const char* value)
{
    MemorySettings settings;
    StdREG(settings).WriteRegString(QString(), QString::fromUtf8(name), QString::fromUtf8(value));
    return Preferences::read(settings);
}

TEST(Preferences, TakeTheDefaultForWhatIsAbsentOrNotUnderstood)
{
    MemorySettings none;
    const Preferences usual = Preferences::read(none);
    EXPECT_EQ(usual, Preferences());
    const struct
    {
        const char* name;
        std::initializer_list<const char*> nonsense;
    } cases[] = {
        {"StartPage", {"Homepage", "SearchResults", "3", "*"}},
        {"AskOnExit", {"Maybe", "0", "Nope"}},
        {"ListTextSize", {"large", "0", "-100", "74", "201", "110 %", "1e2", "99999999999"}},
        {"FourDigitYears", {"4", "yes please"}},
    };
    for (const auto& [name, nonsense] : cases) {
        for (const char* value : nonsense)
            EXPECT_EQ(read(name, value), usual) << name << ' ' << value;
    }
    EXPECT_FALSE(read("AskOnExit", " no ").asksOnExit) << "written by hand";
    EXPECT_EQ(read("StartPage", "events").startPage, ViewKind::Events);
    EXPECT_EQ(read("ListTextSize", "75").listTextSize, 75);
    EXPECT_EQ(read("ListTextSize", "200").listTextSize, 200);
}

TEST(Preferences, AreReadAsTheyWereWrittenAndOnlyChangesAreWritten)
{
    const Preferences changed{u"/x/a b.sqlite"_s, ViewKind::Organizations,   false, 125, true,
                              u"/my places"_s,    {u"/disc"_s, u"/photos"_s}};
    MemorySettings settings;
    changed.write(settings, Preferences());
    EXPECT_EQ(settings.values.size(), 8);
    EXPECT_EQ(Preferences::read(settings), changed);
    for (const ViewKind page :
         {ViewKind::Home, ViewKind::Documents, ViewKind::Events, ViewKind::Organizations}) {
        Preferences other = changed;
        other.startPage = page;
        other.write(settings, Preferences::read(settings));
        EXPECT_EQ(Preferences::read(settings).startPage, page);
    }
    Preferences().write(settings, Preferences::read(settings));
    EXPECT_EQ(Preferences::read(settings), Preferences());

    MemorySettings untouched;
    changed.write(untouched, changed);
    EXPECT_TRUE(untouched.values.empty());
}

} // namespace
