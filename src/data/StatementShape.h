#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// What is left of a statement when the dates and times between its `#` are taken out. Statements of one
/// shape become the same statement of the engine, with other values.
struct StatementShape
{
    QString text;      ///< with a number and a kind where a literal was; equal literals have equal numbers
    QStringList dates; ///< the literals, each once, as they are compared; the first has the number 0
};

/// Nothing where a literal is none, which is for the translator to say.
[[nodiscard]] std::optional<StatementShape> shapeOf(const QString& statement);

/// What a literal is compared as, from its held form. Midnight is no part of a column that holds days alone.
[[nodiscard]] QString comparedDate(const QString& held);
