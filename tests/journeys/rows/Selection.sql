-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, Status) VALUES
    (2, 'Flood', '1927-04-01', '06:00', '1927-08-31', '18:00', 'ACTIVE'),
    (3, 'Quake', '1927-04-01', '06:02', '1927-04-01', '06:02', 'ACTIVE'),
    (4, 'Slide', '1927-04-01', '06:03', '1927-04-01', '06:03', 'ACTIVE');
INSERT INTO Function VALUES (1, 'None'), (2, 'Relief');
INSERT INTO Venue VALUES (1, 'None'), (2, 'Coast');
INSERT INTO States VALUES (1, 'None', ''), (2, 'NV', 'Nevada');
INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'State');
INSERT INTO OrganizationSubTypes VALUES (1, 1, 'None');
INSERT INTO CityLocations (LocationID, City, State, Lat, Lon) VALUES
    (5, 'Austin', 'TX', 30.27, -97.74), (6, 'Dallas', 'TX', 32.78, -96.8),
    (7, 'Reno', 'NV', 39.53, -119.81);
INSERT INTO Organization (OrganizationID, OrganizationName, FunctionID, City, State, Status) VALUES
    (2, 'Alpha', 2, 'Austin', 'TX', 'ACTIVE'), (3, 'Beta', 2, 'Dallas', 'TX', 'ACTIVE');
