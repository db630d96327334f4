-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Venue VALUES (1, 'None'), (2, 'River'), (3, 'Coast');
INSERT INTO DocumentType VALUES (1, 'None'), (2, 'Report');
INSERT INTO FileTypes VALUES (1, 'None'), (2, 'PDF');
INSERT INTO Function VALUES (1, 'None'), (2, 'Rescue');
INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, City, State, Lat, Lon, Status) VALUES
    (2, 'Bureau', 2, 'Austin', 'TX', 30.27, -97.74, 'ACTIVE'), (3, 'Agency', NULL, NULL, NULL, 40, -90, 'ACTIVE');
INSERT INTO Document (DocumentID, DocumentName, KeyDocument, FileTypeID, dStatus) VALUES
    (2, 'Atlas', 1, 2, 'ACTIVE'), (3, 'Brief', 0, 2, 'ACTIVE');
INSERT INTO DocumentTypes VALUES (2, 2), (3, 2);
INSERT INTO Event (EventID, EventName, KeyEvent, StartDate, StartTime, EndDate, EndTime, Status) VALUES
    (2, 'Flood', 1, '2001-09-11', '08:00', '2001-09-11', '09:00', 'ACTIVE'),
    (3, 'Storm', 0, '2002-09-11', '08:00', '2002-09-12', '09:00', 'ACTIVE');
