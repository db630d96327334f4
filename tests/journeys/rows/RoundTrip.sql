-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Venue VALUES (3, 'Coast'), (4, 'Forest'), (5, 'City'), (6, 'River'), (40000, 'Far');
INSERT INTO FileTypes VALUES (1, 'None'), (2, 'Adobe PDF'), (3, 'Map'), (4, 'Web Page');
INSERT INTO DocumentType VALUES (1, 'None'), (7, 'Report'), (8, 'Plan'), (9, 'Letter');
INSERT INTO DocumentCategory VALUES (1, 'None'), (10, 'Floods'), (11, 'Fires');
INSERT INTO Function VALUES (1, 'None'), (12, 'Rescue'), (13, 'Shelter');
INSERT INTO States VALUES (1, 'None', ''), (2, 'OR', 'Oregon'), (3, 'WA', 'Washington');
INSERT INTO OrganizationTypes VALUES (1, 'None'), (14, 'State'), (15, 'Private');
INSERT INTO OrganizationSubTypes VALUES (1, 1, 'None'), (16, 15, 'Club'), (17, 15, 'Firm');
INSERT INTO JurisdictionTypes VALUES (18, 'Town'), (19, 'County'), (20, 'Port');
INSERT INTO PopulationTypes VALUES (21, 'Adults'), (22, 'Children');
INSERT INTO Organization (OrganizationID, OrganizationName, Lat, Lon, Status) VALUES
    (1, 'None', NULL, NULL, 'ACTIVE'), (23, 'Levee Board', 1.5, 2.5, 'ACTIVE'), (24, 'Harbor Watch', NULL, NULL, 'ACTIVE'),
    (22, 'Ferry Service', NULL, NULL, 'DELETED');
INSERT INTO OrganizationProfile (OrganizationProfileID, Training, ChartOption) VALUES (23, 'theirs', 0);
INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES
    (1, 'None', 'ACTIVE'), (25, 'Old Levees', 'ACTIVE'), (27, 'Other', 'ACTIVE'), (24, 'Levees "of" 1927, 100%', 'DELETED');
INSERT INTO Event (EventID, EventName, Status) VALUES (1, 'None', 'ACTIVE'), (27, 'Storm', 'ACTIVE'), (26, 'Flood', 'DELETED');
INSERT INTO DocumentVenues VALUES (27, 3);
INSERT INTO EventVenues VALUES (27, 4);
INSERT INTO OrganizationVenues VALUES (23, 5);
