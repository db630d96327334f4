# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by the walks: opens programs on a virtual display, with nothing of the user's own in reach.

# open_display: starts the display and a window manager; makes a folder of its own, "$own", for what programs keep.
open_display() {
    own=$(mktemp -d)
    local display_file="$own/display"
    # Without -noreset the server starts over when its last client leaves, and refuses whoever comes meanwhile.
    Xvfb -displayfd 3 -noreset -screen 0 1280x800x24 -nolisten tcp 3>"$display_file" 2>/dev/null </dev/null &
    server=$!
    trap close_display EXIT
    for _ in $(seq 100); do
        [[ -s $display_file ]] && break
        sleep 0.1
    done
    DISPLAY=":$(<"$display_file")"
    export DISPLAY
    # what the user has stays as it is: programs have a program folder and settings of their own
    unset ORVIK_HOME WAYLAND_DISPLAY
    export XDG_DATA_HOME="$own/data" XDG_CONFIG_HOME="$own/settings"
}

# open_manager [file]: starts a window manager, with the settings in that file if one is given.
open_manager() {
    openbox ${1:+--config-file "$1"} </dev/null >/dev/null 2>&1 &
    manager=$!
}

close_display() {
    kill "${application:-}" "${manager:-}" "${server:-}" 2>/dev/null || true
    rm -rf "$own"
}

# show_main_window: waits for the main window and gives it the focus; its number is in "$window".
show_main_window() {
    window=
    for _ in $(seq 120); do
        # a window that goes while it is looked at ends the search
        window=$(xdotool search --onlyvisible --name '^Home Page - ' 2>/dev/null | tail -n 1) || true
        [[ -n $window ]] && break
        kill -0 "$application" 2>/dev/null || return
        sleep 0.5
    done
    [[ -n $window ]] || return
    xdotool windowactivate --sync "$window" 2>/dev/null || true
}

key() { xdotool key --clearmodifiers "$@"; }
