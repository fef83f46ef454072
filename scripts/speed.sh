#!/usr/bin/env bash
# Measures what the windows cost, in a real X server with a window manager: from start to first paint and peak memory
# against a blank window of the same toolkit, in turns; how long a life in the window keeps the event loop busy; and how
# soon the odds of its questions are there.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-dependencies.sh check

cmake --preset release >/dev/null
cmake --build --preset release --target korvane_speed >/dev/null

work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT
Xvfb -displayfd 3 -screen 0 1280x800x24 3>"$work/display" >/dev/null 2>&1 &
until [ -s "$work/display" ]; do sleep 0.1; done
DISPLAY=:$(tr -d '[:space:]' <"$work/display")
export DISPLAY QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR="$work"
openbox >/dev/null 2>&1 &
sleep 1

export WINDIR="$work"
printf 'dataloc=%s\r\nLastMonth=%s\r\n' "$PWD/rules" "$(date +%m)" >"$work/Korvane.ini"
python3 - build/release/tools/korvane_speed <<'PYTHON'
import os, statistics, subprocess, sys, time

program = sys.argv[1]

def run(mode: str) -> tuple[float, float]:
    start = time.clock_gettime_ns(time.CLOCK_MONOTONIC) / 1000
    out = subprocess.run([program, mode], stdout=subprocess.PIPE, check=True, text=True).stdout.split()
    return (float(out[0]) - start) / 1000, float(out[1]) / 1024

rounds = [(run("blank"), run("word"), run("window")) for _ in range(23)][3:]  # the first warm the caches
for index, what, unit in ((0, "first paint", "ms"), (1, "peak memory", "MiB")):
    blank, word, window = (statistics.median(one[place][index] for one in rounds) for place in range(3))
    to_blank, to_word = (statistics.median(one[2][index] / one[place][index] for one in rounds) for place in range(2))
    print(f"{what}: blank window {blank:.1f} {unit}, with one word {word:.1f} {unit}, Korvane {window:.1f} {unit}: "
          f"{to_blank:.2f} and {to_word:.2f} times")

def live() -> list[str]:
    # Only this event loop tells when it wakes.
    return subprocess.run([program, "life"], stdout=subprocess.PIPE, check=True, text=True,
                          env=os.environ | {"QT_NO_GLIB": "1"}).stdout.split()

lives = [live() for _ in range(10)]
longest = [int(life[0]) / 1000 for life in lives]
terms = [int(life[2]) for life in lives]
print(f"automatic lives of {min(terms)} to {max(terms)} terms: the event loop was busy for at most "
      f"{max(longest):.1f} ms at a time (median of the longest: {statistics.median(longest):.1f} ms)")

for where, command in (("all cores", [program, "odds"]), ("one core", ["taskset", "-c", "0", program, "odds"])):
    out = subprocess.run(command, stdout=subprocess.PIPE, check=True, text=True).stdout.splitlines()
    questions = [[int(number) for number in line.split()] for line in out]
    few = [first for answers, first, _ in questions if answers <= 6]
    print(f"odds on {where}: first figures of up to six answers after at most {max(few)} ms "
          f"({len(few)} questions); a timer was at most {max(late for _, _, late in questions)} ms late")
PYTHON
