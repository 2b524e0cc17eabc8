#!/usr/bin/env bash
# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
#
# Takes the pictures of README and of the manual anew: the tour makes them on the program that is built.
set -euo pipefail
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
scripts/tour.sh build/Vemora "$work"
mkdir -p docs/pictures docs/manual/pictures
names="1-search=search 2-sheet=sheet 4-narrowed=narrowed 6-chemicals=chemicals 8-resistance=resistance
    9-settings=settings 6-update=update"
for name in $names; do
    for language in en=English sv=Svenska; do
        picture=docs/manual/pictures/${language%%=*}-${name#*=}.png
        convert "$work/${language#*=}-${name%%=*}.png" -strip +dither -colors 48 "PNG8:$picture"
        case "$language$name" in
            *4-narrowed*) ;;
            en=*) cp "$picture" "docs/pictures/${name#*=}.png" ;;
        esac
    done
done
