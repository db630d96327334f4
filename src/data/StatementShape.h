// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// What is left of a statement if the dates and times between its `#` are taken out. Statements of one
/// shape become the same statement for SQLite, with other values.
struct StatementShape
{
    QString text; ///< with a number and a kind in place of each literal; equal literals have equal numbers
    QStringList dates; ///< the literals, each once, as they are compared; the first has the number 0
};

/// Returns std::nullopt for a statement that cannot be read; the translator tells why.
[[nodiscard]] std::optional<StatementShape> shapeOf(const QString& statement);

/// The form in which a literal in held form is compared: a day at midnight is compared as the day alone, as
/// columns of days hold it.
[[nodiscard]] QString comparedDate(const QString& held);
