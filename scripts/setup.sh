#!/usr/bin/env bash
# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
#
# Installs what is missing of the named groups of packages: scripts/setup.sh build [tour] [ci]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

wanted=()
for group in "$@"; do
    while read -r name package; do
        [ "$name" = "$group" ] && wanted+=("$package")
    done < <(grep -v '^#' "$here/packages-debian.txt")
done

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    if command -v cmake >/dev/null && command -v ninja >/dev/null; then
        exit 0 # not Debian, but tools are there: the build says what else is missing
    fi
    echo "Vemora needs, under the names that Debian 12 gives them:" >&2
    printf '  %s\n' "${wanted[@]}" >&2
    echo "Please install them with your system's package manager and start again." >&2
    exit 1
fi

missing=()
for package in "${wanted[@]}"; do
    status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "Please install these packages as root: apt-get install ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
