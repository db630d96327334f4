// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/HeldRows.h"
#include "history/ComparedFields.h"

#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <vector>

/// How a version came about.
enum class VersionOrigin
{
    Added,
    Changed,
    Deleted,
    Restored,
    Saved,            ///< of before the journal, with the moment of a save
    ChangedElsewhere, ///< by another program, or with a list that the record uses
    FirstKnown        ///< nothing is known of how it came about
};

/// A version of a record, without what it holds.
struct RecordVersion
{
    /// Where its content is read from.
    enum class Source
    {
        JournalAfter,
        JournalBefore,
        History, ///< a row of the history table
        Present  ///< the record as it is
    };

    VersionOrigin origin = VersionOrigin::FirstKnown;
    bool isUndo = false;
    bool isRedo = false;
    QString moment; ///< in program form; empty if it is not known
    Source source = Source::Present;
    qint64 number = 0; ///< of the row of the journal or of the history table

    /// What the user reads of how it came about.
    [[nodiscard]] QString what() const;
};

/// The versions of one record, newest first: those of the journal, before them those of the history table.
/// There is at least one, the record as it is.
///
/// Versions are found in portions and their content is read when it is asked for, so that a record with
/// a long past opens at once. The session must outlive it. Every failure is an Error.
class RecordVersions
{
public:
    /// Finds the first portion.
    RecordVersions(DatabaseSession& session, RecordKind kind, qint64 identifier);

    /// Those found so far.
    [[nodiscard]] const std::vector<RecordVersion>& found() const { return m_found; }

    [[nodiscard]] bool hasMore() const { return m_hasMore; }
    void findMore();

    [[nodiscard]] VersionContent content(std::size_t index) const;

    /// The captions of the fields in which a version differs from the one before it; finds that one if need
    /// be. None for the first version of all.
    [[nodiscard]] QStringList changedFields(std::size_t index);

    /// The record as it was when its versions were first looked for.
    [[nodiscard]] const Snapshot& present() const { return m_present; }

    [[nodiscard]] RecordKind kind() const { return m_kind; }
    [[nodiscard]] qint64 identifier() const { return m_identifier; }
    [[nodiscard]] const ComparedFields& fields() const { return m_fields; }

private:
    /// A state of the record to which an older version has to lead.
    struct Reached
    {
        Value json;
        RecordVersion version; ///< what it is if nothing leads to it
    };

    void addJournalRow(const HeldRow& row);
    void addElsewhere(const Value& after);
    void addHistory();
    [[nodiscard]] bool areAlike(const Value& older, const Value& newer) const;
    [[nodiscard]] std::vector<HeldRow> historyRows() const;
    [[nodiscard]] VersionContent historyContent(qint64 number) const;

    DatabaseSession& m_session;
    RecordKind m_kind;
    qint64 m_identifier;
    ComparedFields m_fields;
    Snapshot m_present;
    std::map<qint64, QString> m_charts; ///< of an organization: see FormerFiles::replacements
    std::vector<RecordVersion> m_found;
    std::optional<Reached> m_reached;   ///< std::nullopt if the oldest version found is the addition
    std::optional<qint64> m_lastNumber; ///< of the journal's row found last
    std::optional<std::pair<std::size_t, VersionContent>> m_compared; ///< the version compared with last
    QString m_firstMoment; ///< held form: that of the oldest row of the journal; empty if there is none
    bool m_hasMore = true;
};
