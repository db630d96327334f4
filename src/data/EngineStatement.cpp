// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/EngineStatement.h"

#include "data/EngineError.h"
#include "util/Error.h"

EngineStatement::EngineStatement(std::shared_ptr<EngineConnection> database, std::string_view sql)
    : m_database(std::move(database))
{
    sqlite3* connection = m_database->getHandle();
    sqlite3_stmt* prepared = nullptr;
    const int result =
        sqlite3_prepare_v2(connection, sql.data(), static_cast<int>(sql.size()), &prepared, nullptr);
    m_handle.reset(prepared);
    if (result != SQLITE_OK) fail();
}

/// Throws what SQLite reports.
void EngineStatement::fail() const
{
    try {
        throwEngineError(m_database->getHandle());
    } catch (const Error& error) {
        if (error.isOfDamage()) m_database->isDamaged = true;
        throw;
    }
}

bool EngineStatement::step()
{
    const int result = sqlite3_step(m_handle.get());
    if (result == SQLITE_ROW) return true;
    if (result == SQLITE_DONE) return false;
    fail();
}

void EngineStatement::bind(int index, const Value& value)
{
    sqlite3_stmt* handle = m_handle.get();
    int result = SQLITE_OK;
    if (const auto* whole = std::get_if<qint64>(&value)) {
        result = sqlite3_bind_int64(handle, index, *whole);
    } else if (const auto* real = std::get_if<double>(&value)) {
        result = sqlite3_bind_double(handle, index, *real);
    } else if (const auto* text = std::get_if<QString>(&value)) {
        const QByteArray utf8 = text->toUtf8();
        result = sqlite3_bind_text64(handle, index, utf8.constData(),
                                     static_cast<sqlite3_uint64>(utf8.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
    } else {
        result = sqlite3_bind_null(handle, index);
    }
    if (result != SQLITE_OK) fail();
}

QString EngineStatement::expandedSql() const
{
    const std::unique_ptr<char, decltype(&sqlite3_free)> expanded(sqlite3_expanded_sql(m_handle.get()),
                                                                  &sqlite3_free);
    // SQLite fills nothing in if the whole would be longer than a value may be
    return QString::fromUtf8(expanded ? expanded.get() : sqlite3_sql(m_handle.get()));
}

QString EngineStatement::columnName(int column) const
{
    return QString::fromUtf8(sqlite3_column_name(m_handle.get(), column));
}

QString EngineStatement::declaredType(int column) const
{
    return QString::fromUtf8(sqlite3_column_decltype(m_handle.get(), column));
}

std::string_view EngineStatement::text(int column) const
{
    // the size first, since that call converts a text that the file holds in UTF-16. Reading the text as a
    // blob avoids the copy that sqlite3_column_text makes to append a NUL
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_handle.get(), column));
    const auto* text = static_cast<const char*>(sqlite3_column_blob(m_handle.get(), column));
    if (text == nullptr) return {};
    return {text, size};
}
