// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "filetext/FileTextIndex.h"

#include <QString>

#include <SQLiteCpp/SQLiteCpp.h>

#include <optional>
#include <utility>
#include <vector>

/// The names of files with their texts; a file that could not be read has none.
using FileTexts = std::vector<std::pair<const char*, std::optional<std::string>>>;

/// Makes the index of a database, as if these files had been read.
inline void writeFileTexts(const QString& database, const FileTexts& files,
                           int version = FileTextIndex::version)
{
    SQLite::Database index(FileTextIndex::pathOf(database).toStdString(),
                           SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    index.exec(FileTextIndex::tables);
    index.exec("PRAGMA user_version = " + std::to_string(version));
    SQLite::Statement file(index, "INSERT INTO File (Name, Failure) VALUES (?, ?)");
    SQLite::Statement text(index, "INSERT INTO FileText (rowid, Text) VALUES (?, ?)");
    for (const auto& [name, content] : files) {
        file.bind(1, name);
        if (!content) file.bind(2, "It is empty.");
        file.exec();
        file.reset();
        file.clearBindings();
        if (!content) continue;
        text.bind(1, static_cast<std::int64_t>(index.getLastInsertRowid()));
        text.bind(2, *content);
        text.exec();
        text.reset();
    }
}
