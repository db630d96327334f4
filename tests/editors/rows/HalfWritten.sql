-- SPDX-License-Identifier: GPL-3.0-or-later
-- The records whose tables hold different versions: a document keeps its version in its volume, the others in their
-- notes.
CREATE VIEW HalfWritten AS
SELECT 'document', DocumentID FROM Document d WHERE DocumentID > 4 AND NOT (
    (SELECT count(*) FROM Document_HIST h WHERE h.DocumentID = d.DocumentID) = d.Volume
    AND (SELECT count(*) FROM DocumentTypes t WHERE t.DocumentID = d.DocumentID) = d.Volume + 0
    AND (SELECT count(*) FROM DocumentCategories c WHERE c.DocumentID = d.DocumentID) = d.Volume + 0
    AND (SELECT count(*) FROM DocumentVenues v WHERE v.DocumentID = d.DocumentID) = 2 * (d.Volume - 1))
UNION ALL
SELECT 'event', EventID FROM Event e WHERE EventID > 3 AND NOT (
    (SELECT count(*) FROM Event_HIST h WHERE h.EventID = e.EventID) = e.Notes + 0
    AND (SELECT count(*) FROM EventVenues v WHERE v.EventID = e.EventID) = e.Notes + 0
    AND (SELECT count(*) FROM EventFunctions f WHERE f.EventID = e.EventID) = e.Notes + 0
    AND (SELECT count(*) FROM DocumentEvents d WHERE d.EventID = e.EventID) = e.Notes + 0
    AND (SELECT count(*) FROM OrganizationEvents o WHERE o.EventID = e.EventID) = e.Notes + 0)
UNION ALL
SELECT 'organization', OrganizationID FROM Organization o WHERE OrganizationID > 5 AND NOT (
    (SELECT count(*) FROM Organization_HIST h WHERE h.OrganizationID = o.OrganizationID) = o.Notes + 0
    AND (SELECT sum(Volunteers) FROM OrganizationProfile p WHERE OrganizationProfileID = OrganizationID)
        = o.Notes + 0
    AND (SELECT sum(Setting) FROM OrganizationProfileJurisdictions
         WHERE OrganizationProfileID = OrganizationID) = o.Notes + 0
    AND (SELECT sum(Setting) FROM OrganizationProfilePopulations WHERE OrganizationProfileID = OrganizationID)
        = o.Notes + 0
    AND (SELECT count(*) FROM OrganizationVenues v WHERE v.OrganizationID = o.OrganizationID) = o.Notes + 0);
