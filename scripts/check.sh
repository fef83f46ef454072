#!/usr/bin/env bash
# All that is checked beside scripts/test.sh: the share of the tests, the style, the tests under the sanitizers, the
# linter, a release whose files are compiled each by itself, with the end-to-end test and the benchmarks, and the pages.
set -euo pipefail
cd "$(dirname "$0")/.."

step() { printf '\n== %s (%d s)\n' "$*" "$SECONDS"; }

step "dependencies"
./scripts/install-dependencies.sh check

step "share of the tests"
./scripts/count-lines.sh

step "style"
./scripts/check-style.sh

step "release: build"
cmake --preset release >/dev/null
cmake --build --preset release
step "release: end to end"
ctest --preset release
step "release: the windows look as they were approved"
./scripts/pictures.sh check
step "release: benchmarks run"
build/release/bench/korvane_bench --benchmark_min_time=0.01

step "sanitizers: build"
cmake --preset sanitize >/dev/null
cmake --build --preset sanitize
step "sanitizers: tests"
ctest --preset sanitize -j "$(nproc)" --progress

step "lint"
./scripts/lint.sh

step "documents for other programs, and completion"
./scripts/check-documents.sh
python3 scripts/check-completion.py build/release/src/korvane-cli

step "pages"
./scripts/check-pages.sh

step "in a browser"
./scripts/web.sh
./scripts/check-web.sh

step "all is well"
