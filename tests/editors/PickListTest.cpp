// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/EditorTest.h"
#include "records/PickedEntries.h"

namespace {

constexpr int overflow = 6;

class PickList : public EditorTest
{
};

TEST_F(PickList, OffersTheRecordsOfItsKindInOrder)
{
    const struct
    {
        PickListKind kind;
        QString name;
        QStringList headers;
        QString rows;
    } kinds[] = {
        {PickListKind::Organizations,
         u"Organizations"_s,
         {u"Organization Name"_s},
         u"3 Harbor Watch;5 Old Salem Watch;2 zebra Rescue"_s},
        {PickListKind::Functions, u"Functions"_s, {u"Function Name"_s}, u"3 fire;2 Police"_s},
        {PickListKind::DocumentTypes, u"DocumentTypes"_s, {u"Document Type"_s}, u"3 étude;4 Map;2 Report"_s},
        {PickListKind::Documents, u"Documents"_s, {u"Document Title"_s}, u"2 Flood report;4 The xAy file"_s},
        {PickListKind::DocumentCategories,
         u"DocumentCategories"_s,
         {u"Document Category Name"_s},
         u"3 Évacuation;2 Response"_s},
        {PickListKind::CityLocations,
         u"CityLocations"_s,
         {u"City"_s, u"State"_s},
         u"3 Boston, MA;4 Salem, Old, MA;2 Austin, TX"_s}};
    for (const auto& kind : kinds) {
        EXPECT_EQ(emptyPickListText(kind.kind), QStringLiteral("No ACTIVE ") + kind.name);
        EXPECT_EQ(pickListHeaders(kind.kind), kind.headers) << qPrintable(kind.name);
        QStringList rows;
        for (const PickListRow& row : readPickList(m_state.session, kind.kind)) {
            const clsPickListItem item = pickedItem(row, kind.kind);
            rows << QString::number(item.itemID) + u' ' + item.itemName;
        }
        EXPECT_EQ(rows.join(u';'), kind.rows) << qPrintable(kind.name);
    }
}

TEST_F(PickList, ATableWithItsReservedRowAloneOffersNothing)
{
    m_database.run("DELETE FROM Function WHERE FunctionID > 1");
    EXPECT_TRUE(readPickList(m_state.session, PickListKind::Functions).empty());
}

TEST_F(PickList, IdentifiersBeyondSixteenBitsAreOfferedButNotTaken)
{
    m_database.run("INSERT INTO Function VALUES (32768, 'a far one'), (32767, 'a near one')");
    const std::vector<PickListRow> rows = readPickList(m_state.session, PickListKind::Functions);
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(errorNumberOf([&] { pickedItem(rows[0], PickListKind::Functions); }), overflow);
    EXPECT_EQ(pickedItem(rows[1], PickListKind::Functions).key(), u"k32767"_s);
    for (const int beyond : {32768, -32769})
        EXPECT_EQ(errorNumberOf([&] { pickedItems({{u"a far one"_s, beyond}}); }), overflow);
}

TEST_F(PickList, WhatIsTakenBackIsTheListOrItsPlaceholder)
{
    EXPECT_EQ(textsOf(listEntries(pickedItems({{u"fire"_s, 3}, {u"Police"_s, 2}}))), u"fire|Police"_s);
    EXPECT_EQ(listEntries({}), std::vector<ListEntry>{ListEntry::none()});
}

} // namespace
