#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# deb.sh: builds the Debian package into build/, and has the validators of the desktop look at what is in it.
set -euo pipefail
source "$(dirname "$0")/set-up.sh"

install_packages
build release -DORVIK_TESTS=OFF
cd "$root/build"
cpack --config release/CPackConfig.cmake -B "$root/build" >release-package.log
package=$(ls -t orvik-database_*.deb | head -n 1)
content=$(mktemp -d)
trap 'rm -rf "$content"' EXIT
dpkg-deb -x "$package" "$content"

desktop-file-validate "$content/usr/share/applications/orvik-database.desktop"
# the desktop knows a database by what is in it, whatever its name
export XDG_DATA_HOME="$content/usr/share"
update-mime-database "$XDG_DATA_HOME/mime"
cp "$XDG_DATA_HOME/orvik/sample/data/orvik-sample.sqlite" "$content/unnamed"
for file in "$XDG_DATA_HOME/orvik/sample/data/orvik-sample.sqlite" "$content/unnamed"; do
    gio info -a standard::content-type "$file" | grep -q 'application/x-orvik-database$' ||
        { echo "$file is not known as a database" >&2; exit 1; }
done
appstreamcli validate --no-net "$content/usr/share/metainfo/org.orvik.database.metainfo.xml"
for page in "$content"/usr/share/man/man1/*.gz; do
    complaints=$(man --warnings -l "$page" 2>&1 >/dev/null)
    [[ -z $complaints ]] || { echo "$page: $complaints" >&2; exit 1; }
done
if command -v lintian >/dev/null; then
    # the project has no address for mail of its own
    lintian --fail-on error --suppress-tags bogus-mail-host,bogus-mail-host-in-debian-changelog "$package"
fi
dpkg-deb -I "$package"
echo "build/$package"
