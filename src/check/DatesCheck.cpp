// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/DatesCheck.h"

#include "check/CheckTexts.h"
#include "check/CheckedDatabase.h"
#include "check/NamedRows.h"
#include "util/ReadableLine.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// SQLite's `date` returns a day in held form, or NULL. A day that does not exist becomes another one when
// days are added to it.

QString unreadableDate(const QString& column)
{
    return u"(%1 IS NOT NULL AND date(%1, '+0 days') IS NOT %1)"_s.arg(column);
}

QString unreadableTime(const QString& column)
{
    return u"(%1 IS NOT NULL AND (length(%1) NOT IN (5, 8) OR date('2000-01-01 ' || %1) IS NOT '2000-01-01'))"_s
        .arg(column);
}

QString unreadableMoment(const QString& column)
{
    return u"(%1 IS NOT NULL AND (length(%1) <> 19 OR substr(%1, 11, 1) <> ' ' OR date(%1, '+0 days') IS NOT substr(%1, 1, 10)))"_s
        .arg(column);
}

QString heldText(const HeldRow& row, const QString& column)
{
    const Value& value = valueOf(row, column);
    if (const auto* number = std::get_if<qint64>(&value)) return QString::number(*number);
    return readableLine(textOf(row, column));
}

} // namespace

std::vector<DatesCheck::Column> DatesCheck::columnsOfEvents()
{
    return {{u"StartDate"_s, QT_TRANSLATE_NOOP("Check", "start date"), unreadableDate(u"StartDate"_s)},
            {u"StartTime"_s, QT_TRANSLATE_NOOP("Check", "start time"), unreadableTime(u"StartTime"_s)},
            {u"EndDate"_s, QT_TRANSLATE_NOOP("Check", "end date"), unreadableDate(u"EndDate"_s)},
            {u"EndTime"_s, QT_TRANSLATE_NOOP("Check", "end time"), unreadableTime(u"EndTime"_s)}};
}

DatesCheck::Column DatesCheck::momentColumn(const QString& name)
{
    return {name, QT_TRANSLATE_NOOP("Check", "moment"), unreadableMoment(name)};
}

void DatesCheck::begin(DatabaseSession& session)
{
    addTable(u"Event"_s, RecordKind::Event, u"EventID"_s, columnsOfEvents());
    for (const RecordKind kind : recordKinds) {
        const RecordNames names = recordNames(kind);
        std::vector<Column> columns{momentColumn(u"UpdateTime"_s)};
        if (kind == RecordKind::Event) {
            for (Column& column : columnsOfEvents())
                columns.push_back(std::move(column));
        }
        addTable(names.record + u"_HIST"_s, kind, names.key, columns);
    }
    if (session.keepsJournal()) addJournal();
}

void DatesCheck::addTable(const QString& table, RecordKind kind, const QString& keyColumn,
                          const std::vector<Column>& columns)
{
    QStringList selected{keyColumn};
    QStringList conditions;
    std::vector<Column> present;
    for (const Column& column : columns) {
        if (!hasColumns(table, {keyColumn, column.name})) continue;
        present.push_back(column);
        selected << column.name << u"%1 AS Bad%2"_s.arg(column.unreadable, column.name);
        conditions << column.unreadable;
    }
    if (present.empty()) return;
    const bool isHistory = table != recordNames(kind).record;
    const auto found = [this, kind, keyColumn, present, isHistory](const HeldRow& row) {
        const qint64 identifier = wholeNumberOf(row, keyColumn);
        const QString name = NamedRows::recordText(database().session(), kind, identifier);
        const QString sentence =
            isHistory ? CheckTexts::tr("A former version of %1 has the %2 \"%3\", which cannot be read.")
                      : CheckTexts::tr("%1 has the %2 \"%3\", which cannot be read.");
        for (const Column& column : present) {
            if (wholeNumberOf(row, QString(u"Bad"_s + column.name)) == 0) continue;
            add({sentence.arg(name, CheckTexts::tr(column.caption), heldText(row, column.name)),
                 Finding::Step::ShowRecord, Finding::Record{kind, identifier}});
        }
    };
    addScan(TableScan(table, selected.join(u", "_s), conditions.join(u" OR "_s)), found);
}

void DatesCheck::addJournal()
{
    const QString moment = u"Moment"_s;
    addScan(TableScan(u"Journal"_s, moment, unreadableMoment(moment)), [this, moment](const HeldRow& row) {
        add({CheckTexts::tr("Step %1 of the journal has the moment \"%2\", which cannot be read.")
                 .arg(wholeNumberOf(row, u"Number"))
                 .arg(heldText(row, moment))});
    });
}
