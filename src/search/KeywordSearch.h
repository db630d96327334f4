// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "views/clsView.h"

#include <QString>
#include <QStringList>

#include <optional>

struct StandardQueries;

/// The words of a keyword search, as typed and in order.
struct Keywords
{
    static constexpr int most = 4;

    QStringList words;
    bool moreThanMost = false; ///< whether words beyond the fourth were dropped
};

/// Splits a text at its blanks. A blank where a word should begin is its first character: the second of two
/// blanks, or one before the first word.
Keywords splitWords(const QString& text);

/// Returns the query for the records of a kind that have all words in their name, or all of them in their
/// description. Words are not escaped; `%` and `_` are wildcards. The query has no order clause. `words` must
/// not be empty.
SharedQuery keywordQuery(const StandardQueries& queries, RecordKind kind, const QStringList& words);

/// Returns the view that shows a search for a text: the list of one kind, or the results page if the search
/// has no kind and looks through all. The view keeps the text, so that showing it again repeats the search.
/// Only documents have files to look into.
clsView keywordView(const StandardQueries& queries, std::optional<RecordKind> kind, const QString& text,
                    bool alsoInFiles = false);
