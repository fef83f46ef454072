#!/usr/bin/env bash
# Builds Korvane for browsers by Debian's emscripten: one file, build/web/korvane.html, with the engine, the rule data and
# the page in it. It loads nothing from anywhere.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-dependencies.sh web
# The compiler's own scripts need a library that only Debian's node looks for there.
export NODE_PATH=/usr/share/nodejs
mkdir -p build/web
[ -f build/web/build.ninja ] || emcmake cmake -S . -B build/web -G Ninja -DCMAKE_BUILD_TYPE=MinSizeRel \
    -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >build/web/configure.log 2>&1 || { cat build/web/configure.log >&2; exit 1; }
ninja -C build/web
esbuild --bundle --minify --format=iife --target=es2022 --log-level=warning --outfile=build/web/page.js src/web/page/main.js
/usr/bin/python3 scripts/bundle-page.py build/web/src src/web/page rules desktop/korvane.svg build/web
