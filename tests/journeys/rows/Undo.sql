-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Venue VALUES (2, 'Coast');
INSERT INTO Document (DocumentID, DocumentName, DocumentDescription, OriginalFilename, FileLocation, dStatus) VALUES
    (2, 'One', 'd', 'a.pdf', '2.pdf', 'ACTIVE'), (3, 'Tea & "Cake"', 'd', 'a.pdf', '3.pdf', 'ACTIVE'),
    (4, 'Two', 'd', 'a.pdf', '4.pdf', 'ACTIVE'), (5, 'Zero', 'd', 'a.pdf', '5.pdf', 'ACTIVE');
INSERT INTO Event (EventID, EventName, EventDescription, StartDate, StartTime, Status) VALUES
    (2, 'Flood', 'High water', '1927-04-21', '07:30', 'ACTIVE'), (3, 'Storm', 'Wind', '1930-01-01', '00:00', 'ACTIVE');
INSERT INTO EventVenues VALUES (2, 2), (3, 2);
