#!/usr/bin/env bash
# Makes Debian packages of the last commit, the same bytes wherever and whenever, and has lintian judge them. What isn't
# committed is left out.
#
# usage: package.sh [--twice] [--root] [--page] [FOLDER]
#   FOLDER    where the packages go (default: build/packages)
#   --page    the file for browsers goes there, too: with it the folder is a whole release
#   --twice   build them a second time, in another folder, on another day, in another time zone and language, and compare
#   --root    install them into a fresh Debian, use them, purge them and look for what is left; the picture of the window
#             goes into FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."

twice=false root=false page=false folder=build/packages
for argument in "$@"; do
    case $argument in
        --twice) twice=true ;;
        --root) root=true ;;
        --page) page=true ;;
        -*) sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$0" >&2; exit 1 ;;
        *) folder=$argument ;;
    esac
done

missing=()
needs() { # PROGRAM PACKAGE
    command -v "$1" >/dev/null || missing+=("$2")
}
needs dpkg-buildpackage dpkg-dev
needs dh debhelper
needs lintian lintian
needs appstreamcli appstream
needs python3 python3
if $twice; then needs diffoscope diffoscope; needs faketime faketime; fi
if $root; then needs mmdebstrap mmdebstrap; fi
[ ${#missing[@]} -eq 0 ] || { echo "install first: ${missing[*]}" >&2; exit 1; }

step() { printf '\n== %s (%d s)\n' "$*" "$SECONDS"; }

mkdir -p "$folder"
folder=$(realpath "$folder")
rm -f "$folder"/korvane*
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
version=$(sed -n 's/^project(Korvane VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
export LC_ALL=C.UTF-8 DEB_BUILD_OPTIONS=${DEB_BUILD_OPTIONS:-nocheck}

build() { # FOLDER [COMMAND...]: builds below it, by the command
    local place=$1/korvane-$version
    shift
    mkdir -p "$place"
    git archive HEAD | tar -x -C "$place"
    cp -r "$place/packaging/debian" "$place/debian"
    (
        cd "$place"
        packaging/debian-changelog.py CHANGELOG.md desktop/org.korvane.Korvane.metainfo.xml "$version" \
            "$SOURCE_DATE_EPOCH" >debian/changelog
        # What the user's umask or git's makes of the permissions would be in the source package.
        chmod -R u=rwX,go=rX .
        "$@" dpkg-buildpackage -us -uc >../build.log 2>&1 || { tail -40 ../build.log; exit 1; }
    )
}

[ -z "$(git status --porcelain)" ] || echo "What isn't committed is left out."
step "build"
build "$work/one"
cp "$work"/one/korvane* -t "$folder" 2>/dev/null || true  # all but the folder of the sources
(cd "$folder" && sha256sum ./*.dsc ./*.tar.xz ./*.deb)

step "nothing names the folder of the build"
mkdir "$work/unpacked"
for package in "$folder"/*.deb; do
    dpkg-deb -x "$package" "$work/unpacked/$(basename "$package")"
done
find "$work/unpacked" -type f -exec sh -c 'strings -a -- "$1" | grep -F -- "$2" | sed "s|^|${1##*/}: |"' - {} "$work" \; >"$work/named"
if [ -s "$work/named" ]; then
    cat "$work/named"
    exit 1
fi
echo "$(find "$work/unpacked" -type f | wc -l) files name it nowhere"

step "metadata"
appstreamcli validate --no-net desktop/org.korvane.Korvane.metainfo.xml

step "lintian"
as=()
[ "$(id -u)" -ne 0 ] || as=(--allow-root)
lintian "${as[@]}" --fail-on error,warning "$folder"/*.changes
echo "no error, no warning"

if $twice; then
    step "build again, elsewhere and on another day"
    # By somebody without a home, who lets no stranger read, where the day begins first, a year later.
    umask 027
    build "$work/another-folder-with-a-longer-name" \
        env TZ=Pacific/Kiritimati LC_ALL=C LANG=C HOME=/nonexistent faketime -f +400d
    same=true
    for one in "$folder"/*.dsc "$folder"/*.tar.xz "$folder"/*.deb; do
        another=$work/another-folder-with-a-longer-name/$(basename "$one")
        if cmp "$one" "$another"; then
            echo "the same: $(basename "$one")"
        else
            diffoscope --text - "$one" "$another" || true
            same=false
        fi
    done
    $same
fi

if $root; then
    step "a fresh Debian"
    packages=("$folder"/korvane{,-cli,-rules}_*.deb)
    # What the packages ask for is there before, so that what they leave behind can be told from it.
    others=$(for package in "${packages[@]}"; do dpkg-deb -f "$package" Depends; done |
        tr ',' '\n' | sed 's/[(|].*//; s/ //g' | grep -v '^korvane' | sort -u | paste -sd,)
    mmdebstrap --quiet --variant=minbase --include="$others,xvfb,imagemagick,man-db" \
        --customize-hook="packaging/try-in-root.sh '$folder' \"\$1\"" \
        "$(. /etc/os-release && echo "$VERSION_CODENAME")" /dev/null
fi

if $page; then
    step "the file for browsers"
    mkdir "$work/page"
    git archive HEAD | tar -x -C "$work/page"
    "$work/page/scripts/web.sh"
    cp "$work/page/build/web/korvane.html" "$folder"
fi

step "the packages are in $folder"
