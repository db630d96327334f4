-- SPDX-License-Identifier: GPL-3.0-or-later
-- A database as the program made it before there was a journal: a part of the sample, dumped by SQLite's own tool
-- together with the two settings that it leaves out.
PRAGMA application_id = 1330796100;
PRAGMA user_version = 1;
PRAGMA foreign_keys=OFF;
BEGIN TRANSACTION;
CREATE TABLE DocumentType (
    DocumentTypeID INTEGER PRIMARY KEY,
    DocumentTypeName TEXT
);
INSERT INTO DocumentType VALUES(1,'None');
INSERT INTO DocumentType VALUES(2,'Tropical Cyclone Report');
INSERT INTO DocumentType VALUES(3,'Service Assessment');
INSERT INTO DocumentType VALUES(4,'After-Action Report');
INSERT INTO DocumentType VALUES(5,'Building Performance Report');
INSERT INTO DocumentType VALUES(6,'Technical Report');
INSERT INTO DocumentType VALUES(7,'Investigation Report');
INSERT INTO DocumentType VALUES(8,'Commission Report');
INSERT INTO DocumentType VALUES(9,'Congressional or Audit Report');
INSERT INTO DocumentType VALUES(10,'Guide');
INSERT INTO DocumentType VALUES(11,'Plan or Framework');
INSERT INTO DocumentType VALUES(12,'Training Material');
INSERT INTO DocumentType VALUES(13,'Fact Sheet');
INSERT INTO DocumentType VALUES(14,'Web Page');
INSERT INTO DocumentType VALUES(15,'Periodical Article');
INSERT INTO DocumentType VALUES(16,'Data Set');
INSERT INTO DocumentType VALUES(17,'Map');
INSERT INTO DocumentType VALUES(18,'Picture');
INSERT INTO DocumentType VALUES(19,'Recording');
INSERT INTO DocumentType VALUES(20,'Law');
INSERT INTO DocumentType VALUES(21,'Collection Note');
CREATE TABLE DocumentCategory (
    DocumentCategoryID INTEGER PRIMARY KEY,
    DocumentCategoryName TEXT
);
INSERT INTO DocumentCategory VALUES(1,'None');
INSERT INTO DocumentCategory VALUES(2,'Hurricanes');
INSERT INTO DocumentCategory VALUES(3,'Earthquakes');
INSERT INTO DocumentCategory VALUES(4,'Tornadoes');
INSERT INTO DocumentCategory VALUES(5,'Floods');
INSERT INTO DocumentCategory VALUES(6,'Wildfires');
INSERT INTO DocumentCategory VALUES(7,'Volcanoes');
INSERT INTO DocumentCategory VALUES(8,'Winter Storms');
INSERT INTO DocumentCategory VALUES(9,'Drought and Heat');
INSERT INTO DocumentCategory VALUES(10,'Tsunamis');
INSERT INTO DocumentCategory VALUES(11,'Landslides');
INSERT INTO DocumentCategory VALUES(12,'Space Weather');
INSERT INTO DocumentCategory VALUES(13,'Buildings and Infrastructure');
INSERT INTO DocumentCategory VALUES(14,'Forecasts and Warnings');
INSERT INTO DocumentCategory VALUES(15,'Response and Recovery');
INSERT INTO DocumentCategory VALUES(16,'Preparedness');
INSERT INTO DocumentCategory VALUES(17,'Public Health');
INSERT INTO DocumentCategory VALUES(18,'Mitigation');
CREATE TABLE Function (
    FunctionID INTEGER PRIMARY KEY,
    FunctionName TEXT
);
INSERT INTO Function VALUES(1,'None');
INSERT INTO Function VALUES(2,'Emergency Management');
INSERT INTO Function VALUES(3,'Weather Forecasting');
INSERT INTO Function VALUES(4,'River and Flood Forecasting');
INSERT INTO Function VALUES(5,'Earthquake Monitoring');
INSERT INTO Function VALUES(6,'Volcano Monitoring');
INSERT INTO Function VALUES(7,'Tsunami Warning');
INSERT INTO Function VALUES(8,'Wildland Fire Management');
INSERT INTO Function VALUES(9,'Flood Control');
INSERT INTO Function VALUES(10,'Disaster Relief');
INSERT INTO Function VALUES(11,'Public Health');
INSERT INTO Function VALUES(12,'Search and Rescue');
INSERT INTO Function VALUES(13,'Research');
INSERT INTO Function VALUES(14,'Building Safety');
INSERT INTO Function VALUES(15,'Oversight');
INSERT INTO Function VALUES(16,'Training');
INSERT INTO Function VALUES(17,'Infrastructure and Utilities');
INSERT INTO Function VALUES(18,'Climate Records');
INSERT INTO Function VALUES(19,'Space Weather');
CREATE TABLE Venue (
    VenueID INTEGER PRIMARY KEY,
    VenueName TEXT
);
INSERT INTO Venue VALUES(1,'None');
INSERT INTO Venue VALUES(2,'Coast');
INSERT INTO Venue VALUES(3,'River Valley');
INSERT INTO Venue VALUES(4,'Mountains');
INSERT INTO Venue VALUES(5,'Forest');
INSERT INTO Venue VALUES(6,'City');
INSERT INTO Venue VALUES(13,'Dam or Levee');
INSERT INTO Venue VALUES(20,'Island');
CREATE TABLE FileTypes (
    FileTypeID INTEGER PRIMARY KEY,
    FileTypeName TEXT
);
INSERT INTO FileTypes VALUES(1,'None');
INSERT INTO FileTypes VALUES(2,'Adobe PDF');
INSERT INTO FileTypes VALUES(3,'Microsoft Word');
INSERT INTO FileTypes VALUES(4,'Web Page (HTML)');
INSERT INTO FileTypes VALUES(5,'Slide Presentation');
INSERT INTO FileTypes VALUES(6,'Photograph');
INSERT INTO FileTypes VALUES(7,'Plain Text');
INSERT INTO FileTypes VALUES(8,'Spreadsheet');
INSERT INTO FileTypes VALUES(9,'Map');
INSERT INTO FileTypes VALUES(10,'Audio Recording');
INSERT INTO FileTypes VALUES(11,'Video Recording');
CREATE TABLE OrganizationTypes (
    OrganizationTypeID INTEGER PRIMARY KEY,
    OrganizationTypeName TEXT
);
INSERT INTO OrganizationTypes VALUES(1,'None');
INSERT INTO OrganizationTypes VALUES(2,'Federal Agency');
INSERT INTO OrganizationTypes VALUES(3,'State Agency');
INSERT INTO OrganizationTypes VALUES(4,'Local Agency');
INSERT INTO OrganizationTypes VALUES(5,'Territory Agency');
INSERT INTO OrganizationTypes VALUES(6,'Regional or Joint Body');
INSERT INTO OrganizationTypes VALUES(7,'University');
INSERT INTO OrganizationTypes VALUES(8,'Voluntary Organization');
INSERT INTO OrganizationTypes VALUES(9,'Professional or Industry Association');
CREATE TABLE OrganizationSubTypes (
    OrganizationSubTypeID INTEGER PRIMARY KEY,
    OrganizationTypeID INTEGER REFERENCES OrganizationTypes (OrganizationTypeID),
    OrganizationSubTypeName TEXT
);
INSERT INTO OrganizationSubTypes VALUES(1,1,'None');
INSERT INTO OrganizationSubTypes VALUES(2,2,'Headquarters');
INSERT INTO OrganizationSubTypes VALUES(3,2,'Regional Office');
INSERT INTO OrganizationSubTypes VALUES(4,2,'National Center');
INSERT INTO OrganizationSubTypes VALUES(5,2,'Weather Forecast Office');
INSERT INTO OrganizationSubTypes VALUES(6,2,'River Forecast Center');
INSERT INTO OrganizationSubTypes VALUES(7,2,'Volcano Observatory');
INSERT INTO OrganizationSubTypes VALUES(8,2,'Science Center');
INSERT INTO OrganizationSubTypes VALUES(9,2,'Laboratory');
INSERT INTO OrganizationSubTypes VALUES(10,2,'Engineer Division or District');
INSERT INTO OrganizationSubTypes VALUES(11,2,'Land Unit');
INSERT INTO OrganizationSubTypes VALUES(12,3,'State Emergency Management');
INSERT INTO OrganizationSubTypes VALUES(13,3,'State Forestry or Fire Agency');
INSERT INTO OrganizationSubTypes VALUES(14,3,'State Geological Survey');
INSERT INTO OrganizationSubTypes VALUES(15,3,'Commission or Authority');
INSERT INTO OrganizationSubTypes VALUES(16,4,'Local Emergency Management');
INSERT INTO OrganizationSubTypes VALUES(17,4,'Local District');
INSERT INTO OrganizationSubTypes VALUES(18,4,'Fire Department');
INSERT INTO OrganizationSubTypes VALUES(19,5,'Territorial Emergency Management');
INSERT INTO OrganizationSubTypes VALUES(20,6,'Joint Board or Council');
INSERT INTO OrganizationSubTypes VALUES(21,7,'Research Center');
INSERT INTO OrganizationSubTypes VALUES(22,7,'Seismic Network');
INSERT INTO OrganizationSubTypes VALUES(23,8,'Relief Organization');
CREATE TABLE JurisdictionTypes (
    JurisdictionID INTEGER PRIMARY KEY,
    Name TEXT
);
INSERT INTO JurisdictionTypes VALUES(1,'None');
INSERT INTO JurisdictionTypes VALUES(2,'Nationwide');
INSERT INTO JurisdictionTypes VALUES(3,'Statewide');
INSERT INTO JurisdictionTypes VALUES(4,'County');
INSERT INTO JurisdictionTypes VALUES(5,'City or Town');
INSERT INTO JurisdictionTypes VALUES(6,'Tribal Lands');
INSERT INTO JurisdictionTypes VALUES(7,'Territory');
INSERT INTO JurisdictionTypes VALUES(8,'River Basin');
INSERT INTO JurisdictionTypes VALUES(9,'Coastal Waters and Oceans');
INSERT INTO JurisdictionTypes VALUES(10,'Several States');
CREATE TABLE PopulationTypes (
    PopulationID INTEGER PRIMARY KEY,
    Name TEXT
);
INSERT INTO PopulationTypes VALUES(1,'None');
INSERT INTO PopulationTypes VALUES(2,'General Public');
INSERT INTO PopulationTypes VALUES(3,'Disaster Survivors');
INSERT INTO PopulationTypes VALUES(4,'Emergency Managers');
INSERT INTO PopulationTypes VALUES(5,'First Responders');
INSERT INTO PopulationTypes VALUES(6,'Elected Officials');
INSERT INTO PopulationTypes VALUES(7,'Scientists');
INSERT INTO PopulationTypes VALUES(8,'Aviation');
INSERT INTO PopulationTypes VALUES(9,'Mariners');
INSERT INTO PopulationTypes VALUES(10,'Farmers and Ranchers');
INSERT INTO PopulationTypes VALUES(11,'Schoolchildren');
INSERT INTO PopulationTypes VALUES(12,'Homeowners');
CREATE TABLE States (
    StateID INTEGER PRIMARY KEY,
    StateAbbreviation TEXT,
    StateName TEXT
);
INSERT INTO States VALUES(1,'None','None');
INSERT INTO States VALUES(2,'AK','Alaska');
INSERT INTO States VALUES(3,'AL','Alabama');
CREATE TABLE CityLocations (
    LocationID INTEGER PRIMARY KEY,
    City TEXT,
    State TEXT,
    Lat REAL,
    Lon REAL
);
INSERT INTO CityLocations VALUES(1,'New York','NY',40.714269999999999072,-74.005970000000004917);
INSERT INTO CityLocations VALUES(2,'Los Angeles','CA',34.052230000000001553,-118.24367999999999767);
INSERT INTO CityLocations VALUES(3,'Chicago','IL',41.850029999999996733,-87.650049999999993131);
INSERT INTO CityLocations VALUES(4,'Houston','TX',29.763280000000001735,-95.363269999999999981);
CREATE TABLE Document (
    DocumentID INTEGER PRIMARY KEY,
    DocumentName TEXT,
    KeyDocument BOOLEAN,
    FileTypeID INTEGER REFERENCES FileTypes (FileTypeID),
    ReleaseForm BOOLEAN,
    OrganizationID INTEGER REFERENCES Organization (OrganizationID),
    FileLocation TEXT,
    OriginalFilename TEXT,
    Author TEXT,
    DocumentDate TEXT,
    Publication TEXT,
    PageNum TEXT,
    PubNum TEXT,
    Volume TEXT,
    URL TEXT,
    DocumentDescription TEXT,
    Notes TEXT,
    dStatus TEXT,
    UserID INTEGER,
    POCID INTEGER,
    Status TEXT
);
INSERT INTO Document VALUES(1,'None',0,1,0,1,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,'ACTIVE',1,1,'SUBMITTED');
INSERT INTO Document VALUES(2,'Tropical Cyclone Report: Hurricane Katrina',1,2,1,15,'2.pdf','tropical-cyclone-report-hurricane-katrina-summary.pdf','National Hurricane Center','12/20/2005','Tropical Cyclone Report',NULL,'AL122005',NULL,'https://www.nhc.noaa.gov/data/tcr/AL122005_Katrina.pdf','The center''s final account of the storm: its track, its surge, its losses and how good the forecasts were.',NULL,'ACTIVE',1,1,'SUBMITTED');
INSERT INTO Document VALUES(3,'Tropical Cyclone Report: Hurricane Rita',0,2,1,15,'3.pdf','AL182005_Rita-summary.pdf','National Hurricane Center','03/17/2006','Tropical Cyclone Report',NULL,'AL182005',NULL,'https://www.nhc.noaa.gov/data/tcr/AL182005_Rita.pdf','Track, strength and effects of the third storm of category 5 in the season of 2005.',NULL,'ACTIVE',1,1,'SUBMITTED');
CREATE TABLE Event (
    EventID INTEGER PRIMARY KEY,
    EventName TEXT,
    KeyEvent BOOLEAN,
    StartDate DATE TEXT,
    StartTime TIME TEXT,
    EndDate DATE TEXT,
    EndTime TIME TEXT,
    EventDescription TEXT,
    Notes TEXT,
    Status TEXT,
    UserID INTEGER
);
INSERT INTO Event VALUES(1,'None',0,NULL,NULL,NULL,NULL,NULL,NULL,'ACTIVE',1);
INSERT INTO Event VALUES(2,'Galveston hurricane of 1900',1,'1900-09-08','20:00','1900-09-09',NULL,'The deadliest natural disaster in United States history. A hurricane of category 4 struck the island city of Galveston, Texas, in the evening; the sea covered the whole city. At least 8,000 people died. A seawall was built afterwards and the city raised.',NULL,'ACTIVE',1);
INSERT INTO Event VALUES(186,'Hurricane Katrina',1,'2005-08-29','06:10','2005-08-29','06:10','The hurricane struck southeast Louisiana and then the border of Mississippi with a surge of up to 28 feet. More than 1,300 people died; it remains among the costliest disasters of the country.',NULL,'ACTIVE',1);
INSERT INTO Event VALUES(188,'Hurricane Rita',0,'2005-09-24','02:38','2005-09-24','02:38','More than two and a half million people left the coast of Texas; the storm itself struck southwest Louisiana.',NULL,'ACTIVE',1);
CREATE TABLE Organization (
    OrganizationID INTEGER PRIMARY KEY,
    OrganizationName TEXT,
    OrganizationTypeID INTEGER REFERENCES OrganizationTypes (OrganizationTypeID),
    OrganizationSubTypeID INTEGER REFERENCES OrganizationSubTypes (OrganizationSubTypeID),
    FunctionID INTEGER REFERENCES Function (FunctionID),
    Address1 TEXT,
    Address2 TEXT,
    Address3 TEXT,
    City TEXT,
    State TEXT,
    Zip TEXT,
    Telephone TEXT,
    Fax TEXT,
    Website TEXT,
    ResponseActivities TEXT,
    Lat REAL,
    Lon REAL,
    Notes TEXT,
    Status TEXT,
    UserID INTEGER,
    ParentID INTEGER REFERENCES Organization (OrganizationID)
);
INSERT INTO Organization VALUES(1,'None',1,1,1,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,'ACTIVE',1,1);
INSERT INTO Organization VALUES(2,'Federal Emergency Management Agency',2,2,2,'500 C Street SW',NULL,NULL,'Washington','DC','20472','1-800-621-3362',NULL,'https://www.fema.gov','Coordinates the federal response to declared disasters, pays for part of the recovery of people and public bodies, runs the flood insurance program and supports mitigation.',NULL,NULL,'Figures in the profile are rounded.','ACTIVE',1,1);
INSERT INTO Organization VALUES(3,'FEMA Region 1',2,3,2,NULL,NULL,NULL,'Boston','MA',NULL,NULL,NULL,NULL,'Works with the six New England states on preparedness, response and recovery.',NULL,NULL,NULL,'ACTIVE',1,1);
CREATE TABLE OrganizationProfile (
    OrganizationProfileID INTEGER REFERENCES Organization (OrganizationID),
    MissionStatement TEXT,
    SwornEmployees INTEGER,
    CivilianEmployees INTEGER,
    Volunteers INTEGER,
    AnnualBudget CURRENCY TEXT,
    Resources TEXT,
    Training TEXT,
    Other TEXT,
    OrganizationChart TEXT,
    ChartOption BOOLEAN
);
INSERT INTO OrganizationProfile VALUES(2,'To help people before, during and after disasters.',NULL,20000,NULL,NULL,'Ten regional offices, urban search and rescue task forces that it sponsors, and stocks of water, meals, cots and generators.','Runs the Emergency Management Institute and the Center for Domestic Preparedness.','Founded on April 1, 1979; part of the Department of Homeland Security since March 1, 2003.','2.pdf',1);
INSERT INTO OrganizationProfile VALUES(3,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,0);
CREATE TABLE DocumentEvents (
    DocumentID INTEGER REFERENCES Document (DocumentID),
    EventID INTEGER REFERENCES Event (EventID)
);
INSERT INTO DocumentEvents VALUES(2,186);
INSERT INTO DocumentEvents VALUES(3,188);
CREATE TABLE OrganizationEvents (
    OrganizationID INTEGER REFERENCES Organization (OrganizationID),
    EventID INTEGER REFERENCES Event (EventID)
);
INSERT INTO OrganizationEvents VALUES(2,186);
CREATE TABLE EventFunctions (
    EventID INTEGER REFERENCES Event (EventID),
    FunctionID INTEGER REFERENCES Function (FunctionID)
);
INSERT INTO EventFunctions VALUES(2,3);
INSERT INTO EventFunctions VALUES(2,10);
INSERT INTO EventFunctions VALUES(186,3);
INSERT INTO EventFunctions VALUES(186,9);
INSERT INTO EventFunctions VALUES(186,10);
INSERT INTO EventFunctions VALUES(186,12);
INSERT INTO EventFunctions VALUES(188,3);
INSERT INTO EventFunctions VALUES(188,10);
CREATE TABLE DocumentTypes (
    DocumentID INTEGER REFERENCES Document (DocumentID),
    DocumentTypeID INTEGER REFERENCES DocumentType (DocumentTypeID)
);
INSERT INTO DocumentTypes VALUES(2,2);
INSERT INTO DocumentTypes VALUES(3,2);
INSERT INTO DocumentTypes VALUES(72,6);
INSERT INTO DocumentTypes VALUES(72,8);
INSERT INTO DocumentTypes VALUES(177,18);
CREATE TABLE DocumentCategories (
    DocumentID INTEGER REFERENCES Document (DocumentID),
    DocumentCategoryID INTEGER REFERENCES DocumentCategory (DocumentCategoryID)
);
INSERT INTO DocumentCategories VALUES(2,2);
INSERT INTO DocumentCategories VALUES(2,14);
INSERT INTO DocumentCategories VALUES(3,2);
INSERT INTO DocumentCategories VALUES(3,14);
INSERT INTO DocumentCategories VALUES(72,3);
INSERT INTO DocumentCategories VALUES(177,4);
CREATE TABLE DocumentVenues (
    DocumentID INTEGER REFERENCES Document (DocumentID),
    VenueID INTEGER REFERENCES Venue (VenueID)
);
INSERT INTO DocumentVenues VALUES(2,2);
INSERT INTO DocumentVenues VALUES(3,2);
INSERT INTO DocumentVenues VALUES(72,2);
INSERT INTO DocumentVenues VALUES(72,6);
CREATE TABLE EventVenues (
    EventID INTEGER REFERENCES Event (EventID),
    VenueID INTEGER REFERENCES Venue (VenueID)
);
INSERT INTO EventVenues VALUES(2,2);
INSERT INTO EventVenues VALUES(2,6);
INSERT INTO EventVenues VALUES(2,20);
INSERT INTO EventVenues VALUES(186,2);
INSERT INTO EventVenues VALUES(186,6);
INSERT INTO EventVenues VALUES(186,13);
INSERT INTO EventVenues VALUES(188,2);
CREATE TABLE OrganizationVenues (
    OrganizationID INTEGER REFERENCES Organization (OrganizationID),
    VenueID INTEGER REFERENCES Venue (VenueID)
);
CREATE TABLE OrganizationProfileJurisdictions (
    OrganizationProfileID INTEGER REFERENCES Organization (OrganizationID),
    JurisdictionID INTEGER REFERENCES JurisdictionTypes (JurisdictionID),
    Setting INTEGER
);
INSERT INTO OrganizationProfileJurisdictions VALUES(2,1,0);
INSERT INTO OrganizationProfileJurisdictions VALUES(2,2,1);
INSERT INTO OrganizationProfileJurisdictions VALUES(2,3,0);
INSERT INTO OrganizationProfileJurisdictions VALUES(2,4,0);
INSERT INTO OrganizationProfileJurisdictions VALUES(2,5,0);
INSERT INTO OrganizationProfileJurisdictions VALUES(2,6,1);
INSERT INTO OrganizationProfileJurisdictions VALUES(2,7,1);
INSERT INTO OrganizationProfileJurisdictions VALUES(2,8,0);
INSERT INTO OrganizationProfileJurisdictions VALUES(2,9,0);
INSERT INTO OrganizationProfileJurisdictions VALUES(2,10,0);
CREATE TABLE OrganizationProfilePopulations (
    OrganizationProfileID INTEGER REFERENCES Organization (OrganizationID),
    PopulationID INTEGER REFERENCES PopulationTypes (PopulationID),
    Setting INTEGER
);
INSERT INTO OrganizationProfilePopulations VALUES(2,1,0);
INSERT INTO OrganizationProfilePopulations VALUES(2,2,1);
INSERT INTO OrganizationProfilePopulations VALUES(2,3,1);
INSERT INTO OrganizationProfilePopulations VALUES(2,4,1);
INSERT INTO OrganizationProfilePopulations VALUES(2,5,0);
INSERT INTO OrganizationProfilePopulations VALUES(2,6,1);
INSERT INTO OrganizationProfilePopulations VALUES(2,7,0);
INSERT INTO OrganizationProfilePopulations VALUES(2,8,0);
INSERT INTO OrganizationProfilePopulations VALUES(2,9,0);
INSERT INTO OrganizationProfilePopulations VALUES(2,10,0);
INSERT INTO OrganizationProfilePopulations VALUES(2,11,0);
INSERT INTO OrganizationProfilePopulations VALUES(2,12,0);
CREATE TABLE Document_HIST (
    DocumentID INTEGER REFERENCES Document (DocumentID),
    DocumentName TEXT,
    KeyDocument BOOLEAN,
    FileTypeID INTEGER,
    ReleaseForm BOOLEAN,
    OrganizationID INTEGER,
    FileLocation TEXT,
    OriginalFilename TEXT,
    Author TEXT,
    DocumentDate TEXT,
    Publication TEXT,
    PageNum TEXT,
    PubNum TEXT,
    Volume TEXT,
    URL TEXT,
    DocumentDescription TEXT,
    Notes TEXT,
    dStatus TEXT,
    UserID INTEGER,
    POCID INTEGER,
    Status TEXT,
    UpdateTime DATETIME TEXT
);
INSERT INTO Document_HIST VALUES(2,'Tropical Cyclone Report: Hurricane Katrina',1,2,1,15,'2.pdf','tropical-cyclone-report-hurricane-katrina-summary.pdf','National Hurricane Center','2005','Tropical Cyclone Report',NULL,'AL122005',NULL,'https://www.nhc.noaa.gov/data/tcr/AL122005_Katrina.pdf','The center''s final account of the storm: its track, its surge, its losses and how good the forecasts were.',NULL,'ACTIVE',1,1,'SUBMITTED','2024-03-04 09:30:00');
INSERT INTO Document_HIST VALUES(2,'Tropical Cyclone Report: Hurricane Katrina',1,2,1,15,'2.pdf','tropical-cyclone-report-hurricane-katrina-summary.pdf','National Hurricane Center','12/20/2005','Tropical Cyclone Report',NULL,'AL122005',NULL,'https://www.nhc.noaa.gov/data/tcr/AL122005_Katrina.pdf','The center''s final account of the storm: its track, its surge, its losses and how good the forecasts were.',NULL,'ACTIVE',1,1,'SUBMITTED','2024-03-04 09:33:10');
CREATE TABLE Event_HIST (
    EventID INTEGER REFERENCES Event (EventID),
    EventName TEXT,
    KeyEvent BOOLEAN,
    StartDate DATE TEXT,
    StartTime TIME TEXT,
    EndDate DATE TEXT,
    EndTime TIME TEXT,
    EventDescription TEXT,
    Notes TEXT,
    Status TEXT,
    UserID INTEGER,
    UpdateTime DATETIME TEXT
);
INSERT INTO Event_HIST VALUES(186,'Hurricane Katrina',1,'2005-08-29','06:10','2005-08-29','06:10','The hurricane struck southeast Louisiana on August 29, 2005.',NULL,'ACTIVE',1,'2024-03-04 09:12:00');
INSERT INTO Event_HIST VALUES(186,'Hurricane Katrina',0,'2005-08-29','06:10','2005-08-29','06:10','The hurricane struck southeast Louisiana and then the border of Mississippi with a surge of up to 28 feet. More than 1,300 people died; it remains among the costliest disasters of the country.',NULL,'ACTIVE',1,'2024-03-11 14:40:30');
CREATE TABLE Organization_HIST (
    OrganizationID INTEGER REFERENCES Organization (OrganizationID),
    OrganizationName TEXT,
    OrganizationTypeID INTEGER,
    OrganizationSubTypeID INTEGER,
    FunctionID INTEGER,
    Address1 TEXT,
    Address2 TEXT,
    Address3 TEXT,
    City TEXT,
    State TEXT,
    Zip TEXT,
    Telephone TEXT,
    Fax TEXT,
    Website TEXT,
    ResponseActivities TEXT,
    Lat REAL,
    Lon REAL,
    Notes TEXT,
    Status TEXT,
    UserID INTEGER,
    ParentID INTEGER,
    UpdateTime DATETIME TEXT
);
INSERT INTO Organization_HIST VALUES(2,'Federal Emergency Management Agency',2,2,2,'500 C Street SW',NULL,NULL,'Washington','DC','20472',NULL,NULL,'https://www.fema.gov','Coordinates the federal response to declared disasters, pays for part of the recovery of people and public bodies, runs the flood insurance program and supports mitigation.',NULL,NULL,'Figures in the profile are rounded.','ACTIVE',1,1,'2024-03-01 08:00:00');
INSERT INTO Organization_HIST VALUES(2,'Federal Emergency Management Agency',2,2,2,'500 C Street SW',NULL,NULL,'Washington','DC','20472','1-800-621-3362',NULL,'https://www.fema.gov','Coordinates the federal response to declared disasters, pays for part of the recovery of people and public bodies, runs the flood insurance program and supports mitigation.',NULL,NULL,'Figures in the profile are rounded.','ACTIVE',1,1,'2024-03-01 08:15:00');
CREATE INDEX DocumentList ON Document (
    DocumentName, KeyDocument, FileTypeID, ReleaseForm, OrganizationID, FileLocation, Author, DocumentDate, dStatus
);
CREATE INDEX OrganizationList ON Organization (
    OrganizationName, OrganizationTypeID, OrganizationSubTypeID, FunctionID, City, State, Lat, Lon, Status
);
CREATE INDEX OrganizationNames ON Organization (OrganizationID, OrganizationName);
CREATE INDEX DocumentByOrganization ON Document (OrganizationID);
CREATE INDEX OrganizationProfileByOrganization ON OrganizationProfile (OrganizationProfileID, ChartOption);
CREATE INDEX EventNames ON Event (EventName, Status);
CREATE INDEX EventByStart ON Event (
    StartDate, substr(StartTime, 1, 5), EndDate, substr(EndTime, 1, 5), EventName, KeyEvent, Status
);
CREATE INDEX EventByLength ON Event (
    length(CAST(julianday(EndDate) - julianday(StartDate) AS INTEGER)), StartDate, EndDate
);
CREATE INDEX EventByStartTime ON Event (StartDate, StartTime, Status);
CREATE INDEX EventByEnd ON Event (EndDate, EndTime, Status);
CREATE INDEX DocumentEventsByDocument ON DocumentEvents (DocumentID, EventID);
CREATE INDEX DocumentEventsByEvent ON DocumentEvents (EventID, DocumentID);
CREATE INDEX OrganizationEventsByOrganization ON OrganizationEvents (OrganizationID, EventID);
CREATE INDEX OrganizationEventsByEvent ON OrganizationEvents (EventID, OrganizationID);
CREATE INDEX EventFunctionsByEvent ON EventFunctions (EventID, FunctionID);
CREATE INDEX EventFunctionsByFunction ON EventFunctions (FunctionID, EventID);
CREATE INDEX DocumentTypesByDocument ON DocumentTypes (DocumentID, DocumentTypeID);
CREATE INDEX DocumentTypesByType ON DocumentTypes (DocumentTypeID, DocumentID);
CREATE INDEX DocumentCategoriesByDocument ON DocumentCategories (DocumentID, DocumentCategoryID);
CREATE INDEX DocumentCategoriesByCategory ON DocumentCategories (DocumentCategoryID, DocumentID);
CREATE INDEX DocumentVenuesByDocument ON DocumentVenues (DocumentID, VenueID);
CREATE INDEX DocumentVenuesByVenue ON DocumentVenues (VenueID, DocumentID);
CREATE INDEX EventVenuesByEvent ON EventVenues (EventID, VenueID);
CREATE INDEX EventVenuesByVenue ON EventVenues (VenueID, EventID);
CREATE INDEX OrganizationVenuesByOrganization ON OrganizationVenues (OrganizationID, VenueID);
CREATE INDEX OrganizationVenuesByVenue ON OrganizationVenues (VenueID, OrganizationID);
CREATE INDEX ProfileJurisdictions ON OrganizationProfileJurisdictions (OrganizationProfileID, JurisdictionID, Setting);
CREATE INDEX ProfilePopulations ON OrganizationProfilePopulations (OrganizationProfileID, PopulationID, Setting);
CREATE INDEX DocumentHistory ON Document_HIST (DocumentID);
CREATE INDEX EventHistory ON Event_HIST (EventID);
CREATE INDEX OrganizationHistory ON Organization_HIST (OrganizationID);
CREATE INDEX SubTypesByType ON OrganizationSubTypes (OrganizationTypeID);
CREATE VIEW Q_Document AS
SELECT
    Document.DocumentID AS DocumentID,
    Document.DocumentName AS DocumentName,
    Document.KeyDocument AS KeyDocument,
    ifnull(Document.FileTypeID, 1) AS FileTypeID,
    Document.ReleaseForm AS ReleaseForm,
    FileTypes.FileTypeName AS FileTypeName,
    Document.OrganizationID AS OrganizationID,
    Organization.OrganizationName AS OrganizationName,
    Document.FileLocation AS FileLocation,
    Document.Author AS Author,
    Document.DocumentDate AS DocumentDate,
    Document.DocumentDescription AS DocumentDescription,
    Document.dStatus AS dStatus,
    DocumentTypes.DocumentTypeID AS DocumentTypeID,
    DocumentType.DocumentTypeName AS DocumentTypeName,
    DocumentVenues.VenueID AS VenueID
FROM Document
    LEFT JOIN FileTypes ON FileTypes.FileTypeID = ifnull(Document.FileTypeID, 1)
    LEFT JOIN Organization INDEXED BY OrganizationNames
        ON Organization.OrganizationID = ifnull(Document.OrganizationID, 1)
    LEFT JOIN DocumentTypes ON DocumentTypes.DocumentID = Document.DocumentID
    LEFT JOIN DocumentType ON DocumentType.DocumentTypeID = DocumentTypes.DocumentTypeID
    LEFT JOIN DocumentVenues ON DocumentVenues.DocumentID = Document.DocumentID;
CREATE VIEW Q_Event AS
SELECT
    Event.EventID AS EventID,
    Event.EventName AS EventName,
    Event.KeyEvent AS KeyEvent,
    Event.StartDate AS StartDate,
    substr(Event.StartTime, 1, 5) AS StartTime,
    Event.EndDate AS EndDate,
    substr(Event.EndTime, 1, 5) AS EndTime,
    Event.EventDescription AS EventDescription,
    Event.Status AS Status,
    EventVenues.VenueID AS VenueID,
    EventFunctions.FunctionID AS FunctionID,
    Organization.OrganizationID AS OrganizationID,
    DocumentEvents.DocumentID AS DocumentID
FROM Event
    LEFT JOIN EventVenues ON EventVenues.EventID = Event.EventID
    LEFT JOIN EventFunctions ON EventFunctions.EventID = Event.EventID
    LEFT JOIN OrganizationEvents ON OrganizationEvents.EventID = Event.EventID
    LEFT JOIN Organization ON Organization.OrganizationID = OrganizationEvents.OrganizationID
    LEFT JOIN DocumentEvents ON DocumentEvents.EventID = Event.EventID;
CREATE VIEW Q_Organization AS
SELECT
    Organization.OrganizationID AS OrganizationID,
    Organization.OrganizationName AS OrganizationName,
    ifnull(Organization.OrganizationTypeID, 1) AS OrganizationTypeID,
    OrganizationTypes.OrganizationTypeName AS OrganizationTypeName,
    Organization.OrganizationSubTypeID AS OrganizationSubTypeID,
    OrganizationSubTypes.OrganizationSubTypeName AS OrganizationSubTypeName,
    Organization.FunctionID AS FunctionID,
    Function.FunctionName AS FunctionName,
    Organization.City AS City,
    Organization.State AS State,
    CASE WHEN Organization.Lat IS NULL OR Organization.Lon IS NULL
        THEN KnownCity.Lat ELSE Organization.Lat END AS Lat,
    CASE WHEN Organization.Lat IS NULL OR Organization.Lon IS NULL
        THEN KnownCity.Lon ELSE Organization.Lon END AS Lon,
    ifnull(KnownCity.LocationID, NULL) AS LocationID,
    Organization.ResponseActivities AS ResponseActivities,
    Organization.Status AS Status,
    OrganizationVenues.VenueID AS VenueID
FROM Organization
    LEFT JOIN OrganizationTypes
        ON OrganizationTypes.OrganizationTypeID = ifnull(Organization.OrganizationTypeID, 1)
    LEFT JOIN OrganizationSubTypes
        ON OrganizationSubTypes.OrganizationSubTypeID = ifnull(Organization.OrganizationSubTypeID, 1)
    LEFT JOIN Function ON Function.FunctionID = ifnull(Organization.FunctionID, 1)
    LEFT JOIN (
        SELECT min(LocationID) AS LocationID, lower(trim(City)) AS City, lower(trim(State)) AS State, Lat, Lon
        FROM CityLocations
        GROUP BY lower(trim(City)), lower(trim(State))
    ) AS KnownCity
        ON KnownCity.City = lower(trim(Organization.City))
        AND KnownCity.State = lower(trim(Organization.State))
    LEFT JOIN OrganizationVenues ON OrganizationVenues.OrganizationID = Organization.OrganizationID;
COMMIT;
