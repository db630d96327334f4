// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/HistoryCheck.h"

#include "check/CheckTexts.h"
#include "check/CheckedDatabase.h"
#include "check/NamedRows.h"

#include <QStringList>

using namespace Qt::StringLiterals;

void HistoryCheck::begin(DatabaseSession& session)
{
    for (const RecordKind kind : recordKinds) {
        const RecordNames names = recordNames(kind);
        const QString history = names.record + u"_HIST"_s;
        const auto handler = [this, kind](const HeldRow& row) { found(kind, valueOf(row, u"Identifier")); };
        const QString isMissing = u"NOT EXISTS (SELECT 1 FROM %1 AS Target WHERE Target.%2 = %3)"_s;
        if (hasColumns(history, {names.key})) {
            const QString column = history + u'.' + names.key;
            addScan(TableScan(history, names.key + u" AS Identifier"_s,
                              isMissing.arg(names.record, names.key, column)),
                    handler);
        }
        if (session.keepsJournal()) {
            const QString condition = u"Kind = '%1' AND "_s.arg(names.record) +
                                      isMissing.arg(names.record, names.key, u"Journal.Identifier"_s);
            addScan(TableScan(u"Journal"_s, u"Identifier"_s, condition), handler);
        }
    }
}

void HistoryCheck::found(RecordKind kind, const Value& key)
{
    const auto* identifier = std::get_if<qint64>(&key);
    if (identifier == nullptr || m_told[kind].contains(*identifier)) return;
    m_told[kind].insert(*identifier);
    DatabaseSession& session = database().session();
    const HeldRows rows(session);
    const RecordNames names = recordNames(kind);
    const QString missing = NamedRows::missing(names.record, key);
    if (session.keepsJournal()) {
        const auto last =
            rows.read(u"SELECT Title, After IS NULL AS IsGone FROM Journal WHERE Kind = ? AND Identifier = "
                      "? ORDER BY Number DESC LIMIT 1"_s,
                      {names.record, key});
        if (!last.empty() && wholeNumberOf(last.front(), u"IsGone") != 0) return;
        if (!last.empty()) {
            add({CheckTexts::tr("The journal tells of %1, \"%2\", which does not exist although nothing "
                                "tells of its end.")
                     .arg(missing, textOf(last.front(), u"Title"))});
            return;
        }
    }
    const auto versions = rows.read(
        u"SELECT count(*) AS Versions FROM %1_HIST WHERE %2 = ?"_s.arg(names.record, names.key), {key});
    const int count = static_cast<int>(wholeNumberOf(versions.front(), u"Versions"));
    add({count == 1
             ? CheckTexts::tr("There is a former version of %1, which does not exist.").arg(missing)
             : CheckTexts::tr("There are %n former versions of %1, which does not exist.", nullptr, count)
                   .arg(missing)});
}
