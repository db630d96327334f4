-- SPDX-License-Identifier: GPL-3.0-or-later
-- Records of each kind, some with several links. The expected results were counted by hand.
INSERT INTO Document (DocumentID, DocumentName, DocumentDescription, dStatus) VALUES
    (1, 'fire plan', NULL, 'ACTIVE'), (2, 'Fire Plan of the County', NULL, 'ACTIVE'),
    (3, 'Plan', 'What to do in a FIRE', 'ACTIVE'), (4, 'Report', 'a plan for fires', 'ACTIVE'),
    (5, 'fire plan', NULL, 'DELETED'), (6, '50% of O''Fallon', 'École _x_', 'ACTIVE'),
    (7, 'fireplan', NULL, 'ACTIVE'), (8, 'fire plan', NULL, NULL);
INSERT INTO DocumentTypes VALUES (2, 2), (2, 3), (4, 2), (4, 2);
INSERT INTO DocumentVenues VALUES (2, 2), (2, 3), (2, 4);
INSERT INTO Event (EventID, EventName, EventDescription, Status) VALUES
    (2, 'Fire', 'the plan', 'ACTIVE'), (3, 'Peshtigo fire', 'fire without a plan', 'ACTIVE'),
    (4, 'Пожар', NULL, 'ACTIVE');
INSERT INTO EventVenues VALUES (3, 2), (3, 3);
INSERT INTO EventFunctions VALUES (3, 2), (3, 3), (3, 4);
INSERT INTO OrganizationEvents VALUES (2, 3), (3, 3);
INSERT INTO Organization (OrganizationID, OrganizationName, ResponseActivities, Status) VALUES
    (2, 'Bureau', 'École', 'ACTIVE'), (3, 'Agency', 'plans fires', 'ACTIVE');
INSERT INTO OrganizationVenues VALUES (3, 2), (3, 3);
