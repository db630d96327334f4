// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/MomentCondition.h"

#include "util/DateTimeText.h"

#include <QStringList>

namespace {

constexpr int heldDateLength = 10;

/// As many digits as the number of days between the first and the last year that the data can hold.
constexpr int mostDigits = 7;

/// Reads tokens one after the other. After one that was not expected, everything that it returns is empty.
class Reader
{
public:
    Reader(const std::vector<SqlToken>& tokens, std::size_t begin, std::size_t end)
        : m_tokens(tokens), m_at(begin), m_end(end)
    {
    }

    [[nodiscard]] bool isGood() const { return m_good; }
    [[nodiscard]] bool isAtEnd() const { return m_good && m_at == m_end; }
    [[nodiscard]] std::size_t position() const { return m_at; }

    void symbol(QStringView symbol)
    {
        if (const SqlToken* token = next(); token != nullptr && !token->isSymbol(symbol)) m_good = false;
    }

    void word(QStringView word)
    {
        if (const SqlToken* token = next(); token != nullptr && !token->isWord(word)) m_good = false;
    }

    QString anySymbol() { return textOf(SqlToken::Kind::Symbol); }

    QString literal()
    {
        const QString text = textOf(SqlToken::Kind::Date);
        return m_good ? DateTimeText::heldFromLiteral(text) : QString();
    }

    MomentComparison::Name name()
    {
        const QString first = textOf(SqlToken::Kind::Word);
        if (m_at >= m_end || !m_tokens[m_at].isSymbol(u".")) return {{}, first};
        ++m_at;
        return {first, textOf(SqlToken::Kind::Word)};
    }

    /// Returns the position of the parenthesis that closes the one just read, and moves past it.
    std::size_t closing()
    {
        int depth = 1;
        for (; m_good && m_at < m_end; ++m_at) {
            if (m_tokens[m_at].isSymbol(u"(")) ++depth;
            if (m_tokens[m_at].isSymbol(u")") && --depth == 0) return m_at++;
        }
        m_good = false;
        return m_end;
    }

private:
    const SqlToken* next()
    {
        if (!m_good || m_at >= m_end) {
            m_good = false;
            return nullptr;
        }
        return &m_tokens[m_at++];
    }

    QString textOf(SqlToken::Kind kind)
    {
        const SqlToken* token = next();
        if (token == nullptr || token->kind != kind) {
            m_good = false;
            return {};
        }
        return token->text;
    }

    const std::vector<SqlToken>& m_tokens;
    std::size_t m_at;
    std::size_t m_end;
    bool m_good = true;
};

bool same(const MomentComparison::Name& a, const MomentComparison::Name& b)
{
    return a.qualifier.compare(b.qualifier, Qt::CaseInsensitive) == 0 &&
           a.column.compare(b.column, Qt::CaseInsensitive) == 0;
}

bool isTime(const QString& held)
{
    return held.size() > 2 && held[2] == u':';
}

/// No event that runs on a day can have started before this one if the number of its days has so many digits.
QString earliestStart(const QString& day, int digits)
{
    // SQLite has no dates as early as that would be
    if (digits == mostDigits) return QStringLiteral("''");
    return QStringLiteral("date(%1, '-%2 days')").arg(day, QString(digits, u'9'));
}

} // namespace

QString MomentComparison::sql(const QString& dayExpression, const QString& timeExpression,
                              const QString& dayLiteral, const QString& timeLiteral) const
{
    const QString beyond = isAfter ? QStringLiteral(">") : QStringLiteral("<");
    const QString timeOperator = isInclusive ? beyond + u'=' : beyond;
    return QStringLiteral("%1 %2= %3 AND (%1 %2 %3 OR ifnull(%4, '00:00') %5 %6)")
        .arg(dayExpression, beyond, dayLiteral, timeExpression, timeOperator, timeLiteral);
}

std::optional<MomentComparison> readMomentComparison(const std::vector<SqlToken>& tokens, std::size_t begin,
                                                     std::size_t end)
{
    Reader reader(tokens, begin, end);
    MomentComparison comparison;
    reader.symbol(u"(");
    comparison.dayColumn = reader.name();
    const QString beyond = reader.anySymbol();
    comparison.isAfter = beyond == u">";
    if (!comparison.isAfter && beyond != u"<") return std::nullopt;
    comparison.day = reader.literal();
    reader.symbol(u")");
    reader.word(u"OR");
    reader.symbol(u"(");
    const MomentComparison::Name again = reader.name();
    reader.symbol(u"=");
    const QString sameDay = reader.literal();
    reader.word(u"AND");
    comparison.timeColumn = reader.name();
    const QString timeOperator = reader.anySymbol();
    comparison.isInclusive = timeOperator == beyond + u'=';
    comparison.time = reader.literal();
    reader.symbol(u")");
    if (!reader.isAtEnd() || !same(again, comparison.dayColumn) || sameDay != comparison.day)
        return std::nullopt;
    if (!comparison.isInclusive && timeOperator != beyond) return std::nullopt;
    if (comparison.day.size() != heldDateLength || !isTime(comparison.time)) return std::nullopt;
    return comparison;
}

std::optional<RunningCondition> readRunningCondition(const std::vector<SqlToken>& tokens, std::size_t begin,
                                                     std::size_t end)
{
    Reader reader(tokens, begin, end);
    reader.symbol(u"(");
    const std::size_t started = reader.position();
    const std::size_t startedEnd = reader.closing();
    reader.word(u"AND");
    reader.symbol(u"(");
    const std::size_t ended = reader.position();
    const std::size_t endedEnd = reader.closing();
    if (!reader.isAtEnd()) return std::nullopt;
    const auto first = readMomentComparison(tokens, started, startedEnd);
    const auto second = readMomentComparison(tokens, ended, endedEnd);
    if (!first || !second || first->isAfter || !second->isAfter) return std::nullopt;
    return RunningCondition{*first, *second};
}

namespace EventsByLength {

QString candidates(const QString& startedBy, const QString& endedFrom)
{
    QStringList reaches;
    for (int digits = 1; digits <= mostDigits; ++digits)
        reaches << QStringLiteral("(%1, %2)").arg(QString::number(digits), earliestStart(endedFrom, digits));
    return QStringLiteral("SELECT e.EventID FROM (VALUES %1) AS reach CROSS JOIN Event AS e "
                          "WHERE length(CAST(julianday(e.EndDate) - julianday(e.StartDate) AS INTEGER)) = "
                          "reach.column1 AND e.StartDate BETWEEN reach.column2 AND %2 AND e.EndDate >= %3")
        .arg(reaches.join(QStringLiteral(", ")), startedBy, endedFrom);
}

} // namespace EventsByLength
