-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (2, 'Plan', 'ACTIVE');
INSERT INTO Event (EventID, EventName, Status) VALUES (2, 'Flood', 'ACTIVE');
INSERT INTO Organization (OrganizationID, OrganizationName, Lat, Lon, Status) VALUES (2, 'Agency', 40, -90, 'ACTIVE');
