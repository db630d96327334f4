// SPDX-License-Identifier: GPL-3.0-or-later

#include "views/OddRows.h"

namespace {

const std::vector<OddRows::Word>& words()
{
    static const std::vector<OddRows::Word> all{
        {u"Émile"_s, u"émile"_s, u"emile"_s},
        {u"emile"_s, u"emile"_s, u"emile"_s},
        {u"ÉMILE"_s, u"émile"_s, u"emile"_s},
        {u"Fire"_s, u"fire"_s, u"fire"_s},
        {u"fire"_s, u"fire"_s, u"fire"_s},
        {u"Zoo"_s, u"zoo"_s, u"zoo"_s},
        {u"\"plan\""_s, u"\"plan\""_s, u"\"plan\""_s},
        {u"ПОЖАР"_s, u"пожар"_s, u"пожар"_s},
        {u"пожар"_s, u"пожар"_s, u"пожар"_s},
        {u"火事"_s, u"火事"_s, u"火事"_s},
        {u"O'Fallon"_s, u"o'fallon"_s, u"o'fallon"_s},
    };
    return all;
}

const QString documentRows =
    u"SELECT f.NameBase || char(1) || f.Name, d.DocumentID, d.DocumentName, d.KeyDocument, "
    "ifnull(d.FileTypeID, 1), d.ReleaseForm, (SELECT FileTypeName FROM FileTypes AS t WHERE t.FileTypeID = "
    "ifnull(d.FileTypeID, 1)), d.OrganizationID, (SELECT OrganizationName FROM Organization AS s WHERE "
    "s.OrganizationID = ifnull(d.OrganizationID, 1)), d.FileLocation, d.Author, d.DocumentDate "
    "FROM Document AS d JOIN Folded AS f ON f.Kind = 0 AND f.ID = d.DocumentID "
    "WHERE d.DocumentID > 1 AND upper(d.dStatus) <> 'DELETED'"_s;

const QString eventRows =
    u"SELECT ifnull(e.StartDate, '') || ' ' || ifnull(substr(e.StartTime, 1, 5), '') || ' ' || "
    "ifnull(e.EndDate, '') || ' ' || ifnull(substr(e.EndTime, 1, 5), '') || char(1) || f.NameBase || char(1) "
    "|| f.Name, "
    "e.EventID, e.EventName, e.KeyEvent, strftime('%m/%d/%Y', e.StartDate), substr(e.StartTime, 1, 5), "
    "strftime('%m/%d/%Y', e.EndDate), substr(e.EndTime, 1, 5) "
    "FROM Event AS e JOIN Folded AS f ON f.Kind = 1 AND f.ID = e.EventID "
    "WHERE e.EventID > 1 AND upper(e.Status) <> 'DELETED'"_s;

QString organizationRows()
{
    return u"SELECT f.NameBase || char(1) || f.Name, o.OrganizationID, o.OrganizationName, "
           "ifnull(o.OrganizationTypeID, 1), (SELECT OrganizationTypeName FROM OrganizationTypes AS t WHERE "
           "t.OrganizationTypeID = ifnull(o.OrganizationTypeID, 1)), o.OrganizationSubTypeID, (SELECT "
           "OrganizationSubTypeName FROM OrganizationSubTypes AS t WHERE t.OrganizationSubTypeID = "
           "ifnull(o.OrganizationSubTypeID, 1)), o.FunctionID, (SELECT FunctionName FROM Function AS t WHERE "
           "t.FunctionID = ifnull(o.FunctionID, 1)), o.City, o.State, p.Lat, p.Lon"_s +
           visibleOrganizations();
}

} // namespace

QString rowsByHand(RecordKind kind)
{
    return kind == RecordKind::Document ? documentRows
           : kind == RecordKind::Event  ? eventRows
                                        : organizationRows();
}

QString visibleOrganizations()
{
    return u" FROM Organization AS o JOIN Folded AS f ON f.Kind = 2 AND f.ID = o.OrganizationID "
           "JOIN Place AS p ON p.OrganizationID = o.OrganizationID WHERE o.OrganizationID > 1 AND upper(o.Status) <> 'DELETED'"_s;
}

void OddRows::addTo(const TestDatabase& database)
{
    database.runFile("views/rows/OddRows.sql");
    QString rows = u"BEGIN;"_s;
    for (int id = 1; id <= most; ++id)
        rows += document(id) + event(id) + organization(id);
    for (const char16_t* links : {u"DocumentEvents", u"OrganizationEvents", u"EventFunctions",
                                  u"DocumentTypes", u"DocumentVenues", u"EventVenues", u"OrganizationVenues"})
        rows += linked(QString::fromUtf16(links));
    database.run((rows + u"COMMIT"_s).toUtf8().constData());
}

QString OddRows::quoted(QString text)
{
    return u'\'' + text.replace(u'\'', u"''"_s) + u'\'';
}

const OddRows::Word& OddRows::word(bool withApostrophe)
{
    // only the last one has it
    const int last = static_cast<int>(words().size()) - (withApostrophe ? 1 : 2);
    return words()[static_cast<std::size_t>(upTo(last))];
}

int OddRows::upTo(int limit)
{
    return static_cast<int>(m_random() % static_cast<unsigned>(limit + 1));
}

QString OddRows::oneOf(const QStringList& values)
{
    return values.at(upTo(static_cast<int>(values.size()) - 1));
}

QString OddRows::status()
{
    return oneOf({u"'ACTIVE'"_s, u"'ACTIVE'"_s, u"'ACTIVE'"_s, u"'active'"_s, u"'SUBMITTED'"_s,
                  u"'DELETED'"_s, u"'Deleted'"_s, u"NULL"_s});
}

/// Returns one to three words as SQL texts: as shown, as compared, and their base letters.
std::array<QString, 3> OddRows::someWords()
{
    QStringList shown;
    QStringList folded;
    QStringList base;
    for (int left = upTo(2); left >= 0; --left) {
        const Word& next = word(true);
        shown << next.shown;
        folded << next.folded;
        base << next.base;
    }
    return {quoted(shown.join(u' ')), quoted(folded.join(u' ')), quoted(base.join(u' '))};
}

/// The name and the description of a record, and their folded forms beside them.
QString OddRows::named(int kind, int id, QString& names)
{
    const auto name = someWords();
    const auto description = upTo(3) == 0 ? std::array{u"NULL"_s, u"NULL"_s, u"NULL"_s} : someWords();
    names = name[0] + u", "_s + description[0];
    return u"INSERT INTO Folded VALUES (%1, %2, %3, %4, %5);"_s.arg(
        QString::number(kind), QString::number(id), name[1], name[2], description[1]);
}

QString OddRows::document(int id)
{
    QString names;
    const QString folded = named(0, id, names);
    const QString owner = upTo(4) == 0 ? u"NULL"_s : QString::number(1 + upTo(most));
    return folded +
           u"INSERT INTO Document (DocumentID, DocumentName, DocumentDescription, KeyDocument, FileTypeID, "
           "ReleaseForm, OrganizationID, FileLocation, Author, DocumentDate, dStatus) VALUES (%1, %2, %3, "
           "%4, "
           "%5, %6, '%1.pdf', %7, %8);"_s.arg(
               QString::number(id), names, oneOf({u"0"_s, u"1"_s, u"NULL"_s}),
               oneOf({u"NULL"_s, u"1"_s, u"2"_s, u"3"_s, u"9"_s}), oneOf({u"0"_s, u"1"_s}), owner,
               oneOf({u"NULL, '9/11/2001'"_s, u"'The Office', NULL"_s, u"'', 'Spring 1906'"_s}), status());
}

QString OddRows::day()
{
    const QString september = u"'2001-09-%1'"_s.arg(8 + upTo(4), 2, 10, QChar(u'0'));
    return upTo(4) == 0 ? oneOf({u"NULL"_s, u"'1600-01-01'"_s, u"'2001-08-15'"_s, u"'9999-12-31'"_s})
                        : september;
}

QString OddRows::time()
{
    return oneOf({u"NULL"_s, u"'00:00'"_s, u"'00:00:30'"_s, u"'09:30'"_s, u"'09:30:59'"_s, u"'10:00'"_s,
                  u"'23:59'"_s});
}

QString OddRows::event(int id)
{
    QString names;
    const QString folded = named(1, id, names);
    return folded +
           u"INSERT INTO Event (EventID, EventName, EventDescription, KeyEvent, StartDate, "
           "StartTime, EndDate, EndTime, Status) VALUES (%1, %2, %3, %4, %5, %6, %7, %8);"_s.arg(
               QString::number(id), names, oneOf({u"0"_s, u"1"_s}), day(), time(), day(), time(), status());
}

QString OddRows::organization(int id)
{
    QString names;
    const QString folded = named(2, id, names);
    const QString place = oneOf({u"NULL, NULL"_s, u"NULL, NULL"_s, u"40.5, -120.25"_s, u"10.5, NULL"_s});
    return folded +
           u"INSERT INTO Organization (OrganizationID, OrganizationName, ResponseActivities, "
           "OrganizationTypeID, OrganizationSubTypeID, FunctionID, City, State, Lat, Lon, Status) VALUES "
           "(%1, %2, %3, %4, %5, %6, %7, %8, %9);"_s.arg(
               QString::number(id), names, oneOf({u"NULL"_s, u"1"_s, u"2"_s, u"3"_s}),
               oneOf({u"NULL"_s, u"1"_s, u"2"_s}),
               oneOf({u"NULL"_s, u"1"_s, u"2"_s, u"3"_s, u"17"_s, u"99"_s}),
               oneOf({u"'Austin'"_s, u"'AUSTIN'"_s, u"' austin'"_s, u"'Dallas'"_s, u"'Boston'"_s, u"'Waco'"_s,
                      u"''"_s, u"NULL"_s}),
               oneOf({u"'TX'"_s, u"'TX'"_s, u"'tx'"_s, u"'MA'"_s, u"'None'"_s, u"''"_s, u"NULL"_s}), place,
               status());
}

/// Returns links at random: some twice, some to missing records.
QString OddRows::linked(const QString& table)
{
    const bool toLookup = !table.endsWith(u"Events");
    QString rows;
    for (int link = 0; link < 3 * most; ++link) {
        const QString row = u"INSERT INTO %1 VALUES (%2, %3);"_s.arg(
            table, QString::number(1 + upTo(most)),
            toLookup ? oneOf({u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"23"_s, u"NULL"_s})
                     : QString::number(1 + upTo(most)));
        rows += upTo(4) == 0 ? row + row : row;
    }
    return rows;
}
