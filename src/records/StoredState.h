// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/EditableRecordSet.h"
#include "data/RecordSet.h"
#include "data/Value.h"
#include "util/Error.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// One field of a record: the column it is written to, what its user calls it, and what it holds.
struct FieldValue
{
    QStringView column;  ///< of a literal or a table of links, which outlive the value
    const char* caption; ///< to be translated by RecordsTexts
    Value value;
};

/// The fields of a record in the order in which they are written.
using FieldValues = std::vector<FieldValue>;

/// What a record held at one moment: its fields with those of its links, and its status.
struct RecordView
{
    FieldValues fields;
    QString status;
};

/// What the file held of a record when its editor read it.
struct StoredState
{
    RecordTable row;     ///< as stored, so that what the user did not change can stay as it is
    RecordTable profile; ///< of an organization; no row if it has none

    /// What the user last knew the file to hold, own saves included. Whatever differs was changed by another
    /// program.
    RecordView known;
};

/// A record that another program changed or deleted after its editor read it.
struct RecordConflict
{
    QStringList fields; ///< what differs, as the user calls it
    bool isDeleted = false;
    RecordView found; ///< what the file holds now
};

inline const QString activeStatus = QStringLiteral("ACTIVE");
inline const QString deletedStatus = QStringLiteral("DELETED");

/// How a save leaves alone what the user did not change.
namespace StoredStates {

/// Restores the stored value of each field that holds what was read: an editor cannot show every key, letter
/// case or kind of empty value. `read` holds the same fields as they were read from `row`; without a row,
/// nothing is restored.
void keepUnchanged(FieldValues& fields, const FieldValues& read, const RecordTable& row);

/// Sets the columns of the current row whose values differ.
void setDiffering(EditableRecordSet& rows, const FieldValues& fields);

/// What differs between what the user last knew and what was found; std::nullopt if nothing does or if the
/// record was not read.
[[nodiscard]] std::optional<RecordConflict> conflict(const std::optional<StoredState>& stored,
                                                     RecordView found);

/// The status for the history of a record with the given status: a deleted record stays deleted.
[[nodiscard]] QString historyStatus(const Value& status);

/// After a save, successful or not, notes what the file holds now as known to the user, so that users are not
/// warned of changes of their own. `find` returns that RecordView.
template <typename Find>
class KnownAfterSave
{
public:
    KnownAfterSave(std::optional<StoredState>& stored, Find find) : m_stored(stored), m_find(find) {}
    KnownAfterSave(const KnownAfterSave&) = delete;
    KnownAfterSave& operator=(const KnownAfterSave&) = delete;

    ~KnownAfterSave()
    {
        try {
            if (m_stored) m_stored->known = m_find();
        } catch (const std::exception&) {
            // the error that led here is the one the user sees
        }
    }

private:
    std::optional<StoredState>& m_stored;
    Find m_find;
};

} // namespace StoredStates
