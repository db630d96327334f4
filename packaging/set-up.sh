# Sourced by run, test and .ci/run: installs what is missing and builds.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Installs the packages of the list that are not there yet.
install_packages() {
    local missing=() package
    while read -r package; do
        [[ -z $package || $package == \#* ]] && continue
        [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || missing+=("$package")
    done <"$root/packaging/debian-packages.txt"
    [[ ${#missing[@]} -eq 0 ]] && return
    echo "Installing: ${missing[*]}"
    local as_root=()
    [[ $(id -u) -eq 0 ]] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# build PRESET [cmake option...]: configures and builds one of the presets; quiet unless something is wrong.
build() {
    local preset=$1
    shift
    local log="$root/build/$preset.log"
    mkdir -p "$root/build"
    echo "Building ($preset) ..."
    if ! (cd "$root" && cmake --preset "$preset" "$@" && cmake --build --preset "$preset") >"$log" 2>&1; then
        tail -n 60 "$log"
        echo "The build failed; the whole of its output is in ${log#"$root"/}." >&2
        return 1
    fi
}
