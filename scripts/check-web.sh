#!/usr/bin/env bash
# Holds the engine for browsers against the native one, and plays lives in the page that scripts/web.sh made, in Chromium and
# Firefox. The pictures are in build/web/pictures: a person looks at them. Not part of the tests, as the browsers' driver comes
# from npm's registry.
#
# usage: check-web.sh [COUNT]
#   COUNT   lives of each player that must be the same (default: 2000)
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-dependencies.sh check
[ -x build/release/src/korvane-cli ] || { cmake --preset release >/dev/null; cmake --build --preset release --target korvane-cli >/dev/null; }
for module in puppeteer-core axe-core; do
    [ -d "build/node_modules/$module" ] || npm install --silent --no-audit --no-fund --prefix build "$module"
done

size=$(gzip -9 -c build/web/korvane.html | wc -c)
echo "korvane.html: $size bytes compressed"
[ "$size" -le 400000 ] || { echo "more than 400 kB" >&2; exit 1; }
node scripts/check-web-lives.mjs build/web build/release/src/korvane-cli rules "${1:-2000}"
rm -rf build/web/pictures
node scripts/check-web.mjs build/node_modules build/web/korvane.html build/web/pictures
