#!/usr/bin/env python3
"""Types and clicks at random into the real window in a real X server, stopping and continuing the program as it goes.

usage: monkey.py PROGRAM RULES [--minutes M] [--seed N]

PROGRAM is the built korvane_watched (target of that name). Ends with status 1 at the first line that begins with FAULT, or
when the program dies of a signal. Needs xvfb, openbox and xdotool.
"""

from __future__ import annotations

import argparse
import datetime
import os
import random
import signal
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

KEYS = (
    ["Return"] * 16 + ["space"] * 6 + ["Down"] * 6 + ["Tab"] * 4 + ["Escape"] * 2 + list("12345") * 8 + ["ctrl+Return"] * 12
    + ["Up", "shift+Tab", "ctrl+r", "alt+a", "alt+r", "alt+c", "alt+y", "alt+n", "alt+f", "alt+F4", "alt+Tab", "alt+Tab", "y", "n"]
)


class Program:
    """The watched program; its lines are read as they come."""

    def __init__(self, path: Path, environment: dict[str, str]) -> None:
        self.process = subprocess.Popen([path], env=environment, stderr=subprocess.PIPE, text=True)
        self.faults: list[str] = []
        self.counts = {"answered": 0, "finished": 0}
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self) -> None:
        assert self.process.stderr is not None
        for line in self.process.stderr:
            line = line.strip()
            if line in self.counts:
                self.counts[line] += 1
            elif line.startswith("FAULT"):
                self.faults.append(line)
            else:
                print(f"  {line}", flush=True)

    def ended(self) -> bool:
        return self.process.poll() is not None


def act(chance: random.Random, program: Program, hand: subprocess.Popen[str]) -> None:
    """One to five inputs, now and then all in one stop of the program, so that they arrive together."""
    assert hand.stdin is not None
    stops = chance.random() < 0.15
    if stops:
        program.process.send_signal(signal.SIGSTOP)
    for _ in range(chance.randint(1, 5)):
        kind = chance.random()
        if kind < 0.003:
            hand.stdin.write("key --clearmodifiers alt+e\n")
        elif kind < 0.75:
            hand.stdin.write(f"key --clearmodifiers {chance.choice(KEYS)}\n")
        elif kind < 0.8:
            hand.stdin.write(f"keydown {chance.choice(['Return', 'space', '1', 'Down', 'alt+y', 'ctrl+r', 'alt+F4'])}\nsleep {chance.uniform(0.1, 1.2):.2f}\n")
            hand.stdin.write("keyup Return keyup space keyup 1 keyup Down keyup alt+y keyup ctrl+r keyup alt+F4\n")
        else:
            place = f"{min(max(int(chance.gauss(620, 180)), 5), 1275)} {min(max(int(chance.gauss(400, 120)), 5), 795)}"
            repeat = "--repeat 2 --delay 90 " if chance.random() < 0.3 else ""
            hand.stdin.write(f"mousemove {place}\nclick {repeat}1\n")
    hand.stdin.flush()
    time.sleep(chance.choice([0.0, 0.05, 0.3, 0.45]))
    if stops:
        time.sleep(chance.uniform(0.05, 1.0))
        program.process.send_signal(signal.SIGCONT)


def serve(work: Path) -> tuple[list[subprocess.Popen[str]], str]:
    """An X server of its own with a window manager. Returns the processes and the display."""
    read, write = os.pipe()
    quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x800x24", "-nolisten", "tcp"], pass_fds=[write], **quiet
    )
    os.close(write)
    with os.fdopen(read) as numbers:
        display = ":" + numbers.readline().strip()
    manager = subprocess.Popen(["openbox"], env=os.environ | {"DISPLAY": display, "HOME": str(work)}, **quiet)
    time.sleep(1)
    return [server, manager], display


def run(arguments: argparse.Namespace, work: Path) -> int:
    chance = random.Random(arguments.seed)
    servants, display = serve(work)
    windows = work / "windows"
    windows.mkdir()
    held = str(arguments.rules.resolve()).replace("/", "\\")
    (windows / "Korvane.ini").write_text(f"dataloc={held}\\\r\nLastMonth={datetime.date.today().month:02}\r\n")
    environment = os.environ | {
        "DISPLAY": display, "HOME": str(work), "WINDIR": str(windows), "USERPROFILE": str(work),
        "XDG_RUNTIME_DIR": str(work), "QT_QPA_PLATFORM": "xcb",
    }
    hand = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE, text=True, env=environment)
    end = time.monotonic() + 60 * arguments.minutes
    answered = finished = starts = 0
    status = 0
    try:
        while time.monotonic() < end and status == 0:
            program = Program(arguments.program, environment)
            starts += 1
            seen, since = 0, time.monotonic()
            while time.monotonic() < end and not program.ended() and not program.faults:
                act(chance, program, hand)
                if program.counts["answered"] != seen:
                    seen, since = program.counts["answered"], time.monotonic()
                if time.monotonic() - since > 300:
                    program.faults.append("FAULT nothing was answered for five minutes")
            time.sleep(0.2)
            for fault in program.faults:
                print(fault)
            if program.faults or (program.ended() and program.process.returncode != 0):
                print(f"ended with {program.process.returncode}")
                status = 1
            answered += program.counts["answered"]
            finished += program.counts["finished"]
            program.process.kill()
    finally:
        for process in [hand, *servants]:
            process.kill()
    print(f"seed {arguments.seed}: {answered} questions answered, {finished} lives finished, {starts} starts")
    return status


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", type=Path)
    parser.add_argument("rules", type=Path)
    parser.add_argument("--minutes", type=float, default=30)
    parser.add_argument("--seed", type=int, default=1)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as work:
        return run(arguments, Path(work))


if __name__ == "__main__":
    sys.exit(main())
