#pragma once

#include "views/SearchKind.h"
#include "views/clsAdvSearch.h"

#include <QHash>
#include <QString>

#include <vector>

/// One criterion of an advanced search.
struct SearchCriterion
{
    const char* word;       ///< what captions call it, such as `Document Type`, to be translated
    const char* inSentence; ///< what a sentence calls it, such as `document type`, to be translated
    bool clsAdvSearch::*flag;
    clsAdvSearch::Items clsAdvSearch::*items; ///< null for the dates of events, which are no list
};

/// The criteria of a kind that has a list, in the order in which captions name them.
const std::vector<SearchCriterion>& criteriaOf(ViewKind kind);

/// Whether a criterion of any kind is switched on, as it is in the views that an advanced search made.
bool hasCriteria(const clsAdvSearch& search);

/// `Advanced Document Search by Venue, File Type`: each criterion that is switched on, whether or not
/// anything is chosen for it.
QString advancedCaption(ViewKind kind, const clsAdvSearch& search);

/// The view of a search whose conditions are built.
clsView advancedView(const StandardQueries& queries, ViewKind kind, const clsAdvSearch& search);

/// The names of all venues by their numbers as texts.
using VenueNames = QHash<QString, QString>;

/// One line that says which records the conditions of a search let through, where that is not what the
/// choices alone suggest, too.
QString advancedSearchText(ViewKind kind, const clsAdvSearch& search, const VenueNames& venues);
