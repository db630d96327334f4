-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO FileTypes VALUES (1, 'None'), (2, 'Adobe PDF'), (4, 'Web Page');
INSERT INTO Venue VALUES (1, 'Coast'), (2, 'Forest'), (3, 'City');
INSERT INTO DocumentType VALUES (1, 'None'), (2, 'Report'), (3, 'Map');
INSERT INTO DocumentCategory VALUES (1, 'None'), (2, 'Floods');
INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES
    (1, 'None', 'ACTIVE'), (7, 'Zebra Society', 'ACTIVE'), (8, 'Levee Board', 'ACTIVE'),
    (9, 'Levee Watch', 'ACTIVE');
INSERT INTO Document (DocumentID, DocumentName, Author, DocumentDescription, Notes, FileTypeID,
    OrganizationID, OriginalFilename, FileLocation, URL, KeyDocument, dStatus) VALUES
    (1, 'None', NULL, NULL, NULL, 1, 1, NULL, NULL, NULL, 0, 'ACTIVE'),
    (2, 'Old Levees', 'A. Writer', 'First line' || char(13, 10) || 'second', NULL, 4, 8, 'C:\papers\old.html', '2.html', 'http://levees.example/a b', 1, 'ACTIVE');
INSERT INTO DocumentTypes VALUES (2, 3);
INSERT INTO DocumentVenues VALUES (2, 2);
UPDATE Document SET Publication = printf('%0300d', 7);
