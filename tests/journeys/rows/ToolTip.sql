-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Function VALUES (1, 'None'), (2, 'NAME');
INSERT INTO DocumentType VALUES (1, 'None'), (2, 'NAME');
INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, City, State, Lat, Lon, Status) VALUES
    (2, 'NAME', 2, 'NAME', 'TX', 30.27, -97.74, 'ACTIVE');
INSERT INTO Document (DocumentID, DocumentName, Author, dStatus) VALUES (2, 'NAME', 'NAME', 'ACTIVE');
INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) VALUES (2, 2);
INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, Status) VALUES
    (2, 'NAME', '2001-09-11', '08:00', '2001-09-11', '08:00', 'ACTIVE');
