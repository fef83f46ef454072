#!/usr/bin/env bash
# Installs what Korvane needs from Debian's packages; does nothing when all is there.
#
# usage: install-dependencies.sh [build|web|check]
#   build   what building it and running its tests needs (default)
#   web     that, and what builds it for browsers
#   check   all of that, and what scripts/check.sh and the other scripts need
set -euo pipefail

packages=(
    git
    g++                 # the compiler
    cmake               # the build, 3.25 or later
    ninja-build         # runs it
    ccache              # makes repeated builds short
    nlohmann-json3-dev  # JSON: journals and character documents
    libcli11-dev        # the command line's arguments
    nettle-dev          # digests: the seeds that are words, and what a journal proves
    pkgconf             # finds it
    qt6-base-dev        # the desktop program's windows
    libqt6svg6          # draws its icon
    fonts-dejavu-core   # a font, where there is none
    libgtest-dev        # tests
)
if [ "${1:-build}" != build ]; then
    packages+=(
        emscripten          # the compiler for browsers
        esbuild             # makes one script of the page's modules
        zopfli              # packs the engine and the rule data
    )
fi
if [ "${1:-build}" = check ]; then
    packages+=(
        python3             # the ratios of the benchmarks, the robots
        libbenchmark-dev    # benchmarks
        clang-format        # the style
        clang-tidy          # what the compiler doesn't say
        xvfb                # a display for the end-to-end test,
        openbox             # its window manager,
        xdotool             # its mouse and keyboard,
        imagemagick         # and its screenshots
        at-spi2-core        # the accessibility tree,
        dbus-daemon         # the bus that it is on,
        dbus-bin            # which is started for the test,
        python3-pyatspi     # and who reads it
        python3-jsonschema  # holds documents against their schemas
        python3-yaml        # reads what goes into notes,
        python3-commonmark  # and their Markdown
        zsh fish            # shells whose completion is tried
        desktop-file-utils  # checks the desktop entry
        appstream           # checks the metadata
        default-jre-headless # runs the validator of pages, which comes from npm
        chromium            # prints and pictures pages, plays lives in them
        firefox-esr         # plays one too
        poppler-utils       # and the pages of PDF files
    )
    command -v npm >/dev/null || packages+=(npm)  # fetches the validator
fi

missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
