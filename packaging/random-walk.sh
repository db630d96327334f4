#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# random-walk.sh PROGRAM [SEED [ACTIONS]]: opens the program on a virtual display with a fresh copy of the sample,
# pastes into it while there is nothing to paste, filters a list, shows the details beside it, and then presses keys and
# clicks at random. Fails if the program ends by itself, does not leave when asked to, or reports something critical.
# The same seed makes the same actions.
set -euo pipefail

program=$(realpath "$1")
picture=$(cd "$(dirname "$0")/.." && pwd)/build/random-walk.png
seed=${2:-1927}
actions=${3:-3000}
actions_each_start=1000
source "$(dirname "$0")/virtual-display.sh"

open_display
# A click gives a window the focus, and that is all: the manager starts no program and closes no window.
cat >"$own/manager.xml" <<'XML'
<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew></focus>
  <keyboard/>
  <mouse>
    <context name="Client">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
    </context>
  </mouse>
  <applications>
    <application title="Home Page - *" type="normal"><maximized>yes</maximized></application>
  </applications>
</openbox_config>
XML
open_manager "$own/manager.xml"
# The program finds no user, no other program to open files with and no bus to reach one by.
export HOME="$own" XDG_RUNTIME_DIR="$own/run" XDG_CACHE_HOME="$own/cache" XDG_STATE_HOME="$own/state"
export XDG_DATA_DIRS="$own/share" XDG_CONFIG_DIRS="$own/etc" DBUS_SESSION_BUS_ADDRESS="unix:path=$own/no-bus"
export QT_MESSAGE_PATTERN='%{type}: %{message}'
unset QT_QPA_PLATFORM QT_QPA_PLATFORMTHEME
mkdir -m 700 "$own/run" "$own/work"
mkdir -p "$own/share"
ln -s /usr/share/icons "$own/share/icons"
cd "$own/work"
log="$own/log"

fail() {
    echo "random-walk.sh: $1 (seed $seed, after $done_actions actions)" >&2
    [[ -s $log ]] && tail -n 20 "$log" >&2
    import -window root "$picture" 2>/dev/null && echo "The display as it was is in $picture." >&2
    exit 1
}

start() {
    "$program" </dev/null >>"$log" 2>&1 &
    application=$!
    show_main_window || fail "the main window does not open"
}

# check_end: the program has ended; it may only have done so because the walk said Yes to its exit question.
check_end() {
    local status=0
    wait "$application" || status=$?
    application=
    [[ $status -eq 0 ]] || fail "the program ended with status $status"
    ! grep -qE '^(critical|fatal): ' "$log" || fail "the program reported something critical"
}

is_running() { kill -0 "$application" 2>/dev/null; }

# leave: gets out of whatever is open, giving up what was typed, and leaves the program.
leave() {
    local answer top
    for _ in $(seq 60); do
        is_running || break
        for answer in Escape alt+d ctrl+q alt+y; do
            key "$answer"
            sleep 0.2
        done
        # a click may have left the focus on a window that waits for the one above it
        top=$(xprop -root _NET_CLIENT_LIST_STACKING | grep -o '0x[0-9a-f]*' | tail -n 1) || true
        [[ -z $top ]] || xdotool windowactivate "$top" 2>/dev/null || true
    done
    is_running && fail "the program does not leave"
    check_end
}

# paste_nothing KIND LETTER DESCRIPTION: pastes in every way into a text of several lines of a new record, while
# nothing was ever copied. LETTER chooses the kind of record, DESCRIPTION is the key of the text.
paste_nothing() {
    key ctrl+n
    sleep 0.3
    key "$2"
    timeout 30 xdotool search --sync --onlyvisible --name "^Add a New $1" >/dev/null || fail "no editor opens"
    sleep 0.3
    key "$3"
    key ctrl+v shift+Insert ctrl+shift+Insert
    xdotool mousemove 500 430 click 2
    sleep 0.3
    key Escape
    sleep 0.3
    is_running || check_end
    [[ -n $application ]] || fail "the program ended by itself"
}

# A file dialog is Qt's own and leads to every folder of the machine; the walk does not stay in it.
leave_file_dialog() {
    local titles='^(Open Database|Document File|Organization Chart)'
    while xdotool search --onlyvisible --name "$titles" >/dev/null 2>&1 && is_running; do
        key Escape
        sleep 0.2
        ((++escapes <= 300)) || fail "the file dialog does not close"
    done
    escapes=0
}
escapes=0

keys=(Tab Tab shift+Tab Return Return Escape space Delete BackSpace Up Down Left Right Page_Up Page_Down Home End Insert
    F2 F3 F4 F5 Menu a e s t 1 9 slash quotedbl percent apostrophe ctrl+a ctrl+c ctrl+x ctrl+v ctrl+z ctrl+y
    shift+Insert ctrl+Return ctrl+1 ctrl+2 ctrl+3 ctrl+n ctrl+e ctrl+o ctrl+f ctrl+l ctrl+l ctrl+shift+f ctrl+shift+e
    ctrl+shift+o ctrl+shift+d alt+Left alt+Right alt+Home alt+Down alt+n alt+y alt+d alt+k alt+o alt+v alt+r alt+e
    shift+Down shift+End ctrl+plus ctrl+minus ctrl+Home ctrl+End)
buttons=(1 1 1 1 1 1 2 3 4 5)

# The random numbers are drawn here, not in a subshell, which would repeat them.
RANDOM=$seed
script="$own/script"
draw_actions() {
    : >"$script"
    for _ in $(seq "$1"); do
        if ((RANDOM % 5 < 3)); then
            echo "key --delay 5 ${keys[RANDOM % ${#keys[@]}]}"
        else
            local place="$((RANDOM % 1280)) $((RANDOM % 800))"
            echo "mousemove $place click --repeat $((1 + RANDOM % 2)) --delay 20 ${buttons[RANDOM % ${#buttons[@]}]}"
        fi
    done >>"$script"
}

done_actions=0
start
paste_nothing Document d alt+e
paste_nothing Event e alt+c
paste_nothing Organization o alt+r
key ctrl+1 F4 ctrl+l a
while ((done_actions < actions)); do
    is_running || { check_end; start; }
    draw_actions 5
    xdotool "$script" >/dev/null 2>&1 || true
    leave_file_dialog
    done_actions=$((done_actions + 5))
    if ((done_actions % actions_each_start == 0)); then
        leave
        start
    fi
done
leave
echo "The program took $done_actions random actions (seed $seed)."
