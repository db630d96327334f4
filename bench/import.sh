#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Compares the importer with mdb-export of all tables to nothing, both on the same file in the same run.
# Usage: bench/import.sh IMPORTER ACCESS-FILE [REPETITIONS]
#        bench/import.sh build/bin/orvik-import build/tests/import/data/large.mdb
# Prints the medians in seconds, their ratio, and the importer's largest memory where /usr/bin/time is there.
set -euo pipefail

importer=${1:?the importer program}
source=${2:?an Access file}
repetitions=${3:-5}

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
TIMEFORMAT=%R

export_all() {
    mdb-tables -1 "$source" | while IFS= read -r table; do
        [ -z "$table" ] || mdb-export "$source" "$table" >/dev/null
    done
}

import_all() { "$importer" --replace "$source" "$folder/target.sqlite" >/dev/null; }

median() { sort -n "$1" | awk '{ value[NR] = $1 } END { print (value[int((NR + 1) / 2)] + value[int(NR / 2) + 1]) / 2 }'; }

# Once before, so that neither pays for reading the file from the disk.
export_all
import_all
for _ in $(seq "$repetitions"); do
    { time export_all; } 2>>"$folder/export"
    { time import_all; } 2>>"$folder/import"
done

export_median=$(median "$folder/export")
import_median=$(median "$folder/import")
echo "mdb-export    $export_median s"
echo "orvik-import  $import_median s"
awk -v import="$import_median" -v export="$export_median" 'BEGIN { printf "ratio         %.2f\n", import / export }'
if [ -x /usr/bin/time ]; then
    memory=$(/usr/bin/time -f %M "$importer" --replace "$source" "$folder/target.sqlite" 2>&1 >/dev/null | tail -1)
    echo "memory        $memory KiB"
fi
