-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Venue VALUES (1, 'Coast'), (2, 'Forest');
INSERT INTO Function VALUES (1, 'None'), (2, 'Rescue');
INSERT INTO States VALUES (1, 'None', ''), (2, 'OR', 'Oregon'), (3, 'WA', 'Washington');
INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'State'), (3, 'Private');
INSERT INTO OrganizationSubTypes VALUES (1, 1, 'None'), (4, 2, 'Police'), (3, 2, 'Zoo');
INSERT INTO JurisdictionTypes VALUES (1, 'City'), (2, 'County');
INSERT INTO PopulationTypes VALUES (1, 'Adults'), (2, 'Children');
INSERT INTO Organization (OrganizationID, OrganizationName, City, State, Website,
    OrganizationTypeID, OrganizationSubTypeID, FunctionID, Lat, Lon, Status) VALUES
    (1, 'None', NULL, NULL, NULL, 1, 1, 1, NULL, NULL, 'ACTIVE'),
    (2, 'Ferry Service', 'Astoria', 'XX', 'ferry.example', 2, 4, 2, 46.2, -123.8, 'ACTIVE');
INSERT INTO OrganizationProfile (OrganizationProfileID, MissionStatement, SwornEmployees,
    OrganizationChart, ChartOption) VALUES
    (2, 'To ferry', 12, 'C:\charts\ferry.pdf', 1);
INSERT INTO OrganizationProfileJurisdictions VALUES (2, 1, 0), (2, 2, 1);
