-- SPDX-License-Identifier: GPL-3.0-or-later
CREATE TABLE Folded (Kind, ID, Name, NameBase, Description, PRIMARY KEY (Kind, ID));
        INSERT INTO FileTypes VALUES (1, 'None'), (2, 'PDF'), (3, 'étude');
        INSERT INTO DocumentType VALUES (1, 'None'), (2, 'Report'), (3, 'étude'), (4, NULL),
                (23, 'Report');
        INSERT INTO Function VALUES (1, 'None'), (2, 'Relief'), (3, 'Law'), (17, 'Rescue');
        INSERT INTO OrganizationTypes VALUES (1, 'None'), (2, 'Federal'), (3, 'Local');
        INSERT INTO OrganizationSubTypes VALUES (1, 1, 'None'), (2, 2, 'Agency');
        INSERT INTO CityLocations VALUES (5, 'austin ', 'tx', 1.5, 1.5), (2, 'Austin', 'TX', 30.25, -97.75),
            (3, 'Dallas', 'TX', 32.75, -96.75), (4, 'Boston', 'MA', 42.25, -71.5), (7, 'Waco', 'TX', NULL, NULL);

-- The known city of each organization and its position. Of several cities with one name, that with the smallest key
-- counts; an own position counts if it is whole.
CREATE VIEW Place AS
SELECT o.OrganizationID, c.LocationID,
       CASE WHEN o.Lat IS NULL OR o.Lon IS NULL THEN c.Lat ELSE o.Lat END AS Lat,
       CASE WHEN o.Lat IS NULL OR o.Lon IS NULL THEN c.Lon ELSE o.Lon END AS Lon
FROM Organization AS o LEFT JOIN CityLocations AS c ON c.LocationID = (
    SELECT min(k.LocationID) FROM CityLocations AS k
    WHERE lower(trim(k.City)) = lower(trim(o.City)) AND lower(trim(k.State)) = lower(trim(o.State)));
