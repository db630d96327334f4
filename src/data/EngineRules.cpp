// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/EngineRules.h"

#include "data/DataTexts.h"
#include "util/LikePattern.h"
#include "util/TextCompare.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace {

constexpr int longestStatement = 8 * 1024 * 1024;
constexpr int longestPattern = 50000;
constexpr std::size_t longestName = 50000; ///< bytes
constexpr int longestValue = 64 * 1024 * 1024;
constexpr int operationsBetweenLooks = 10000;
constexpr int longestDefinition = 100 * 1000; ///< of a table or view; some take time that grows as its square
constexpr int operationsBetweenSchemaLooks = 100; ///< few, since each may read a definition
constexpr int mostOperations = 5 * 1000 * 1000;   ///< of a prepared statement; a million keys need fewer

std::string_view bytes(int length, const void* text)
{
    return {static_cast<const char*>(text), static_cast<std::size_t>(length)};
}

int compareTexts(void* /*context*/, int leftLength, const void* left, int rightLength, const void* right)
{
    return TextCompare::compare(bytes(leftLength, left), bytes(rightLength, right));
}

std::string_view textOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text == nullptr ? std::string_view()
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

/// `like(pattern, text)`: SQLite calls it for LIKE, with the pattern first. The pattern is parsed once for a
/// statement.
void like(sqlite3_context* context, int /*count*/, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL)
        return;
    auto* pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(context, 0));
    std::unique_ptr<LikePattern> fresh;
    if (pattern == nullptr) {
        const std::string_view text = textOf(arguments[0]);
        if (text.size() > longestPattern) {
            sqlite3_result_error(context,
                                 DataTexts::tr("The text to look for is too long.").toUtf8().constData(), -1);
            return;
        }
        fresh = std::make_unique<LikePattern>(text);
        pattern = fresh.get();
    }
    sqlite3_result_int(context, pattern->matches(textOf(arguments[1])) ? 1 : 0);
    if (fresh) {
        sqlite3_set_auxdata(context, 0, fresh.release(),
                            [](void* old) { delete static_cast<LikePattern*>(old); });
    }
}

/// `lower(text)`: the text folded, in every script. NULL for a text that is longer than the name of any city,
/// since it would be folded once for each known city. No index of the schema depends on the built-in `lower`,
/// which this one replaces.
void lower(sqlite3_context* context, int /*count*/, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return;
    const std::string_view text = textOf(arguments[0]);
    if (text.size() > longestName) return;
    std::string folded;
    TextCompare::fold(text, folded);
    sqlite3_result_text64(context, folded.data(), folded.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

bool isAllowedFunction(std::string_view name)
{
    static constexpr std::array<std::string_view, 12> names{"count",    "like",   "lower",     "min",
                                                            "max",      "trim",   "substr",    "ifnull",
                                                            "coalesce", "length", "julianday", "date"};
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Settings that are only read.
bool isAllowedSetting(std::string_view name)
{
    return name == "data_version" || name == "user_version";
}

bool isOwnTable(const char* name)
{
    return name != nullptr && !std::string_view(name).starts_with("sqlite_");
}

/// Whether the rows of a table belong to the records whose changes the journal keeps.
bool isOfRecords(const char* table)
{
    static constexpr std::array tables{"Document",
                                       "Event",
                                       "Organization",
                                       "OrganizationProfile",
                                       "DocumentEvents",
                                       "OrganizationEvents",
                                       "EventFunctions",
                                       "DocumentTypes",
                                       "DocumentCategories",
                                       "DocumentVenues",
                                       "EventVenues",
                                       "OrganizationVenues",
                                       "OrganizationProfileJurisdictions",
                                       "OrganizationProfilePopulations"};
    return std::any_of(tables.begin(), tables.end(),
                       [table](const char* each) { return sqlite3_stricmp(each, table) == 0; });
}

/// Rows are only ever added to the journal.
bool mayWrite(Access access, int action, const char* name)
{
    if (access == Access::Read || !isOwnTable(name)) return false;
    if (sqlite3_stricmp(name, "Journal") == 0)
        return access == Access::WriteRecords && action == SQLITE_INSERT;
    return access == Access::WriteRecords || !isOfRecords(name);
}

int authorize(void* context, int action, const char* first, const char* second, const char* /*database*/,
              const char* /*source*/)
{
    const Access access = *static_cast<const Access*>(context);
    const auto allow = [](bool allowed) { return allowed ? SQLITE_OK : SQLITE_DENY; };
    switch (action) {
    case SQLITE_SELECT:
        return SQLITE_OK;
    case SQLITE_READ:
        return allow(isOwnTable(first));
    case SQLITE_FUNCTION:
        return allow(second != nullptr && isAllowedFunction(second));
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
        return allow(mayWrite(access, action, first));
    case SQLITE_PRAGMA:
        return allow(second == nullptr && isAllowedSetting(first));
    case SQLITE_TRANSACTION:
        return allow(access != Access::Read);
    default:
        return SQLITE_DENY;
    }
}

void watchEvery(int operations, sqlite3* connection, StatementWatch* watch)
{
    sqlite3_progress_handler(
        connection, operations,
        [](void* looker) { return static_cast<StatementWatch*>(looker)->isOverdue() ? 1 : 0; }, watch);
}

} // namespace

bool StatementWatch::isOverdue()
{
    const auto now = std::chrono::steady_clock::now();
    if (m_fresh) {
        m_since = now;
        m_fresh = false;
    }
    return now - m_since > m_patience;
}

void addWatch(sqlite3* connection, StatementWatch* watch)
{
    watchEvery(operationsBetweenLooks, connection, watch);
}

void addTextRules(sqlite3* connection)
{
    sqlite3_create_collation(connection, "ORVIK", SQLITE_UTF8, nullptr, compareTexts);
    sqlite3_create_function(connection, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                            nullptr, like, nullptr, nullptr);
    sqlite3_create_function(connection, "lower", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                            nullptr, lower, nullptr, nullptr);
}

void addSchemaLimits(sqlite3* connection, StatementWatch* watch)
{
    addLimits(connection);
    sqlite3_limit(connection, SQLITE_LIMIT_SQL_LENGTH, longestDefinition);
    watchEvery(operationsBetweenSchemaLooks, connection, watch);
}

void addLimits(sqlite3* connection)
{
    sqlite3_drop_modules(connection, nullptr);
    sqlite3_limit(connection, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(connection, SQLITE_LIMIT_VDBE_OP, mostOperations);
    sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, longestValue);
    sqlite3_limit(connection, SQLITE_LIMIT_SQL_LENGTH, longestStatement);
    sqlite3_limit(connection, SQLITE_LIMIT_TRIGGER_DEPTH, 1);
    for (const int off : {SQLITE_DBCONFIG_DQS_DML, SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_ENABLE_TRIGGER,
                          SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_FKEY,
                          SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION}) {
        sqlite3_db_config(connection, off, 0, nullptr);
    }
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
}

void addAuthorizer(sqlite3* connection, const Access* access)
{
    sqlite3_set_authorizer(connection, authorize, const_cast<Access*>(access));
}
