#!/usr/bin/env bash
# Writes pages of sixty lives from the sheet and of ten from each other shipped template, validates them offline, opens them
# in a browser (see check-pages.mjs), and prints some by korvane-pdf both ways. The pictures are in build/pages/pictures: a
# person looks at them. Not part of the tests, as the validator and the browser's driver come from npm's registry.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-dependencies.sh check
for tool in chromium pdftoppm npm java; do
    command -v "$tool" >/dev/null || {
        echo "$tool is missing; Debian has it in: chromium, poppler-utils, npm, default-jre-headless" >&2
        exit 1
    }
done

cmake --preset release >/dev/null
cmake --build --preset release --target korvane-cli korvane-pdf >/dev/null
for module in vnu-jar puppeteer-core axe-core; do
    [ -d "build/node_modules/$module" ] || npm install --silent --no-audit --no-fund --prefix build "$module"
done

pages=$PWD/build/pages
rm -rf "$pages"
mkdir -p "$pages"
generate() { # TEMPLATE COUNT FIRST OPTION...
    build/release/src/korvane-cli generate --data rules --seed 23 --count "$2" --first "$3" --terms 9 \
        --option "Force no Ejection on Mishap" --format html --template "$1.htm" --out "$pages/lives/$1" "${@:4}"
}
# Words may be of any length.
long=$(printf 'W%.0s' {1..80})
for template in template template-plain template-story; do
    generate "$template" "$([ "$template" = template ] && echo 59 || echo 9)" 1 >/dev/null
    generate "$template" 1 60 --name "$long Vey" >/dev/null
done

# The one thing that the history's tag writes and HTML doesn't know.
known='.*Attribute “width” not allowed on element “tr”.*'
java -jar build/node_modules/vnu-jar/build/dist/vnu.jar --errors-only --filterpattern "$known" "$pages"/lives/*/*.htm
echo "the validator finds nothing but the width of the history's rows"

node scripts/check-pages.mjs build/node_modules "$pages/lives" "$pages/pictures"

print() { # NAME OPTION...
    mkdir -p "$pages/$1"
    cp "$pages/lives/template/character-01.htm" "$pages/$1.htm"
    build/release/src/korvane-pdf "${@:2}" "$pages/$1.htm"
    pdftoppm -r 60 -png "$pages/$1.pdf" "$pages/pictures/$1"
    rm -r "${pages:?}/$1"
}
print printed | grep -q 'printed by .*chromium'
[ "$(pdfinfo "$pages/printed.pdf" | sed -n 's/^Pages: *//p')" -eq 2 ]
print printed-simple --simple --paper letter | grep -q 'simple styles'
ls "$pages"/pictures | wc -l
