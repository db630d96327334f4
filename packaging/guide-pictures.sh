#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# guide-pictures.sh: takes the pictures of the user's guide anew, from the program as it is now and its sample.
set -euo pipefail
source "$(dirname "$0")/set-up.sh"

install_packages
build release -DORVIK_TESTS=OFF --target orvik-guide-pictures sample_folder
pictures="$root/sample/help/pictures"
status=0
QT_QPA_PLATFORM=offscreen "$root/build/release/bin/orvik-guide-pictures" \
    "$root/build/release/share/orvik/sample" "$pictures" || status=$?
# a palette of 255 colours is enough for windows, and a third of the size
mogrify -strip +dither -colors 255 -define png:compression-level=9 "$pictures"/*.png
ls -l "$pictures"
exit "$status"
