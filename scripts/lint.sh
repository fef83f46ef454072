#!/usr/bin/env bash
# Runs clang-tidy over the program's sources, bench/ and tools/ (not the tests): one file a floor, as headers cost most.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset lint >/dev/null
# Generated headers, as the toolkit's, must be there.
cmake --build build/lint --target help >/dev/null
find build/lint -name 'unity_*.cxx' | sort | xargs -P "$(nproc)" -n 1 \
    clang-tidy -p build/lint --quiet --checks=-bugprone-suspicious-include --extra-arg=-Wno-unknown-warning-option
