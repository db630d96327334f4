-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, Status) VALUES
    (2, 'late', '2001-12-01', '08:00', '2001-12-02', '08:00', 'ACTIVE'),
    (3, 'early', '1999-01-05', '08:00', '1999-01-05', '08:00', 'ACTIVE'),
    (4, 'longer', '1999-01-05', '08:00', '1999-01-06', '07:00', 'ACTIVE'),
    (5, 'day', '1999-01-05', NULL, '1999-01-05', NULL, 'ACTIVE');
