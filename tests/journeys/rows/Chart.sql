-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO DocumentType VALUES (1, 'None'), (2, 'After-Action Report'), (3, 'Maps & Charts');
INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES
    (2, 'a', 'ACTIVE'), (3, 'b', 'ACTIVE'), (4, 'c', 'ACTIVE'), (5, 'd', 'ACTIVE');
INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) VALUES (2, 2), (3, 2), (4, 2), (4, 3);
