-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Document (DocumentID, DocumentName, DocumentDescription, OriginalFilename, dStatus) VALUES
    (2, 'One', 'd', 'a.pdf', 'ACTIVE'), (3, 'Three "3"', 'd', 'a.pdf', 'ACTIVE'),
    (4, 'Two', 'd', 'a.pdf', 'ACTIVE'), (5, 'Zero', 'd', 'a.pdf', 'ACTIVE');
INSERT INTO Event (EventID, EventName, Status) VALUES (2, 'Flood', 'ACTIVE');
INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES (2, 'Agency', 'ACTIVE');
