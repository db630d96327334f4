-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Document (DocumentID, DocumentName, DocumentDate, dStatus) VALUES
    (1, 'None', NULL, 'ACTIVE'), (2, 'Beta', '12/01/1999', 'ACTIVE'), (3, 'alpha', '1907', 'ACTIVE'),
    (4, 'Delta', NULL, 'DELETED');
INSERT INTO Event (EventID, EventName, KeyEvent, StartDate, StartTime, EndDate, EndTime, Status) VALUES
    (2, 'Flood & Fire', 1, '1927-04-01', '06:00', '1927-08-31', '18:00', 'ACTIVE');
INSERT INTO Organization (OrganizationID, OrganizationName, City, State, Status) VALUES
    (2, 'Agency', 'Austin', 'TX', 'ACTIVE'), (3, 'Bureau', 'Boston', 'MA', 'ACTIVE');
