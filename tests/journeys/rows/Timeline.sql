-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Event (EventID, EventName, KeyEvent, StartDate, StartTime, EndDate, EndTime, Status) VALUES
    (2, 'Flood & <b>Fire</b>', 1, '1927-04-01', '06:00', '1927-08-31', '18:00', 'ACTIVE'),
    (3, 'Quake', 1, '1927-04-01', '06:02', '1927-04-01', '06:02', 'ACTIVE'),
    (4, 'Levee breaks', 0, '1927-04-01', '06:03', '1927-04-01', '06:03', 'ACTIVE'),
    (5, 'Storm', 0, '1930-01-01', NULL, '1930-01-02', NULL, 'ACTIVE');
