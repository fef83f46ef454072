"""The program as its user meets it, in a real X server: a set-up that is cancelled, the first run, a life that is begun, and one
that is gone back in.

usage: first_run.py PROGRAM RULES ARTIFACTS; run.sh makes the place where it can run. The window tests live whole lives.
"""

from __future__ import annotations

import os
import signal
import subprocess
import sys
from datetime import date
from pathlib import Path
from typing import NoReturn

import pyatspi

from korvane_session import Control, Failure, Session, Window

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
    live_until(session, "Personal", 0)  # who is rejected is drafted first
    tables = meet(session, "tables", "Personal")
    expect(bool(tables.find(LIST, "Currently Held").lines()), "basic training gave skills")
    session.keys("Escape")
    session.click(meet(session, "scrap", "Yes").button("Yes"))
    main = session.front(lambda window: window.seek(BUTTON, "Start Career") is not None)
    session.wait_for("the set-up unlocked", lambda: main.button("Start Career").now().enabled)
    expect(main.find(LIST, "History").lines()[:1] == ["Term 1, age 18"], "what was generated stays in view")
    session.settle()
    session.keys("alt+e")
    expect(session.exit_status() == 0, "Exit ends the program well")


def is_dialog(window: Window) -> bool:
    return window.seek(BUTTON, "Start Career") is None


def way_back(window: Window) -> Control:
    return next(control for control in window.controls if control.name == "Back" and control.role != TEXT)


def answer(session: Session, window: Window, last_term: bool) -> None:
    """Answers a question as simply as can be."""
    buttons = window.buttons()
    if "Re-Enlist" in buttons:
        session.keys("3" if last_term else "1")
    elif "Select All" in buttons:
        session.keys("Escape")
    elif "End Career" in buttons:
        session.click(window.button("End Career"))
    elif "Material" in buttons:
        session.keys("4" if any(" 0 rolls" in text for text in window.texts()) else "2")
    elif "Yes" in buttons or "OK" in buttons:
        session.keys("Return")
    else:
        session.keys("1")


def live_until(session: Session, wanted: str, terms: int) -> Window:
    """Answers questions until one has that button, after so many terms."""
    for _ in range(100):
        window = session.front(is_dialog)
        session.settle()
        window = session.front(is_dialog)
        served = sum("------ Term" in line or line.startswith("Term ") for lists in window.all(LIST) for line in lists.lines())
        if wanted in window.buttons() and served >= terms:
            return window
        answer(session, window, served >= 4)
    raise Failure(f"no dialog with {wanted} came")


def go_back_in_a_life(session: Session) -> None:
    """By button and by keyboard, forward, and by the history to the second term; then on to the end."""
    session.keys("ctrl+Return")
    meet(session, "seeded-skills", "Select All")
    session.keys("Escape")
    choice = meet(session, "seeded-choice", "Enlist Immediately")
    session.keys("1")
    session.click(way_back(live_until(session, "Personal", 0)))
    expect(meet(session, "back-by-button", "Enlist Immediately").buttons() == choice.buttons(), "the same question")
    session.keys("ctrl+z")
    meet(session, "back-by-key", "Select All")
    session.keys("ctrl+shift+z")
    meet(session, "forward-by-key", "Enlist Immediately")
    session.keys("ctrl+z")
    meet(session, "back-again", "Select All")
    live_until(session, "Re-Enlist", 3)
    session.keys("ctrl+h")
    main_window = session.front(lambda window: not is_dialog(window))
    session.settle()
    session.screenshot("back-by-history")
    lines = main_window.find(LIST, "History").lines()
    row = next(i for i, line in enumerate(lines) if line.startswith("Term 2,"))
    session.keys("Home", *["Down"] * row, "Return")
    expect("Re-Enlist" not in session.front(is_dialog).buttons(), "an earlier question")
    live_until(session, "Export", 0)
    session.screenshot("export-at-the-end")
    session.keys("Escape")
    session.click(meet(session, "not-exported", "Yes").button("Yes"))
    session.front(lambda window: not is_dialog(window))


def verify(command_line: Path, rules: Path, journal: Path) -> None:
    verdict = subprocess.run(
        [command_line, "verify", journal, "--data", rules, "--seed", "friday night"], capture_output=True, text=True
    )
    print(verdict.stdout + verdict.stderr)
    expect(verdict.returncode == 0 and ": proved" in verdict.stdout, "the journal of the life is proved")
    expect("; went back 4 times" in verdict.stdout, "it tells how often the player went back")


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
        journal = Path(os.environ["HOME"]) / "life.jsonl"
        arguments = ("--seed", "friday night", "--journal", str(journal))
        with Session(program, rules, artifacts, arguments=arguments) as session:
            meet(session, "seeded", "Start Career")
            go_back_in_a_life(session)
            session.settle()
            session.keys("alt+e")
            expect(session.exit_status() == 0, "Exit ends the program well")
        verify(program.with_name("korvane-cli"), rules, journal)
    except Failure as failure:
        print(f"FAILED: {failure}", file=sys.stderr)
        return 1
    print("passed")
    return 0


if __name__ == "__main__":
    sys.exit(main())
