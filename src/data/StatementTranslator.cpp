#include "data/StatementTranslator.h"

#include "data/LikePrefix.h"
#include "data/MomentCondition.h"
#include "data/SqlTokenizer.h"
#include "data/StatementScope.h"
#include "data/StatementShape.h"
#include "util/DateTimeText.h"
#include "util/Error.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace {

constexpr int syntaxErrorNumber = 1;
constexpr int deepestNesting = 50;
constexpr qsizetype longestChain = 200;

enum class Clause
{
    Select,
    From,
    Where,
    Group,
    Having,
    Order
};

/// Where a clause of a select stands among the tokens, its keywords left out.
struct Span
{
    std::size_t begin = 0;
    std::size_t end = 0;
};

[[noreturn]] void refuse(const QString& why)
{
    throw Error(syntaxErrorNumber, QStringLiteral("The statement cannot be read: %1.").arg(why));
}

[[noreturn]] void refuseAt(const SqlToken& token)
{
    refuse(QStringLiteral("%1 stands where it has no meaning").arg(token.text));
}

/// The engine takes a chain of OR as one level of depth for each, and bounds the depth. The places that a
/// search names can be many more, so a long chain is halved until its pieces are short.
QString joinAlternatives(const QStringList& alternatives, qsizetype begin, qsizetype end)
{
    if (end - begin <= longestChain) {
        return alternatives.mid(begin, end - begin).join(QStringLiteral(" OR "));
    }
    const qsizetype middle = begin + (end - begin) / 2;
    return QStringLiteral("(%1) OR (").arg(joinAlternatives(alternatives, begin, middle)) +
           joinAlternatives(alternatives, middle, end) + u')';
}

class Translation
{
public:
    Translation(const Catalog& catalog, const QString& statement, bool forEditing, QStringList dates = {})
        : m_catalog(catalog),
          m_tokens(tokenizeSql(statement)),
          m_forEditing(forEditing),
          m_dates(std::move(dates))
    {
    }

    TranslatedStatement select()
    {
        if (m_tokens.empty()) refuse(QStringLiteral("it is empty"));
        const QString sql = translateSelect({0, m_tokens.size()}, nullptr, 0);
        return {sql, m_onlyTable};
    }

    TranslatedStatement change()
    {
        StatementScope scope(m_catalog, nullptr);
        std::size_t at = 0;
        QString sql;
        if (isWordAt(0, u"DELETE") && isWordAt(1, u"FROM")) {
            sql = QStringLiteral("DELETE FROM ");
            at = 2;
        } else if (isWordAt(0, u"UPDATE")) {
            sql = QStringLiteral("UPDATE ");
            at = 1;
        } else {
            refuse(QStringLiteral("it is neither a DELETE nor an UPDATE"));
        }
        if (at >= m_tokens.size() || m_tokens[at].kind != SqlToken::Kind::Word) {
            refuse(QStringLiteral("it names no table"));
        }
        m_onlyTable = m_tokens[at].text;
        scope.addSource(m_onlyTable);
        scope.setUnqualified();
        sql += quoteSqlName(m_onlyTable);
        const std::size_t where = findWord({at + 1, m_tokens.size()}, u"WHERE");
        sql += u' ' + expression({at + 1, where}, scope, Clause::Select, 0);
        if (where < m_tokens.size()) {
            sql +=
                QStringLiteral(" WHERE ") + expression({where + 1, m_tokens.size()}, scope, Clause::Where, 0);
        }
        return {sql, m_onlyTable};
    }

private:
    using Spans = std::array<std::optional<Span>, 6>;

    [[nodiscard]] bool isWordAt(std::size_t i, QStringView word) const
    {
        return i < m_tokens.size() && m_tokens[i].isWord(word);
    }

    [[nodiscard]] bool isSymbolAt(std::size_t i, QStringView symbol) const
    {
        return i < m_tokens.size() && m_tokens[i].isSymbol(symbol);
    }

    [[nodiscard]] std::size_t findWord(Span span, QStringView word) const
    {
        int depth = 0;
        for (std::size_t i = span.begin; i < span.end; ++i) {
            if (depth == 0 && m_tokens[i].isWord(word)) return i;
            if (m_tokens[i].isSymbol(u"(")) ++depth;
            if (m_tokens[i].isSymbol(u")")) --depth;
        }
        return span.end;
    }

    [[nodiscard]] std::size_t closingParenthesis(std::size_t open, std::size_t end) const
    {
        int depth = 0;
        for (std::size_t i = open; i < end; ++i) {
            if (m_tokens[i].isSymbol(u"(")) ++depth;
            if (m_tokens[i].isSymbol(u")") && --depth == 0) return i;
        }
        refuse(QStringLiteral("a parenthesis is not closed"));
    }

    /// The clause that begins at a token, and how many words name it.
    [[nodiscard]] std::optional<std::pair<Clause, std::size_t>> clauseAt(std::size_t i) const
    {
        if (isWordAt(i, u"SELECT")) return std::pair{Clause::Select, std::size_t{1}};
        if (isWordAt(i, u"FROM")) return std::pair{Clause::From, std::size_t{1}};
        if (isWordAt(i, u"WHERE")) return std::pair{Clause::Where, std::size_t{1}};
        if (isWordAt(i, u"GROUP") && isWordAt(i + 1, u"BY")) return std::pair{Clause::Group, std::size_t{2}};
        if (isWordAt(i, u"HAVING")) return std::pair{Clause::Having, std::size_t{1}};
        if (isWordAt(i, u"ORDER") && isWordAt(i + 1, u"BY")) return std::pair{Clause::Order, std::size_t{2}};
        return std::nullopt;
    }

    /// The clauses of a select. Each may stand once, in the order of the language: a second one is what a
    /// text that broke out of its quotes would need.
    [[nodiscard]] Spans splitClauses(Span span) const
    {
        Spans spans;
        std::optional<std::size_t> current;
        int depth = 0;
        for (std::size_t i = span.begin; i < span.end; ++i) {
            const SqlToken& token = m_tokens[i];
            if (token.isSymbol(u"(")) ++depth;
            if (token.isSymbol(u")") && --depth < 0) refuse(QStringLiteral("a parenthesis was not opened"));
            const auto clause = depth == 0 ? clauseAt(i) : std::nullopt;
            if (!clause) continue;
            const auto index = static_cast<std::size_t>(clause->first);
            if (current ? index <= *current : index != 0) refuseAt(token);
            if (current) spans[*current]->end = i;
            current = index;
            spans[index] = Span{i + clause->second, span.end};
            i += clause->second - 1;
        }
        if (!current) refuse(QStringLiteral("it is no SELECT"));
        return spans;
    }

    QString translateSelect(Span span, StatementScope* outer, int depth)
    {
        if (!isWordAt(span.begin, u"SELECT")) refuse(QStringLiteral("it does not begin with SELECT"));
        const Spans spans = splitClauses(span);

        StatementScope scope(m_catalog, outer);
        if (const auto from = spans[static_cast<std::size_t>(Clause::From)]) addSources(*from, scope);
        if (outer == nullptr) m_onlyTable = scope.onlyTable();

        Span list = *spans[static_cast<std::size_t>(Clause::Select)];
        const bool allOfOneTable = list.end == list.begin + 1 && isSymbolAt(list.begin, u"*");
        const bool grouped = spans[static_cast<std::size_t>(Clause::Group)].has_value();
        if (m_forEditing && depth == 0 && (grouped || !allOfOneTable)) {
            refuse(QStringLiteral("it does not select the rows of a table"));
        }
        scope.setDistinct(isWordAt(list.begin, u"DISTINCT"));
        if (scope.isDistinct()) ++list.begin;
        if (grouped) scope.setGrouped();

        const auto clause = [&](Clause which, const QString& words) {
            const auto at = spans[static_cast<std::size_t>(which)];
            return at ? u' ' + words + u' ' + expression(*at, scope, which, depth) : QString();
        };
        const bool ruledOutside = std::exchange(m_ruleListedTexts, false);
        QString columns = selectList(list, scope, depth);
        QString rest = clause(Clause::Where, QStringLiteral("WHERE"));
        if (grouped) rest += groupBy(*spans[static_cast<std::size_t>(Clause::Group)], scope, depth);
        rest += clause(Clause::Having, QStringLiteral("HAVING"));
        rest += clause(Clause::Order, QStringLiteral("ORDER BY"));
        // only now is it known which joins are needed, and so what DISTINCT compares
        m_ruleListedTexts = scope.comparesTexts();
        if (m_ruleListedTexts) columns = selectList(list, scope, depth);
        m_ruleListedTexts = ruledOutside;
        return QStringLiteral("SELECT ") + (scope.needsDistinct() ? QStringLiteral("DISTINCT ") : QString()) +
               columns + scope.fromSql() + rest;
    }

    void addSources(Span span, StatementScope& scope) const
    {
        for (std::size_t i = span.begin;; ++i) {
            if (i >= span.end) refuse(QStringLiteral("it names no table"));
            if (m_tokens[i].kind != SqlToken::Kind::Word) refuseAt(m_tokens[i]);
            scope.addSource(m_tokens[i].text);
            if (++i >= span.end) return;
            if (!m_tokens[i].isSymbol(u",")) refuseAt(m_tokens[i]);
        }
    }

    QString selectList(Span span, StatementScope& scope, int depth)
    {
        if (m_forEditing && depth == 0) return QStringLiteral("rowid AS \"rowid\", *");
        QStringList items;
        for (const Span& item : split(span))
            items << selectItem(item, scope, depth);
        return items.join(QStringLiteral(", "));
    }

    /// An item of a select list. A column of a stored query is an expression in the end, so it is given
    /// its own name.
    QString selectItem(Span item, StatementScope& scope, int depth)
    {
        if (item.end == item.begin + 1 && isSymbolAt(item.begin, u"*")) return scope.allColumns();
        const std::size_t length = item.end - item.begin;
        if (length == 0) refuse(QStringLiteral("an item of its list is missing"));
        const bool plain = m_tokens[item.begin].kind == SqlToken::Kind::Word &&
                           (length == 1 || (length == 3 && isSymbolAt(item.begin + 1, u".")));
        QString sql = expression(item, scope, Clause::Select, depth);
        scope.noteListed(sql);
        if (plain) sql += QStringLiteral(" AS ") + quoteSqlName(m_tokens[item.end - 1].text);
        return sql;
    }

    /// The names of what is grouped by its key are left out: they are the same throughout a group, and to
    /// compare them row by row would take most of the time.
    QString groupBy(Span span, StatementScope& scope, int depth)
    {
        const std::vector<Span> spans = split(span);
        QStringList items;
        for (const Span& item : spans)
            items << expression(item, scope, Clause::Group, depth);
        QStringList kept;
        for (std::size_t i = 0; i < spans.size(); ++i) {
            const Span item = spans[i];
            const bool qualified = item.end == item.begin + 3 && isSymbolAt(item.begin + 1, u".");
            const bool named = item.end == item.begin + 1 || qualified;
            const QString qualifier = qualified ? m_tokens[item.begin].text : QString();
            if (named && scope.isDeterminedBy(items, qualifier, m_tokens[item.end - 1].text)) continue;
            kept << items[static_cast<qsizetype>(i)];
        }
        return QStringLiteral(" GROUP BY ") + kept.join(QStringLiteral(", "));
    }

    /// The items of a list, without the commas between them.
    [[nodiscard]] std::vector<Span> split(Span span) const
    {
        std::vector<Span> items;
        int parentheses = 0;
        Span item{span.begin, span.begin};
        for (std::size_t i = span.begin; i <= span.end; ++i) {
            if (i < span.end && m_tokens[i].isSymbol(u"(")) ++parentheses;
            if (i < span.end && m_tokens[i].isSymbol(u")")) --parentheses;
            if (i < span.end && (parentheses > 0 || !m_tokens[i].isSymbol(u","))) continue;
            item.end = i;
            items.push_back(item);
            item.begin = i + 1;
        }
        return items;
    }

    QString expression(Span span, StatementScope& scope, Clause clause, int depth)
    {
        if (depth > deepestNesting) refuse(QStringLiteral("its parentheses are nested too deeply"));
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
    QString part(std::size_t& i, std::size_t end, StatementScope& scope, Clause clause, int depth)
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
        if (clauseAt(i)) refuseAt(token);
        if (token.isWord(u"AS") && i + 1 < end) {
            i += 2;
            return QStringLiteral("AS ") + quoteSqlName(m_tokens[i - 1].text);
        }
        if (token.isKeyword()) {
            ++i;
            return token.text.toUpper();
        }
        if (isSymbolAt(i + 1, u"(") && i + 1 < end) return function(i, end, scope, clause, depth);
        return column(i, end, scope, clause, depth);
    }

    QString symbol(std::size_t& i, std::size_t end, StatementScope& scope, Clause clause, int depth)
    {
        const SqlToken& token = m_tokens[i];
        if (!token.isSymbol(u"(")) {
            ++i;
            return token.text;
        }
        const std::size_t close = closingParenthesis(i, end);
        const Span inner{i + 1, close};
        i = close + 1;
        const bool select = isWordAt(inner.begin, u"SELECT");
        if (select) return u'(' + translateSelect(inner, &scope, depth + 1) + u')';
        const auto moment = momentCondition(inner, scope);
        return u'(' + (moment ? *moment : expression(inner, scope, clause, depth + 1)) + u')';
    }

    /// A comparison with a moment; nothing where the tokens are something else.
    std::optional<QString> momentCondition(Span span, StatementScope& scope) const
    {
        if (const auto comparison = readMomentComparison(m_tokens, span.begin, span.end)) {
            return comparedSql(*comparison, scope);
        }
        const auto running = readRunningCondition(m_tokens, span.begin, span.end);
        if (!running) return std::nullopt;
        const auto started = comparedSql(running->started, scope);
        const auto ended = comparedSql(running->ended, scope);
        if (!started || !ended) return std::nullopt;
        return u'(' + *started + QStringLiteral(") AND (") + *ended + u')' + candidates(*running, scope);
    }

    /// A date as the engine reads it.
    [[nodiscard]] QString date(const QString& compared) const
    {
        const auto parameter = m_dates.indexOf(compared);
        return parameter < 0 ? quoteSqlText(compared) : u'?' + QString::number(parameter + 1);
    }

    std::optional<QString> comparedSql(const MomentComparison& comparison, StatementScope& scope) const
    {
        const ResolvedColumn day = scope.resolve(comparison.dayColumn.qualifier, comparison.dayColumn.column);
        const ResolvedColumn time =
            scope.resolve(comparison.timeColumn.qualifier, comparison.timeColumn.column);
        if (day.form != ColumnForm::Date || time.form != ColumnForm::Time) return std::nullopt;
        return comparison.sql(day.sql, time.sql, date(comparison.day), date(comparison.time));
    }

    /// What narrows events that run at a moment to those that an index can tell; empty where it does not
    /// apply.
    [[nodiscard]] QString candidates(const RunningCondition& running, StatementScope& scope) const
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

    QString function(std::size_t& i, std::size_t end, StatementScope& scope, Clause clause, int depth)
    {
        const QString name = m_tokens[i].text;
        const std::size_t close = closingParenthesis(i + 1, end);
        const Span arguments{i + 2, close};
        i = close + 1;
        const QString sql = expression(arguments, scope, clause, depth + 1);
        const bool counts = name.compare(u"count", Qt::CaseInsensitive) == 0;
        const bool once = counts && scope.isBaseKey(sql);
        return name.toLower() + u'(' + (once ? QStringLiteral("DISTINCT ") : QString()) + sql + u')';
    }

    /// Whether `> 1` or `> 0` follows. It leaves out a row at most; the engine takes it for a narrow range
    /// and would walk the whole table by its key, unless a plus keeps the key out of its plans.
    [[nodiscard]] bool excludesReservedRow(std::size_t i) const
    {
        return isSymbolAt(i, u">") && i + 1 < m_tokens.size() &&
               m_tokens[i + 1].kind == SqlToken::Kind::Number &&
               (m_tokens[i + 1].text == QStringLiteral("0") || m_tokens[i + 1].text == QStringLiteral("1"));
    }

    /// Where a text to match follows by itself, the end of the condition.
    [[nodiscard]] std::optional<std::size_t> endOfMatch(std::size_t i, std::size_t end) const
    {
        if (!isWordAt(i, u"LIKE") || i + 1 >= end || m_tokens[i + 1].kind != SqlToken::Kind::Text) {
            return std::nullopt;
        }
        const std::size_t after = i + 2;
        if (after < end && !isWordAt(after, u"AND")) return std::nullopt;
        return after;
    }

    QString column(std::size_t& i, std::size_t end, StatementScope& scope, Clause clause, int depth)
    {
        QString qualifier;
        QString name = m_tokens[i++].text;
        if (i + 1 < end && isSymbolAt(i, u".")) {
            if (m_tokens[i + 1].kind != SqlToken::Kind::Word) refuseAt(m_tokens[i + 1]);
            qualifier = name;
            name = m_tokens[i + 1].text;
            i += 2;
        }
        const ResolvedColumn resolved = scope.resolve(qualifier, name);
        // matching knows the rule of cases by itself, and an assignment takes no rule
        const bool matched = isWordAt(i, u"LIKE") || (isWordAt(i, u"NOT") && isWordAt(i + 1, u"LIKE"));
        const bool compares = clause != Clause::Select || m_ruleListedTexts;
        const bool ruled = resolved.form == ColumnForm::Text && compares && !matched;
        if (resolved.isKey && excludesReservedRow(i)) return u'+' + resolved.sql;
        // inside parentheses a search can name thousands of texts, which would become ranges too
        const auto matchEnd = depth == 0 && clause == Clause::Where ? endOfMatch(i, end) : std::nullopt;
        if (matchEnd && resolved.form == ColumnForm::Text) {
            const QString pattern = m_tokens[i + 1].text;
            if (const QString ranges = LikePrefix::ranges(resolved.sql, pattern); !ranges.isEmpty()) {
                i = *matchEnd;
                return QStringLiteral("(%1 LIKE %2 AND (%3))")
                    .arg(resolved.sql, quoteSqlText(pattern), ranges);
            }
        }
        return ruled ? resolved.sql + QStringLiteral(" COLLATE ORVIK") : resolved.sql;
    }

    const Catalog& m_catalog;
    std::vector<SqlToken> m_tokens;
    bool m_forEditing;
    QStringList m_dates;
    bool m_ruleListedTexts = false;
    QString m_onlyTable;
};

} // namespace

TranslatedStatement StatementTranslator::select(const QString& statement, const QStringList& dates) const
{
    return Translation(m_catalog, statement, false, dates).select();
}

TranslatedStatement StatementTranslator::selectForEditing(const QString& statement) const
{
    TranslatedStatement translated = Translation(m_catalog, statement, true).select();
    if (translated.table.isEmpty()) refuse(QStringLiteral("it is not about one table"));
    return translated;
}

TranslatedStatement StatementTranslator::change(const QString& statement) const
{
    return Translation(m_catalog, statement, false).change();
}
