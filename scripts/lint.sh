#!/usr/bin/env bash
# Runs clang-tidy over the program's sources (not the tests), on the release build's compile commands.
set -euo pipefail
cd "$(dirname "$0")/.."

[ -f build/release/compile_commands.json ] || cmake --preset release >/dev/null
find src -name '*.cpp' | sort | xargs -P "$(nproc)" -n 4 \
    clang-tidy -p build/release --quiet --extra-arg=-Wno-unknown-warning-option
