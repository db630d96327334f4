-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Venue VALUES (1, 'None'), (2, 'Coast'), (3, 'Forest');
INSERT INTO FileTypes VALUES (1, 'None'), (2, 'Adobe PDF');
INSERT INTO DocumentType VALUES (1, 'None'), (2, 'Plan'), (3, 'Report');
INSERT INTO DocumentCategory VALUES (1, 'None'), (2, 'Floods');
INSERT INTO Function VALUES (1, 'None'), (2, 'Law'), (3, 'Relief');
INSERT INTO States VALUES (1, 'None', ''), (2, 'TX', 'Texas'), (3, 'NV', 'Nevada');
INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'State');
INSERT INTO OrganizationSubTypes VALUES (1, 1, 'None'), (2, 2, 'Board');
INSERT INTO JurisdictionTypes VALUES (2, 'Town');
INSERT INTO PopulationTypes VALUES (2, 'Adults');
INSERT INTO CityLocations (LocationID, City, State, Lat, Lon) VALUES
    (5, 'Austin', 'TX', 30.27, -97.74), (6, 'Reno', 'NV', 39.53, -119.81);
INSERT INTO Organization (OrganizationID, OrganizationName, OrganizationTypeID, OrganizationSubTypeID, FunctionID, City, State, Status)
    VALUES (1, 'None', 1, 1, 1, NULL, NULL, 'ACTIVE'), (2, 'Levee Board', 2, 2, 2, 'Austin', 'TX', 'ACTIVE'),
    (3, 'Watch', 1, 1, 3, 'Reno', 'NV', 'ACTIVE');
INSERT INTO OrganizationVenues VALUES (2, 2);
INSERT INTO Document (DocumentID, DocumentName, DocumentDescription, Author, DocumentDate, FileTypeID, OrganizationID, OriginalFilename, FileLocation, URL, KeyDocument, dStatus)
    VALUES (1, 'None', NULL, NULL, NULL, 1, 1, NULL, NULL, NULL, 0, 'ACTIVE'),
    (2, 'Levees', 'About levees', 'A. Writer', '12/01/1999', 2, 2, '/papers/levees.pdf', '2.pdf', 'http://levees.example', 1, 'ACTIVE'),
    (3, 'Fires', NULL, NULL, NULL, 1, 1, NULL, NULL, NULL, 0, 'ACTIVE');
INSERT INTO DocumentTypes VALUES (2, 2), (2, 3), (3, 3);
INSERT INTO DocumentCategories VALUES (2, 2);
INSERT INTO DocumentVenues VALUES (2, 3);
INSERT INTO Event (EventID, EventName, EventDescription, KeyEvent, StartDate, StartTime, EndDate, EndTime, Status) VALUES
    (1, 'None', NULL, 0, NULL, NULL, NULL, NULL, 'ACTIVE'),
    (2, 'Flood', 'High water', 1, '1927-04-01', '06:02', '1927-04-01', '06:07', 'ACTIVE'),
    (3, 'Quake', NULL, 1, '1927-04-01', '06:04', '1927-04-01', '06:04', 'ACTIVE'),
    (4, 'Storm', NULL, 0, '1927-04-01', '06:03', NULL, NULL, 'ACTIVE');
INSERT INTO EventVenues VALUES (2, 2);
INSERT INTO EventFunctions VALUES (2, 3);
INSERT INTO DocumentEvents VALUES (2, 2);
INSERT INTO OrganizationEvents VALUES (2, 2);
