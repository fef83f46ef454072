#!/usr/bin/env bash
# Installs what is missing, builds a release, and starts the desktop program in the shipped rule folder. Without a
# display, or with arguments, generates one character; the arguments are handed to "korvane-cli generate", as --seed 7.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-dependencies.sh
export CMAKE_CXX_COMPILER_LAUNCHER=ccache
echo "building Korvane; the first time takes some minutes" >&2
cmake --preset release -DKORVANE_BENCH=OFF -DKORVANE_TOOLS=OFF -B build/run >/dev/null
cmake --build build/run >/dev/null
programs=$PWD/build/run/src
if [ $# -eq 0 ] && [ -n "${DISPLAY:-}" ]; then
    cd rules
    exec "$programs/korvane"
fi
exec "$programs/korvane-cli" generate --data rules "$@"
