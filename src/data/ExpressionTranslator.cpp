// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/ExpressionTranslator.h"

#include "data/DataTexts.h"
#include "data/LikePrefix.h"
#include "data/StatementShape.h"
#include "data/TextPairs.h"
#include "util/DateTimeText.h"

#include <algorithm>

namespace {

constexpr int deepestNesting = 50;
constexpr qsizetype longestChain = 200;

/// SQLite counts each OR of a chain as one level of depth, and bounds the depth. A search can name many more
/// places than that, so a long chain is halved until its pieces are short.
QString joinAlternatives(const QStringList& alternatives, qsizetype begin, qsizetype end)
{
    if (end - begin <= longestChain) {
        return alternatives.mid(begin, end - begin).join(QStringLiteral(" OR "));
    }
    const qsizetype middle = begin + (end - begin) / 2;
    return QStringLiteral("(%1) OR (").arg(joinAlternatives(alternatives, begin, middle)) +
           joinAlternatives(alternatives, middle, end) + u')';
}

} // namespace

QString ExpressionTranslator::expression(Span span, StatementScope& scope, Clause clause, int depth) const
{
    if (depth > deepestNesting) refuseStatement(DataTexts::tr("its parentheses are nested too deeply"));
    QStringList alternatives;
    QStringList parts;
    bool divisible = true;
    for (std::size_t i = span.begin; i < span.end;) {
        const SqlToken& token = m_tokens[i];
        divisible = divisible && !token.isSymbol(u",") && !token.isWord(u"CASE");
        if (divisible && token.isWord(u"OR")) {
            alternatives << parts.join(u' ');
            parts.clear();
            ++i;
            continue;
        }
        parts << part(i, span.end, scope, clause, depth);
    }
    alternatives << parts.join(u' ');
    return joinAlternatives(alternatives, 0, alternatives.size());
}

/// The translation of what stands at `i`, which moves past it.
QString ExpressionTranslator::part(std::size_t& i, std::size_t end, StatementScope& scope, Clause clause,
                                   int depth) const
{
    const SqlToken& token = m_tokens[i];
    switch (token.kind) {
    case SqlToken::Kind::Text:
        ++i;
        return quoteSqlText(token.text);
    case SqlToken::Kind::Date:
        ++i;
        return date(comparedDate(DateTimeText::heldFromLiteral(token.text)));
    case SqlToken::Kind::Number:
        ++i;
        return token.text;
    case SqlToken::Kind::Symbol:
        return symbol(i, end, scope, clause, depth);
    case SqlToken::Kind::Word:
        break;
    }
    if (m_tokens.clauseAt(i)) refuseToken(token);
    if (token.isWord(u"AS") && i + 1 < end) {
        i += 2;
        return QStringLiteral("AS ") + quoteSqlName(m_tokens[i - 1].text);
    }
    if (token.isKeyword()) {
        ++i;
        return token.text.toUpper();
    }
    if (m_tokens.isSymbolAt(i + 1, u"(") && i + 1 < end) return function(i, end, scope, clause, depth);
    return column(i, end, scope, clause, depth);
}

QString ExpressionTranslator::symbol(std::size_t& i, std::size_t end, StatementScope& scope, Clause clause,
                                     int depth) const
{
    const SqlToken& token = m_tokens[i];
    if (!token.isSymbol(u"(")) {
        ++i;
        return token.text;
    }
    const std::size_t close = m_tokens.closingParenthesis(i, end);
    const Span inner{i + 1, close};
    i = close + 1;
    const bool select = m_tokens.isWordAt(inner.begin, u"SELECT");
    if (select) return u'(' + m_subSelect(inner, scope, depth + 1) + u')';
    auto condition = momentCondition(inner, scope);
    if (!condition && clause == Clause::Where) condition = pairCondition(inner, scope);
    return u'(' + (condition ? *condition : expression(inner, scope, clause, depth + 1)) + u')';
}

/// A comparison with a moment; std::nullopt if the tokens are something else.
std::optional<QString> ExpressionTranslator::momentCondition(Span span, StatementScope& scope) const
{
    if (const auto comparison = readMomentComparison(m_tokens.all(), span.begin, span.end)) {
        return comparedSql(*comparison, scope);
    }
    const auto running = readRunningCondition(m_tokens.all(), span.begin, span.end);
    if (!running) return std::nullopt;
    const auto started = comparedSql(running->started, scope);
    const auto ended = comparedSql(running->ended, scope);
    if (!started || !ended) return std::nullopt;
    return u'(' + *started + QStringLiteral(") AND (") + *ended + u')' + candidates(*running, scope);
}

/// A long chain of pairs of texts; std::nullopt if the tokens are something else.
std::optional<QString> ExpressionTranslator::pairCondition(Span span, StatementScope& scope) const
{
    const auto pairs = readTextPairs(m_tokens.all(), span.begin, span.end);
    if (!pairs) return std::nullopt;
    const ResolvedColumn first = scope.resolve(pairs->first.qualifier, pairs->first.column);
    const ResolvedColumn second = scope.resolve(pairs->second.qualifier, pairs->second.column);
    if (first.form != ColumnForm::Text || second.form != ColumnForm::Text) return std::nullopt;
    return pairs->sql(first.sql, second.sql);
}

/// A date as SQLite reads it.
QString ExpressionTranslator::date(const QString& compared) const
{
    const auto parameter = m_dates.indexOf(compared);
    return parameter < 0 ? quoteSqlText(compared) : u'?' + QString::number(parameter + 1);
}

std::optional<QString> ExpressionTranslator::comparedSql(const MomentComparison& comparison,
                                                         StatementScope& scope) const
{
    const ResolvedColumn day = scope.resolve(comparison.dayColumn.qualifier, comparison.dayColumn.column);
    const ResolvedColumn time = scope.resolve(comparison.timeColumn.qualifier, comparison.timeColumn.column);
    if (day.form != ColumnForm::Date || time.form != ColumnForm::Time) return std::nullopt;
    return comparison.sql(day.sql, time.sql, date(comparison.day), date(comparison.time));
}

/// The condition that lets an index narrow the events that run at a moment; empty if it does not
/// apply.
QString ExpressionTranslator::candidates(const RunningCondition& running, StatementScope& scope) const
{
    const auto names = [&scope](const MomentComparison::Name& name, const QString& column) {
        const QString event = QStringLiteral("Event");
        return scope.resolve(name.qualifier, name.column).sql == scope.resolve(event, column).sql;
    };
    const ResolvedColumn key = scope.resolve(QStringLiteral("Event"), QStringLiteral("EventID"));
    if (!m_catalog.hasIndex(EventsByLength::indexName) || !key.isKey ||
        !names(running.started.dayColumn, QStringLiteral("StartDate")) ||
        !names(running.ended.dayColumn, QStringLiteral("EndDate")))
        return {};
    return QStringLiteral(" AND %1 IN (%2)")
        .arg(key.sql, EventsByLength::candidates(date(running.started.day), date(running.ended.day)));
}

QString ExpressionTranslator::function(std::size_t& i, std::size_t end, StatementScope& scope, Clause clause,
                                       int depth) const
{
    const QString name = m_tokens[i].text;
    const std::size_t close = m_tokens.closingParenthesis(i + 1, end);
    const Span arguments{i + 2, close};
    i = close + 1;
    QString sql = expression(arguments, scope, clause, depth + 1);
    if (name.compare(u"count", Qt::CaseInsensitive) == 0) {
        const QString distinct = QStringLiteral("DISTINCT ");
        if (scope.isBaseKey(sql)) sql.prepend(distinct);
        // SQLite would keep a list of the keys to no purpose, and take half as long again
        if (sql.startsWith(distinct) && scope.isNeverRepeated(sql.sliced(distinct.size())))
            sql.remove(0, distinct.size());
    }
    return name.toLower() + u'(' + sql + u')';
}

/// Whether `> 1` or `> 0` follows. It leaves out one row at most; SQLite takes it for a narrow range
/// and would walk the whole table by its key, unless a plus keeps the key out of its plans.
bool ExpressionTranslator::excludesReservedRow(std::size_t i) const
{
    return m_tokens.isSymbolAt(i, u">") && i + 1 < m_tokens.size() &&
           m_tokens[i + 1].kind == SqlToken::Kind::Number &&
           (m_tokens[i + 1].text == QStringLiteral("0") || m_tokens[i + 1].text == QStringLiteral("1"));
}

/// Whether `= 1` or a list with a 1 among its numbers follows: the number of the rows that stand for "None".
bool ExpressionTranslator::takesReservedRow(std::size_t i, std::size_t end) const
{
    const auto isOne = [this](std::size_t at) {
        return m_tokens[at].kind == SqlToken::Kind::Number && m_tokens[at].text == QStringLiteral("1");
    };
    if (m_tokens.isSymbolAt(i, u"=") && i + 1 < end) return isOne(i + 1);
    if (!m_tokens.isWordAt(i, u"IN") || !m_tokens.isSymbolAt(i + 1, u"(") || i + 2 >= end) return false;
    const std::vector<Span> items = m_tokens.split({i + 2, m_tokens.closingParenthesis(i + 1, end)});
    return std::any_of(items.begin(), items.end(), [&isOne](const Span& item) {
        return item.end == item.begin + 1 && isOne(item.begin);
    });
}

/// Whether the name from `begin` to `i` is compared with a literal of a date or a time.
bool ExpressionTranslator::meetsDate(std::size_t begin, std::size_t i, std::size_t end) const
{
    const auto isDate = [this](std::size_t at) { return m_tokens[at].kind == SqlToken::Kind::Date; };
    const auto compares = [this](std::size_t at) {
        const SqlToken& token = m_tokens[at];
        return token.kind == SqlToken::Kind::Symbol &&
               QStringLiteral("= <> < <= > >=").split(u' ').contains(token.text);
    };
    if (begin >= 2 && compares(begin - 1) && isDate(begin - 2)) return true;
    if (m_tokens.isWordAt(i, u"NOT")) ++i;
    return i + 1 < end && isDate(i + 1) && (compares(i) || m_tokens[i].isWord(u"BETWEEN"));
}

/// A time of day as it is compared with a literal: midnight if it is missing beside a date.
QString ExpressionTranslator::timeOrMidnight(const ResolvedColumn& time, const QString& qualifier,
                                             const QString& name, StatementScope& scope)
{
    const QString word = QStringLiteral("Time");
    if (!name.endsWith(word, Qt::CaseInsensitive)) return time.sql;
    const ResolvedColumn day = scope.resolve(qualifier, name.chopped(word.size()) + QStringLiteral("Date"));
    if (day.form != ColumnForm::Date) return time.sql;
    return QStringLiteral("ifnull(%1, CASE WHEN %2 IS NOT NULL THEN '00:00' END)").arg(time.sql, day.sql);
}

/// The end of a condition that is LIKE and a text alone; std::nullopt for any other.
std::optional<std::size_t> ExpressionTranslator::endOfMatch(std::size_t i, std::size_t end) const
{
    if (!m_tokens.isWordAt(i, u"LIKE") || i + 1 >= end || m_tokens[i + 1].kind != SqlToken::Kind::Text) {
        return std::nullopt;
    }
    const std::size_t after = i + 2;
    if (after < end && !m_tokens.isWordAt(after, u"AND")) return std::nullopt;
    return after;
}

QString ExpressionTranslator::column(std::size_t& i, std::size_t end, StatementScope& scope, Clause clause,
                                     int depth) const
{
    const std::size_t begin = i;
    QString qualifier;
    QString name = m_tokens[i++].text;
    if (i + 1 < end && m_tokens.isSymbolAt(i, u".")) {
        if (m_tokens[i + 1].kind != SqlToken::Kind::Word) refuseToken(m_tokens[i + 1]);
        qualifier = name;
        name = m_tokens[i + 1].text;
        i += 2;
    }
    const ResolvedColumn resolved = scope.resolve(qualifier, name);
    // LIKE ignores the case of letters by itself, and an assignment takes no collation
    const bool matched =
        m_tokens.isWordAt(i, u"LIKE") || (m_tokens.isWordAt(i, u"NOT") && m_tokens.isWordAt(i + 1, u"LIKE"));
    const bool compares = clause != Clause::Select || scope.comparesListed();
    const bool ruled = resolved.form == ColumnForm::Text && compares && !matched;
    if (resolved.isKey && excludesReservedRow(i)) return u'+' + resolved.sql;
    if (clause != Clause::Select && resolved.form == ColumnForm::Time && meetsDate(begin, i, end)) {
        return timeOrMidnight(resolved, qualifier, name, scope);
    }
    // a record without a venue has the venue "None"
    if (name.compare(u"VenueID", Qt::CaseInsensitive) == 0 && clause != Clause::Select &&
        takesReservedRow(i, end)) {
        return QStringLiteral("ifnull(%1, 1)").arg(resolved.sql);
    }
    // inside parentheses a search can name thousands of texts, which would become ranges too
    const auto matchEnd = depth == 0 && clause == Clause::Where ? endOfMatch(i, end) : std::nullopt;
    if (matchEnd && resolved.form == ColumnForm::Text) {
        const QString pattern = m_tokens[i + 1].text;
        if (const QString ranges = LikePrefix::ranges(resolved.sql, pattern); !ranges.isEmpty()) {
            i = *matchEnd;
            return QStringLiteral("(%1 LIKE %2 AND (%3))").arg(resolved.sql, quoteSqlText(pattern), ranges);
        }
    }
    return ruled ? resolved.sql + QStringLiteral(" COLLATE ORVIK") : resolved.sql;
}
