// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/Value.h"

#include <QString>

#include <functional>
#include <utility>
#include <vector>

class DatabaseSession;
class EngineStatement;

/// A row as the file holds it: the names of its columns with their values, dates and times in held form.
/// Bytes, which only imported columns hold, are left out.
using HeldRow = std::vector<std::pair<QString, Value>>;

/// The value of a column, in any letter case; null if there is no such column.
[[nodiscard]] const Value& valueOf(const HeldRow& row, QStringView column);

/// The same if it is a whole number or a text; else 0, or an empty text.
[[nodiscard]] qint64 wholeNumberOf(const HeldRow& row, QStringView column);
[[nodiscard]] QString textOf(const HeldRow& row, QStringView column);

/// Reads and writes rows exactly as the file holds them, by statements of SQLite with values for their `?`.
/// What the session refuses to any statement it refuses to these, too. Every failure is an Error.
class HeldRows
{
public:
    /// The session must outlive it.
    explicit HeldRows(DatabaseSession& session) : m_session(session) {}

    [[nodiscard]] std::vector<HeldRow> read(const QString& engineStatement,
                                            const std::vector<Value>& values = {}) const;

    /// Hands over the rows one by one: for many rows of which no copy is needed.
    void readEach(const QString& engineStatement, const std::vector<Value>& values,
                  const std::function<void(const EngineStatement& row)>& take) const;

    /// Returns the number of rows changed.
    int write(const QString& engineStatement, const std::vector<Value>& values = {}) const;

private:
    DatabaseSession& m_session;
};
