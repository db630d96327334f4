#pragma once

#include "support/TestDatabase.h"
#include "views/clsView.h"

#include <QStringList>

#include <array>
#include <random>

/// Records of every kind with the odd values that real collections hold, drawn from a seed: missing keys,
/// names and times, deleted ones and ones without a status, links that are repeated or lead nowhere, quotes,
/// other scripts and both letter cases. The reserved row 1 of each kind is like any other.
///
/// Beside them stands a table for queries by hand: `Folded (Kind, ID, Name, NameBase, Description)` holds the
/// texts of a record as they are compared, and its name as it sorts before its accents are looked at.
class OddRows
{
public:
    /// How many records of each kind there are.
    static constexpr int most = 40;

    /// A word as it stands in a text, as it is compared, and as it sorts before its accents are looked at.
    struct Word
    {
        QString shown;
        QString folded;
        QString base;
    };

    explicit OddRows(unsigned seed) : m_random(seed) {}

    void addTo(const TestDatabase& database);

    /// A number from 0 to the limit.
    int upTo(int limit);

    QString oneOf(const QStringList& values);

    /// A word, or one that can stand in a text between apostrophes.
    const Word& word(bool withApostrophe);

    /// The text as a literal of SQLite.
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

/// The statement in plain SQLite for all rows of the list of a kind, without an order and open for
/// further conditions on `d`, `e` or `o`, the record, and on `f`, its folded texts. The first column is what
/// the list sorts by, the others are those of the list.
QString rowsByHand(ViewKind kind);

/// A column of the known city of an organization `o`: of several cities, that with the smallest number.
QString ofCity(const QString& column);

/// `Lat` or `Lon` of an organization `o`: its own if it has both, else that of its city.
QString position(const QString& column);

/// From and where clauses for the organizations that lists show.
QString visibleOrganizations();
