#!/usr/bin/env bash
# Checks the formatting of all C++ files; "--fix" mends it.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=(--dry-run --Werror)
[ "${1:-}" = --fix ] && mode=(-i)
git ls-files -co --exclude-standard -- '*.cpp' '*.h' | while read -r file; do
    [ -e "$file" ] && printf '%s\n' "$file"
done | xargs -P "$(nproc)" -n 40 clang-format "${mode[@]}"
