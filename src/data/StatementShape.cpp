// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/StatementShape.h"

#include "data/SqlLexer.h"
#include "util/DateTimeText.h"
#include "util/Error.h"

namespace {

/// Tells a day, a time of day and both together apart, as comparisons with a moment do.
QChar kindOf(const QString& held)
{
    if (held.contains(u' ')) return u'm';
    return held.contains(u':') ? u't' : u'd';
}

void addDate(StatementShape& shape, QStringView literal)
{
    const QString held = DateTimeText::heldFromLiteral(literal);
    const QString compared = comparedDate(held);
    auto number = shape.dates.indexOf(compared);
    if (number < 0) {
        number = shape.dates.size();
        shape.dates << compared;
    }
    shape.text += u'#' + QString::number(number) + kindOf(held) + u'#';
}

StatementShape readShape(QStringView statement)
{
    StatementShape shape;
    shape.text.reserve(statement.size());
    const QChar* copied = statement.begin();
    SqlLexer lexer(statement);
    while (const auto lexeme = lexer.next()) {
        if (lexeme->kind != SqlLexeme::Kind::Date) continue;
        shape.text += QStringView(copied, lexeme->text.begin());
        addDate(shape, lexeme->text.sliced(1, lexeme->text.size() - 2));
        copied = lexeme->text.end();
    }
    shape.text += QStringView(copied, statement.end());
    return shape;
}

} // namespace

QString comparedDate(const QString& held)
{
    return held.endsWith(QStringLiteral(" 00:00:00")) ? held.left(10) : held;
}

std::optional<StatementShape> shapeOf(const QString& statement)
{
    try {
        return readShape(statement);
    } catch (const Error&) {
        return std::nullopt;
    }
}
