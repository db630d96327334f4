-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO DocumentType VALUES (1, 'None'), (2, 'Report'), (3, 'Map; "large"');
INSERT INTO DocumentCategory VALUES (1, 'None'), (2, 'Secret');
INSERT INTO Function VALUES (1, 'None'), (2, 'Rescue');
INSERT INTO Venue VALUES (1, 'None'), (2, 'Harbour'), (3, 'Café <Ünal>');
INSERT INTO FileTypes VALUES (1, 'None'), (2, 'PDF');
INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'Fire'), (3, NULL);
INSERT INTO OrganizationSubTypes VALUES (1, 1, 'None'), (2, 2, 'Volunteer');
INSERT INTO JurisdictionTypes VALUES (1, 'None'), (2, 'County'), (3, 'Town');
INSERT INTO PopulationTypes VALUES (1, 'None'), (2, 'Rural');
INSERT INTO CityLocations VALUES (1, 'Troy', 'NY', 42.73, -73.69);
ALTER TABLE Document ADD COLUMN "Shelf mark" TEXT;
ALTER TABLE Document ADD COLUMN Price REAL;
ALTER TABLE Document ADD COLUMN Barcode INTEGER;
INSERT INTO Document (DocumentID, DocumentName, KeyDocument, FileTypeID, OrganizationID, FileLocation,
    OriginalFilename, Author, DocumentDate, Publication, PageNum, PubNum, Volume, URL, DocumentDescription, Notes,
    dStatus, "Shelf mark", Price, Barcode) VALUES
(1, 'None', 0, 1, 1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'ACTIVE', NULL, NULL, NULL),
(2, 'A plain report', 1, 2, 2, '2.pdf', 'C:\reports\plain.pdf', 'Smith, Ann; Lee, Bo', '9/11/2001', 'Daily News',
    '12-15', '7', '3', 'https://example.org/a?b=1&c=2#d', 'One line.', 'Kept', 'ACTIVE', 'Q 1/7', 12.5,
    9007199254740993),
(3, '=1+2', 0, 2, 4, NULL, NULL, '+44 20', '-5', '@SUM(A1)', '007', '1e5', '{=A1}', 'javascript:alert(1)',
    'She said "no", twice.', 'first' || char(13, 10) || 'second' || char(10) || 'third' || char(13) || 'fourth', 'ACTIVE',
    char(9) || '=cmd', -0.1, -5),
(4, 'عنوان عربي', 0, 99, NULL, NULL, NULL, '漢字 日本', 'um 1900', 'Ελληνικά', '𝔘𝔫𝔦', '👩‍🚒🧯', 'é é',
    'http://example.org/' || char(34) || '<b>', 'עברית (abc) עברית', '<b>&amp;</b> ]]> <!-- \ % $ # _ { } ~ ^ -->', 'ACTIVE',
    'https://example.org/' || replace(hex(zeroblob(1100)), '00', 'ab'), 1e300, 0),
(6, 'Control ' || char(1, 11, 12, 27, 31, 127) || ' characters', 1, NULL, 1, NULL, NULL, ' blanks  around ',
    '_x0041_', '_x000D_', 'a' || char(65534, 65535) || 'b', CAST(x'C3' AS TEXT) || 'cut', 'a' || char(0) || 'b',
    'ftp://example.org', char(13, 10), char(8232) || 'x' || char(133, 160, 65279), 'ACTIVE', char(9), 3, 1),
(7, 'Deleted', 0, 1, 2, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'DELETED', NULL, NULL, NULL),
(8, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'ACTIVE', NULL, NULL,
    NULL);
INSERT INTO Document (DocumentID, DocumentName, DocumentDescription, Notes, dStatus)
    WITH RECURSIVE line (number, text) AS (
        SELECT 1, '' UNION ALL
        SELECT number + 1, text || 'Line ' || number || ' of a "long", long memo.' || char(10) FROM line
        WHERE length(text) < 65500)
    SELECT 5, 'Long memos', 'x' || replace(hex(zeroblob(17000)), '00', '🧯'), substr(text, 1, 65535), 'ACTIVE'
    FROM line ORDER BY number DESC LIMIT 1;
INSERT INTO DocumentTypes VALUES (2, 3), (2, 2), (2, 3), (3, 1), (4, 99), (4, 2);
INSERT INTO DocumentCategories VALUES (2, 2), (3, NULL);
INSERT INTO DocumentVenues VALUES (2, 2), (2, 3), (3, 1);
INSERT INTO DocumentEvents VALUES (2, 2), (2, 3), (2, 2), (3, 5), (4, 99), (7, 2), (5, 1), (6, 2);
INSERT INTO Event (EventID, EventName, KeyEvent, StartDate, StartTime, EndDate, EndTime, EventDescription, Notes,
    Status) VALUES
(1, 'None', 0, NULL, NULL, NULL, NULL, NULL, NULL, 'ACTIVE'),
(2, 'Flood, "great"', 1, '2001-09-11', '08:46', '2001-09-12', '23:59:30', 'Water; 漢字, \n and more', 'Kept',
    'ACTIVE'),
(3, 'Dates that are none', 0, '2001-02-30', '25:00', 'spring', 'noon', NULL, NULL, 'ACTIVE'),
(4, 'Old', 0, '1899-12-31', '00:00', '1900-02-28', NULL, 'one' || char(13, 10) || 'two' || char(10) || 'three', NULL,
    'ACTIVE'),
(5, 'Deleted', 0, '2001-01-01', NULL, NULL, NULL, NULL, NULL, 'DELETED'),
(6, 'A day', 0, '2004-02-29', NULL, NULL, NULL, 'Nothing but a day', NULL, 'ACTIVE'),
(7, 'A moment', 0, '1900-03-01', '12:00', NULL, NULL, NULL, NULL, 'ACTIVE'),
(8, 'Turned around', 0, '2005-05-05', '10:00', '2005-05-04', '09:00', NULL, NULL, 'ACTIVE'),
(9, 'No dates 🧯', 1, NULL, '10:00', NULL, NULL, NULL, NULL, 'ACTIVE'),
(10, 'Far', 0, '0101-01-01', NULL, '9999-12-31', '24:00', NULL, NULL, 'ACTIVE');
INSERT INTO EventVenues VALUES (2, 2), (2, 3), (3, 99);
INSERT INTO EventFunctions VALUES (2, 2), (3, 1);
INSERT INTO Organization (OrganizationID, OrganizationName, OrganizationTypeID, OrganizationSubTypeID, FunctionID,
    Address1, City, State, Zip, Telephone, Website, ResponseActivities, Lat, Lon, Notes, Status) VALUES
(1, 'None', 1, 1, 1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'ACTIVE'),
(2, 'Fire & Rescue <Troy>', 2, 2, 2, '1 Main St', 'Troy', 'NY', '01234', '555-0100', 'www.example.org', 'All; day',
    42.5, -73.25, 'Kept', 'ACTIVE'),
(3, 'Two profiles', 3, 99, NULL, NULL, ' troy', 'ny ', NULL, NULL, 'http://example.org', NULL, NULL, NULL,
    'a' || char(10, 10) || 'b', 'ACTIVE'),
(4, 'Deleted', 2, 1, 1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'DELETED'),
(5, 'Nowhere 漢字 ' || char(1), 1, 1, 1, NULL, 'Oz', 'None', NULL, NULL, NULL, NULL, 91, 181, NULL, 'ACTIVE'),
(6, 'South', 2, 1, 1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, -89.123456789, 179.5, NULL, 'ACTIVE');
INSERT INTO OrganizationProfile (OrganizationProfileID, MissionStatement, SwornEmployees, CivilianEmployees,
    Volunteers, AnnualBudget, OrganizationChart, ChartOption) VALUES
(2, '=Mission', 12, 0, NULL, '1234567.89', '2.png', 1), (3, 'The first', 1, 2, 3, '0', NULL, 0),
(3, 'The second', 4, 5, 6, '1', NULL, 0);
INSERT INTO OrganizationProfileJurisdictions VALUES (2, 2, 1), (2, 3, 0);
INSERT INTO OrganizationProfilePopulations VALUES (2, 2, 1);
INSERT INTO OrganizationVenues VALUES (2, 3);
INSERT INTO OrganizationEvents VALUES (2, 2), (2, 5), (4, 2), (3, 2), (3, 2);
