// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/ControlFill.h"

#include "editors/EditorTest.h"

namespace {

class ControlFill : public EditorTest
{
protected:
    std::vector<ListEntry> m_entries;
};

TEST_F(ControlFill, EntriesAreInTheOrderOfTheirTextsWithNoneInPlaceOfTheReservedRow)
{
    fillList(m_state.session, {u"Function"_s, u"FunctionName"_s, u"FunctionID"_s}, true, m_entries);
    EXPECT_EQ(textsOf(m_entries), u"None|fire|Police"_s);
    EXPECT_EQ(keysOf(m_entries), u"1 3 2"_s);
    m_entries.clear();
    fillList(m_state.session, {u"Function"_s, u"FunctionName"_s, u"FunctionID"_s}, false, m_entries);
    EXPECT_EQ(textsOf(m_entries), u"fire|None|Police"_s);
}

TEST_F(ControlFill, AnEmptyTableStillGivesNone)
{
    m_database.run("DELETE FROM States");
    fillList(m_state.session, {u"States"_s, u"StateAbbreviation"_s, u"StateID"_s}, true, m_entries);
    EXPECT_EQ(textsOf(m_entries), u"None"_s);
    EXPECT_EQ(keysOf(m_entries), u"1"_s);
}

TEST_F(ControlFill, AFailureLeavesWhatWasThere)
{
    m_entries = {{u"kept"_s, 5}};
    EXPECT_EQ(errorNumberOf([&] {
                  fillList(m_state.session, {u"Nowhere"_s, u"a"_s, u"b"_s}, true, m_entries);
              }),
              1);
    EXPECT_EQ(textsOf(m_entries), u"kept"_s);
}

} // namespace
