-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Venue VALUES (1, 'Coast'), (2, 'Forest');
INSERT INTO Function VALUES (1, 'None'), (2, 'Rescue'), (3, 'Shelter');
INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES
    (1, 'None', 'ACTIVE'), (5, 'Report', 'ACTIVE');
INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES
    (1, 'None', 'ACTIVE'), (8, 'Levee Board', 'ACTIVE');
INSERT INTO Event (EventID, EventName, EventDescription, KeyEvent, StartDate, StartTime, EndDate,
    EndTime, Status) VALUES
    (1, 'None', '', 0, NULL, NULL, NULL, NULL, 'ACTIVE'),
    (2, 'Flood', 'High water', 1, '1927-04-21', '07:30:45', NULL, NULL, 'ACTIVE'),
    (3, 'Gone', 'Deleted', 0, '1930-01-01', '00:00', '1930-01-01', '00:00', 'DELETED');
INSERT INTO EventVenues VALUES (2, 2);
INSERT INTO EventFunctions VALUES (2, 3);
