#include "search/AdvancedSearch.h"

#include "views/StandardQueries.h"

#include <QStringList>

namespace {

const QString& conditionsOf(RecordKind kind, const clsAdvSearch& search)
{
    return kind == RecordKind::Document ? search.advDocSQL
           : kind == RecordKind::Event  ? search.advEventSQL
                                        : search.advOrgSQL;
}

} // namespace

const std::vector<SearchCriterion>& criteriaOf(RecordKind kind)
{
    using Search = clsAdvSearch;
    static const std::vector<SearchCriterion> documents{
        {QStringLiteral("Venue"), &Search::bDocVenues, &Search::docVenues},
        {QStringLiteral("Document Type"), &Search::bDocTypes, &Search::docTypes},
        {QStringLiteral("Organization"), &Search::bDocOrgs, &Search::docOrgs},
        {QStringLiteral("File Type"), &Search::bFileTypes, &Search::fileTypes}};
    static const std::vector<SearchCriterion> events{
        {QStringLiteral("Date"), &Search::bEventDate, nullptr},
        {QStringLiteral("Venue"), &Search::bEventVenues, &Search::eventVenues},
        {QStringLiteral("Function"), &Search::bEventFunctions, &Search::eventFunctions},
        {QStringLiteral("Organization"), &Search::bEventOrgs, &Search::eventOrgs}};
    static const std::vector<SearchCriterion> organizations{
        {QStringLiteral("Venue"), &Search::bOrgVenues, &Search::orgVenues},
        {QStringLiteral("Organization Type"), &Search::bOrgTypes, &Search::orgTypes},
        {QStringLiteral("Function"), &Search::bOrgFunctions, &Search::orgFunctions},
        {QStringLiteral("Location"), &Search::bOrgLocations, &Search::orgLocations}};
    return kind == RecordKind::Document ? documents : kind == RecordKind::Event ? events : organizations;
}

bool hasCriteria(const clsAdvSearch& search)
{
    for (const RecordKind kind : recordKinds) {
        for (const SearchCriterion& criterion : criteriaOf(kind)) {
            if (search.*criterion.flag) return true;
        }
    }
    return false;
}

QString advancedCaption(RecordKind kind, const clsAdvSearch& search)
{
    QStringList words;
    for (const SearchCriterion& criterion : criteriaOf(kind)) {
        if (search.*criterion.flag) words << criterion.word;
    }
    const QString caption =
        QStringLiteral("Advanced ") + recordNames(kind).record + QStringLiteral(" Search");
    return words.isEmpty() ? caption : caption + QStringLiteral(" by ") + words.join(QStringLiteral(", "));
}

clsView advancedView(const StandardQueries& queries, RecordKind kind, const clsAdvSearch& search)
{
    return {viewOf(kind),
            queries.narrowed(kind, conditionsOf(kind, search)),
            advancedCaption(kind, search),
            {},
            search};
}
