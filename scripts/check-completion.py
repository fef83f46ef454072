"""Has real shells in a terminal complete a career's name: check-completion.py PROGRAM. Shells that aren't there are
left out, and said to be."""

import os
import pathlib
import pty
import re
import select
import shutil
import subprocess
import sys
import tempfile
import time

PROGRAM = pathlib.Path(sys.argv[1]).resolve()


def read(terminal: int, until: str, seconds: float) -> str:
    """What the terminal shows, up to a text or a time."""
    shown, end = "", time.monotonic() + seconds
    while time.monotonic() < end and until not in re.sub(r"\x1b\[[0-9;?]*[a-zA-Z]", "", shown):
        if select.select([terminal], [], [], 0.1)[0]:
            shown += os.read(terminal, 65536).decode(errors="replace")
    return re.sub(r"\x1b\[[0-9;?]*[a-zA-Z]", "", shown)


def complete(shell: str, typed: str, wanted: str, found: bool = False) -> None:
    """`found`: the script isn't read, but found by zsh where packages put it."""
    with tempfile.TemporaryDirectory() as home:
        path = pathlib.Path(home) / "_korvane-cli"
        path.write_text(subprocess.run([PROGRAM, "completion", shell], stdout=subprocess.PIPE, check=True, text=True).stdout)
        arguments = {"bash": ["--norc", "--noprofile", "-i"], "zsh": ["-f", "-i"], "fish": ["--no-config", "-i"]}[shell]
        child, terminal = pty.fork()
        if child == 0:
            os.environ |= {"HOME": home, "PATH": f"{PROGRAM.parent}:{os.environ['PATH']}", "TERM": "xterm", "COLUMNS": "200"}
            os.execvp(shell, [shell, *arguments])
        begin = {"bash": f"source {path}\n", "zsh": f"autoload -U compinit; compinit -D; source {path}\n",
                 "fish": f"source {path}\n"}[shell]
        if found:
            begin = f"fpath=({home} $fpath); autoload -U compinit; compinit -u -D\n"
        # What is typed before a shell reads may be lost.
        for _ in range(20):
            os.write(terminal, begin.encode() + b"echo rea''dy\n")
            if "ready" in read(terminal, "ready", 1):
                break
        os.write(terminal, typed.encode() + b"\t")
        shown = read(terminal, wanted, 10)
        os.kill(child, 9)
        os.waitpid(child, 0)
        assert wanted in shown, f"{shell}: {shown!r}"
        print(f"{shell}: {typed!r} became {wanted!r}")


for shell in ("bash", "zsh", "fish"):
    if not shutil.which(shell):
        print(f"{shell}: isn't there")
        continue
    complete(shell, "korvane-cli generate --career Sco", "--career Scout")
    complete(shell, "korvane-cli balan", "balance")
    complete(shell, "korvane-cli generate --race Asl", "--race Aslan")
    complete(shell, "korvane-cli generate --race=Asl", "--race=Aslan")
    complete(shell, "korvane-cli generate --race Imperial\\ Human --career Sco", "--career Scout")
    complete(shell, 'korvane-cli generate --race "Imperial Human" --career Sco', "--career Scout")
    if shell == "bash":
        complete(shell, 'korvane-cli generate --race "Imp', '--race "Imperial Human"')
    if shell == "zsh":
        complete(shell, "korvane-cli generate --career Sco", "--career Scout", found=True)
