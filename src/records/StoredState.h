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
    const char* caption; ///< to be translated in the context `RecordColumns`
    Value value;
};

/// The fields of a record in the order in which they are written.
using FieldValues = std::vector<FieldValue>;

/// What a record held when somebody looked: its fields with those of its links, and its status.
struct RecordView
{
    FieldValues fields;
    QString status;
};

/// What the file held of a record when its editor read it.
struct StoredState
{
    RecordTable row;     ///< to the letter, so that what the user did not change can stay as it is
    RecordTable profile; ///< of an organization; no row if it has none

    /// What the user last knew the file to hold, own saves included. What differs from it, somebody else
    /// changed.
    RecordView known;
};

/// A record that was changed or deleted by somebody else after its editor read it.
struct RecordConflict
{
    QStringList fields; ///< what differs, as its user calls it
    bool isDeleted = false;
    RecordView found; ///< what the file holds now
};

inline const QString activeStatus = QStringLiteral("ACTIVE");
inline const QString deletedStatus = QStringLiteral("DELETED");

/// How a save leaves alone what its user did not change.
namespace StoredStates {

/// Gives the fields that hold what was read the stored value again: the editor may know one key, one letter
/// case or one kind of "nothing" only. `read` holds the same fields as they were read from `row`; if there
/// is no row, nothing is given back.
void keepUnchanged(FieldValues& fields, const FieldValues& read, const RecordTable& row);

/// Sets the columns of the current row that hold something else.
void setDiffering(EditableRecordSet& rows, const FieldValues& fields);

/// Whether somebody else was there since the user last knew; `std::nullopt` for a record that was not read.
[[nodiscard]] std::optional<RecordConflict> conflict(const std::optional<StoredState>& stored,
                                                     RecordView found);

/// The life-cycle status for the history of a record that has the given one: a deleted record stays deleted.
[[nodiscard]] QString historyStatus(const Value& status);

/// Lets the end of a save, whether it succeeded or failed half-way, be what the user last knew the file to
/// hold: nobody is told of changes of their own. `find` returns a RecordView of what the file holds then.
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
        } catch (const Error&) {
            // the error that led here is the one the user sees
        }
    }

private:
    std::optional<StoredState>& m_stored;
    Find m_find;
};

} // namespace StoredStates
