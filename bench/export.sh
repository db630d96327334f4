#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Compares the export of 32,000 documents with all their fields as CSV with sqlite3 -csv of the same rows, both as whole
# processes on the same file in the same run; then measures the other formats and the memory.
# Usage: bench/export.sh TOOL GENERATOR [REPETITIONS]
#        bench/export.sh build/release/bin/orvik-tool build/release/bin/orvik-large
# Prints medians in seconds, the ratio, and the largest memory with 8,000 and with 32,000 records of each kind.
set -euo pipefail

tool=${1:?the program orvik-tool}
generator=${2:?the program orvik-large}
repetitions=${3:-5}

root=$(dirname "$(realpath "$0")")/..
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
TIMEFORMAT=%R

# Names in place of keys, in one cell those of all that a document is linked to, as the export has them.
statement="
SELECT Document.DocumentID, DocumentName, Author, DocumentDate, Publication, PageNum, PubNum, Volume, URL,
    OriginalFilename, CASE WHEN KeyDocument THEN 'Yes' ELSE 'No' END, DocumentDescription, Document.Notes,
    FileTypeName, OrganizationName, FileLocation,
    (SELECT group_concat(Name, '; ') FROM (SELECT DISTINCT DocumentTypeName AS Name
        FROM DocumentTypes JOIN DocumentType USING (DocumentTypeID)
        WHERE DocumentTypes.DocumentID = Document.DocumentID AND DocumentTypeID > 1 ORDER BY DocumentTypeID)),
    (SELECT group_concat(Name, '; ') FROM (SELECT DISTINCT DocumentCategoryName AS Name
        FROM DocumentCategories JOIN DocumentCategory USING (DocumentCategoryID)
        WHERE DocumentCategories.DocumentID = Document.DocumentID AND DocumentCategoryID > 1
        ORDER BY DocumentCategoryID)),
    (SELECT group_concat(Name, '; ') FROM (SELECT DISTINCT VenueName AS Name
        FROM DocumentVenues JOIN Venue USING (VenueID)
        WHERE DocumentVenues.DocumentID = Document.DocumentID AND VenueID > 1 ORDER BY VenueID)),
    (SELECT group_concat(Name, '; ') FROM (SELECT DISTINCT EventName AS Name
        FROM DocumentEvents JOIN Event USING (EventID)
        WHERE DocumentEvents.DocumentID = Document.DocumentID AND Event.Status <> 'DELETED' ORDER BY EventID))
FROM Document
    LEFT JOIN FileTypes ON FileTypes.FileTypeID = ifnull(Document.FileTypeID, 1)
    LEFT JOIN Organization ON Organization.OrganizationID = ifnull(Document.OrganizationID, 1)
WHERE dStatus <> 'DELETED' AND Document.DocumentID > 1 ORDER BY DocumentName;"

make_collection() { # RECORDS
    mkdir -p "$folder/$1/data"
    "$generator" "$root/src/data/schema.sql" "$root/sample/maps/cities.tsv" "$folder/$1/data/large.sqlite" "$1" >/dev/null
}

export_to() { # RECORDS KIND FORMAT
    rm -f "$folder/out.$3"
    "$tool" export "$folder/$1" "$2" "$3" "$folder/out.$3" >/dev/null
}

by_sqlite() { sqlite3 -csv "$folder/32000/data/large.sqlite" "$statement" >"$folder/sqlite.csv"; }

median() { sort -n "$1" | awk '{ value[NR] = $1 } END { print (value[int((NR + 1) / 2)] + value[int(NR / 2) + 1]) / 2 }'; }

make_collection 8000
make_collection 32000

# Once before, so that neither pays for reading the file from the disk.
by_sqlite
export_to 32000 documents csv
python3 - "$folder/sqlite.csv" "$folder/out.csv" <<'COMPARE'
import csv, sys
theirs, ours = (list(csv.reader(open(name, newline="", encoding="utf-8"))) for name in sys.argv[1:])
if theirs != ours[1:]:
    sys.exit("the two have other rows")
print(f"documents     {len(theirs)}, the same in both")
COMPARE

for _ in $(seq "$repetitions"); do
    { time by_sqlite; } 2>>"$folder/sqlite"
    { time export_to 32000 documents csv; } 2>>"$folder/csv"
done
sqlite_median=$(median "$folder/sqlite")
csv_median=$(median "$folder/csv")
echo "sqlite3 -csv  $sqlite_median s"
echo "csv           $csv_median s"
awk -v ours="$csv_median" -v theirs="$sqlite_median" 'BEGIN { printf "ratio         %.2f\n", ours / theirs }'

for each in documents:{xlsx,html,json,bibtex,ris} events:ics organizations:kml; do
    kind=${each%:*} format=${each#*:}
    for _ in $(seq "$repetitions"); do
        { time export_to 32000 "$kind" "$format"; } 2>>"$folder/$format"
    done
    printf '%-13s %s s\n' "$format" "$(median "$folder/$format")"
done

[ -x /usr/bin/time ] || exit 0
for each in documents:{csv,xlsx,html,json,bibtex,ris} events:ics organizations:kml; do
    kind=${each%:*} format=${each#*:}
    for records in 8000 32000; do
        rm -f "$folder/out.$format"
        memory=$(/usr/bin/time -f %M "$tool" export "$folder/$records" "$kind" "$format" "$folder/out.$format" 2>&1 >/dev/null | tail -1)
        printf 'memory        %s, %s: %s KiB\n' "$format" "$records" "$memory"
    done
done
