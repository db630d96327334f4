#pragma once

#include <QString>

#include <cstdint>
#include <limits>

/// What an editor was opened for. Goes from View to Edit by the Edit button, else stays.
enum class EditorMode
{
    Add,
    Edit,
    View
};

/// A value that a caller hands over to an editor that adds a record: the record to link it to.
struct clsFieldInfo
{
    QString FieldName; ///< the kind of the record: `ORGANIZATION` or `DOCUMENT`
    qint64 FieldID = 0;
    QString FieldText; ///< what is shown for it
};

inline const QString documentKindWord = QStringLiteral("DOCUMENT");
inline const QString organizationKindWord = QStringLiteral("ORGANIZATION");

/// A field that fails its check, and what the user is told.
template <typename Field>
struct FieldProblem
{
    Field field;
    QString message;
};

/// A record as read for an editor. Where it was not found, its own fields are empty, but its links are read.
template <typename Record>
struct LoadedRecord
{
    Record record;
    bool isFound = false;
};
