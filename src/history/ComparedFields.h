// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "journal/Snapshot.h"
#include "records/RecordFields.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What a version of a record holds.
struct VersionContent
{
    Snapshot snapshot;

    /// Whether it is all that belonged to the record. Otherwise it is a row of the history table, which
    /// has no links, and fields that are not in it are not known.
    bool isWhole = true;

    /// The row of the journal after which the record was so; std::nullopt if it is so now, or if that is not
    /// known.
    std::optional<qint64> journalNumber = std::nullopt;

    /// What tells the content of an organization's chart from that of other versions; std::nullopt for the
    /// one that lies there now.
    std::optional<QString> chart = std::nullopt;
};

/// Something that a record is linked to, with the name that it had then.
struct NamedLink
{
    qint64 key;
    QString name;
};

/// What a version holds of a field, as users see it.
struct FieldContent
{
    QString text;                 ///< of a field that holds no links
    qint64 key = 0;               ///< of a field that holds a key
    std::vector<NamedLink> links; ///< each once, without a placeholder; of settings, those that are set
};

/// A field of two versions side by side.
struct ComparedField
{
    RecordField field;
    std::optional<FieldContent> older; ///< std::nullopt if the version does not hold the field
    std::optional<FieldContent> newer;

    /// Whether the two hold different things. What a key stands for may have got another name since.
    [[nodiscard]] bool isDifferent() const;

    [[nodiscard]] bool hasLinks() const
    {
        return field.form == FieldForm::Links || field.form == FieldForm::Settings;
    }
};

/// Compares versions of records of one kind, field by field, as users see them.
class ComparedFields
{
public:
    explicit ComparedFields(RecordKind kind) : m_kind(kind), m_known(recordFields(kind)) {}

    /// All fields in the order of the editor; columns that an import brought along follow under their own
    /// names.
    [[nodiscard]] std::vector<ComparedField> compare(const VersionContent& older,
                                                     const VersionContent& newer) const;

    /// The captions of the fields that differ, each once.
    [[nodiscard]] QStringList differences(const VersionContent& older, const VersionContent& newer) const;

    [[nodiscard]] const std::vector<RecordField>& known() const { return m_known.fields; }

private:
    void addOwnColumns(const VersionContent& version, std::vector<RecordField>& fields) const;
    [[nodiscard]] std::optional<FieldContent> contentOf(const RecordField& field,
                                                        const VersionContent& version) const;

    RecordKind m_kind;
    RecordFields m_known;
};
