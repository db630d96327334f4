// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/StatementTranslator.h"

#include "data/DataTexts.h"
#include "data/ExpressionTranslator.h"
#include "data/StatementScope.h"
#include "data/StatementTokens.h"

#include <QStringList>

#include <optional>
#include <utility>

namespace {

/// The translation of one statement.
class Translation
{
public:
    Translation(const Catalog& catalog, const QString& statement, bool forEditing, QStringList dates = {})
        : m_catalog(catalog),
          m_tokens(statement),
          m_forEditing(forEditing),
          m_expressions(catalog, m_tokens, std::move(dates),
                        [this](Span span, StatementScope& outer, int depth) {
                            return translateSelect(span, &outer, depth);
                        })
    {
    }

    Translation(const Translation&) = delete;
    Translation& operator=(const Translation&) = delete;

    TranslatedStatement select()
    {
        if (m_tokens.size() == 0) refuseStatement(DataTexts::tr("it is empty"));
        const QString sql = translateSelect({0, m_tokens.size()}, nullptr, 0);
        return {sql, m_onlyTable};
    }

    TranslatedStatement change()
    {
        StatementScope scope(m_catalog, nullptr);
        std::size_t at = 0;
        QString sql;
        if (m_tokens.isWordAt(0, u"DELETE") && m_tokens.isWordAt(1, u"FROM")) {
            sql = QStringLiteral("DELETE FROM ");
            at = 2;
        } else if (m_tokens.isWordAt(0, u"UPDATE")) {
            sql = QStringLiteral("UPDATE ");
            at = 1;
        } else {
            refuseStatement(DataTexts::tr("it is neither a DELETE nor an UPDATE"));
        }
        if (at >= m_tokens.size() || m_tokens[at].kind != SqlToken::Kind::Word) {
            refuseStatement(DataTexts::tr("it names no table"));
        }
        m_onlyTable = m_tokens[at].text;
        scope.addSource(m_onlyTable);
        scope.setUnqualified();
        sql += quoteSqlName(m_onlyTable);
        const std::size_t where = m_tokens.findWord({at + 1, m_tokens.size()}, u"WHERE");
        sql += u' ' + m_expressions.expression({at + 1, where}, scope, Clause::Select, 0);
        if (where < m_tokens.size()) {
            sql += QStringLiteral(" WHERE ") +
                   m_expressions.expression({where + 1, m_tokens.size()}, scope, Clause::Where, 0);
        }
        return {sql, m_onlyTable};
    }

private:
    QString translateSelect(Span span, StatementScope* outer, int depth)
    {
        if (!m_tokens.isWordAt(span.begin, u"SELECT")) {
            refuseStatement(DataTexts::tr("it does not begin with SELECT"));
        }
        const ClauseSpans spans = m_tokens.splitClauses(span);

        StatementScope scope(m_catalog, outer);
        if (const auto from = spans[static_cast<std::size_t>(Clause::From)]) addSources(*from, scope);
        if (outer == nullptr) m_onlyTable = scope.onlyTable();

        Span list = *spans[static_cast<std::size_t>(Clause::Select)];
        const bool allOfOneTable = list.end == list.begin + 1 && m_tokens.isSymbolAt(list.begin, u"*");
        const bool grouped = spans[static_cast<std::size_t>(Clause::Group)].has_value();
        if (m_forEditing && depth == 0 && (grouped || !allOfOneTable)) {
            refuseStatement(DataTexts::tr("it does not select the rows of a table"));
        }
        scope.setDistinct(m_tokens.isWordAt(list.begin, u"DISTINCT"));
        if (scope.isDistinct()) ++list.begin;
        if (grouped) scope.setGrouped();

        const auto clause = [&](Clause which, const QString& words) {
            const auto at = spans[static_cast<std::size_t>(which)];
            return at ? u' ' + words + u' ' + m_expressions.expression(*at, scope, which, depth) : QString();
        };
        QString columns = selectList(list, scope, depth);
        QString rest = clause(Clause::Where, QStringLiteral("WHERE"));
        if (grouped) rest += groupBy(*spans[static_cast<std::size_t>(Clause::Group)], scope, depth);
        rest += clause(Clause::Having, QStringLiteral("HAVING"));
        rest += clause(Clause::Order, QStringLiteral("ORDER BY"));
        // so that the first of several rows is the same one each time
        if (m_forEditing && depth == 0 && !spans[static_cast<std::size_t>(Clause::Order)]) {
            rest += QStringLiteral(" ORDER BY rowid");
        }
        // only now is it known which joins are needed, and so what DISTINCT compares and what a count may
        // repeat
        scope.setColumnsKnown();
        if (scope.comparesTexts()) scope.setComparesListed();
        if (grouped || scope.comparesListed()) columns = selectList(list, scope, depth);
        return QStringLiteral("SELECT ") + (scope.needsDistinct() ? QStringLiteral("DISTINCT ") : QString()) +
               columns + scope.fromSql() + rest;
    }

    void addSources(Span span, StatementScope& scope) const
    {
        for (std::size_t i = span.begin;; ++i) {
            if (i >= span.end) refuseStatement(DataTexts::tr("it names no table"));
            if (m_tokens[i].kind != SqlToken::Kind::Word) refuseToken(m_tokens[i]);
            scope.addSource(m_tokens[i].text);
            if (++i >= span.end) return;
            if (!m_tokens[i].isSymbol(u",")) refuseToken(m_tokens[i]);
        }
    }

    QString selectList(Span span, StatementScope& scope, int depth)
    {
        if (m_forEditing && depth == 0) return QStringLiteral("rowid AS \"rowid\", *");
        QStringList items;
        for (const Span& item : m_tokens.split(span))
            items << selectItem(item, scope, depth);
        return items.join(QStringLiteral(", "));
    }

    /// An item of a select list. A column of a stored query becomes an expression, so it is named after
    /// the column.
    QString selectItem(Span item, StatementScope& scope, int depth)
    {
        if (item.end == item.begin + 1 && m_tokens.isSymbolAt(item.begin, u"*")) return scope.allColumns();
        const std::size_t length = item.end - item.begin;
        if (length == 0) refuseStatement(DataTexts::tr("an item of its list is missing"));
        const bool plain = m_tokens[item.begin].kind == SqlToken::Kind::Word &&
                           (length == 1 || (length == 3 && m_tokens.isSymbolAt(item.begin + 1, u".")));
        QString sql = m_expressions.expression(item, scope, Clause::Select, depth);
        scope.noteListed(sql);
        if (plain) sql += QStringLiteral(" AS ") + quoteSqlName(m_tokens[item.end - 1].text);
        return sql;
    }

    /// Names of what is grouped by its key are left out: they are the same throughout a group, and comparing
    /// them row by row would take most of the time.
    QString groupBy(Span span, StatementScope& scope, int depth)
    {
        const std::vector<Span> spans = m_tokens.split(span);
        QStringList items;
        for (const Span& item : spans)
            items << m_expressions.expression(item, scope, Clause::Group, depth);
        QStringList kept;
        for (std::size_t i = 0; i < spans.size(); ++i) {
            const Span item = spans[i];
            const bool qualified = item.end == item.begin + 3 && m_tokens.isSymbolAt(item.begin + 1, u".");
            const bool named = item.end == item.begin + 1 || qualified;
            const QString qualifier = qualified ? m_tokens[item.begin].text : QString();
            if (named && scope.isDeterminedBy(items, qualifier, m_tokens[item.end - 1].text)) continue;
            kept << items[static_cast<qsizetype>(i)];
        }
        return QStringLiteral(" GROUP BY ") + kept.join(QStringLiteral(", "));
    }

    const Catalog& m_catalog;
    StatementTokens m_tokens;
    bool m_forEditing;
    ExpressionTranslator m_expressions;
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
    if (translated.table.isEmpty()) refuseStatement(DataTexts::tr("it is not about one table"));
    return translated;
}

TranslatedStatement StatementTranslator::change(const QString& statement) const
{
    return Translation(m_catalog, statement, false).change();
}
