-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO FileTypes VALUES (1, 'None'), (2, 'PDF'), (6, 'Picture');
INSERT INTO Document (DocumentID, DocumentName, FileTypeID, ReleaseForm, FileLocation, dStatus) VALUES
    (2, 'Local', 2, 0, '2.pdf', 'ACTIVE'), (3, 'On disc', 2, 1, '3.pdf', 'ACTIVE'),
    (4, 'Photo', 6, 1, '4.jpg', 'ACTIVE'), (5, 'Secret', 2, 0, '5.pdf', 'ACTIVE'),
    (6, 'Way out', 2, 1, '../../6.pdf', 'ACTIVE');
INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES
    (2, 'Charted', 'ACTIVE'), (3, 'Plain', 'ACTIVE');
INSERT INTO OrganizationProfile (OrganizationProfileID, OrganizationChart, ChartOption) VALUES
    (2, '/home/user/tree.png', 1);
