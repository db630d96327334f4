// SPDX-License-Identifier: GPL-3.0-or-later

#include "filetext/FileTextSearch.h"

#include "data/EngineError.h"
#include "filetext/FileTextIndex.h"
#include "filetext/TextWords.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdint>

namespace {

/// How long a search waits for what is just brought to the disk, which shuts readers out.
constexpr int patienceMilliseconds = 1000;

} // namespace

struct FileTextSearch::Connection
{
    explicit Connection(const QString& path)
        // what a program that was ended had begun is taken back before the index can be read, which is a
        // write
        : database(QFile::encodeName(path).toStdString(), SQLite::OPEN_READWRITE, patienceMilliseconds),
          words(database)
    {
        database.exec("PRAGMA query_only = ON");
    }

    SQLite::Database database;
    TextWords words;
};

std::unique_ptr<FileTextSearch> FileTextSearch::open(const QString& index, const QStringList& words)
{
    if (!QFileInfo(index).isFile()) return nullptr;
    return callEngine([&]() -> std::unique_ptr<FileTextSearch> {
        auto connection = std::make_unique<Connection>(index);
        const int version = connection->database.execAndGet("PRAGMA user_version").getInt();
        if (version != FileTextIndex::version) return nullptr;
        return std::unique_ptr<FileTextSearch>(new FileTextSearch(std::move(connection), words));
    });
}

FileTextSearch::FileTextSearch(std::unique_ptr<Connection> connection, const QStringList& words)
    : m_connection(std::move(connection))
{
    for (QString word : words) {
        const QStringList parts = word.replace(u'%', u'_').split(u'_');
        for (const QString& part : parts)
            add(part);
    }
}

FileTextSearch::~FileTextSearch() = default;

/// Adds a part of a word to what is looked for, unless it has no letter: the index would then find nothing at
/// all. One with signs inside is several words that follow each other.
void FileTextSearch::add(const QString& part)
{
    const std::size_t before = m_sought.size();
    m_connection->words.split(part.toStdString(), [this](std::string_view word, int /*begin*/, int /*end*/) {
        m_sought.push_back({std::string(word)});
        return true;
    });
    if (m_sought.size() == before) return;
    m_sought.back().isBeginning = true;
    QStringList phrase;
    for (std::size_t i = before; i < m_sought.size(); ++i)
        phrase << QString::fromStdString(m_sought[i].word);
    if (!m_expression.isEmpty()) m_expression += QStringLiteral(" AND ");
    m_expression += u'"' + phrase.join(u' ') + QStringLiteral("\"*");
}

QHash<QString, FileTextSearch::File> FileTextSearch::files()
{
    return callEngine([&] {
        // both statements have to see the same state of an index that is being written
        const SQLite::Transaction transaction(m_connection->database);
        std::vector<qint64> found;
        if (!m_expression.isEmpty()) {
            SQLite::Statement matches(m_connection->database,
                                      "SELECT rowid FROM FileText WHERE FileText MATCH ? ORDER BY rowid");
            matches.bind(1, m_expression.toStdString());
            while (matches.executeStep())
                found.push_back(matches.getColumn(0).getInt64());
        }
        QHash<QString, File> files;
        SQLite::Statement names(m_connection->database, "SELECT FileID, Name FROM File");
        while (names.executeStep()) {
            const qint64 key = names.getColumn(0).getInt64();
            const SQLite::Column name = names.getColumn(1);
            files.insert(QString::fromUtf8(name.getText(), name.getBytes()),
                         {key, std::binary_search(found.begin(), found.end(), key)});
        }
        return files;
    });
}

FilePassage FileTextSearch::passage(qint64 file)
{
    return callEngine([&] {
        SQLite::Statement texts(m_connection->database, "SELECT Text FROM FileText WHERE rowid = ?");
        texts.bind(1, static_cast<std::int64_t>(file));
        if (!texts.executeStep()) return FilePassage();
        const SQLite::Column text = texts.getColumn(0);
        const std::string_view bytes(text.getText(), static_cast<std::size_t>(text.getBytes()));
        return FilePassage::in(bytes, m_connection->words, m_sought);
    });
}
