#!/usr/bin/env bash
# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
#
# Takes the pictures of README and of the manual anew, in few colours: scripts/pictures.sh [PROGRAM_FOLDER]
# The tour makes them on the program that is built.
set -euo pipefail
program=$(realpath "${1:-$(dirname "$0")/../build/Vemora}")
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
scripts/tour.sh "$program" "$work"

# With fewer colours the marks of the verdicts lose their green and red.
reduce() {
    convert "$1" -strip "${@:3}" +dither -colors 128 -define png:compression-level=9 "PNG8:$2"
}
mkdir -p docs/pictures docs/manual/pictures
names="1-search=search 2-sheet=sheet 4-narrowed=narrowed 6-new=chemicals 8-resistance=resistance
    9-settings=settings 6-update=update"
for name in $names; do
    taken=${name%%=*} name=${name#*=} cut=()
    # A page of the manual is narrower than the sheet, which can be read without the banner at its right.
    case "$name" in
        sheet | narrowed) cut=(-crop 884x+0+0 +repage) ;;
    esac
    for language in en=English sv=Svenska; do
        reduce "$work/${language#*=}-$taken.png" "docs/manual/pictures/${language%%=*}-$name.png" "${cut[@]}"
    done
    [ "$name" = narrowed ] || reduce "$work/English-$taken.png" "docs/pictures/$name.png"
done
