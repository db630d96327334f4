#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Compares the indexing of files with pdftotext alone of those that are PDF, two at a time in both, in the same run; then
# searches the index for each of the words that are planted in the files.
# Usage: bench/index.sh INDEXER [FILES [REPETITIONS]]
#        bench/index.sh build/release/bin/orvik-index
# Prints medians in seconds of the processor, children included, which other work on the machine changes least, the
# ratios, and the slowest search. Fails if a planted word is found in another file than those that hold it.
set -euo pipefail

indexer=$(realpath "${1:?the program orvik-index}")
files=${2:-2000}
repetitions=${3:-3}

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
TIMEFORMAT='%U %S'

"$(dirname "$(realpath "$0")")"/indexed-files.py "$folder/files" "$files"
cd "$folder/files"
printf '%s\0' [0-9]*.pdf >../pdf
printf '%s\0' [0-9]*.* >../all
tr '\0' '\n' <../all | sed 's/.*\.//' | sort | uniq -c | awk '{ printf "%-14s%d files\n", $2, $1 }'

by_pdftotext() { nice -n 19 xargs -0 -P 2 -I {} pdftotext {} - <../pdf >/dev/null; }
index_anew() { # NAMES
    rm -f ../index.filetext
    "$indexer" ../index.filetext . <"$1" >/dev/null
}
median() { awk '{ print $1 + $2 }' "$1" | sort -n | awk '{ value[NR] = $1 } END { print value[int((NR + 1) / 2)] }'; }

# Once before, so that neither pays for reading the files from the disk.
by_pdftotext
for _ in $(seq "$repetitions"); do
    { time by_pdftotext; } 2>>../pdftotext.times
    { time index_anew ../pdf; } 2>>../pdf.times
    { time index_anew ../all; } 2>>../all.times
    { time "$indexer" ../index.filetext . <../all >/dev/null; } 2>>../again.times
done

alone=$(median ../pdftotext.times)
printf 'pdftotext     %.1f s\n' "$alone"
for each in pdf all again; do
    awk -v name="$each" -v ours="$(median ../$each.times)" -v alone="$alone" \
        'BEGIN { printf "index, %-6s %.2f s, ratio %.2f\n", name, ours, ours / alone }'
done

python3 - ../index.filetext planted.tsv <<'SEARCH'
import sqlite3, sys, time
index = sqlite3.connect(sys.argv[1])
slowest = 0.0
words = [line.rstrip("\n").split("\t") for line in open(sys.argv[2], encoding="utf-8")]
for word, *holding in words:
    start = time.perf_counter()
    found = index.execute("SELECT Name FROM FileText JOIN File ON FileID = FileText.rowid "
                          "WHERE FileText MATCH ? ORDER BY Name", [f'"{word}"']).fetchall()
    slowest = max(slowest, time.perf_counter() - start)
    if [name for name, in found] != holding:
        sys.exit(f"{word} stands in {holding}, found in {found}")
print(f"planted words {len(words)}, each in its files and no other; the slowest search {1000 * slowest:.1f} ms")
SEARCH
