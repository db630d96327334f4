// SPDX-License-Identifier: GPL-3.0-or-later

#include "views/RelatedViews.h"

#include "support/TestDatabase.h"
#include "views/StandardQueries.h"

namespace {

/// Record 2 of each kind has live links, record 3 links to deleted records only, record 4 none.
class RelatedViewsTest : public testing::Test
{
protected:
    RelatedViewsTest() { database.runFile("views/rows/RelatedViews.sql"); }

    RelatedOutcome follow(RelatedCommand command, qint64 identifier,
                          const QString& name = QStringLiteral("N"))
    {
        return RelatedViews(database.session(), queries).follow(command, {identifier, name});
    }

    /// Returns the view as `kind caption: identifiers`, or the question and the record that Yes adds.
    std::string show(RelatedCommand command, qint64 identifier)
    {
        const RelatedOutcome outcome = follow(command, identifier);
        if (outcome.view) {
            return QStringLiteral("%1 %2: %3")
                .arg(static_cast<int>(outcome.view->viewIndex))
                .arg(outcome.view->Caption, firstColumnOf(database.session(), outcome.view->SQL->sqlStr()))
                .toStdString();
        }
        QString text = outcome.question + QStringLiteral(" > ") +
                       QString::number(static_cast<int>(outcome.addition.kind));
        if (const auto& preset = outcome.addition.preset)
            text += QStringLiteral(" %1 %2 %3")
                        .arg(preset->FieldName)
                        .arg(preset->FieldID)
                        .arg(preset->FieldText);
        return text.toStdString();
    }

    TestDatabase database;
    StandardQueries queries;
};

TEST_F(RelatedViewsTest, ShowsWhatIsLinkedOrOffersToAddIt)
{
    using enum RelatedCommand;
    struct Case
    {
        RelatedCommand command;
        const char* linked;
        const char* deletedOnly;
        const char* none;
    };
    const char* noEvents = "No Events exist for this Document. Would you like to add one? > 1 DOCUMENT ";
    const Case cases[] = {
        {DocumentEvents, "1 View Only Events for Document \"N\": 2 3", noEvents, noEvents},
        {EventDocuments, "0 View Only Documents for Event \"N\": 2 6",
         "0 View Only Documents for Event \"N\": 2",
         "No Documents exist for this Event. Would you like to add one? > 0"},
        {EventOrganizations, "2 View Only Organizations for Event \"N\": 2 3",
         "No Organizations exist for this Event. Would you like to add one? > 2",
         "2 View Only Organizations for Event \"N\": 2"},
        {OrganizationDocuments, "0 View Only Documents for Organization \"N\": 2 6",
         "No Documents exist for this Organization. Would you like to add one? > 0 ORGANIZATION ",
         "No Documents exist for this Organization. Would you like to add one? > 0 ORGANIZATION "},
        {OrganizationEvents, "1 View Only Organizations for Event \"N\": 2 4",
         "1 View Only Organizations for Event \"N\": 2",
         "No Events exist for this Organization. Would you like to add one? > 1 ORGANIZATION "},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(show(each.command, 2), each.linked);
        EXPECT_TRUE(
            QString::fromStdString(show(each.command, 3)).startsWith(QString::fromUtf8(each.deletedOnly)))
            << show(each.command, 3);
        EXPECT_TRUE(QString::fromStdString(show(each.command, 4)).startsWith(QString::fromUtf8(each.none)))
            << show(each.command, 4);
    }
    EXPECT_EQ(show(DocumentEvents, 4), std::string(noEvents) + "4 N");
    EXPECT_EQ(follow(DocumentEvents, 2, QStringLiteral("Say \"no\" & 'yes'")).view->Caption,
              QStringLiteral("View Only Events for Document \"Say \"no\" & 'yes'\""));
    EXPECT_EQ(show(OrganizationEvents, 4),
              "No Events exist for this Organization. Would you like to add one? > 1 ORGANIZATION 4 N");
}

TEST_F(RelatedViewsTest, ASourceThatIsReservedOrDeletedShowsAnEmptyList)
{
    const RelatedCommand command = RelatedCommand::DocumentOrganization;
    const std::string caption = "2 View Source Organization for Document \"N\": ";
    const std::string question =
        "No Source Organization exists for this Document. Would you like to add one? > 2";
    EXPECT_EQ(show(command, 2), caption + "2");
    EXPECT_EQ(show(command, 5), caption) << "the reserved organization";
    EXPECT_EQ(show(command, 3), caption) << "a deleted organization";
    EXPECT_EQ(show(command, 4), question) << "no organization at all";
    EXPECT_EQ(show(command, 77), question) << "a document that is gone meanwhile";
}

TEST_F(RelatedViewsTest, AQueryThatFailsIsAnError)
{
    DatabaseSession closed;
    const RelatedViews views(closed, queries);
    EXPECT_THROW((void)views.follow(RelatedCommand::EventDocuments, {2, QString()}), Error);
}

} // namespace
