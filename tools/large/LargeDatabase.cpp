// SPDX-License-Identifier: GPL-3.0-or-later

#include "LargeDatabase.h"

#include "WordSource.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr int functionCount = 31;
constexpr int venueCount = 24;
constexpr int documentTypeCount = 30;
constexpr int categoryCount = 20;
constexpr int fileTypeCount = 12;
constexpr int organizationTypeCount = 9;
constexpr int subTypeCount = 24;
constexpr int jurisdictionCount = 8;
constexpr std::size_t descriptionLength = 500;

struct City
{
    std::string name;
    std::string state;
    double latitude = 0;
    double longitude = 0;
};

std::string readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<City> readCities(const std::filesystem::path& path)
{
    std::istringstream lines(readFile(path));
    std::vector<City> cities;
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line)) {
        std::istringstream fields(line);
        City city;
        std::string latitude;
        std::string longitude;
        std::getline(fields, city.name, '\t');
        std::getline(fields, city.state, '\t');
        std::getline(fields, latitude, '\t');
        std::getline(fields, longitude, '\t');
        city.latitude = std::stod(latitude);
        city.longitude = std::stod(longitude);
        cities.push_back(std::move(city));
    }
    return cities;
}

class Builder
{
public:
    Builder(const LargeDatabasePlan& plan, SQLite::Database& database)
        : m_plan(plan), m_database(database), m_words(plan.seed), m_cities(readCities(plan.cities))
    {
    }

    void run()
    {
        SQLite::Transaction transaction(m_database);
        addLookups();
        addOrganizations();
        addEvents();
        addDocuments();
        transaction.commit();
    }

private:
    template <typename... Values>
    void insert(SQLite::Statement& statement, const Values&... values)
    {
        int index = 0;
        (statement.bind(++index, values), ...);
        statement.exec();
        statement.reset();
    }

    void addNames(const std::string& table, const std::string& name, int count)
    {
        SQLite::Statement add(m_database, "INSERT INTO " + table + " VALUES (?, ?)");
        insert(add, 1, "None");
        for (int id = 2; id <= count; ++id)
            insert(add, id, name + ' ' + std::to_string(id));
    }

    void addLookups()
    {
        addNames("Function", "Function", functionCount);
        addNames("Venue", "Venue", venueCount);
        addNames("DocumentType", "Document type", documentTypeCount);
        addNames("DocumentCategory", "Category", categoryCount);
        addNames("FileTypes", "File type", fileTypeCount);
        addNames("OrganizationTypes", "Organization type", organizationTypeCount);
        addNames("JurisdictionTypes", "Jurisdiction", jurisdictionCount);
        addNames("PopulationTypes", "Population", jurisdictionCount);
        SQLite::Statement subType(m_database, "INSERT INTO OrganizationSubTypes VALUES (?, ?, ?)");
        insert(subType, 1, 1, "None");
        for (int id = 2; id <= subTypeCount; ++id) {
            insert(subType, id, 2 + id % (organizationTypeCount - 1), "Sub-type " + std::to_string(id));
        }
        SQLite::Statement city(m_database, "INSERT INTO CityLocations VALUES (?, ?, ?, ?, ?)");
        for (std::size_t i = 0; i < m_cities.size(); ++i) {
            insert(city, static_cast<int>(i) + 1, m_cities[i].name, m_cities[i].state, m_cities[i].latitude,
                   m_cities[i].longitude);
        }
    }

    /// Some links of a record, one to three.
    void addLinks(SQLite::Statement& add, std::int64_t record, int count)
    {
        for (std::uint64_t i = 1 + m_words.below(3); i > 0; --i) {
            insert(add, record, 2 + static_cast<int>(m_words.below(static_cast<std::uint64_t>(count) - 1)));
        }
    }

    void addRecordLinks(SQLite::Statement& add, std::int64_t record)
    {
        for (std::uint64_t i = m_words.below(4); i > 0; --i) {
            insert(
                add, record,
                static_cast<std::int64_t>(2 + m_words.below(static_cast<std::uint64_t>(m_plan.count) - 1)));
        }
    }

    std::string status()
    {
        return m_words.chance(2) ? "DELETED" : m_words.chance(5) ? "SUBMITTED" : "ACTIVE";
    }

    void addOrganizations()
    {
        SQLite::Statement add(
            m_database,
            "INSERT INTO Organization (OrganizationID, OrganizationName, OrganizationTypeID, "
            "OrganizationSubTypeID, FunctionID, City, State, ResponseActivities, Lat, Lon, Status, "
            "UserID, ParentID) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 1, 1)");
        SQLite::Statement profile(m_database, "INSERT INTO OrganizationProfile (OrganizationProfileID, "
                                              "MissionStatement, ChartOption) VALUES (?, ?, ?)");
        SQLite::Statement venue(m_database, "INSERT INTO OrganizationVenues VALUES (?, ?)");
        m_database.exec("INSERT INTO Organization (OrganizationID, OrganizationName, State, Status) "
                        "VALUES (1, 'None', 'None', 'ACTIVE')");
        for (std::int64_t id = 2; id <= m_plan.count; ++id) {
            const City& city = m_cities[m_words.below(m_cities.size())];
            insert(add, id, m_words.agency() + ' ' + std::to_string(id),
                   2 + static_cast<int>(m_words.below(organizationTypeCount - 1)),
                   1 + static_cast<int>(m_words.below(subTypeCount)),
                   2 + static_cast<int>(m_words.below(functionCount - 1)), city.name, city.state,
                   m_words.sentences(descriptionLength), city.latitude, city.longitude, status());
            if (m_words.chance(80)) insert(profile, id, m_words.sentences(200), m_words.chance(10) ? 1 : 0);
            addLinks(venue, id, venueCount);
        }
        m_database.exec("UPDATE Organization SET Lat = NULL, Lon = NULL WHERE OrganizationID % 10 = 0");
    }

    void addEvents()
    {
        SQLite::Statement add(m_database, "INSERT INTO Event VALUES (?, ?, ?, ?, ?, ?, ?, ?, NULL, ?, 1)");
        SQLite::Statement venue(m_database, "INSERT INTO EventVenues VALUES (?, ?)");
        SQLite::Statement function(m_database, "INSERT INTO EventFunctions VALUES (?, ?)");
        SQLite::Statement organization(
            m_database, "INSERT INTO OrganizationEvents (EventID, OrganizationID) VALUES (?, ?)");
        m_database.exec("INSERT INTO Event (EventID, EventName, Status) VALUES (1, 'None', 'ACTIVE')");
        for (std::int64_t id = 2; id <= m_plan.count; ++id) {
            int day = 0;
            const std::string start = m_words.date(day);
            const std::string time = m_words.time();
            const std::uint64_t sort = m_words.below(100);
            // some are instants, most last days, a few last months
            const int length = sort < 30   ? 0
                               : sort < 90 ? static_cast<int>(m_words.below(6))
                                           : static_cast<int>(m_words.below(200));
            const std::string end = WordSource::dateAfter(day + length);
            const std::string endTime = length == 0 ? time : m_words.time();
            insert(add, id,
                   m_words.place() + ' ' + m_words.hazard() + ' ' + start.substr(0, 4) + " (" +
                       std::to_string(id) + ')',
                   m_words.chance(8) ? 1 : 0, start, time, end, endTime, m_words.sentences(descriptionLength),
                   status());
            addLinks(venue, id, venueCount);
            addLinks(function, id, functionCount);
            addRecordLinks(organization, id);
        }
    }

    void addDocuments()
    {
        static const std::vector<std::string_view> kinds{"Report on the",  "Survey of the",
                                                         "Lessons of the", "Photographs of the",
                                                         "Hearing on the", "Plan after the"};
        SQLite::Statement add(
            m_database,
            "INSERT INTO Document (DocumentID, DocumentName, KeyDocument, FileTypeID, ReleaseForm, "
            "OrganizationID, FileLocation, OriginalFilename, Author, DocumentDate, DocumentDescription, "
            "dStatus, UserID, POCID, Status) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 1, 1, 'SUBMITTED')");
        SQLite::Statement type(m_database, "INSERT INTO DocumentTypes VALUES (?, ?)");
        SQLite::Statement category(m_database, "INSERT INTO DocumentCategories VALUES (?, ?)");
        SQLite::Statement venue(m_database, "INSERT INTO DocumentVenues VALUES (?, ?)");
        SQLite::Statement event(m_database, "INSERT INTO DocumentEvents VALUES (?, ?)");
        m_database.exec(
            "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (1, 'None', 'ACTIVE')");
        for (std::int64_t id = 2; id <= m_plan.count; ++id) {
            int day = 0;
            const std::string date = m_words.date(day);
            const std::string file = std::to_string(id) + ".pdf";
            insert(add, id,
                   std::string(m_words.oneOf(kinds)) + ' ' + m_words.place() + ' ' + m_words.hazard() + " (" +
                       std::to_string(id) + ')',
                   m_words.chance(8) ? 1 : 0, 2 + static_cast<int>(m_words.below(fileTypeCount - 1)),
                   m_words.chance(90) ? 1 : 0,
                   static_cast<std::int64_t>(2 + m_words.below(static_cast<std::uint64_t>(m_plan.count) - 1)),
                   file, file, m_words.agency(),
                   date.substr(5, 2) + '/' + date.substr(8, 2) + '/' + date.substr(0, 4),
                   m_words.sentences(descriptionLength), status());
            addLinks(type, id, documentTypeCount);
            addLinks(category, id, categoryCount);
            addLinks(venue, id, venueCount);
            addRecordLinks(event, id);
        }
    }

    const LargeDatabasePlan& m_plan;
    SQLite::Database& m_database;
    WordSource m_words;
    std::vector<City> m_cities;
};

} // namespace

void buildLargeDatabase(const LargeDatabasePlan& plan)
{
    if (plan.count < 2) throw std::invalid_argument("at least 2 records of each kind");
    std::filesystem::remove(plan.target);
    SQLite::Database database(plan.target.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec("PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY");
    database.exec(readFile(plan.schema));
    Builder(plan, database).run();
}
