#!/usr/bin/env bash
# Takes a picture of each window, light and dark, at 100 % and at 200 %, and compares it with the approved one in
# docs/images. Needs no display.
#
# usage: pictures.sh [check|approve]
#   check    compares; where a picture differs, the difference is drawn into build/pictures/differences (default)
#   approve  what is taken now is what is wanted, in the environment that docs/images/environment.txt then notes
#
# In the environment that is noted the pictures must be the same, byte for byte; in another one this is said, and a
# small share of differing pixels is let pass.
set -euo pipefail
cd "$(dirname "$0")/.."

what=${1:-check}
approved=docs/images
taken=build/pictures
differences=$taken/differences
program=build/release/tools/korvane_screens
share_let_pass=0.03

./scripts/install-dependencies.sh check
cmake --preset release >/dev/null
cmake --build --preset release --target korvane_screens >/dev/null

# What some of the windows show must not depend on the machine: the user's folder and that of the rules.
home=/tmp/korvane-pictures
rm -rf "$taken" "$home"
mkdir -p "$home" "$taken"
cp -r rules "$home/rules"
find "$home/rules" -exec touch -d 2026-01-01T12:00:00Z {} +
trap 'rm -rf "$home"' EXIT
unset XDG_CONFIG_HOME XDG_DATA_HOME QT_STYLE_OVERRIDE QT_QPA_PLATFORMTHEME
cat >"$home/screen.json" <<'SCREEN'
{"synchronousWindowSystemEvents": true, "windowFrameMargins": true,
 "screens": [{"name": "one", "x": 0, "y": 0, "width": 1920, "height": 1080, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}
SCREEN
export QT_QPA_PLATFORM="offscreen:configfile=$home/screen.json" XDG_RUNTIME_DIR="$home" HOME="$home" USERPROFILE="$home" LC_ALL=C.UTF-8 TZ=UTC \
    QT_FONT_DPI=96 KORVANE_BROWSER=none
chmod 700 "$home"

take() {
    for palette in light dark; do
        for scale in 1 2; do
            folder=$taken/$palette-${scale}00
            mkdir -p "$folder"
            QT_SCALE_FACTOR=$scale "$program" "$palette" "$folder" "$home/rules" 2>/dev/null
            # A hundred colours are enough for windows, at a quarter of the size.
            mogrify -strip +dither -colors 100 -define png:exclude-chunks=date,time "$folder"/*.png
        done
    done
    {
        "$program" environment
        echo "FreeType $(dpkg-query -W -f='${Version}' libfreetype6 2>/dev/null || echo unknown)"
        echo "DejaVu fonts $(dpkg-query -W -f='${Version}' fonts-dejavu-core 2>/dev/null || echo unknown)"
        convert --version | sed -n '1s/^Version: \(ImageMagick [^ ]*\).*/\1/p'
    } >"$taken/environment.txt"
}

approve() {
    for folder in "$taken"/*-?00; do
        rm -rf "${approved:?}/$(basename "$folder")"
        cp -r "$folder" "$approved/"
    done
    cp "$taken/environment.txt" "$approved/"
    ls "$approved"/*-?00
}

# The share of pixels that differ by more than a little; 1 where the sizes differ.
share_of_difference() { # PICTURE APPROVED DIFFERENCE
    local count size
    [ "$(identify -format '%w %h' "$1")" = "$(identify -format '%w %h' "$2")" ] || { echo 1; return; }
    count=$(compare -metric AE -fuzz 8% "$1" "$2" "$3" 2>&1 || true)
    size=$(identify -format '%[fx:w*h]' "$1")
    awk -v count="$count" -v size="$size" 'BEGIN { print count / size }'
}

compare_all() {
    local same_environment=true failed=0 picture name share
    if ! diff -u "$approved/environment.txt" "$taken/environment.txt"; then
        same_environment=false
        echo "the environment isn't the one in which the pictures were approved: up to $share_let_pass of the pixels may differ"
    fi
    mkdir -p "$differences"
    for picture in "$taken"/*-?00/*.png "$approved"/*-?00/*.png; do
        name=$(basename "$(dirname "$picture")")/$(basename "$picture")
        if [ ! -f "$approved/$name" ] || [ ! -f "$taken/$name" ]; then
            echo "$name: there is only one of the two"
            failed=1
            continue
        fi
        [[ "$picture" = "$taken"/* ]] || continue
        cmp -s "$taken/$name" "$approved/$name" && continue
        share=$(share_of_difference "$taken/$name" "$approved/$name" "$differences/${name//\//-}")
        if $same_environment || awk -v s="$share" -v m="$share_let_pass" 'BEGIN { exit !(s > m) }'; then
            echo "$name: differs ($share of its pixels), see $differences/${name//\//-}"
            failed=1
        fi
    done
    return $failed
}

take
case $what in
    approve) approve ;;
    check) compare_all && echo "the windows look as they were approved" ;;
    *)
        echo "usage: pictures.sh [check|approve]" >&2
        exit 2
        ;;
esac
