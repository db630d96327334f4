-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Venue VALUES (1, 'None'), (3, 'River'), (12, 'Coast'), (2, 'Desert');
INSERT INTO FileTypes VALUES (2, 'PDF'), (3, 'Word'), (40000, 'Late');
INSERT INTO OrganizationTypes VALUES (2, 'Federal'), (3, 'State');
INSERT INTO Organization (OrganizationID, OrganizationName, OrganizationTypeID, City, State, Status) VALUES
    (2, 'Bureau', 2, 'Austin', 'TX', 'ACTIVE'), (3, 'Agency', 3, 'Coeur d''Alene', 'ID', 'ACTIVE');
INSERT INTO Document (DocumentID, DocumentName, FileTypeID, dStatus) VALUES
    (2, 'b', 2, 'ACTIVE'), (3, 'a', 2, 'ACTIVE'), (4, 'c', 3, 'ACTIVE');
INSERT INTO DocumentVenues VALUES (2, 3), (2, 12), (4, 12);
INSERT INTO DocumentTypes VALUES (2, 7), (3, 8);
INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, Status) VALUES
    (2, 'early', '2001-09-11', '08:00', '2001-09-11', 'ACTIVE'),
    (3, 'late', '2001-12-01', '08:00', '2001-12-01', 'ACTIVE');
