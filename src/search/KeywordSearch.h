#pragma once

#include "views/SearchKind.h"

#include <QString>
#include <QStringList>

/// The words of a keyword search, as typed and in their order.
struct Keywords
{
    static constexpr int most = 4;

    QStringList words;
    bool moreThanMost = false; ///< further words were left out
};

/// Splits a text at its blanks, as it stands: a blank where a word begins belongs to that word, so that
/// repeated blanks give words that begin with one.
Keywords splitWords(const QString& text);

/// The query for the records of a kind that hold all words in their name, or all of them in their
/// descriptive text. Words go into it as they are; `%` and `_` act as wildcards. It has no order of its own.
/// `kind` has a list; `words` is not empty.
SharedQuery keywordQuery(const StandardQueries& queries, ViewKind kind, const QStringList& words);

/// The view that a search for a text shows: a list for one kind, the results page for all. It keeps the text,
/// so that showing it again searches for the same words.
clsView keywordView(const StandardQueries& queries, SearchScope scope, const QString& text);
