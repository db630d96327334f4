// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/OrganizationStore.h"

#include "editors/EditorTest.h"

namespace {

constexpr int overflow = 6;
constexpr int gone = 12;
constexpr int noNumber = 20;

class OrganizationStoreTest : public EditorTest
{
protected:
    OrganizationRecord named(const QString& name)
    {
        OrganizationRecord record = m_store.blank();
        record.organizationName = name;
        return record;
    }

    OrganizationStore m_store{m_state.session, m_state.folder, m_clock};
};

TEST_F(OrganizationStoreTest, AnOrganizationWithoutAProfileGetsOne)
{
    OrganizationRecord record = m_store.load(3).record;
    record.organizationName = u"zebra Rescue"_s; // no look for duplicates here
    for (int save = 0; save < 2; ++save)
        EXPECT_FALSE(m_store.updateOrganization(record));
    EXPECT_EQ(ask("SELECT OrganizationProfileID, ChartOption FROM OrganizationProfile"), u"2|1\n3|0"_s);
}

TEST_F(OrganizationStoreTest, WhatIsMissingIsReadAsNone)
{
    EXPECT_EQ(m_store.load(2).record.profile.civilianEmployees, QString());
    EXPECT_EQ(m_store.load(3).record.functionId, 1);
    EXPECT_FALSE(m_store.load(77).isFound);
    EXPECT_EQ(OrganizationStore::notFoundMessage(77), u"OrganizationID 77 not found"_s);
}

TEST_F(OrganizationStoreTest, AChartIsTakenAgainWithEverySave)
{
    OrganizationRecord record = m_store.load(3).record;
    record.profile.organizationChart = userFile(u"c.png"_s, "first");
    EXPECT_FALSE(m_store.updateOrganization(record));
    EXPECT_EQ(stored(u"orgcharts/3.png"_s), "first");
    userFile(u"c.png"_s, "second");
    EXPECT_FALSE(m_store.updateOrganization(record));
    EXPECT_EQ(stored(u"orgcharts/3.png"_s), "second");

    const QString path = record.profile.organizationChart;
    QFile::remove(path);
    EXPECT_EQ(m_store.chartPath(record, path).outcome, ChartOutcome::Kept);
    EXPECT_EQ(m_store.chartPath(record, u"/gone/c.doc"_s).outcome, ChartOutcome::Dropped);
    EXPECT_EQ(m_store.chartPath(record, QString()).outcome, ChartOutcome::None);
    record.profile.organizationChart = u"3.PNG"_s; // names the copy
    EXPECT_EQ(m_store.chartPath(record, u"3.PNG"_s).outcome, ChartOutcome::Taken);
    EXPECT_FALSE(m_store.updateOrganization(record)); // the source is the target
    EXPECT_EQ(stored(u"orgcharts/3.png"_s), "second");
    EXPECT_EQ(
        ask("SELECT OrganizationChart, ChartOption FROM OrganizationProfile WHERE OrganizationProfileID = 3"),
        u"3.PNG|1"_s);

    record.profile.organizationChart = u"3.png"_s;
    userFile(u"3.png"_s, "of the folder in which the program was started");
    const QString started = QDir::currentPath();
    QDir::setCurrent(m_database.folder() + u"/user"_s);
    EXPECT_FALSE(m_store.updateOrganization(record));
    QDir::setCurrent(started);
    EXPECT_EQ(stored(u"orgcharts/3.png"_s), "second");

    record.profile.organizationChart = u"/gone/c.doc"_s;
    QFile(m_database.folder() + u"/data/orgcharts/3.PDF"_s).open(QIODevice::WriteOnly);
    EXPECT_TRUE(m_store.chartPath(record, u"/gone/c.doc"_s).storedCopy) << "to be taken instead";
    EXPECT_FALSE(m_store.updateOrganization(record));
    EXPECT_EQ(
        ask("SELECT OrganizationChart, ChartOption FROM OrganizationProfile WHERE OrganizationProfileID = 3"),
        u"|0"_s);
}

const struct
{
    QString OrganizationProfile::*number;
    OrganizationField field;
    QString messageBeginning;
} profileNumbers[] = {
    {&OrganizationProfile::swornEmployees, OrganizationField::SwornEmployees,
     u"Sworn employees \"%1\" is not a number of people."_s},
    {&OrganizationProfile::civilianEmployees, OrganizationField::CivilianEmployees,
     u"Civilian employees \"%1\" is not a number of people."_s},
    {&OrganizationProfile::volunteers, OrganizationField::Volunteers,
     u"Volunteers \"%1\" is not a number of people."_s},
    {&OrganizationProfile::annualBudget, OrganizationField::AnnualBudget,
     u"Annual budget \"%1\" is not a number."_s},
};

TEST_F(OrganizationStoreTest, WhatIsNoNumberIsRefusedBeforeAnythingIsWritten)
{
    const QByteArray before = m_database.bytes();
    for (const char* text : {"about 30", "1e5", "nan", "1.2.3", "12,34", "-", "0x10", "½"}) {
        for (const auto& [number, field, beginning] : profileNumbers) {
            OrganizationRecord record = m_store.load(2).record;
            record.profile.*number = QString::fromUtf8(text);
            const auto problem = OrganizationStore::check(record);
            ASSERT_TRUE(problem) << text;
            EXPECT_EQ(problem->field, field) << text;
            EXPECT_TRUE(problem->message.startsWith(beginning.arg(QString::fromUtf8(text))))
                << qPrintable(problem->message);
            EXPECT_EQ(errorNumberOf([&] { (void)m_store.updateOrganization(record); }), noNumber) << text;
            EXPECT_EQ(errorNumberOf([&] { (void)m_store.saveOrganization(record); }), noNumber) << text;
        }
    }
    OrganizationRecord record = m_store.load(2).record;
    for (const char* text : {"-1", "12.5", "9223372036854775808", "$5"}) {
        record.profile.swornEmployees = QString::fromUtf8(text);
        EXPECT_TRUE(OrganizationStore::check(record)) << text;
    }
    record.profile.swornEmployees.clear();
    record.profile.annualBudget = u"-12.5"_s;
    EXPECT_FALSE(OrganizationStore::check(record));
    for (const auto list : {&OrganizationRecord::jurisdictions, &OrganizationRecord::populations}) {
        (record.*list).push_back({{u"far"_s, 32768}, false}); // written with its setting
        EXPECT_EQ(errorNumberOf([&] { (void)m_store.updateOrganization(record); }), overflow);
        (record.*list).pop_back();
    }
    record.venues.push_back({{u"far"_s, 32768}, true});
    EXPECT_EQ(errorNumberOf([&] { (void)m_store.updateOrganization(record); }), overflow);
    record.venues.pop_back();
    for (const auto key : {&OrganizationRecord::functionId, &OrganizationRecord::organizationTypeId,
                           &OrganizationRecord::organizationSubTypeId}) {
        OrganizationRecord changed = record;
        changed.*key = 32768;
        EXPECT_EQ(errorNumberOf([&] { (void)m_store.updateOrganization(changed); }), overflow);
    }
    record.id = 77;
    EXPECT_EQ(errorNumberOf([&] { (void)m_store.updateOrganization(record); }), gone);
    EXPECT_EQ(m_database.bytes(), before);
}

TEST_F(OrganizationStoreTest, ANewOrganizationTakesNoChartThatLiesUnderItsNumber)
{
    QFile(m_database.folder() + u"/data/orgcharts/6.pdf"_s).open(QIODevice::WriteOnly);
    OrganizationRecord record = named(u"Ridge Patrol"_s);
    record.profile.organizationChart = u"/gone/ridge.pdf"_s;
    EXPECT_FALSE(m_store.saveOrganization(record));
    EXPECT_EQ(
        ask("SELECT OrganizationChart, ChartOption FROM OrganizationProfile WHERE OrganizationProfileID = 6"),
        u"|0"_s);
}

TEST_F(OrganizationStoreTest, AChartThatCannotBeCopiedLeavesTheOrganization)
{
    OrganizationRecord record = named(u"Ridge Patrol"_s);
    record.profile.organizationChart = userFile(u"chart.pdf"_s, "chart");
    QDir().mkpath(m_database.folder() + u"/data/orgcharts/6.pdf"_s); // a folder stands in its way
    EXPECT_NE(errorNumberOf([&] { (void)m_store.saveOrganization(record); }), 0);
    EXPECT_EQ(ask("SELECT (SELECT OrganizationName FROM Organization WHERE OrganizationID = 6), "
                  "(SELECT count(*) FROM OrganizationProfile), (SELECT count(*) FROM Organization_HIST)"),
              u"Ridge Patrol|1|0"_s);
}

} // namespace
