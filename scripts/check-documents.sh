#!/usr/bin/env bash
# Holds a thousand characters and some journals against their schemas, and reads what goes to other programs back by
# readers that aren't ours.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-dependencies.sh check
cmake --preset release >/dev/null
cmake --build --preset release --target korvane-cli >/dev/null
/usr/bin/python3 scripts/check-documents.py build/release/src/korvane-cli
