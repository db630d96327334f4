// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "support/TestDatabase.h"

#include <QStringList>

#include <array>
#include <random>

/// Records of every kind with the odd values of real collections, drawn at random from a seed: missing keys,
/// names and times, deleted records and ones without a status, links that are repeated or lead nowhere,
/// quotes, other scripts and both letter cases. The reserved row 1 of each kind is no exception.
///
/// A table and a view serve queries by hand. `Folded (Kind, ID, Name, NameBase, Description)` has the texts
/// of a record as they are compared, and its name without accents, by which it sorts first. `Place` has the
/// position of an organization, its own or that of its city.
class OddRows
{
public:
    /// The number of records of each kind.
    static constexpr int most = 40;

    /// A word as shown, as it is compared, and without accents, as it sorts first.
    struct Word
    {
        QString shown;
        QString folded;
        QString base;
    };

    explicit OddRows(unsigned seed) : m_random(seed) {}

    void addTo(const TestDatabase& database);

    /// Returns a number from 0 to the limit.
    int upTo(int limit);

    QString oneOf(const QStringList& values);

    /// Returns a word, on request also one with an apostrophe.
    const Word& word(bool withApostrophe);

    /// The text as an SQL literal.
    static QString quoted(QString text);

private:
    QString status();
    std::array<QString, 3> someWords();
    QString named(int kind, int id, QString& names);
    QString document(int id);
    QString day();
    QString time();
    QString event(int id);
    QString organization(int id);
    QString linked(const QString& table);

    std::mt19937 m_random;
};

/// Returns plain SQL for all rows of the list of a kind, unordered. Further conditions can follow, on the
/// record `d`, `e` or `o` and on its folded texts `f`. The first column is the list's sort key, the others
/// are those of the list.
QString rowsByHand(RecordKind kind);

/// From and where clauses for the organizations `o` that lists show, and their places `p`.
QString visibleOrganizations();
