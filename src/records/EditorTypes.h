// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <cstdint>
#include <limits>

/// What an editor was opened for. The Edit button turns View into Edit; nothing else changes it.
enum class EditorMode
{
    Add,
    Edit,
    View
};

/// The record that a new one is to be linked to, handed over to its editor.
struct clsFieldInfo
{
    QString FieldName; ///< the kind of the record: `ORGANIZATION` or `DOCUMENT`
    qint64 FieldID = 0;
    QString FieldText; ///< what is shown for it
};

inline const QString documentKindWord = QStringLiteral("DOCUMENT");
inline const QString organizationKindWord = QStringLiteral("ORGANIZATION");

/// A field that fails its check, and the message about it.
template <typename Field>
struct FieldProblem
{
    Field field;
    QString message;
};

/// A record as read for an editor. If it was not found, its own fields are empty, but its links are read.
template <typename Record>
struct LoadedRecord
{
    Record record;
    bool isFound = false;
};
