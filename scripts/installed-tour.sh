#!/usr/bin/env bash
# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
#
# Installs a package, takes the tour with the installed program as a user without any rights, and removes the
# package: scripts/installed-tour.sh FILE.deb
set -euo pipefail
package=$(realpath "$1")
cd "$(dirname "$0")"
root=()
[ "$(id -u)" -eq 0 ] || root=(sudo)
work=$(mktemp -d)
trap '"${root[@]}" apt-get remove -y vemora >/dev/null 2>&1 || true; "${root[@]}" rm -rf "$work"' EXIT

"${root[@]}" apt-get install -y --no-install-recommends "$package" >/dev/null
vemora-db --version
cp tour.sh "$work"
mkdir "$work/pictures"
chmod -R a+rX "$work"
"${root[@]}" chown nobody "$work" "$work/pictures"
"${root[@]}" setpriv --reuid=65534 --regid=65534 --clear-groups env -i PATH="$PATH" HOME="$work" \
    bash "$work/tour.sh" "$(command -v vemora)" "$work/pictures"
"${root[@]}" apt-get remove -y vemora >/dev/null
if command -v vemora >/dev/null; then
    echo "the package leaves its program behind" >&2
    exit 1
fi
