#!/usr/bin/env bash
# Installs what is missing, checks the style, builds a release and a sanitized build, and runs every test in both.
set -euo pipefail
cd "$(dirname "$0")/.."

step() { printf '\n== %s\n' "$*"; }

step "dependencies"
./scripts/install-dependencies.sh
export CMAKE_CXX_COMPILER_LAUNCHER=ccache

step "style"
./scripts/check-style.sh

for preset in release sanitize; do
    step "build: $preset"
    cmake --preset "$preset"
    cmake --build --preset "$preset"
    step "tests: $preset"
    ctest --preset "$preset" -j "$(nproc)"
done

step "lint"
./scripts/lint.sh

step "benchmarks run"
build/release/bench/korvane_bench --benchmark_min_time=0.01

step "all tests passed"
