// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/NewDatabaseFile.h"

#include "data/EngineError.h"
#include "opening/NewDatabaseTexts.h"

#include <QByteArray>
#include <QFile>
#include <QUrl>

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>

namespace {

/// The tables that the editors and searches offer as lists.
constexpr auto lists = {
    "DocumentType",      "DocumentCategory",     "FileTypes",         "Function",        "Venue",
    "OrganizationTypes", "OrganizationSubTypes", "JurisdictionTypes", "PopulationTypes", "States",
    "CityLocations"};

void addStates(SQLite::Database& database)
{
    const std::string_view states = NewDatabaseTexts::states();
    const auto lines =
        QByteArray::fromRawData(states.data(), static_cast<qsizetype>(states.size())).split('\n');
    SQLite::Statement insert(database,
                             "INSERT INTO States VALUES ((SELECT max(StateID) + 1 FROM States), ?, ?)");
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QByteArrayList fields = lines[i].trimmed().split('\t');
        if (fields.size() != 2) continue;
        insert.bind(1, fields[0].toStdString());
        insert.bind(2, fields[1].toStdString());
        insert.exec();
        insert.reset();
    }
}

/// Takes the entries of the lists over from an open database called `other`, with their identifiers.
void copyLists(SQLite::Database& database)
{
    for (const char* list : lists) {
        const std::string table(list);
        database.exec("DELETE FROM main." + table);
        database.exec("INSERT INTO main." + table + " SELECT * FROM other." + table);
    }
}

/// Opens another database beside, for reading only.
void attach(SQLite::Database& database, const QString& file)
{
    const QByteArray address = QUrl::fromLocalFile(file).toEncoded() + "?mode=ro";
    SQLite::Statement attachment(database, "ATTACH ? AS other");
    attachment.bind(1, address.toStdString());
    attachment.exec();
}

} // namespace

void NewDatabaseFile::make(const QString& file, const QString& listsFrom)
{
    callEngine([&] {
        SQLite::Database database(QFile::encodeName(file).toStdString(),
                                  SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE | SQLite::OPEN_URI);
        database.exec(std::string(NewDatabaseTexts::schema()));
        if (!listsFrom.isEmpty()) attach(database, listsFrom);
        SQLite::Transaction transaction(database);
        database.exec(std::string(NewDatabaseTexts::firstRows()));
        if (listsFrom.isEmpty())
            addStates(database);
        else
            copyLists(database);
        transaction.commit();
    });
}
