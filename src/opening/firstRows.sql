-- SPDX-License-Identifier: GPL-3.0-or-later
-- The rows of a new database: the reserved row "None" of each table that has one, and the types of files, without
-- which no document could take a file. Their names hold the words by which a document's editor knows the type of a
-- file that is added.

INSERT INTO DocumentType VALUES (1, 'None');
INSERT INTO DocumentCategory VALUES (1, 'None');
INSERT INTO Function VALUES (1, 'None');
INSERT INTO Venue VALUES (1, 'None');
INSERT INTO OrganizationTypes VALUES (1, 'None');
INSERT INTO OrganizationSubTypes VALUES (1, 1, 'None');
INSERT INTO JurisdictionTypes VALUES (1, 'None');
INSERT INTO PopulationTypes VALUES (1, 'None');
INSERT INTO States VALUES (1, 'None', 'None');

INSERT INTO FileTypes VALUES
    (1, 'None'),
    (2, 'Adobe PDF'),
    (3, 'Microsoft Word'),
    (4, 'Web Page (HTML)'),
    (5, 'Slide Presentation'),
    (6, 'Photograph'),
    (7, 'Plain Text'),
    (8, 'Spreadsheet'),
    (9, 'Audio Recording'),
    (10, 'Video Recording');

INSERT INTO Organization (
    OrganizationID, OrganizationName, OrganizationTypeID, OrganizationSubTypeID, FunctionID, Status, UserID, ParentID
) VALUES (1, 'None', 1, 1, 1, 'ACTIVE', 1, 1);
INSERT INTO Event (EventID, EventName, KeyEvent, Status, UserID) VALUES (1, 'None', 0, 'ACTIVE', 1);
INSERT INTO Document (
    DocumentID, DocumentName, KeyDocument, FileTypeID, ReleaseForm, OrganizationID, dStatus, UserID, POCID, Status
) VALUES (1, 'None', 0, 1, 0, 1, 'ACTIVE', 1, 1, 'SUBMITTED');
