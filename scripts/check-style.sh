#!/usr/bin/env bash
# Checks the formatting of all C++ files; "--fix" mends it.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=(--dry-run --Werror)
[ "${1:-}" = --fix ] && mode=(-i)
find src tests bench -name '*.cpp' -o -name '*.h' | sort | xargs clang-format "${mode[@]}"
