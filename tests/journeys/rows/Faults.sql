INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (2, 'Plan', 'ACTIVE');
INSERT INTO Event (EventID, EventName, Status) VALUES (2, 'Flood', 'ACTIVE');
INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES (2, 'Agency', 'ACTIVE');
