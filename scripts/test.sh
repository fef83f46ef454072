#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: what to run after a change. scripts/check.sh does the rest.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-dependencies.sh build
cmake --preset dev >/dev/null
cmake --build --preset dev
ctest --preset dev -j "$(nproc)" --progress
