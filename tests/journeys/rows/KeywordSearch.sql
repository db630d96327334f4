-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Document (DocumentID, DocumentName, DocumentDescription, dStatus) VALUES
    (1, 'None', NULL, 'ACTIVE'), (2, 'Fire plan', NULL, 'ACTIVE'), (3, 'Report', 'a plan for FIRES', 'ACTIVE'),
    (4, 'Map', NULL, 'ACTIVE');
INSERT INTO Event (EventID, EventName, StartDate, EndDate, Status) VALUES
    (2, 'Fire & flood', '1927-04-01', '1927-04-01', 'ACTIVE'),
    (3, 'Quake', '1927-04-01', '1927-04-01', 'ACTIVE');
INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES (2, 'Agency', 'ACTIVE');
