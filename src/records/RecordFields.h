// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QString>
#include <QStringList>

#include <vector>

/// How the values of a field are kept and shown.
enum class FieldForm
{
    Text,
    Flag,
    Key, ///< of a row elsewhere, whose name is what users see
    Date,
    Time,
    Status,
    Links,    ///< the rows of a table of links
    Settings, ///< the same with a row for every entry, of which those count whose setting is 1
};

/// A field of a record as its editor shows it.
struct RecordField
{
    QString table;
    QString column;  ///< of links, the one with their keys
    QString caption; ///< what its user calls it
    FieldForm form = FieldForm::Text;
    bool isInHistory = false;    ///< whether every save copies it to the history table
    bool hasPlaceholder = false; ///< whether an empty list of links is kept as a link to "None"
};

/// What users see of the records of a kind.
struct RecordFields
{
    std::vector<RecordField> fields; ///< the status last
    QStringList hidden;              ///< the columns of the main table that no user sees
};

/// The fields of a kind in the order of its columns and links. Translated, so not to be asked for before the
/// translation is installed.
[[nodiscard]] RecordFields recordFields(RecordKind kind);

/// What users read in place of what the file holds.
namespace FieldTexts {

[[nodiscard]] QString flag(bool isSet);

/// A value of a field that holds neither a key nor links.
[[nodiscard]] QString shown(FieldForm form, const QString& held);

/// The name of what a key stands for if that has none.
[[nodiscard]] QString withoutName(qint64 key);

} // namespace FieldTexts
