-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Event (EventID, EventName, KeyEvent, StartDate, StartTime, EndDate, EndTime, Status) VALUES
    (2, 'First', 1, '2001-09-01', '10:00', '2001-09-01', '10:30', 'ACTIVE'),
    (3, 'Undated', 0, NULL, NULL, NULL, NULL, 'ACTIVE'),
    (4, 'Last', 0, '2001-09-20', NULL, '2001-09-20', NULL, 'ACTIVE');
-- five on one morning
INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, Status) VALUES
    (11, 'A', '2001-09-10', '10:00', '2001-09-10', '12:00', 'ACTIVE'),
    (12, 'B', '2001-09-10', '10:01', '2001-09-10', '12:00', 'ACTIVE'),
    (13, 'C', '2001-09-10', '10:02', '2001-09-10', '12:00', 'ACTIVE'),
    (14, 'D', '2001-09-10', '10:03', '2001-09-10', '12:00', 'ACTIVE'),
    (15, 'E', '2001-09-10', '10:04', '2001-09-10', '12:00', 'ACTIVE');
