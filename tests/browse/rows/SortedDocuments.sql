-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Document (DocumentID, DocumentName, KeyDocument, DocumentDate, dStatus) VALUES
    (2, 'b', 1, '12/01/1999', 'ACTIVE'),
    (3, 'A', 0, '02/01/2001', 'ACTIVE'),
    (4, 'É', 1, 'undated', 'ACTIVE'),
    (5, 'e', 0, '1907', 'ACTIVE'),
    (6, 'f', 0, 'March 1907', 'ACTIVE');
