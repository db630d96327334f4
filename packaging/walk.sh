#!/usr/bin/env bash
# walk.sh PROGRAM: opens the program on a virtual display, walks through its home page and its views as a user
# would, by keyboard and mouse, and saves a picture of each under build/screenshots/.
set -euo pipefail

program=$1
root=$(cd "$(dirname "$0")/.." && pwd)
pictures="$root/build/screenshots"
mkdir -p "$pictures"
rm -f "$pictures"/*.png

echo "There is no display: the program opens on a virtual one."
display_file=$(mktemp)
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$display_file" 2>/dev/null &
server=$!
trap 'kill "${application:-}" "${manager:-}" "$server" 2>/dev/null || true; rm -f "$display_file"' EXIT
for _ in $(seq 100); do
    [[ -s $display_file ]] && break
    sleep 0.1
done
export DISPLAY=":$(<"$display_file")"
openbox >/dev/null 2>&1 &
manager=$!
"$program" &
application=$!
window=$(timeout 60 xdotool search --sync --onlyvisible --name '^Orvik Database$' | tail -n 1)
xdotool windowactivate --sync "$window" 2>/dev/null || true

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

key() { xdotool key --clearmodifiers "$@"; }

picture 01-home
key ctrl+1
picture 02-documents
key ctrl+2
picture 03-events
key ctrl+3
picture 04-organizations
key alt+Left
picture 05-back-to-events
key alt+n
picture 06-navigate-menu
key i
picture 07-history
key Escape Escape alt+Home
picture 08-home-again
key ctrl+f
xdotool type flood
picture 09-keyword-search
key Return
picture 10-search-results
key Return
picture 11-found-documents
key ctrl+shift+f
picture 12-advanced-search
key Escape alt+Home

if ! kill -0 "$application" 2>/dev/null; then
    echo "The program has ended by itself." >&2
    exit 1
fi
echo "The pictures of this walk are in build/screenshots/."
