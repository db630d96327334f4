# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by run, test and .ci/run: installs what is missing, builds and tests. Each step says how far it is.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# install_packages [SECTION]: installs the packages of the list that are not there yet, but those of a section whose
# title begins so.
install_packages() {
    local missing=() package section
    while read -r package; do
        [[ $package != \#* ]] || section=$package
        [[ -z $package || $package == \#* ]] && continue
        [[ -n ${1:-} && $section == "# $1"* ]] && continue
        [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || missing+=("$package")
    done <"$root/packaging/debian-packages.txt"
    [[ ${#missing[@]} -eq 0 ]] && return
    echo "Installing: ${missing[*]}"
    local as_root=()
    [[ $(id -u) -eq 0 ]] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# show_percentages STEP: reads what ninja prints, shows its percentages: in one line that changes on a terminal, else
# in a line for each tenth.
show_percentages() {
    local line percent next=0
    while IFS= read -r line; do
        [[ $line =~ ^\[\ *([0-9]+)%\] ]] || continue
        percent=${BASH_REMATCH[1]}
        if [[ -t 1 ]]; then
            printf '\r%s: %d %%' "$1" "$percent"
        elif ((percent >= next)); then
            echo "$1: $percent %"
            next=$((percent / 10 * 10 + 10))
        fi
    done
    [[ ! -t 1 ]] || echo
}

# build PRESET [cmake option...] [--target target...]: configures and builds one of the presets; shows how far it is,
# and the end of the log if something is wrong.
build() {
    local preset=$1 options=()
    shift
    while [[ $# -gt 0 && $1 != --target ]]; do
        options+=("$1")
        shift
    done
    local log="$root/build/$preset.log"
    mkdir -p "$root/build"
    echo "Configuring ($preset)"
    if ! (cd "$root" && cmake --preset "$preset" "${options[@]}") >"$log" 2>&1 ||
        ! (cd "$root" && NINJA_STATUS='[%p] ' cmake --build --preset "$preset" "$@") 2>&1 | tee -a "$log" |
            show_percentages "Building ($preset)"; then
        tail -n 60 "$log"
        echo "The build failed; the whole of its output is in ${log#"$root"/}." >&2
        return 1
    fi
}

# show_tests STEP: reads what ctest prints. A test that passes becomes a line with the percentage; of one that fails,
# all is shown but the names of those within it that passed.
show_tests() {
    local line running=
    while IFS= read -r line; do
        if [[ $line == '[       OK ]'* ]]; then
            running=
            continue
        fi
        [[ -z $running ]] || echo "$running"
        running=
        if [[ $line == '[ RUN      ]'* ]]; then
            running=$line
        elif [[ $line =~ ^\ *([0-9]+)/([0-9]+)\ Test\ +#[0-9]+:\ ([^ ]+)\ .*\ Passed\ +(.*)$ ]]; then
            echo "$1: $((100 * BASH_REMATCH[1] / BASH_REMATCH[2])) %" \
                "(${BASH_REMATCH[1]} of ${BASH_REMATCH[2]}: ${BASH_REMATCH[3]}, ${BASH_REMATCH[4]})"
        elif [[ $line != *'    Start '* ]]; then
            echo "$line"
        fi
    done
}

# run_tests PRESET [seconds]: runs every test of a build, without a display; each program has that long, or 600 s.
run_tests() (
    unset DISPLAY WAYLAND_DISPLAY
    ctest --test-dir "$root/build/$1" --output-on-failure --parallel "$(nproc)" --timeout "${2:-600}" 2>&1 |
        show_tests "Testing ($1)"
)
