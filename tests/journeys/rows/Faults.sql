-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (2, 'Plan', 'ACTIVE');
INSERT INTO Event (EventID, EventName, EventDescription, Status) VALUES (2, 'Flood', 'Of the river', 'ACTIVE');
INSERT INTO Venue VALUES (2, 'Harbor');
INSERT INTO EventVenues VALUES (2, 2);
INSERT INTO Organization (OrganizationID, OrganizationName, Lat, Lon, Status) VALUES (2, 'Agency', 40, -90, 'ACTIVE');
