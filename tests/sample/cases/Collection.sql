-- SPDX-License-Identifier: GPL-3.0-or-later
-- What holds of the sample collection. The comment above each question says what it must find: at least so many,
-- a value, or none. [Kind] and [Status] stand for each of the three kinds of record and its column of that name.

-- at least 60: records of every kind that lists show
SELECT count(*) FROM [Kind] WHERE [Kind]ID > 1 AND [Status] <> 'DELETED';
-- at least 120: documents that lists show
SELECT count(*) FROM Document WHERE DocumentID > 1 AND dStatus <> 'DELETED';
-- at least 1: records of every status
SELECT count(*) FROM [Kind] WHERE [Kind]ID > 1 AND [Status] = 'DELETED';
-- at least 1: records of every status
SELECT count(*) FROM [Kind] WHERE [Kind]ID > 1 AND [Status] = 'SUBMITTED';
-- at least 1: records of every status
SELECT count(*) FROM [Kind] WHERE [Kind]ID > 1 AND [Status] IS NULL;
-- at least 3: earlier states of records
SELECT count(*) FROM [Kind]_HIST;
-- none: active names that differ by case alone
SELECT lower([Kind]Name) AS name FROM [Kind] WHERE [Status] = 'ACTIVE' GROUP BY name HAVING count(*) > 1;
-- none: updates without a sound moment
SELECT rowid FROM [Kind]_HIST WHERE datetime(UpdateTime, '+0 days') IS NOT UpdateTime;
-- exactly None: the reserved record
SELECT [Kind]Name FROM [Kind] WHERE [Kind]ID = 1 AND [Status] = 'ACTIVE';
-- at least 30: states with organizations
SELECT count(DISTINCT State) FROM Organization WHERE OrganizationID > 1 AND Status <> 'DELETED';
-- at least 17: functions of organizations
SELECT count(DISTINCT FunctionID) FROM Organization WHERE FunctionID > 1 AND Status <> 'DELETED';
-- at least 20: key events
SELECT count(*) FROM Event WHERE KeyEvent = 1;
-- at least 20: other events
SELECT count(*) FROM Event WHERE EventID > 1 AND KeyEvent = 0;
-- at least 150: events shown
SELECT count(*) FROM Event WHERE EventID > 1 AND Status <> 'DELETED';
-- at least 10: key documents
SELECT count(*) FROM Document WHERE KeyDocument = 1;
-- at least 3: documents without release
SELECT count(*) FROM Document WHERE DocumentID > 1 AND ReleaseForm = 0;
-- at least 2: file types from 10 on
SELECT count(DISTINCT FileTypeID) FROM Document WHERE FileTypeID >= 10;
-- at least 5: charts
SELECT count(*) FROM OrganizationProfile WHERE ChartOption = 1;
-- at least 2: organizations without a profile
SELECT count(*) FROM Organization WHERE OrganizationID NOT IN (SELECT OrganizationProfileID FROM OrganizationProfile);
-- at least 20: mission statements
SELECT count(MissionStatement) FROM OrganizationProfile;
-- at least 57: states, territories and None
SELECT count(*) FROM States;
-- at least 1000: known cities
SELECT count(*) FROM CityLocations;
-- at least 100: events with documents
SELECT count(DISTINCT EventID) FROM DocumentEvents;
-- at least 200: events with organizations
SELECT count(DISTINCT EventID) FROM OrganizationEvents;
-- at least 30: organizations with documents
SELECT count(DISTINCT OrganizationID) FROM Document;
-- at least 30: events: instants
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE StartDate = EndDate AND StartTime = EndTime;
-- at least 5: events: minutes
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE LENGTH > 0 AND LENGTH < 2.0 / 24;
-- at least 3: events: hours
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE LENGTH >= 2.0 / 24 AND LENGTH < 1;
-- at least 30: events: days
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE julianday(EndDate) - julianday(StartDate) BETWEEN 1 AND 14;
-- at least 15: events: months
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE julianday(EndDate) - julianday(StartDate) > 60;
-- at least 2: events: start at midnight
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE StartTime = '00:00';
-- at least 1: events: end at the last minute of a day
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE EndTime = '23:59';
-- at least 20: events: date without a time
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE StartDate IS NOT NULL AND StartTime IS NULL;
-- at least 1: events: no end
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE StartDate IS NOT NULL AND EndDate IS NULL;
-- at least 1: events: no date
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE EventID > 1 AND StartDate IS NULL AND Status IS NOT NULL;
-- at least 20: events: before 1930
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE StartDate < '1930-01-01';
-- at least 60: events: since 2010
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE StartDate >= '2010-01-01';
-- at least 50: events: begin while another lasts
SELECT count(*) FROM (SELECT *, julianday(EndDate || ' ' || EndTime) - julianday(StartDate || ' ' || StartTime) AS length FROM Event) AS Event WHERE EXISTS (SELECT 1 FROM Event AS Other WHERE Other.EventID <> Event.EventID AND Other.StartDate <= Event.StartDate AND Other.EndDate > Event.StartDate);
-- none: names that Document does not use
SELECT FileTypeName FROM FileTypes WHERE FileTypeID > 1 AND FileTypeID NOT IN (SELECT ifnull(FileTypeID, 0) FROM Document WHERE DocumentID > 1);
-- exactly None: the reserved row
SELECT FileTypeName FROM FileTypes WHERE FileTypeID = 1;
-- none: names that DocumentTypes does not use
SELECT DocumentTypeName FROM DocumentType WHERE DocumentTypeID > 1 AND DocumentTypeID NOT IN (SELECT ifnull(DocumentTypeID, 0) FROM DocumentTypes);
-- exactly None: the reserved row
SELECT DocumentTypeName FROM DocumentType WHERE DocumentTypeID = 1;
-- none: names that DocumentCategories does not use
SELECT DocumentCategoryName FROM DocumentCategory WHERE DocumentCategoryID > 1 AND DocumentCategoryID NOT IN (SELECT ifnull(DocumentCategoryID, 0) FROM DocumentCategories);
-- exactly None: the reserved row
SELECT DocumentCategoryName FROM DocumentCategory WHERE DocumentCategoryID = 1;
-- none: names that EventFunctions does not use
SELECT FunctionName FROM Function WHERE FunctionID > 1 AND FunctionID NOT IN (SELECT ifnull(FunctionID, 0) FROM EventFunctions);
-- exactly None: the reserved row
SELECT FunctionName FROM Function WHERE FunctionID = 1;
-- none: names that Organization does not use
SELECT FunctionName FROM Function WHERE FunctionID > 1 AND FunctionID NOT IN (SELECT ifnull(FunctionID, 0) FROM Organization);
-- none: names that EventVenues does not use
SELECT VenueName FROM Venue WHERE VenueID > 1 AND VenueID NOT IN (SELECT ifnull(VenueID, 0) FROM EventVenues);
-- exactly None: the reserved row
SELECT VenueName FROM Venue WHERE VenueID = 1;
-- none: names that DocumentVenues does not use
SELECT VenueName FROM Venue WHERE VenueID > 1 AND VenueID NOT IN (SELECT ifnull(VenueID, 0) FROM DocumentVenues);
-- none: names that OrganizationVenues does not use
SELECT VenueName FROM Venue WHERE VenueID > 1 AND VenueID NOT IN (SELECT ifnull(VenueID, 0) FROM OrganizationVenues);
-- none: names that Organization does not use
SELECT OrganizationTypeName FROM OrganizationTypes WHERE OrganizationTypeID > 1 AND OrganizationTypeID NOT IN (SELECT ifnull(OrganizationTypeID, 0) FROM Organization);
-- exactly None: the reserved row
SELECT OrganizationTypeName FROM OrganizationTypes WHERE OrganizationTypeID = 1;
-- none: names that Organization does not use
SELECT OrganizationSubTypeName FROM OrganizationSubTypes WHERE OrganizationSubTypeID > 1 AND OrganizationSubTypeID NOT IN (SELECT ifnull(OrganizationSubTypeID, 0) FROM Organization);
-- exactly None: the reserved row
SELECT OrganizationSubTypeName FROM OrganizationSubTypes WHERE OrganizationSubTypeID = 1;
-- none: names that OrganizationProfileJurisdictions does not use
SELECT Name FROM JurisdictionTypes WHERE JurisdictionID > 1 AND JurisdictionID NOT IN (SELECT ifnull(JurisdictionID, 0) FROM OrganizationProfileJurisdictions WHERE Setting = 1);
-- exactly None: the reserved row
SELECT Name FROM JurisdictionTypes WHERE JurisdictionID = 1;
-- none: names that OrganizationProfilePopulations does not use
SELECT Name FROM PopulationTypes WHERE PopulationID > 1 AND PopulationID NOT IN (SELECT ifnull(PopulationID, 0) FROM OrganizationProfilePopulations WHERE Setting = 1);
-- exactly None: the reserved row
SELECT Name FROM PopulationTypes WHERE PopulationID = 1;
-- exactly None: the reserved row
SELECT StateAbbreviation FROM States WHERE StateID = 1;
-- none: dates that are not in held form
SELECT EventName FROM Event WHERE date(StartDate, '+0 days') IS NOT StartDate OR date(EndDate, '+0 days') IS NOT EndDate;
-- none: times that are not in held form
SELECT EventName FROM Event WHERE strftime('%H:%M', StartTime) IS NOT StartTime OR strftime('%H:%M', EndTime) IS NOT EndTime;
-- none: events before the collection begins
SELECT EventName FROM Event WHERE StartDate < '1900-01-01';
-- none: events that end before they start
SELECT EventName FROM Event WHERE EndDate || ifnull(EndTime, '24') < StartDate || ifnull(StartTime, '');
-- none: links that lead nowhere
SELECT "table" || ' row ' || rowid || ' to ' || parent FROM pragma_foreign_key_check;
-- exactly ok: the soundness of the file
PRAGMA integrity_check;
-- none: links to the reserved row, which would show as a blank line
SELECT rowid FROM DocumentEvents WHERE EventID = 1 OR DocumentID = 1;
-- none: links to the reserved row
SELECT rowid FROM OrganizationEvents WHERE EventID = 1 OR OrganizationID = 1;
-- exactly 1: documents that say that they have no type
SELECT count(*) FROM DocumentTypes WHERE DocumentTypeID = 1;
-- exactly 0: settings that profiles leave out
SELECT (SELECT count(*) FROM OrganizationProfile) * (SELECT count(*) FROM JurisdictionTypes) - count(*) FROM OrganizationProfileJurisdictions;
-- exactly 0: settings that profiles leave out
SELECT (SELECT count(*) FROM OrganizationProfile) * (SELECT count(*) FROM PopulationTypes) - count(*) FROM OrganizationProfilePopulations;
-- none: profiles without a population
SELECT OrganizationProfileID FROM OrganizationProfile WHERE OrganizationProfileID NOT IN (SELECT OrganizationProfileID FROM OrganizationProfilePopulations WHERE Setting = 1);
-- at least 10: organizations with a position of their own
SELECT count(*) FROM Organization WHERE Lat IS NOT NULL AND Lon IS NOT NULL;
-- at least 30: known cities with organizations
SELECT count(DISTINCT LocationID) FROM Q_Organization JOIN Organization USING (OrganizationID) WHERE Organization.Lat IS NULL;
-- at least 3: organizations with a position of their own in a known city
SELECT count(*) FROM Organization WHERE Lat IS NOT NULL AND EXISTS (SELECT 1 FROM CityLocations WHERE CityLocations.City = Organization.City AND CityLocations.State = Organization.State);
-- none: organizations in an unknown city without a position
SELECT DISTINCT OrganizationName FROM Q_Organization WHERE OrganizationID > 1 AND Lat IS NULL AND City IS NOT NULL;
-- at least 2: organizations without a place
SELECT count(DISTINCT OrganizationID) FROM Q_Organization WHERE OrganizationID > 1 AND Lat IS NULL AND Status = 'ACTIVE';
-- none: documents whose file is not named by their number and the ending of the original
SELECT DocumentName FROM Document WHERE DocumentID > 1 AND ifnull(FileLocation, '') <> iif(instr(ifnull(OriginalFilename, ''), '.'), DocumentID || '.' || replace(OriginalFilename, rtrim(OriginalFilename, replace(OriginalFilename, '.', '')), ''), '');
-- none: charts that are not named by the number of the organization
SELECT OrganizationChart FROM OrganizationProfile WHERE ChartOption = 1 AND OrganizationChart NOT LIKE OrganizationProfileID || '.%';
