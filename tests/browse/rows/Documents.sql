-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO FileTypes VALUES
    (1, 'None'),
    (2, 'PDF'),
    (12, 'Film');
INSERT INTO Organization (OrganizationID, OrganizationName) VALUES
    (1, 'None'),
    (7, 'Survey');
INSERT INTO Document (DocumentID, DocumentName, KeyDocument, FileTypeID, ReleaseForm, OrganizationID, FileLocation, Author, DocumentDate, dStatus) VALUES
    (2, 'Beta', 1, 2, 1, 7, '2.pdf', 'The Office', '3/1907', 'ACTIVE'),
    (3, 'alpha', 0, 12, 0, 1, '3.mpg', NULL, NULL, 'SUBMITTED'),
    (4, 'Gone', 0, 2, 1, 7, '4.pdf', NULL, NULL, 'DELETED'),
    (5, 'Delta', 0, NULL, 1, NULL, NULL, NULL, NULL, 'ACTIVE');
