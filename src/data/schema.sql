-- SPDX-License-Identifier: GPL-3.0-or-later
-- The schema of an Orvik database.
--
-- One plain SQLite file. Built-in collations only, so that any SQLite tool can open, check and repair it.
-- A new collection, the importer and the builders of sample data run this script; an existing file is
-- given what it lacks of the journal, once.
--
-- Held forms:  DATE TEXT      YYYY-MM-DD
--              TIME TEXT      HH:MM, or HH:MM:SS where an import brought seconds
--              DATETIME TEXT  YYYY-MM-DD HH:MM:SS
--              BOOLEAN        0 or 1
--              CURRENCY TEXT  a decimal number, exact
-- `DocumentDate` is text, as typed. Row 1 of a main or lookup table is the reserved row "None".
-- The references below document the links; they are not enforced, since imported data may hold orphans.

PRAGMA application_id = 1330796100; -- 'OR' 'VD'
PRAGMA user_version = 2;

BEGIN;

-- Lookup tables -----------------------------------------------------------------------------------

CREATE TABLE DocumentType (
    DocumentTypeID INTEGER PRIMARY KEY,
    DocumentTypeName TEXT
);

CREATE TABLE DocumentCategory (
    DocumentCategoryID INTEGER PRIMARY KEY,
    DocumentCategoryName TEXT
);

CREATE TABLE Function (
    FunctionID INTEGER PRIMARY KEY,
    FunctionName TEXT
);

CREATE TABLE Venue (
    VenueID INTEGER PRIMARY KEY,
    VenueName TEXT
);

CREATE TABLE FileTypes (
    FileTypeID INTEGER PRIMARY KEY,
    FileTypeName TEXT
);

CREATE TABLE OrganizationTypes (
    OrganizationTypeID INTEGER PRIMARY KEY,
    OrganizationTypeName TEXT
);

CREATE TABLE OrganizationSubTypes (
    OrganizationSubTypeID INTEGER PRIMARY KEY,
    OrganizationTypeID INTEGER REFERENCES OrganizationTypes (OrganizationTypeID),
    OrganizationSubTypeName TEXT
);

CREATE TABLE JurisdictionTypes (
    JurisdictionID INTEGER PRIMARY KEY,
    Name TEXT
);

CREATE TABLE PopulationTypes (
    PopulationID INTEGER PRIMARY KEY,
    Name TEXT
);

CREATE TABLE States (
    StateID INTEGER PRIMARY KEY,
    StateAbbreviation TEXT,
    StateName TEXT
);

CREATE TABLE CityLocations (
    LocationID INTEGER PRIMARY KEY,
    City TEXT,
    State TEXT,
    Lat REAL,
    Lon REAL
);

-- Main tables -------------------------------------------------------------------------------------

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

-- The identifier is that of the organization. It is not declared a key: imported data may hold two
-- profiles for one organization, and both are kept.
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

-- Link tables -------------------------------------------------------------------------------------
-- Repeated rows may occur and count once.

CREATE TABLE DocumentEvents (
    DocumentID INTEGER REFERENCES Document (DocumentID),
    EventID INTEGER REFERENCES Event (EventID)
);

CREATE TABLE OrganizationEvents (
    OrganizationID INTEGER REFERENCES Organization (OrganizationID),
    EventID INTEGER REFERENCES Event (EventID)
);

CREATE TABLE EventFunctions (
    EventID INTEGER REFERENCES Event (EventID),
    FunctionID INTEGER REFERENCES Function (FunctionID)
);

CREATE TABLE DocumentTypes (
    DocumentID INTEGER REFERENCES Document (DocumentID),
    DocumentTypeID INTEGER REFERENCES DocumentType (DocumentTypeID)
);

CREATE TABLE DocumentCategories (
    DocumentID INTEGER REFERENCES Document (DocumentID),
    DocumentCategoryID INTEGER REFERENCES DocumentCategory (DocumentCategoryID)
);

CREATE TABLE DocumentVenues (
    DocumentID INTEGER REFERENCES Document (DocumentID),
    VenueID INTEGER REFERENCES Venue (VenueID)
);

CREATE TABLE EventVenues (
    EventID INTEGER REFERENCES Event (EventID),
    VenueID INTEGER REFERENCES Venue (VenueID)
);

CREATE TABLE OrganizationVenues (
    OrganizationID INTEGER REFERENCES Organization (OrganizationID),
    VenueID INTEGER REFERENCES Venue (VenueID)
);

CREATE TABLE OrganizationProfileJurisdictions (
    OrganizationProfileID INTEGER REFERENCES Organization (OrganizationID),
    JurisdictionID INTEGER REFERENCES JurisdictionTypes (JurisdictionID),
    Setting INTEGER
);

CREATE TABLE OrganizationProfilePopulations (
    OrganizationProfileID INTEGER REFERENCES Organization (OrganizationID),
    PopulationID INTEGER REFERENCES PopulationTypes (PopulationID),
    Setting INTEGER
);

-- History: a copy of a record for each time it was saved ------------------------------------------

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

-- Journal: every change to records and lists, with what was there before and after -----------------
-- Rows are added in the transaction of the change and never altered. A step is what one command did, as the
-- deletion of several records; its rows have the number of the first of them in `Step`. `What` is add, change,
-- delete, restore or list; `Kind` is Document, Event or Organization or, of a list, its table. `Before` and
-- `After` are JSON: an object with the rows of each table as an array of objects, for a record all of them with
-- the names of what it is linked to, for a list those that changed; NULL if there were none. `Reverses` is the
-- step that this one took back, or that it did again. `UndoStep` and `RedoStep` are the steps that the commands
-- of these names take back from here on; 0 if there is none. The long texts come last, so that the rest is read
-- without them. A row of the kind `Uploads` belongs to no step: it tells of a document's file that was replaced while
-- the record stayed as it was.

CREATE TABLE Journal (
    Number INTEGER PRIMARY KEY,
    Step INTEGER NOT NULL,
    Moment DATETIME TEXT NOT NULL,
    What TEXT NOT NULL,
    Kind TEXT NOT NULL,
    Identifier INTEGER NOT NULL,
    Title TEXT,
    Reverses INTEGER,
    UndoStep INTEGER NOT NULL,
    RedoStep INTEGER NOT NULL,
    Before TEXT,
    After TEXT
);

CREATE INDEX JournalOfRecord ON Journal (Kind, Identifier, Number);
-- when a record was deleted
CREATE INDEX JournalOfDeletion ON Journal (Kind, Identifier, Moment, What) WHERE What = 'delete';

-- Indexes -----------------------------------------------------------------------------------------
-- Both directions of every link, and what the lists, the timeline's limits and its window ask for. The lists
-- are answered from an index that holds just what they show: the descriptions beside it are ten times as long.

CREATE INDEX DocumentList ON Document (
    DocumentName, KeyDocument, FileTypeID, ReleaseForm, OrganizationID, FileLocation, Author, DocumentDate, dStatus
);
CREATE INDEX OrganizationList ON Organization (
    OrganizationName, OrganizationTypeID, OrganizationSubTypeID, FunctionID, City, State, Lat, Lon, Status
);
CREATE INDEX OrganizationNames ON Organization (OrganizationID, OrganizationName);
CREATE INDEX DocumentByOrganization ON Document (OrganizationID);
CREATE INDEX OrganizationProfileByOrganization ON OrganizationProfile (OrganizationProfileID, ChartOption);

-- the names that are taken already, as a new event is asked about
CREATE INDEX EventNames ON Event (EventName, Status);
CREATE INDEX EventByStart ON Event (
    StartDate, substr(StartTime, 1, 5), EndDate, substr(EndTime, 1, 5), EventName, KeyEvent, Status
);
-- What still runs at a moment may have begun long before it: events are kept apart by how many digits the
-- number of their days has, so that each kind is looked for only as far back as it can reach.
CREATE INDEX EventByLength ON Event (
    length(CAST(julianday(EndDate) - julianday(StartDate) AS INTEGER)), StartDate, EndDate
);
-- the limits of the timeline: the first and the last moment, with times as they are held
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

-- Stored queries ----------------------------------------------------------------------------------
-- Outer joins only, so that no record is lost for want of a link. A column's name is the last part of
-- its source; a missing key stands for the reserved row "None", whose name it shows. Where a search can ask
-- for that row, it finds the missing keys too.

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

-- An organization's own position comes first; where it has none, that of the known city of its name
-- and state does, of two such cities the one with the smaller identifier. `ifnull` keeps a condition on the
-- city from turning the join around: each organization looks its city up, no city looks through all of them.
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
