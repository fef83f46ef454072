#!/usr/bin/env bash
# Installs what is missing, builds a release, and generates one character on the shipped rule data.
# Arguments are handed to "korvane-cli generate", as --seed 7.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-dependencies.sh
export CMAKE_CXX_COMPILER_LAUNCHER=ccache
cmake --preset release -DKORVANE_TESTS=OFF -DKORVANE_BENCH=OFF -B build/run >/dev/null
cmake --build build/run --target korvane-cli >/dev/null
exec build/run/src/korvane-cli generate --data rules "$@"
