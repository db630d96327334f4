-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES
    (2, 'Survey', 'ACTIVE'), (3, 'Office', 'ACTIVE');
INSERT INTO Event (EventID, EventName, StartDate, EndDate, Status) VALUES
    (2, 'Flood', '1927-04-01', '1927-08-31', 'ACTIVE'), (3, 'Fire', '1928-04-01', '1928-04-02', 'ACTIVE');
INSERT INTO Document (DocumentID, DocumentName, OrganizationID, dStatus) VALUES
    (2, 'Atlas', 2, 'ACTIVE'), (3, 'Brief & "more"', NULL, 'ACTIVE');
INSERT INTO DocumentEvents (DocumentID, EventID) VALUES (2, 2);
INSERT INTO OrganizationEvents (OrganizationID, EventID) VALUES (2, 2);
