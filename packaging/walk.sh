#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# walk.sh PROGRAM: opens the program on a virtual display, walks through its home page and its views as a user
# would, by keyboard and mouse, and saves a picture of each under build/screenshots/.
set -euo pipefail

program=$1
root=$(cd "$(dirname "$0")/.." && pwd)
pictures="$root/build/screenshots"
mkdir -p "$pictures"
rm -f "$pictures"/*.png

echo "There is no display: the program opens on a virtual one."
source "$(dirname "$0")/virtual-display.sh"
open_display
open_manager
"$program" &
application=$!
show_main_window

# picture NAME: waits until the window has stopped changing, then saves it.
picture() {
    local before='' now
    for _ in $(seq 40); do
        sleep 0.25
        now=$(import -window root png:- | md5sum)
        [[ $now == "$before" ]] && break
        before=$now
    done
    import -window root "$pictures/$1.png"
    echo "build/screenshots/$1.png"
}

picture 01-home
key ctrl+1
picture 02-documents
xdotool type 'a failure'
picture 03-find-a-document
key ctrl+shift+e
picture 04-its-events
key Down
key ctrl+shift+o
picture 05-their-organizations-on-the-map
# by the tool that groups markers to the map
key Tab Tab Page_Down
picture 06-a-place-of-the-map
key Menu
picture 07-its-menu
key Down Down Return
picture 08-only-one-state
key alt+Left alt+Left
picture 09-back
key ctrl+2
picture 10-events-on-the-timeline
key ctrl+n
picture 11-what-to-add
key e
picture 12-a-new-event
xdotool type 'Hearing on the lessons'
key Tab
xdotool type '05/07/2026'
key Tab
xdotool type '10:00'
key Tab
xdotool type '05/07/2026'
key Tab
xdotool type '12:00'
key alt+c
# nothing was copied yet, so there is nothing to paste
key ctrl+v shift+Insert
xdotool type 'What was learned.'
picture 13-filled-in
key alt+v
key Down space
picture 14-its-venue
key ctrl+Return
picture 15-the-timeline-moved-to-it
key ctrl+e
picture 16-edit-it
key Escape Delete
picture 17-delete-asks-first
key alt+y
picture 18-deleted
key Return alt+Home
key ctrl+f
xdotool type hearing
key Return
picture 19-not-found-any-more
key ctrl+f
xdotool type flood
picture 20-keyword-search
key Return
picture 21-search-results
key Return
picture 22-found-documents
key ctrl+shift+f
picture 23-advanced-search
key Escape
key alt+n
picture 24-navigate-menu
key i
picture 25-history
key Escape Escape alt+Home
picture 26-home-again
key ctrl+q
picture 27-exit-asks-first
key alt+n
picture 28-still-there

if ! kill -0 "$application" 2>/dev/null; then
    echo "The program has ended by itself." >&2
    exit 1
fi
# on a slow machine the question may come after its answer
for _ in $(seq 30); do
    key ctrl+q
    sleep 1
    key alt+y
    sleep 1
    kill -0 "$application" 2>/dev/null || break
done
if kill -0 "$application" 2>/dev/null; then
    echo "The program does not leave." >&2
    exit 1
fi
wait "$application"
application=
echo "The pictures of this walk are in build/screenshots/."
