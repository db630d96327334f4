#include "search/AdvancedSearch.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(AdvancedSearch)
};

const QString& conditionsOf(ViewKind kind, const clsAdvSearch& search)
{
    return kind == ViewKind::Documents ? search.advDocSQL
           : kind == ViewKind::Events  ? search.advEventSQL
                                       : search.advOrgSQL;
}

} // namespace

const std::vector<SearchCriterion>& criteriaOf(ViewKind kind)
{
    using Search = clsAdvSearch;
    static const std::vector<SearchCriterion> documents{
        {QT_TRANSLATE_NOOP("AdvancedSearch", "Venue"), QT_TRANSLATE_NOOP("AdvancedSearch", "venue"),
         &Search::bDocVenues, &Search::docVenues},
        {QT_TRANSLATE_NOOP("AdvancedSearch", "Document Type"),
         QT_TRANSLATE_NOOP("AdvancedSearch", "document type"), &Search::bDocTypes, &Search::docTypes},
        {QT_TRANSLATE_NOOP("AdvancedSearch", "Organization"),
         QT_TRANSLATE_NOOP("AdvancedSearch", "organization"), &Search::bDocOrgs, &Search::docOrgs},
        {QT_TRANSLATE_NOOP("AdvancedSearch", "File Type"), QT_TRANSLATE_NOOP("AdvancedSearch", "file type"),
         &Search::bFileTypes, &Search::fileTypes}};
    static const std::vector<SearchCriterion> events{
        {QT_TRANSLATE_NOOP("AdvancedSearch", "Date"), QT_TRANSLATE_NOOP("AdvancedSearch", "date"),
         &Search::bEventDate, nullptr},
        {QT_TRANSLATE_NOOP("AdvancedSearch", "Venue"), QT_TRANSLATE_NOOP("AdvancedSearch", "venue"),
         &Search::bEventVenues, &Search::eventVenues},
        {QT_TRANSLATE_NOOP("AdvancedSearch", "Function"), QT_TRANSLATE_NOOP("AdvancedSearch", "function"),
         &Search::bEventFunctions, &Search::eventFunctions},
        {QT_TRANSLATE_NOOP("AdvancedSearch", "Organization"),
         QT_TRANSLATE_NOOP("AdvancedSearch", "organization"), &Search::bEventOrgs, &Search::eventOrgs}};
    static const std::vector<SearchCriterion> organizations{
        {QT_TRANSLATE_NOOP("AdvancedSearch", "Venue"), QT_TRANSLATE_NOOP("AdvancedSearch", "venue"),
         &Search::bOrgVenues, &Search::orgVenues},
        {QT_TRANSLATE_NOOP("AdvancedSearch", "Organization Type"),
         QT_TRANSLATE_NOOP("AdvancedSearch", "organization type"), &Search::bOrgTypes, &Search::orgTypes},
        {QT_TRANSLATE_NOOP("AdvancedSearch", "Function"), QT_TRANSLATE_NOOP("AdvancedSearch", "function"),
         &Search::bOrgFunctions, &Search::orgFunctions},
        {QT_TRANSLATE_NOOP("AdvancedSearch", "Location"), QT_TRANSLATE_NOOP("AdvancedSearch", "location"),
         &Search::bOrgLocations, &Search::orgLocations}};
    return kind == ViewKind::Documents ? documents : kind == ViewKind::Events ? events : organizations;
}

bool hasCriteria(const clsAdvSearch& search)
{
    for (const ViewKind kind : searchedKinds) {
        for (const SearchCriterion& criterion : criteriaOf(kind)) {
            if (search.*criterion.flag) return true;
        }
    }
    return false;
}

QString advancedCaption(ViewKind kind, const clsAdvSearch& search)
{
    QStringList words;
    for (const SearchCriterion& criterion : criteriaOf(kind)) {
        if (search.*criterion.flag) words << Texts::tr(criterion.word);
    }
    const QString caption = kind == ViewKind::Documents ? Texts::tr("Advanced Document Search")
                            : kind == ViewKind::Events  ? Texts::tr("Advanced Event Search")
                                                        : Texts::tr("Advanced Organization Search");
    return words.isEmpty() ? caption : Texts::tr("%1 by %2").arg(caption, words.join(QStringLiteral(", ")));
}

clsView advancedView(const StandardQueries& queries, ViewKind kind, const clsAdvSearch& search)
{
    SQLObject query = standardQuery(queries, kind);
    query.WhereClause += conditionsOf(kind, search);
    clsView view;
    view.viewIndex = kind;
    view.SQL = std::make_shared<const SQLObject>(std::move(query));
    view.Caption = advancedCaption(kind, search);
    view.AdvSearch = search;
    return view;
}
