#!/usr/bin/env bash
# Takes a picture of each window into docs/images, light and dark, at 100 % and at 200 %. Needs no display.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-dependencies.sh check

cmake --preset release >/dev/null
cmake --build --preset release --target korvane_screens >/dev/null

export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-/tmp}"
for palette in light dark; do
    for scale in 1 2; do
        folder=docs/images/$palette-${scale}00
        mkdir -p "$folder"
        rm -f "$folder"/*.png
        QT_SCALE_FACTOR=$scale build/release/tools/korvane_screens "$palette" "$folder"
        # A hundred colours are enough for windows, at a quarter of the size.
        mogrify -strip +dither -colors 100 "$folder"/*.png
    done
done
ls docs/images/*
