// SPDX-License-Identifier: GPL-3.0-or-later

#include "filetext/TextWords.h"

#include <array>
#include <memory>

namespace {

void require(int result)
{
    if (result != SQLITE_OK && result != SQLITE_DONE) throw SQLite::Exception(sqlite3_errstr(result), result);
}

fts5_api* searchOf(SQLite::Database& database)
{
    fts5_api* api = nullptr;
    sqlite3_stmt* prepared = nullptr;
    require(sqlite3_prepare_v2(database.getHandle(), "SELECT fts5(?)", -1, &prepared, nullptr));
    const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(prepared, &sqlite3_finalize);
    require(sqlite3_bind_pointer(prepared, 1, static_cast<void*>(&api), "fts5_api_ptr", nullptr));
    sqlite3_step(prepared);
    if (api == nullptr)
        throw SQLite::Exception("SQLite was built without its full text search", SQLITE_ERROR);
    return api;
}

int takeWord(void* taker, int /*flags*/, const char* word, int size, int begin, int end)
{
    const auto& take = *static_cast<const TextWords::Taker*>(taker);
    return take({word, static_cast<std::size_t>(size)}, begin, end) ? SQLITE_OK : SQLITE_DONE;
}

} // namespace

TextWords::TextWords(SQLite::Database& database)
{
    fts5_api* api = searchOf(database);
    void* context = nullptr;
    // those that the table of texts is made with
    std::array<const char*, 2> options{"remove_diacritics", "2"};
    require(api->xFindTokenizer(api, "unicode61", &context, &m_functions));
    require(m_functions.xCreate(context, options.data(), static_cast<int>(options.size()), &m_tokenizer));
}

TextWords::~TextWords()
{
    m_functions.xDelete(m_tokenizer);
}

void TextWords::split(std::string_view text, const Taker& take) const
{
    void* taker = const_cast<Taker*>(&take);
    require(m_functions.xTokenize(m_tokenizer, taker, FTS5_TOKENIZE_AUX, text.data(),
                                  static_cast<int>(text.size()), &takeWord));
}
