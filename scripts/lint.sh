#!/usr/bin/env bash
# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
#
# The format and tidy gate, the same for laptop and CI. `scripts/lint.sh --fix` formats in place;
# `--format-only` leaves clang-tidy out. Needs a configured build/release.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t files < <(git ls-files --cached --others --exclude-standard '*.cpp' '*.h')
if [ "${1:-}" = --fix ]; then
    exec clang-format -i "${files[@]}"
fi
clang-format --dry-run --Werror "${files[@]}"
[ "${1:-}" = --format-only ] && exit 0
# Whole programs, not headers alone; on all cores.
if ! printf '%s\n' "${files[@]}" | grep -E '^(src|tools)/.*\.cpp$' |
    xargs -P "$(nproc)" -n 3 clang-tidy --quiet -p build/release >build/tidy.log 2>&1; then
    grep -vE '^[0-9]+ warnings? generated|^Suppressed|^Use -header-filter' build/tidy.log
    exit 1
fi
