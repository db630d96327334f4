// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <array>

/// The kinds of record that a collection keeps.
enum class RecordKind
{
    Document,
    Event,
    Organization
};

/// Every kind, in the order in which a search of all shows them.
inline constexpr std::array recordKinds{RecordKind::Document, RecordKind::Event, RecordKind::Organization};

/// What the tables call a kind of record.
struct RecordNames
{
    QString record; ///< the table, and the word for one record
    QString key;    ///< the column with the identifier
    QString name;   ///< the column with the title or name
};

RecordNames recordNames(RecordKind kind);
