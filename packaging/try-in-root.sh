#!/usr/bin/env bash
# Installs the packages in a root, lives a life with them, shows the window, purges them, and fails where anything is left.
#
# usage: try-in-root.sh FOLDER ROOT
#   FOLDER  has the packages, and is given window.png
set -euo pipefail

folder=$1 root=$2

# What is in the root, but for what any package that comes and goes leaves: dpkg's and apt's own books, logs and caches.
inventory() {
    find "$root" -xdev \( -path "$root/proc" -o -path "$root/sys" -o -path "$root/dev" -o -path "$root/tmp" -o -path "$root/run" \
        -o -path "$root/var/lib/dpkg" -o -path "$root/var/lib/apt" -o -path "$root/var/log" -o -path "$root/var/cache" \) -prune \
        -o -type f -printf '%P %m %U:%G ' -exec md5sum -z {} \; -printf '\n' -o -printf '%P %m %U:%G %y\n' |
        sed "s|$root||" | tr -d '\0' | sort
}

inside() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }

# As somebody who may write nothing but what is below /tmp/home.
player() { inside setpriv --reuid=65534 --regid=65534 --clear-groups env HOME=/tmp/home XDG_RUNTIME_DIR=/tmp/home sh -ec "cd /tmp/home; $1"; }

inventory >"$folder/before"
mkdir "$root/tmp/packages"
cp "$folder"/korvane{,-cli,-rules}_*.deb "$root/tmp/packages"
inside sh -c 'apt-get -qq install -y /tmp/packages/*.deb' >/dev/null
inside dpkg -l 'korvane*' | grep '^ii'

install -d -m 700 -o 65534 -g 65534 "$root/tmp/home"
echo "-- a life"
player 'korvane-cli generate --seed "friday night" | tail -n 8'
echo "-- a page, and its PDF file"
player 'korvane-cli generate --seed "friday night" --format html --pdf --out pages && ls -s pages'
echo "-- the manual"
for page in korvane.1 korvane-cli.1 korvane-pdf.1 korvane-journal.5 korvane-rules.5; do
    player "man --warnings -l /usr/share/man/man${page##*.}/$page.gz 2>&1 >/dev/null | sed 's/^/$page: /'; man -w ${page##*.} ${page%.*}"
done
echo "-- the window"
player '
    mkdir -p .config/korvane
    printf "dataloc=/usr/share/korvane/rules/\r\nLastMonth=$(date +%m)\r\n" >.config/korvane/Korvane.ini
    Xvfb :7 -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 & display=$!
    trap "kill $display" EXIT
    sleep 2
    DISPLAY=:7 korvane --seed "friday night" & window=$!
    trap "kill $window $display" EXIT
    sleep 6
    kill -0 $window && echo "it is alive"
    DISPLAY=:7 import -window root window.png'
colours=$(player 'identify -format %k window.png')
echo "it is painted in $colours colours"
[ "$colours" -gt 20 ]
cp "$root/tmp/home/window.png" "$folder"

inside apt-get -qq purge -y korvane korvane-cli korvane-rules >/dev/null
rm -r "$root/tmp/packages" "$root/tmp/home"
inventory >"$folder/after"
echo "-- purged; what is there that was not, or is no longer:"
diff "$folder/before" "$folder/after"
left=$(find "$root" -xdev -iname '*korvane*'; inside dpkg-query -W 'korvane*' 2>/dev/null || true)
[ -z "$left" ] || { echo "$left"; exit 1; }
echo "nothing"
rm "$folder/before" "$folder/after"
