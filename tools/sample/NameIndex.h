// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "SourceTable.h"

#include <QHash>
#include <QString>

#include <set>

/// The names of one table and their identifiers. Names are unique: a source row refers to a record by its
/// name alone. The reserved row 1, "None", is always there.
class NameIndex
{
public:
    /// `kind` is the word for messages, such as "organization".
    explicit NameIndex(QString kind);

    /// Takes the next identifier for the name, from 2 on. A name that is taken stops the work.
    qint64 add(const QString& name, const SourceRow& row);

    /// The identifier; a name that is not there stops the work.
    [[nodiscard]] qint64 find(const QString& name, const SourceRow& row) const;

    /// As find() for each part of a list column.
    [[nodiscard]] std::set<qint64> findAll(const QString& column, const SourceRow& row) const;

    /// The highest identifier in use.
    [[nodiscard]] qint64 last() const { return m_last; }

private:
    QString m_kind;
    QHash<QString, qint64> m_identifiers;
    qint64 m_last = 1;
};
