-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Function VALUES (1, 'None'), (2, 'Relief'), (3, 'Fire & Rescue'), (4, 'Law');
INSERT INTO CityLocations (LocationID, City, State, Lat, Lon) VALUES
    (5, 'Austin', 'TX', 30.27, -97.74), (6, 'Dallas', 'TX', 32.78, -96.8),
    (7, 'Reno', 'NV', 39.53, -119.81), (8, 'O''Fallon', 'MO', 38.81, -90.7);
INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, City, State, Status) VALUES
    (2, 'Alpha <b>', 2, 'Austin', 'TX', 'ACTIVE'), (3, 'Beta', 2, 'Austin', 'TX', 'ACTIVE'),
    (4, 'Gamma', 3, 'Austin', 'TX', 'ACTIVE'), (5, 'Delta', 4, 'Dallas', 'TX', 'ACTIVE'),
    (6, 'Epsilon', 4, 'Reno', 'NV', 'ACTIVE'), (7, 'Zeta', 4, 'Nowhere', 'UT', 'ACTIVE'),
    (8, 'Eta', 4, 'O''Fallon', 'MO', 'ACTIVE');
