-- SPDX-License-Identifier: GPL-3.0-or-later
-- Rows on which a statement that is right and one that is nearly right answer differently: reserved rows,
-- deleted ones and ones without a status, repeated links, missing keys, letters of both cases and with
-- accents, times with seconds, and places that are known twice.
INSERT INTO FileTypes VALUES (1, 'None'), (2, 'PDF'), (3, 'HTML');
INSERT INTO DocumentType VALUES (1, 'None'), (2, 'Report'), (3, 'étude'), (4, 'Map');
INSERT INTO DocumentCategory VALUES (1, 'None'), (2, 'Response'), (3, 'Évacuation'), (4, 'recovery');
INSERT INTO Function VALUES (1, 'None'), (2, 'Police'), (3, 'fire'), (4, 'Élan');
INSERT INTO Venue VALUES (3, 'Airport'), (2, 'Harbor'), (12, 'Stadium'), (312, 'School');
INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'Federal'), (3, 'Local');
INSERT INTO OrganizationSubTypes VALUES (1, 3, 'None'), (2, 3, 'Sheriff'), (3, 3, 'City'), (4, 2, 'Agency');
INSERT INTO JurisdictionTypes VALUES (1, 'City'), (2, 'County');
INSERT INTO PopulationTypes VALUES (1, 'Urban'), (2, 'Rural');
INSERT INTO States VALUES (1, 'None', 'None'), (2, 'TX', 'Texas'), (3, 'MA', 'Massachusetts');
INSERT INTO CityLocations VALUES
    (5, 'austin ', 'tx', 1.5, 1.5), (2, 'Austin', 'TX', 30.25, -97.75), (3, 'Dallas', 'TX', 32.75, -96.75),
    (4, 'Boston', 'MA', 42.25, -71);

INSERT INTO Organization (OrganizationID, OrganizationName, OrganizationTypeID, OrganizationSubTypeID, FunctionID,
                          City, State, Lat, Lon, ResponseActivities, Status) VALUES
    (1, 'None', 1, 1, 1, 'Austin', 'TX', NULL, NULL, NULL, 'ACTIVE'),
    (2, 'Austin Fire', 3, 3, 3, ' AUSTIN', 'tx', NULL, NULL, 'Puts out every fire', 'ACTIVE'),
    (3, 'Dallas Police', 3, 2, 2, 'Dallas', 'TX', 10.5, -20.5, 'Guards the harbor', 'ACTIVE'),
    (4, 'boston harbor patrol', 3, 1, 2, 'Boston', 'MA', 42, NULL, 'Fire boats', 'ACTIVE'),
    (5, 'Weather Agency', 2, 4, NULL, '', 'None', NULL, NULL, NULL, 'ACTIVE'),
    (6, 'Deleted Brigade', 3, 3, 3, 'Austin', 'TX', NULL, NULL, 'fire', 'DELETED'),
    (7, 'École du feu', NULL, NULL, 4, 'Austin', '', 1, 1, 'fire and water', 'submitted'),
    (8, 'No Status', 2, 4, 3, 'Austin', 'TX', NULL, NULL, 'fire', NULL);
INSERT INTO OrganizationProfile (OrganizationProfileID, MissionStatement, ChartOption) VALUES
    (2, 'To put out', 1), (3, 'To guard', 0), (4, 'first', 1), (4, 'second', 1);
INSERT INTO OrganizationProfileJurisdictions VALUES (2, 1, 1), (2, 2, 0), (3, 1, 1);
INSERT INTO OrganizationProfilePopulations VALUES (2, 1, 0), (2, 2, 1);
INSERT INTO OrganizationVenues VALUES (2, 2), (2, 3), (2, 2), (3, 3), (6, 2), (8, 2);

INSERT INTO Document (DocumentID, DocumentName, KeyDocument, FileTypeID, ReleaseForm, OrganizationID, FileLocation,
                      Author, DocumentDate, DocumentDescription, dStatus) VALUES
    (1, 'None', 0, 1, 0, 1, NULL, NULL, NULL, NULL, 'ACTIVE'),
    (2, 'Zoo evacuation plan', 1, 2, 1, 2, '2.pdf', 'Zoo Board', '9/11/2001', 'A fire drill and its plan', 'ACTIVE'),
    (3, 'fire plan', 0, 3, 0, 3, '3.htm', NULL, 'Spring 1906', 'All about water', 'ACTIVE'),
    (4, 'Étude des incendies', 0, 2, 1, 1, NULL, NULL, NULL, NULL, 'submitted'),
    (5, 'Apple orchard fire plan', 0, 2, 1, 2, NULL, NULL, NULL, 'fire', 'Deleted'),
    (6, 'No status fire plan', 0, 2, 1, 2, NULL, NULL, NULL, 'fire', NULL),
    (7, 'Report "A" on 50% of fires', 0, NULL, 0, NULL, NULL, NULL, NULL, 'School', 'ACTIVE');
INSERT INTO DocumentTypes VALUES
    (2, 2), (2, 3), (2, 2), (3, 2), (4, 3), (4, 3), (5, 2), (6, 2), (1, 2), (3, 1), (4, NULL);
INSERT INTO DocumentCategories VALUES (2, 2), (2, 3), (3, 4);
INSERT INTO DocumentVenues VALUES (2, 2), (2, 3), (3, 312), (4, 12), (5, 312), (2, 3);

INSERT INTO Event (EventID, EventName, KeyEvent, StartDate, StartTime, EndDate, EndTime, EventDescription,
                   Status) VALUES
    (1, 'None', 0, '1600-01-01', '00:00', '9999-12-31', '23:59', NULL, 'ACTIVE'),
    (2, 'Harbor fire', 1, '2001-09-11', '09:00', '2001-09-11', '10:00', 'Water was short', 'ACTIVE'),
    (3, 'Long flood', 0, '2001-09-10', '23:00', '2001-09-12', '01:00', 'No FIRE at the harbor', 'ACTIVE'),
    (4, 'Storm to the second', 0, '2001-09-11', '10:30:45', '2001-09-11', '11:00:15', NULL, 'ACTIVE'),
    (5, 'Deleted fire', 0, '1700-01-01', '09:30', '2500-01-01', '09:45', 'harbor', 'DELETED'),
    (6, 'Untimed', 0, '2001-11-30', NULL, '2001-11-30', NULL, NULL, 'ACTIVE'),
    (7, 'Élan', 0, '2000-02-29', '00:00', '2000-02-29', '23:59', NULL, 'active'),
    (8, 'Undated', 0, NULL, NULL, NULL, NULL, NULL, 'ACTIVE'),
    (9, 'alike', 0, '2001-09-11', '09:00', '2001-09-11', '10:00', NULL, 'ACTIVE'),
    (10, 'No status', 0, '1650-01-01', '09:30', '2600-01-01', '09:45', NULL, NULL);
INSERT INTO EventVenues VALUES (2, 2), (2, 3), (3, 3), (5, 2), (2, 2);
INSERT INTO EventFunctions VALUES (2, 3), (2, 2), (3, 4), (5, 3), (2, 3);
INSERT INTO OrganizationEvents VALUES (2, 2), (3, 2), (6, 2), (2, 3), (2, 2), (2, 5), (1, 4), (5, 10);
INSERT INTO DocumentEvents VALUES (2, 2), (3, 2), (5, 2), (6, 2), (2, 3), (2, 2), (1, 2), (2, 5), (4, 1);

INSERT INTO Document_HIST (DocumentID, DocumentName, UpdateTime) VALUES
    (2, 'Zoo plan', '2003-05-06 07:08:09'), (2, 'Zoo evacuation', '2004-01-01 00:00:00'), (3, 'fire', NULL);
