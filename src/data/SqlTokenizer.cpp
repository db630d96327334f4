#include "data/SqlTokenizer.h"

#include "util/Error.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Database)
};

constexpr int syntaxErrorNumber = 1;

bool beginsWord(QChar c)
{
    return c.isLetter() || c == u'_';
}

bool continuesWord(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

/// The names of the program are ASCII; digits of other scripts are letters to it.
bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

class Tokenizer
{
public:
    explicit Tokenizer(QStringView statement) : m_statement(statement) {}

    std::vector<SqlToken> run()
    {
        std::vector<SqlToken> tokens;
        for (skipBlanks(); m_at < m_statement.size(); skipBlanks())
            tokens.push_back(next());
        return tokens;
    }

private:
    void skipBlanks()
    {
        while (m_at < m_statement.size() && m_statement[m_at].isSpace())
            ++m_at;
    }

    SqlToken next()
    {
        const QChar c = m_statement[m_at];
        if (beginsWord(c)) return word();
        if (isDigit(c)) return number();
        if (c == u'\'' || c == u'"') return quoted(c);
        if (c == u'#') return date();
        return symbol();
    }

    SqlToken word()
    {
        const auto begin = m_at;
        while (m_at < m_statement.size() && continuesWord(m_statement[m_at]))
            ++m_at;
        return {SqlToken::Kind::Word, m_statement.sliced(begin, m_at - begin).toString()};
    }

    SqlToken number()
    {
        const auto begin = m_at;
        while (m_at < m_statement.size() && (isDigit(m_statement[m_at]) || m_statement[m_at] == u'.'))
            ++m_at;
        return {SqlToken::Kind::Number, m_statement.sliced(begin, m_at - begin).toString()};
    }

    SqlToken quoted(QChar quote)
    {
        QString text;
        for (++m_at; m_at < m_statement.size(); ++m_at) {
            const QChar c = m_statement[m_at];
            if (c.isNull()) fail(Texts::tr("a text holds a NUL character"));
            if (c == quote) {
                ++m_at;
                if (m_at >= m_statement.size() || m_statement[m_at] != quote) {
                    refuseRest(quote);
                    return {SqlToken::Kind::Text, text};
                }
            }
            text += c;
        }
        fail(Texts::tr("a text has no closing %1").arg(quote));
    }

    /// A text that goes on behind its end was ended by a quote that is part of it.
    void refuseRest(QChar quote) const
    {
        static constexpr QStringView follows = u"(),.=<>+-*/|;?";
        if (m_at >= m_statement.size()) return;
        const QChar next = m_statement[m_at];
        if (next.isSpace() || next.isNull() || follows.contains(next)) return;
        if (quote == u'"') fail(Texts::tr("a quotation mark in a text ends it too early"));
        fail(Texts::tr("an apostrophe in a text ends it too early. In a search, type _ in its place"));
    }

    SqlToken date()
    {
        const auto end = m_statement.indexOf(u'#', m_at + 1);
        if (end < 0) fail(Texts::tr("a date has no closing #"));
        const auto text = m_statement.sliced(m_at + 1, end - m_at - 1).toString();
        m_at = end + 1;
        return {SqlToken::Kind::Date, text};
    }

    SqlToken symbol()
    {
        static constexpr QStringView pairs[] = {u"<>", u"<=", u">=", u"||"};
        static constexpr QStringView singles = u"(),.=<>+-*/";

        const QStringView rest = m_statement.sliced(m_at);
        if (rest.startsWith(u"--") || rest.startsWith(u"/*")) fail(Texts::tr("a comment stands in it"));
        for (const QStringView pair : pairs) {
            if (rest.startsWith(pair)) return take(pair.size());
        }
        if (singles.contains(rest.front())) return take(1);
        fail(Texts::tr("the character %1 has no meaning in it").arg(rest.front()));
    }

    SqlToken take(qsizetype length)
    {
        const auto text = m_statement.sliced(m_at, length).toString();
        m_at += length;
        return {SqlToken::Kind::Symbol, text};
    }

    [[noreturn]] static void fail(const QString& why)
    {
        throw Error(syntaxErrorNumber, Texts::tr("The statement cannot be read: %1.").arg(why));
    }

    QStringView m_statement;
    qsizetype m_at = 0;
};

} // namespace

bool SqlToken::isKeyword() const
{
    static constexpr std::array keywords{u"AND",  u"OR",    u"NOT",     u"IN",      u"IS",     u"NULL",
                                         u"LIKE", u"AS",    u"ASC",     u"DESC",    u"TRUE",   u"CASE",
                                         u"WHEN", u"THEN",  u"ELSE",    u"END",     u"EXISTS", u"ON",
                                         u"SET",  u"FALSE", u"BETWEEN", u"DISTINCT"};
    return std::any_of(keywords.begin(), keywords.end(),
                       [this](const char16_t* keyword) { return isWord(keyword); });
}

std::vector<SqlToken> tokenizeSql(QStringView statement)
{
    return Tokenizer(statement).run();
}

QString quoteSqlText(const QString& text)
{
    return u'\'' + QString(text).replace(u'\'', QStringLiteral("''")) + u'\'';
}

QString quoteSqlName(const QString& name)
{
    return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"';
}
