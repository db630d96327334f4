// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "views/clsView.h"

#include <QHash>
#include <QString>

#include <vector>

struct StandardQueries;

/// One criterion of an advanced search.
struct SearchCriterion
{
    const char* word;       ///< what captions call it, such as `Document Type`, to be translated
    const char* inSentence; ///< what a sentence calls it, such as `document type`, to be translated
    bool clsAdvSearch::*flag;
    clsAdvSearch::Items clsAdvSearch::*items; ///< null for the dates of events, which are not a list
};

/// The criteria of a kind, in the order in which captions name them.
const std::vector<SearchCriterion>& criteriaOf(RecordKind kind);

/// Whether any criterion of any kind is switched on. False for views that no advanced search made.
bool hasCriteria(const clsAdvSearch& search);

/// Returns a caption such as `Advanced Document Search by Venue, File Type`. It names each criterion that is
/// switched on, even with no choices.
QString advancedCaption(RecordKind kind, const clsAdvSearch& search);

/// Returns the view of a search. The search must have its conditions built.
clsView advancedView(const StandardQueries& queries, RecordKind kind, const clsAdvSearch& search);

/// The names of all venues by their identifiers as texts.
using VenueNames = QHash<QString, QString>;

/// Returns one line that says which records a search will find, also if its choices suggest otherwise.
QString advancedSearchText(RecordKind kind, const clsAdvSearch& search, const VenueNames& venues);
