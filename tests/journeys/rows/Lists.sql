-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Venue VALUES (1, 'None'), (2, 'River'), (3, 'Coast');
INSERT INTO DocumentType VALUES (1, 'None'), (2, 'Report'), (3, 'Study'), (4, 'Map');
INSERT INTO FileTypes VALUES (1, 'None'), (2, 'PDF');
INSERT INTO Function VALUES (1, 'None'), (2, 'Rescue');
INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'State');
INSERT INTO OrganizationSubTypes VALUES (1, 1, 'None'), (2, 2, 'Police');
INSERT INTO States VALUES (1, 'None', ''), (2, 'TX', 'Texas');
INSERT INTO CityLocations VALUES (2, 'Austin', 'TX', 30.27, -97.74);
INSERT INTO Organization (OrganizationID, OrganizationName, OrganizationTypeID, FunctionID, City, State, Status)
    VALUES (1, 'None', 1, 1, NULL, NULL, 'ACTIVE'), (2, 'Bureau', 2, 2, 'Austin', 'TX', 'ACTIVE'),
    (3, 'Agency', 2, 2, 'AUSTIN', 'tx', 'ACTIVE');
INSERT INTO OrganizationVenues VALUES (2, 2);
INSERT INTO Document (DocumentID, DocumentName, FileTypeID, dStatus) VALUES
    (1, 'None', 1, 'ACTIVE'), (2, 'Atlas', 2, 'ACTIVE'), (3, 'Brief', 2, 'ACTIVE'), (4, 'Chart', 2, 'DELETED');
INSERT INTO DocumentTypes VALUES (2, 2), (2, 3), (3, 3), (4, 3);
INSERT INTO DocumentVenues VALUES (2, 2), (3, 2);
INSERT INTO Event (EventID, EventName, StartDate, Status) VALUES (2, 'Flood', '2001-09-11', 'ACTIVE');
INSERT INTO EventFunctions VALUES (2, 2);
