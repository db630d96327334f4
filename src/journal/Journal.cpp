// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/Journal.h"

#include "data/DatabaseSession.h"
#include "journal/RecordParts.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array words{std::pair(JournalAction::Add, QStringView(u"add")),
                           std::pair(JournalAction::Change, QStringView(u"change")),
                           std::pair(JournalAction::Delete, QStringView(u"delete")),
                           std::pair(JournalAction::Restore, QStringView(u"restore")),
                           std::pair(JournalAction::List, QStringView(u"list"))};

const QString momentForm = u"yyyy-MM-dd HH:mm:ss"_s;

/// Gives a step the number of its first row, unless the last row of the journal belongs to it already.
void begin(JournalStep& step, const std::vector<HeldRow>& last, qint64 number)
{
    if (step.number != 0 && !last.empty() && wholeNumberOf(last.front(), u"Step") == step.number) return;
    step.number = number;
    if (step.reverses != 0) return;
    step.undoStep = number;
    step.redoStep = 0;
}

std::vector<HeldRow> lastRow(DatabaseSession& session)
{
    return HeldRows(session).read(
        u"SELECT Number, Step, UndoStep, RedoStep FROM Journal ORDER BY Number DESC LIMIT 1"_s);
}

void write(DatabaseSession& session, qint64 number, const QDateTime& moment, const JournalEntry& entry,
           const JournalStep& step)
{
    HeldRows(session).write(
        u"INSERT INTO Journal (Number, Step, Moment, What, Kind, Identifier, Title, Before, After, "
        "Reverses, UndoStep, RedoStep) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
        {number, step.number, moment.toString(momentForm), Journal::wordOf(entry.action), entry.kind,
         entry.identifier, entry.title, Snapshots::toJson(entry.before), Snapshots::toJson(entry.after),
         step.reverses == 0 ? Value() : Value(step.reverses), step.undoStep, step.redoStep});
}

} // namespace

void Journal::append(DatabaseSession& session, const QDateTime& moment, const JournalEntry& entry,
                     JournalStep& step)
{
    const auto last = lastRow(session);
    const qint64 number = last.empty() ? 1 : wholeNumberOf(last.front(), u"Number") + 1;
    begin(step, last, number);
    write(session, number, moment, entry, step);
}

void Journal::note(DatabaseSession& session, const QDateTime& moment, const JournalEntry& entry)
{
    const auto last = lastRow(session);
    JournalStep step;
    step.number = last.empty() ? 1 : wholeNumberOf(last.front(), u"Number") + 1;
    if (!last.empty()) {
        step.undoStep = wholeNumberOf(last.front(), u"UndoStep");
        step.redoStep = wholeNumberOf(last.front(), u"RedoStep");
    }
    write(session, step.number, moment, entry, step);
}

QDateTime Journal::lastMoment(DatabaseSession& session)
{
    const auto last = HeldRows(session).read(u"SELECT Moment FROM Journal ORDER BY Number DESC LIMIT 1"_s);
    if (last.empty()) return {};
    return QDateTime::fromString(textOf(last.front(), u"Moment"), momentForm);
}

qint64 Journal::largestIdentifier(DatabaseSession& session, const QString& table)
{
    if (!session.keepsJournal()) return 0;
    const auto rows = HeldRows(session).read(
        u"SELECT ifnull(max(Identifier), 0) AS Largest FROM Journal WHERE Kind = ?"_s, {table});
    return wholeNumberOf(rows.front(), u"Largest");
}

JournalAction Journal::actionBetween(RecordKind kind, const Snapshot& before, const Snapshot& after)
{
    const RecordParts& record = recordParts(kind);
    const auto isDeleted = [&record](const Snapshot& snapshot) {
        const std::vector<HeldRow>& rows = snapshot.rows(record.names.record);
        if (rows.empty()) return true;
        const auto* status = std::get_if<QString>(&valueOf(rows.front(), record.statusColumn));
        return status != nullptr && status->compare(u"DELETED", Qt::CaseInsensitive) == 0;
    };
    if (before.rows(record.names.record).empty()) return JournalAction::Add;
    if (isDeleted(before) == isDeleted(after)) return JournalAction::Change;
    return isDeleted(after) ? JournalAction::Delete : JournalAction::Restore;
}

QString Journal::wordOf(JournalAction action)
{
    for (const auto& [each, word] : words)
        if (each == action) return word.toString();
    return {};
}

std::optional<JournalAction> Journal::actionOf(const QString& text)
{
    for (const auto& [action, word] : words)
        if (text == word) return action;
    return std::nullopt;
}
