// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/AdvancedSearch.h"

#include "search/SearchTexts.h"
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
        {QT_TRANSLATE_NOOP("Search", "Venue"), QT_TRANSLATE_NOOP("Search", "venue"), &Search::bDocVenues,
         &Search::docVenues},
        {QT_TRANSLATE_NOOP("Search", "Document Type"), QT_TRANSLATE_NOOP("Search", "document type"),
         &Search::bDocTypes, &Search::docTypes},
        {QT_TRANSLATE_NOOP("Search", "Organization"), QT_TRANSLATE_NOOP("Search", "organization"),
         &Search::bDocOrgs, &Search::docOrgs},
        {QT_TRANSLATE_NOOP("Search", "File Type"), QT_TRANSLATE_NOOP("Search", "file type"),
         &Search::bFileTypes, &Search::fileTypes}};
    static const std::vector<SearchCriterion> events{
        {QT_TRANSLATE_NOOP("Search", "Date"), QT_TRANSLATE_NOOP("Search", "date"), &Search::bEventDate,
         nullptr},
        {QT_TRANSLATE_NOOP("Search", "Venue"), QT_TRANSLATE_NOOP("Search", "venue"), &Search::bEventVenues,
         &Search::eventVenues},
        {QT_TRANSLATE_NOOP("Search", "Function"), QT_TRANSLATE_NOOP("Search", "function"),
         &Search::bEventFunctions, &Search::eventFunctions},
        {QT_TRANSLATE_NOOP("Search", "Organization"), QT_TRANSLATE_NOOP("Search", "organization"),
         &Search::bEventOrgs, &Search::eventOrgs}};
    static const std::vector<SearchCriterion> organizations{
        {QT_TRANSLATE_NOOP("Search", "Venue"), QT_TRANSLATE_NOOP("Search", "venue"), &Search::bOrgVenues,
         &Search::orgVenues},
        {QT_TRANSLATE_NOOP("Search", "Organization Type"), QT_TRANSLATE_NOOP("Search", "organization type"),
         &Search::bOrgTypes, &Search::orgTypes},
        {QT_TRANSLATE_NOOP("Search", "Function"), QT_TRANSLATE_NOOP("Search", "function"),
         &Search::bOrgFunctions, &Search::orgFunctions},
        {QT_TRANSLATE_NOOP("Search", "Location"), QT_TRANSLATE_NOOP("Search", "location"),
         &Search::bOrgLocations, &Search::orgLocations}};
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
        if (search.*criterion.flag) words << SearchTexts::tr(criterion.word);
    }
    const QString caption = kind == RecordKind::Document ? SearchTexts::tr("Advanced Document Search")
                            : kind == RecordKind::Event  ? SearchTexts::tr("Advanced Event Search")
                                                         : SearchTexts::tr("Advanced Organization Search");
    return words.isEmpty() ? caption
                           : SearchTexts::tr("%1 by %2").arg(caption, words.join(QStringLiteral(", ")));
}

clsView advancedView(const StandardQueries& queries, RecordKind kind, const clsAdvSearch& search)
{
    return {viewOf(kind),
            queries.narrowed(kind, conditionsOf(kind, search)),
            advancedCaption(kind, search),
            {},
            search};
}
