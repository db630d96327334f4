-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO OrganizationTypes VALUES
    (1, 'None'),
    (2, 'Agency');
INSERT INTO OrganizationSubTypes VALUES
    (1, 1, 'None'),
    (2, 2, 'State');
INSERT INTO Function VALUES
    (1, 'None'),
    (2, 'Rescue');
INSERT INTO Organization (OrganizationID, OrganizationName, OrganizationTypeID, OrganizationSubTypeID, FunctionID, City, State, Status) VALUES
    (2, 'A', 2, 2, 2, 'Austin', 'TX', 'ACTIVE'),
    (3, 'B', 2, 1, 1, 'Austin', NULL, 'ACTIVE'),
    (4, 'C', 2, 1, 2, NULL, 'TX', 'ACTIVE'),
    (5, 'D', NULL, NULL, NULL, 'Austin', 'None', 'ACTIVE'),
    (6, 'E', 1, 1, 1, '', '', 'ACTIVE');
INSERT INTO OrganizationProfile (OrganizationProfileID, ChartOption) VALUES
    (2, 1),
    (3, 0),
    (4, 1),
    (4, 1);
