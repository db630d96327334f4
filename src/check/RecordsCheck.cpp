// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/RecordsCheck.h"

#include "check/CheckTexts.h"
#include "check/CheckedDatabase.h"
#include "check/NamedRows.h"
#include "history/ComparedFields.h"
#include "journal/Journal.h"
#include "journal/RecordParts.h"
#include "util/Error.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 stepsOfJournalAtOnce = 40; ///< rows of the journal, each with two texts to take apart

std::optional<RecordKind> kindOf(const QString& table)
{
    for (const RecordKind kind : recordKinds)
        if (recordNames(kind).record == table) return kind;
    return std::nullopt;
}

} // namespace

bool RecordsCheck::step()
{
    DatabaseSession& session = m_database.session();
    if (!session.keepsJournal()) return false;
    const HeldRows rows(session);
    if (!m_next) {
        const auto last = rows.read(u"SELECT ifnull(max(Number), 0) AS Last FROM Journal"_s);
        m_next = m_rows = wholeNumberOf(last.front(), u"Last");
    }
    const auto portionOfRows =
        rows.read(u"SELECT Number, What, Kind, Identifier, Title, Before, After FROM Journal "
                  "WHERE Number <= ? ORDER BY Number DESC LIMIT ?"_s,
                  {*m_next, stepsOfJournalAtOnce});
    for (const HeldRow& row : portionOfRows)
        look(row);
    if (portionOfRows.empty()) return false;
    m_next = wholeNumberOf(portionOfRows.back(), u"Number") - 1;
    return static_cast<qint64>(portionOfRows.size()) == stepsOfJournalAtOnce;
}

std::optional<int> RecordsCheck::percent() const
{
    return m_rows == 0 ? 0 : static_cast<int>((m_rows - *m_next) * 100 / m_rows);
}

void RecordsCheck::look(const HeldRow& row)
{
    Snapshot before;
    Snapshot after;
    const auto action = Journal::actionOf(textOf(row, u"What"));
    const QString table = textOf(row, u"Kind");
    try {
        before = Snapshots::fromJson(valueOf(row, u"Before"));
        after = Snapshots::fromJson(valueOf(row, u"After"));
        if (!action || !isKnown(before) || !isKnown(after)) throw Error(0, {});
    } catch (const Error&) {
        add({CheckTexts::tr("Step %1 of the journal, \"%2\", cannot be read.")
                 .arg(QString::number(wholeNumberOf(row, u"Number")), textOf(row, u"Title"))});
        // what it did is not known, so what it did it to cannot be compared
        if (action != JournalAction::List) m_done[table].insert(wholeNumberOf(row, u"Identifier"));
        return;
    }
    if (action == JournalAction::List) {
        leaveOut(before);
        leaveOut(after);
        return;
    }
    const auto kind = kindOf(table);
    const qint64 identifier = wholeNumberOf(row, u"Identifier");
    if (!kind || m_done[table].contains(identifier)) return;
    m_done[table].insert(identifier);
    compare(*kind, identifier, after);
}

/// Whether the rows are those of tables that there are.
bool RecordsCheck::isKnown(const Snapshot& rows) const
{
    const Catalog& catalog = m_database.session().catalog();
    return std::all_of(rows.tables.begin(), rows.tables.end(), [&catalog](const auto& each) {
        return !Snapshots::isTable(each.first) || catalog.findTable(each.first) != nullptr;
    });
}

void RecordsCheck::leaveOut(const Snapshot& rows)
{
    for (const RecordKind kind : recordKinds) {
        const RecordParts& record = recordParts(kind);
        const auto leave = [&](const QString& table, const QString& column) {
            for (const HeldRow& row : rows.rows(table))
                m_done[record.names.record].insert(wholeNumberOf(row, column));
        };
        leave(record.names.record, record.names.key);
        for (const PartTable& part : record.parts)
            leave(part.table, part.recordColumn);
    }
}

void RecordsCheck::compare(RecordKind kind, qint64 identifier, const Snapshot& saved)
{
    DatabaseSession& session = m_database.session();
    const Snapshot present = Snapshots::ofRecord(session, kind, identifier);
    if (Snapshots::areEqual(kind, saved, present)) return;
    const QString table = recordNames(kind).record;
    const QString name = NamedRows::recordText(session, kind, identifier);
    if (present.rows(table).empty()) return; // another topic
    if (saved.rows(table).empty()) {
        add({CheckTexts::tr("%1 is there, although its addition was undone.").arg(name),
             Finding::Step::ShowRecord, Finding::Record{kind, identifier}});
        return;
    }
    const QStringList fields = ComparedFields(kind).differences({saved, true}, {present, true});
    add({fields.isEmpty() ? CheckTexts::tr("%1 differs from what the journal says was saved last.").arg(name)
                          : CheckTexts::tr("%1 differs from what the journal says was saved last: %2.")
                                .arg(name, QLocale().createSeparatedList(fields)),
         Finding::Step::ShowRecord, Finding::Record{kind, identifier}});
}
