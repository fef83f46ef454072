"""The program as its user meets it, in a real X server: a set-up that is cancelled, the first run, and a life that is begun.

usage: first_run.py PROGRAM RULES ARTIFACTS; run.sh makes the place where it can run. The window tests live whole lives.
"""

from __future__ import annotations

import os
import signal
import sys
from datetime import date
from pathlib import Path
from typing import NoReturn

import pyatspi

from korvane_session import Failure, Session, Window

BUTTON = pyatspi.ROLE_PUSH_BUTTON
LIST = pyatspi.ROLE_LIST
TEXT = pyatspi.ROLE_TEXT


def expect(condition: bool, what: str) -> None:
    if not condition:
        raise Failure(what)


def meet(session: Session, picture: str, button: str = "") -> Window:
    """Waits for the window in front, with that button if one is told, looks for unnamed controls and takes a picture."""
    window = session.front(lambda window: not button or button in window.buttons())
    session.settle()
    # The toolkit's own file dialog labels its combo boxes without saying so.
    if picture != "file-dialog":
        unnamed = window.unnamed()
        expect(not unnamed, f"controls without an accessible name: {unnamed}")
    session.screenshot(picture)
    return window


def cancel_set_up(session: Session, windows: Path) -> None:
    meet(session, "cancelled-message")
    session.keys("Return")
    meet(session, "file-dialog", "Open")
    session.keys("Escape")
    expect(session.exit_status() == 0, "a cancelled set-up ends the program well")
    expect(not list(windows.iterdir()), f"a cancelled set-up writes nothing: {list(windows.iterdir())}")


def set_up(session: Session, rules: Path) -> Window:
    message = meet(session, "first-message")
    expect("IMPERIAL HUMAN.ERI" in "".join(message.texts()), "the set-up explains itself")
    session.click(message.button("OK"))
    dialog = meet(session, "file-dialog", "Open")
    expect(dialog.find(TEXT, "File name:").text() == "Imperial Human.eri", "the default race's file is proposed")
    session.click(dialog.button("Open"))
    message = meet(session, "set-message", "OK")
    expect(any(str(rules) in text for text in message.texts()), f"the folder is told: {message.texts()}")
    session.click(message.button("OK"))
    main = meet(session, "main", "Start Career")
    held = str(rules).replace("/", "\\")
    wanted = f"dataloc={held}\\\r\nLastMonth={date.today().month:02}\r\n"
    found = (Path(os.environ["WINDIR"]) / "Korvane.ini").read_bytes().decode()
    expect(found == wanted, f"Korvane.ini holds {found!r}, not {wanted!r}")
    expect(main.title.startswith("Brisane Farwend v2 Characters v"), f"the title is {main.title}")
    expect(len(main.find(LIST, "Statistics").lines()) == 6, "six characteristics")
    return main


def begin_a_life(session: Session) -> None:
    """By keyboard: a No and then a Yes to the scrapping, and the window free again."""
    session.keys("ctrl+Return")
    skills = meet(session, "background-skills", "OK")
    expect(any("background skills" in text for text in skills.texts()), "a childhood taught something")
    session.keys("Escape")
    choice = meet(session, "choice", "Enlist Immediately")
    session.keys("Escape")
    question = meet(session, "scrap", "Yes")
    expect("Scrap this character?" in question.texts(), "Escape asks before it scraps the character")
    focused = question.focused()
    expect(focused is not None and focused.name == "No", "No is the default")
    session.keys("Return")
    expect(meet(session, "choice", "Enlist Immediately").buttons() == choice.buttons(), "No returns to the choice")
    session.keys("1")
    tables = meet(session, "tables", "Personal")
    expect(bool(tables.find(LIST, "Currently Held").lines()), "basic training gave skills")
    session.keys("Escape")
    session.click(meet(session, "scrap", "Yes").button("Yes"))
    main = session.front(lambda window: window.seek(BUTTON, "Start Career") is not None)
    session.wait_for("the set-up unlocked", lambda: main.button("Start Career").now().enabled)
    expect(main.find(LIST, "History").lines()[:1] == ["-- Term 1 --"], "what was generated stays in view")
    session.settle()
    session.keys("alt+e")
    expect(session.exit_status() == 0, "Exit ends the program well")


def main() -> int:
    def on_time_limit(*_: object) -> NoReturn:
        raise Failure("the time limit of the whole test")

    signal.signal(signal.SIGTERM, on_time_limit)
    program, rules, artifacts = (Path(argument) for argument in sys.argv[1:4])
    empty = Path(os.environ["WINDIR"]) / "empty"
    empty.mkdir()
    try:
        with Session(program, rules, artifacts, {"WINDIR": str(empty)}) as session:
            cancel_set_up(session, empty)
        with Session(program, rules, artifacts) as session:
            set_up(session, rules)
            begin_a_life(session)
        with Session(program, rules, artifacts) as session:
            meet(session, "second-run", "Start Career")  # the set-up is known
    except Failure as failure:
        print(f"FAILED: {failure}", file=sys.stderr)
        return 1
    print("passed")
    return 0


if __name__ == "__main__":
    sys.exit(main())
