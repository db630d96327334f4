-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Document (DocumentID, DocumentName, FileTypeID, FileLocation, dStatus) VALUES
    (2, 'Atlas', 2, '2.pdf', 'ACTIVE'), (3, 'Brief', 2, '3.pdf', 'ACTIVE');
INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, Status) VALUES
    (2, 'Flood', '1927-04-01', '06:02', '1927-04-03', '06:02', 'ACTIVE');
INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES (2, 'Agency', 'ACTIVE');
