// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/RecordVersions.h"

#include "data/DatabaseSession.h"
#include "history/HistoryTexts.h"
#include "journal/FormerFiles.h"
#include "journal/Journal.h"
#include "journal/RecordParts.h"
#include "util/DateTimeText.h"

#include <limits>

using namespace Qt::StringLiterals;
using Source = RecordVersion::Source;

namespace {

constexpr qint64 portion = 50;

QString programMoment(const QString& held)
{
    return DateTimeText::programFromHeldDateTime(held.toStdString());
}

VersionOrigin originOf(const QString& word)
{
    switch (Journal::actionOf(word).value_or(JournalAction::Change)) {
    case JournalAction::Add:
        return VersionOrigin::Added;
    case JournalAction::Delete:
        return VersionOrigin::Deleted;
    case JournalAction::Restore:
        return VersionOrigin::Restored;
    default:
        return VersionOrigin::Changed;
    }
}

QString wordOf(VersionOrigin origin)
{
    switch (origin) {
    case VersionOrigin::Added:
        return HistoryTexts::tr("Added");
    case VersionOrigin::Changed:
        return HistoryTexts::tr("Changed");
    case VersionOrigin::Deleted:
        return HistoryTexts::tr("Deleted");
    case VersionOrigin::Restored:
        return HistoryTexts::tr("Restored");
    case VersionOrigin::Saved:
        return HistoryTexts::tr("Saved");
    case VersionOrigin::ChangedElsewhere:
        return HistoryTexts::tr("Changed elsewhere");
    case VersionOrigin::FirstKnown:
        break;
    }
    return HistoryTexts::tr("First known");
}

} // namespace

QString RecordVersion::what() const
{
    const QString word = wordOf(origin);
    if (isRedo) return HistoryTexts::tr("%1 (redo)").arg(word);
    return isUndo ? HistoryTexts::tr("%1 (undo)").arg(word) : word;
}

RecordVersions::RecordVersions(DatabaseSession& session, RecordKind kind, qint64 identifier)
    : m_session(session),
      m_kind(kind),
      m_identifier(identifier),
      m_fields(kind),
      m_present(Snapshots::ofRecord(session, kind, identifier))
{
    if (kind == RecordKind::Organization && session.keepsJournal())
        m_charts = FormerFiles::replacements(session, identifier);
    RecordVersion present;
    present.source = Source::Present;
    m_reached = Reached{Snapshots::toJson(m_present), present};
    findMore();
}

void RecordVersions::findMore()
{
    std::vector<HeldRow> rows;
    if (m_session.keepsJournal()) {
        rows = HeldRows(m_session).read(u"SELECT Number, Moment, What, Before, After, Reverses, (SELECT "
                                        u"Other.Reverses FROM Journal AS Other "
                                        "WHERE Other.Number = Journal.Reverses) AS Reversed FROM Journal "
                                        "WHERE Kind = ? AND Identifier = ? "
                                        "AND Number < ? ORDER BY Number DESC LIMIT ?"_s,
                                        {recordNames(m_kind).record, m_identifier,
                                         m_lastNumber.value_or(std::numeric_limits<qint64>::max()), portion});
    }
    for (const HeldRow& row : rows)
        addJournalRow(row);
    m_hasMore = static_cast<qint64>(rows.size()) == portion;
    if (!m_hasMore) addHistory();
}

void RecordVersions::addJournalRow(const HeldRow& row)
{
    const Value& before = valueOf(row, u"Before");
    const Value& after = valueOf(row, u"After");
    addElsewhere(after);
    RecordVersion version;
    version.origin = originOf(textOf(row, u"What"));
    version.isRedo = !isNull(valueOf(row, u"Reversed"));
    version.isUndo = !version.isRedo && !isNull(valueOf(row, u"Reverses"));
    m_firstMoment = textOf(row, u"Moment");
    version.moment = programMoment(m_firstMoment);
    version.number = wholeNumberOf(row, u"Number");
    // of a record that is gone with its rows, the version shows what went
    version.source = isNull(after) ? Source::JournalBefore : Source::JournalAfter;
    m_found.push_back(version);
    m_lastNumber = version.number;
    version.origin = VersionOrigin::ChangedElsewhere;
    version.isUndo = version.isRedo = false;
    version.moment.clear();
    version.source = Source::JournalBefore;
    m_reached.reset();
    if (!isNull(before)) m_reached = Reached{before, version};
}

/// Adds the state that was found next, if it is not what the older change left behind.
void RecordVersions::addElsewhere(const Value& after)
{
    if (!m_reached || areAlike(after, m_reached->json)) return;
    m_reached->version.origin = VersionOrigin::ChangedElsewhere;
    m_found.push_back(m_reached->version);
}

/// Whether users see no difference. Only texts that differ are taken apart.
bool RecordVersions::areAlike(const Value& older, const Value& newer) const
{
    if (older == newer) return true;
    if (isNull(older) || isNull(newer)) return false;
    return m_fields.differences({Snapshots::fromJson(older), true}, {Snapshots::fromJson(newer), true})
        .isEmpty();
}

/// Adds what was before the journal. The oldest state that is known as a whole is mostly that of the newest
/// row of the history table, which then only adds its moment.
void RecordVersions::addHistory()
{
    if (!m_reached) return;
    std::vector<HeldRow> rows = historyRows();
    RecordVersion oldest = m_reached->version;
    oldest.origin = rows.empty() ? VersionOrigin::FirstKnown : VersionOrigin::ChangedElsewhere;
    std::size_t first = 0;
    if (!rows.empty()) {
        const VersionContent newest = historyContent(wholeNumberOf(rows.front(), u"Number"));
        const VersionContent reached{Snapshots::fromJson(m_reached->json), true};
        const std::vector<ComparedField> compared = m_fields.compare(newest, reached);
        const bool isDeletion = std::all_of(compared.begin(), compared.end(), [](const ComparedField& each) {
            return each.field.form == FieldForm::Status || !each.isDifferent();
        });
        if (m_fields.differences(newest, reached).isEmpty()) {
            oldest.origin = VersionOrigin::Saved;
            oldest.moment = programMoment(textOf(rows.front(), u"UpdateTime"));
            first = 1;
        } else if (isDeletion) {
            oldest.origin = VersionOrigin::Deleted; // which adds no row to the history table
        }
    }
    m_found.push_back(oldest);
    for (std::size_t i = first; i < rows.size(); ++i) {
        RecordVersion version;
        version.origin = VersionOrigin::Saved;
        version.moment = programMoment(textOf(rows[i], u"UpdateTime"));
        version.source = Source::History;
        version.number = wholeNumberOf(rows[i], u"Number");
        m_found.push_back(version);
    }
    m_reached.reset();
}

/// The rows of the history table of before the journal, newest first.
std::vector<HeldRow> RecordVersions::historyRows() const
{
    const RecordNames names = recordNames(m_kind);
    QString statement =
        u"SELECT rowid AS Number, UpdateTime FROM %1_HIST WHERE %2 = ?"_s.arg(names.record, names.key);
    std::vector<Value> values{m_identifier};
    if (!m_firstMoment.isEmpty()) {
        statement += u" AND ifnull(UpdateTime, '') < ?"_s;
        values.emplace_back(m_firstMoment);
    }
    return HeldRows(m_session).read(statement + u" ORDER BY UpdateTime DESC, rowid DESC"_s, values);
}

/// A row of the history table with the names that its keys have now, without what no save writes there.
VersionContent RecordVersions::historyContent(qint64 number) const
{
    const RecordParts& record = recordParts(m_kind);
    const QString history = record.names.record + u"_HIST"_s;
    QString columns = history + u".*"_s;
    QString joins;
    for (std::size_t i = 0; i < record.keys.size(); ++i) {
        const NamedKey& key = record.keys[i];
        const QString other = u"named%1"_s.arg(i);
        columns += u", %1.%2"_s.arg(other, key.nameColumn);
        joins += u" LEFT JOIN %1 AS %2 ON %2.%3 = %4.%5"_s.arg(key.table, other, key.keyColumn, history,
                                                               key.column);
    }
    VersionContent content;
    content.isWhole = false;
    std::vector<HeldRow> rows = HeldRows(m_session).read(
        u"SELECT %1 FROM %2%3 WHERE %2.rowid = ?"_s.arg(columns, history, joins), {number});
    if (!rows.empty()) content.snapshot.tables[record.names.record] = std::move(rows);
    return content;
}

VersionContent RecordVersions::content(std::size_t index) const
{
    const RecordVersion& version = m_found.at(index);
    if (version.source == Source::Present) return {m_present, true, std::nullopt};
    if (version.source == Source::History) return historyContent(version.number);
    const bool isAfter = version.source == Source::JournalAfter;
    const auto rows = HeldRows(m_session).read(
        u"SELECT %1 AS State FROM Journal WHERE Number = ?"_s.arg(isAfter ? u"After"_s : u"Before"_s),
        {version.number});
    VersionContent content{rows.empty() ? Snapshot() : Snapshots::fromJson(valueOf(rows.front(), u"State")),
                           true, isAfter ? version.number : version.number - 1};
    const auto replaced = m_charts.upper_bound(*content.journalNumber);
    if (replaced != m_charts.end()) content.chart = replaced->second;
    return content;
}

QStringList RecordVersions::changedFields(std::size_t index)
{
    while (index + 1 >= m_found.size() && m_hasMore)
        findMore();
    if (index + 1 >= m_found.size()) return {};
    // rows are mostly asked for one after the other, and the one below is the next
    const bool isKnown = m_compared && m_compared->first == index;
    const VersionContent newer = isKnown ? std::move(m_compared->second) : content(index);
    m_compared.emplace(index + 1, content(index + 1));
    return m_fields.differences(m_compared->second, newer);
}
