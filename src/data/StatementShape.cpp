#include "data/StatementShape.h"

#include "util/DateTimeText.h"
#include "util/Error.h"

namespace {

/// Of a day, of a time of day or of both: they are told apart where a moment is compared.
QChar kindOf(const QString& held)
{
    if (held.contains(u' ')) return u'm';
    return held.contains(u':') ? u't' : u'd';
}

/// The end of the text that begins at a quote, past the other one. A doubled quote ends one text and begins
/// another, which comes to the same.
qsizetype pastText(const QString& statement, qsizetype begin)
{
    const auto end = statement.indexOf(statement[begin], begin + 1);
    return end < 0 ? statement.size() : end + 1;
}

void addDate(StatementShape& shape, const QString& literal)
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

} // namespace

QString comparedDate(const QString& held)
{
    return held.endsWith(QStringLiteral(" 00:00:00")) ? held.left(10) : held;
}

std::optional<StatementShape> shapeOf(const QString& statement)
{
    StatementShape shape;
    shape.text.reserve(statement.size());
    qsizetype copied = 0;
    for (qsizetype at = 0; at < statement.size();) {
        const QChar c = statement[at];
        if (c == u'\'' || c == u'"') {
            at = pastText(statement, at);
        } else if (c == u'#') {
            const auto end = statement.indexOf(u'#', at + 1);
            if (end < 0) return std::nullopt;
            shape.text += QStringView(statement).sliced(copied, at - copied);
            try {
                addDate(shape, statement.sliced(at + 1, end - at - 1));
            } catch (const Error&) {
                return std::nullopt;
            }
            at = end + 1;
            copied = at;
        } else {
            ++at;
        }
    }
    shape.text += QStringView(statement).sliced(copied);
    return shape;
}
