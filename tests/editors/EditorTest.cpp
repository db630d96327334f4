// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/EditorTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const char* const editorRows = R"sql(
INSERT INTO FileTypes VALUES (1, 'None'), (2, 'PDF'), (3, 'HTML');
INSERT INTO DocumentType VALUES (1, 'None'), (2, 'Report'), (3, 'étude'), (4, 'Map');
INSERT INTO DocumentCategory VALUES (1, 'None'), (2, 'Response'), (3, 'Évacuation');
INSERT INTO Function VALUES (1, 'None'), (2, 'Police'), (3, 'fire');
INSERT INTO Venue VALUES (3, 'Airport'), (2, 'Harbor'), (12, 'Stadium');
INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'Federal'), (3, 'Local');
INSERT INTO OrganizationSubTypes VALUES
    (1, 3, 'None'), (9, 3, 'Airport'), (4, 3, 'Sheriff'), (5, 2, 'Agency'), (6, 3, 'County');
INSERT INTO JurisdictionTypes VALUES (2, 'City'), (1, 'County'), (7, 'State');
INSERT INTO PopulationTypes VALUES (1, 'Urban'), (2, 'Rural');
INSERT INTO States VALUES (1, 'None', 'None'), (2, 'TX', 'Texas'), (3, 'MA', 'Massachusetts');
INSERT INTO CityLocations VALUES (1, 'None', 'None', NULL, NULL), (2, 'Austin', 'TX', 30.25, -97.75),
    (3, 'Boston', 'MA', 42.25, -71), (4, 'Salem, Old', 'MA', 42.5, -70.9);

INSERT INTO Organization (OrganizationID, OrganizationName, OrganizationTypeID, OrganizationSubTypeID, FunctionID,
                          City, State, Status) VALUES
    (1, 'None', 1, 1, 1, '', 'None', 'ACTIVE'),
    (2, 'zebra Rescue', 3, 4, 2, 'Austin', 'TX', 'ACTIVE'),
    (3, 'Harbor Watch', NULL, NULL, NULL, 'Boston', 'MA', 'ACTIVE'),
    (4, 'Gone Brigade', 3, 6, 3, 'Salem, Old', 'MA', 'DELETED'),
    (5, 'Old Salem Watch', 3, 6, 3, 'Salem, Old', 'MA', 'ACTIVE');
INSERT INTO OrganizationProfile VALUES
    (2, 'To rescue', 12, NULL, 3, '1234567890.5', 'boats', 'yearly', 'none', 'C:\charts\old chart.pdf', 1);
INSERT INTO OrganizationProfileJurisdictions VALUES (2, 1, 1), (2, 2, 0), (2, 1, 1);
INSERT INTO OrganizationProfilePopulations VALUES (2, 2, 1), (2, 1, 0);
INSERT INTO OrganizationVenues VALUES (2, 12), (2, 12), (2, 3);

INSERT INTO Document (DocumentID, DocumentName, KeyDocument, FileTypeID, ReleaseForm, OrganizationID, FileLocation,
                      OriginalFilename, Author, DocumentDate, URL, DocumentDescription, dStatus, UserID, POCID,
                      Status) VALUES
    (1, 'None', 0, 1, 0, 1, NULL, NULL, NULL, NULL, NULL, NULL, 'ACTIVE', 1, 1, NULL),
    (2, 'Flood report', 1, 2, 0, 3, '2.pdf', 'C:\in\flood.pdf', 'The Board', 'Spring 1906', NULL, 'Of the flood',
     'ACTIVE', 5, 6, 'REVIEWED'),
    (3, 'Lost map', 0, NULL, 1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'DELETED', 1, 1, 'SUBMITTED'),
    (4, 'The xAy file', 0, 2, 1, 1, '4.pdf', '4.pdf', NULL, NULL, NULL, 'x', 'ACTIVE', 1, 1, 'SUBMITTED');
INSERT INTO DocumentTypes VALUES (2, 4), (2, 2), (2, 4), (9, 3);
INSERT INTO DocumentCategories VALUES (2, 3);
INSERT INTO DocumentVenues VALUES (2, 2), (2, 12), (2, 2);

INSERT INTO Event (EventID, EventName, KeyEvent, StartDate, StartTime, EndDate, EndTime, EventDescription, Notes,
                   Status, UserID) VALUES
    (1, 'None', 0, NULL, NULL, NULL, NULL, NULL, NULL, 'ACTIVE', 1),
    (2, 'Harbor fire', 1, '2001-09-11', '09:05:30', NULL, NULL, 'Water was short', NULL, 'ACTIVE', 7),
    (3, 'Old storm', 0, '1600-01-01', '00:00', '9999-12-31', '23:59', 'x', NULL, 'DELETED', 1);
INSERT INTO EventVenues VALUES (2, 3), (2, 3);
INSERT INTO EventFunctions VALUES (2, 3), (2, 2), (2, 3);
INSERT INTO DocumentEvents VALUES (2, 2), (4, 2), (2, 2);
INSERT INTO OrganizationEvents VALUES (3, 2);
)sql";

} // namespace

EditorTest::EditorTest() : m_state(ProgramFolder(m_database.folder()))
{
    m_database.run(editorRows);
    m_state.session.open(m_database.fileName());
    m_clock.moment = QDateTime(QDate(2005, 6, 15), QTime(14, 3, 9));
    QDir().mkpath(m_database.folder() + u"/data/documents"_s);
    QDir().mkpath(m_database.folder() + u"/data/orgcharts"_s);
}

QString EditorTest::userFile(const QString& name, const QByteArray& content) const
{
    QString path = m_database.folder() + u"/user/"_s + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return path;
}

QByteArray EditorTest::stored(const QString& pathInData) const
{
    QFile file(m_database.folder() + u"/data/"_s + pathInData);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void EditorTest::refuseRows(const QString& table, const QString& column, int number) const
{
    // sessions run no triggers but update indexes, and abs() of the smallest integer overflows
    const QString index = u"CREATE INDEX refuse ON %1 (abs(-9223372036854775807 - (%2 = %3)))"_s;
    m_database.run(index.arg(table, column).arg(number).toUtf8().constData());
}

void EditorTest::check(std::vector<CheckEntry>& entries, std::initializer_list<qint64> keys)
{
    for (CheckEntry& entry : entries) {
        entry.isChecked = std::find(keys.begin(), keys.end(), entry.entry.key) != keys.end();
    }
}

QString keysOf(const std::vector<ListEntry>& entries)
{
    QStringList keys;
    for (const ListEntry& entry : entries)
        keys << QString::number(entry.key);
    return keys.join(u' ');
}

QString keysOf(const std::vector<CheckEntry>& entries)
{
    std::vector<ListEntry> checked;
    for (const CheckEntry& entry : entries) {
        if (entry.isChecked) checked.push_back(entry.entry);
    }
    return keysOf(checked);
}

QString textsOf(const std::vector<ListEntry>& entries)
{
    QStringList texts;
    for (const ListEntry& entry : entries)
        texts << entry.display;
    return texts.join(u'|');
}
