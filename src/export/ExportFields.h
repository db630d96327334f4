// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "journal/RecordParts.h"
#include "records/RecordFields.h"

#include <optional>
#include <vector>

class DatabaseSession;

/// A field of an exported record: one that its editor shows, one that an import brought along, or the records
/// of another kind that link to it.
struct ExportField
{
    RecordField field;
    std::optional<NamedKey> named;    ///< where the names of a key or of links are
    QString recordColumn;             ///< of links and of the profile: the column with the record's key
    std::optional<RecordKind> target; ///< what links lead to, if those are records
    QString fileColumn = {};          ///< the column as the file writes its name

    [[nodiscard]] bool hasLinks() const
    {
        return field.form == FieldForm::Links || field.form == FieldForm::Settings;
    }

    /// Its name for other programs: the column or, of links, their table.
    [[nodiscard]] const QString& member() const { return hasLinks() ? field.table : fileColumn; }
};

/// All fields of a kind that the open file has, in the order of the editor, without the status; then the
/// records that link to it.
[[nodiscard]] std::vector<ExportField> exportFields(const DatabaseSession& session, RecordKind kind);

/// What users call the records of a kind, such as "Documents".
[[nodiscard]] QString titleOf(RecordKind kind);

/// The position of the field with that name for other programs, in any letter case; std::nullopt if the file
/// has none.
[[nodiscard]] std::optional<std::size_t> fieldNamed(const std::vector<ExportField>& fields,
                                                    QStringView member);
