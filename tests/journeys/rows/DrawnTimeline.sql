-- SPDX-License-Identifier: GPL-3.0-or-later
INSERT INTO Event (EventID, EventName, KeyEvent, StartDate, StartTime, EndDate, EndTime, Status) VALUES
    (2, 'Flood', 1, '1927-04-01', '06:02', '1927-04-01', '06:07', 'ACTIVE'),
    (3, 'Fire', 0, '1927-04-01', '06:03', '1927-04-01', '06:09', 'ACTIVE'),
    (4, 'Quake', 1, '1927-04-01', '06:04', '1927-04-01', '06:04', 'ACTIVE'),
    (5, 'Storm', 0, '1927-04-01', '06:05', NULL, NULL, 'ACTIVE'),
    (6, 'Drought', 0, '1927-04-01', '06:06', '1927-05-01', '18:07', 'ACTIVE');
