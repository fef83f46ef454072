#!/usr/bin/env bash
# Drives the desktop program through its windows, on an X server and a D-Bus session of its own.
#
# usage: run.sh PROGRAM RULES ARTIFACTS
#   PROGRAM    the built desktop program
#   RULES      the folder of the rule files, which is only read
#   ARTIFACTS  a folder for screenshots and logs, made if need be
#
# KORVANE_TEST_DISPLAY, as ":88", asks for a certain display, to watch it; else a free one is taken.
# Exit status: 0 passed, 77 a tool is missing, any other failed.
set -euo pipefail

readonly time_limit=300  # seconds; a run takes far less

[ $# -eq 3 ] || { sed -n '4,7s/^# //p' "$0" >&2; exit 2; }
here=$(cd "$(dirname "$0")" && pwd)
program=$(realpath -e "$1")
rules=$(realpath -e "$2")
mkdir -p "$3"
artifacts=$(realpath -e "$3")
rm -f "$artifacts/failure.png"

skip() {
    echo "skipped: $1 is missing"
    exit 77
}
for tool in Xvfb openbox xdotool import dbus-run-session timeout; do
    command -v "$tool" >/dev/null || skip "$tool"
done
[ -f /usr/share/dbus-1/services/org.a11y.Bus.service ] || skip at-spi2-core
/usr/bin/python3 -c 'import pyatspi' 2>/dev/null || skip python3-pyatspi

# All that runs here is one process group, which is ended whatever happens.
work=$(mktemp -d)
job=
finish() {
    if [ -n "$job" ]; then
        kill -TERM -- "-$job" 2>/dev/null || true
        for _ in {1..20}; do
            kill -0 -- "-$job" 2>/dev/null || break
            sleep 0.1
        done
        kill -KILL -- "-$job" 2>/dev/null || true
    fi
    rm -rf "$work"
}
trap finish EXIT
trap 'exit 143' INT TERM

# Nothing of the user's own settings is read or written.
mkdir -m 700 "$work/home" "$work/run" "$work/windows"
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_RUNTIME_DIR="$work/run" WINDIR="$work/windows"
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
unset XAUTHORITY XDG_CONFIG_DIRS QT_STYLE_OVERRIDE QT_SCALE_FACTOR QT_FONT_DPI

run() {
    mkfifo "$work/display"
    Xvfb ${KORVANE_TEST_DISPLAY:+"$KORVANE_TEST_DISPLAY"} -displayfd 3 -screen 0 1280x800x24 -nolisten tcp \
        3>"$work/display" 2>"$artifacts/xvfb.log" &
    local number
    # It writes its number when it is ready.
    read -r number <"$work/display" || { cat "$artifacts/xvfb.log" >&2; return 1; }
    export DISPLAY=":$number"
    openbox --config-file /etc/xdg/openbox/rc.xml >"$artifacts/openbox.log" 2>&1 &
    # The session's own noise goes to a log; the test writes where this script does.
    dbus-run-session -- sh -c 'exec "$@" >&3 2>&4 3>&- 4>&-' sh timeout --foreground --kill-after=5 "$time_limit" \
        /usr/bin/python3 -B "$here/first_run.py" "$program" "$rules" "$artifacts" \
        3>&1 4>&2 >"$artifacts/dbus.log" 2>&1
}

set -m
run &
job=$!
set +m
wait "$job"
