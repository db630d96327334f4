-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Venue VALUES (1, 'Coast'), (2, 'Forest');
INSERT INTO Function VALUES (1, 'None'), (2, 'Rescue');
INSERT INTO FileTypes VALUES (1, 'None'), (2, 'Adobe PDF');
INSERT INTO DocumentType VALUES (1, 'None'), (2, 'Report');
INSERT INTO DocumentCategory VALUES (1, 'None'), (2, 'Floods');
INSERT INTO JurisdictionTypes VALUES (3, 'Town');
INSERT INTO PopulationTypes VALUES (3, 'Adults');
INSERT INTO States VALUES (1, 'None', ''), (2, 'OR', 'Oregon');
INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'State'), (3, 'Private');
INSERT INTO OrganizationSubTypes VALUES (1, 1, 'None'), (4, 2, 'Police'), (5, 3, 'Club');
INSERT INTO Document (DocumentID, DocumentName, DocumentDescription, FileTypeID, OrganizationID,
    OriginalFilename, FileLocation, dStatus) VALUES
    (2, 'Levees', 'About levees', 2, 2, 'a.pdf', '2.pdf', 'ACTIVE');
INSERT INTO Event (EventID, EventName, EventDescription, StartDate, Status) VALUES
    (2, 'Flood', 'High water', '1927-04-21', 'ACTIVE');
INSERT INTO EventVenues VALUES (2, 2);
INSERT INTO Organization (OrganizationID, OrganizationName, State, OrganizationTypeID, OrganizationSubTypeID,
    FunctionID, Status) VALUES (1, 'None', NULL, 1, 1, 1, 'ACTIVE'), (2, 'Levee Board', 'OR', 2, 4, 2, 'ACTIVE');
INSERT INTO OrganizationProfile (OrganizationProfileID, MissionStatement, ChartOption) VALUES (2, 'First', 0);
