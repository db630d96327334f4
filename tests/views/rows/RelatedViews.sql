-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES
    (1, 'None', 'ACTIVE'), (2, 'A', 'ACTIVE'), (3, 'B', 'ACTIVE'), (4, 'C', 'ACTIVE'),
    (9, 'Gone', 'DELETED');
INSERT INTO Event (EventID, EventName, Status) VALUES
    (2, 'E', 'ACTIVE'), (3, 'F', 'SUBMITTED'), (4, 'G', 'ACTIVE'), (5, 'H', 'ACTIVE'),
    (9, 'Gone', 'DELETED');
INSERT INTO Document (DocumentID, DocumentName, OrganizationID, dStatus) VALUES
    (2, 'D', 2, 'ACTIVE'), (3, 'X', 9, 'ACTIVE'), (4, 'Y', NULL, 'ACTIVE'), (5, 'Z', 1, 'ACTIVE'),
    (6, 'W', 2, 'ACTIVE'), (9, 'Gone', 3, 'DELETED');
INSERT INTO DocumentEvents (DocumentID, EventID) VALUES
    (2, 2), (2, 3), (2, 3), (2, 9), (3, 9), (6, 2), (9, 3), (1, 3);
INSERT INTO OrganizationEvents (OrganizationID, EventID) VALUES
    (2, 2), (3, 2), (2, 4), (3, 9), (9, 3), (1, 3), (9, 2);
