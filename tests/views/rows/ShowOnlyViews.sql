-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO CityLocations (LocationID, City, State, Lat, Lon) VALUES
    (5, 'Austin', 'TX', 30, -97), (6, 'Dallas', 'TX', 32, -96), (7, 'Reno', 'NV', 39, -119),
    (8, 'O''Fallon', 'MO', 38, -90), (40000, 'Far', 'FA', 1, 1);
INSERT INTO Organization (OrganizationID, OrganizationName, City, State, Lat, Lon, Status) VALUES
    (2, 'A', 'Austin', 'TX', NULL, NULL, 'ACTIVE'), (3, 'B', 'Dallas', 'TX', NULL, NULL, 'ACTIVE'),
    (4, 'C', 'Reno', 'NV', NULL, NULL, 'ACTIVE'), (5, 'D', 'Tiny', 'UT', 40, -111, 'ACTIVE'),
    (6, 'E', 'Dallas', 'TX', NULL, NULL, 'DELETED'), (7, 'F', 'O''Fallon', 'MO', NULL, NULL, 'ACTIVE'),
    (8, 'G', 'Small', 'UT', NULL, NULL, 'ACTIVE'), (9, 'H', 'Far', 'FA', NULL, NULL, 'ACTIVE');
INSERT INTO DocumentType VALUES (1, 'None'), (2, 'After-Action Report'), (3, 'Map'), (40000, 'Late');
INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES
    (2, 'x', 'ACTIVE'), (3, 'y', 'ACTIVE'), (4, 'z', 'ACTIVE');
INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) VALUES (2, 2), (3, 2), (3, 3), (4, 3);
