"""The program as its user meets it: the first run by mouse, the second by keyboard, and a set-up that is cancelled.

usage: first_run.py PROGRAM RULES ARTIFACTS; run.sh makes the place where it can run.
"""

from __future__ import annotations

import os
import signal
import sys
import time
from collections.abc import Callable
from datetime import date
from pathlib import Path
from typing import Any, NoReturn

import pyatspi

from korvane_session import Control, Failure, Session, Window

BUTTON = pyatspi.ROLE_PUSH_BUTTON
CHECK_BOX = pyatspi.ROLE_CHECK_BOX
COMBO_BOX = pyatspi.ROLE_COMBO_BOX
LIST = pyatspi.ROLE_LIST
TEXT = pyatspi.ROLE_TEXT

TITLE = "Brisane Farwend v2 Characters v"
# A dialog takes no press within the double-click interval after it came.
SETTLED = 0.45
# A life may miss a kind of dialog; lives go on until these have been met.
NEEDED_KINDS = {"choice", "list", "skill tables", "end of term", "transfer", "mustering out", "export"}
MOST_LIVES = 4
# With this option a university takes everyone; its subjects come from a list.
OPTION = "Force Academic Success"

# The buttons by which a dialog is known.
MARKS = {
    "Open": "file dialog",
    "I Agree": "about",
    "Re-Enlist": "end of term",
    "End Career": "transfer",
    "3 Cash, rest Material": "mustering out",
    "Find...": "list",
    "Roll Name": "export",
}


def expect(condition: bool, what: str) -> None:
    if not condition:
        raise Failure(what)


def kind_of(window: Window) -> str:
    if window.frame.role == pyatspi.ROLE_FRAME:
        return "main window"
    if window.frame.role == pyatspi.ROLE_ALERT:
        return "question" if "Yes" in window.buttons() else "message"
    if window.seek(LIST, "Currently Held"):
        return "skill tables"
    return next((MARKS[name] for name in window.buttons() if name in MARKS), "choice")


class Journey:
    """Meets the windows of a session: each is checked for unnamed controls, and the first of its kind is kept as a
    picture."""

    def __init__(self, name: str, session: Session) -> None:
        self.name = name
        self.session = session
        self.kinds: set[str] = set()
        self.unnamed: dict[str, None] = {}  # an ordered set
        self.start = time.monotonic()

    def say(self, text: str) -> None:
        print(f"{self.name} {time.monotonic() - self.start:5.1f} s  {text}", flush=True)

    def meet(self, *kinds: str) -> Window:
        """Waits for the window in front, of one of these kinds if any are told."""
        window = self.session.front(lambda window: not kinds or kind_of(window) in kinds)
        kind = kind_of(window)
        time.sleep(SETTLED)
        # The toolkit's own file dialog labels its combo boxes without saying so.
        if kind != "file dialog":
            self.unnamed |= dict.fromkeys(window.unnamed())
        if kind not in self.kinds:
            self.kinds.add(kind)
            self.session.screenshot(f"{self.name}-{kind.replace(' ', '-')}")
        return window

    def press(self, window: Window, button: str) -> None:
        """Presses a button of a dialog by mouse."""
        self.session.answer(window, lambda: self.session.click(window.button(button)))

    def type(self, window: Window, *keys: str) -> None:
        """Answers a dialog by keys."""
        self.session.answer(window, lambda: self.session.keys(*keys))

    def meet_next(self) -> Window | None:
        """The next dialog of a running career; nothing when the career has ended."""

        def is_settled(window: Window) -> bool:
            return kind_of(window) != "main window" or window.button("Start Career").enabled

        self.session.front(is_settled)
        window = self.meet()
        return None if kind_of(window) == "main window" else window


class Hand:
    """Answers the dialogs of a life, by a method for each kind."""

    def __init__(self, journey: Journey) -> None:
        self.journey = journey
        self.session = journey.session
        self.terms = iter(["Re-Enlist", "Transfer & Re-Enlist"])
        self.exports = iter(["Roll Name", "Export"])

    def answer(self, window: Window) -> None:
        kind = kind_of(window)
        self.journey.say(f"{kind}: {window.title} {window.texts()[:2]}")
        method = getattr(self, f"answer_{kind.replace(' ', '_')}", None)
        if method is None:
            raise Failure(f"a {kind} stands in a life")
        method(window)


def enabled_buttons(window: Window) -> list[Control]:
    return [button for button in window.all(BUTTON) if button.enabled]


def pick_of(window: Window) -> Control:
    """The alternative to choose: the first, but the university where it is offered."""
    enabled = enabled_buttons(window)
    return next((button for button in enabled if button.name == "University"), enabled[0])


def await_marks(session: Session, window: Window, count: int) -> None:
    session.wait_for(f"{count} selected", lambda: f"{count} selected" in Window(window.frame).texts())


class MouseHand(Hand):
    """Works each dialog by mouse, after trying what it refuses."""

    tried_no_items = False
    tried_done = False

    def answer_choice(self, window: Window) -> None:
        self.journey.press(window, pick_of(window).name)

    answer_skill_tables = answer_choice

    def answer_list(self, window: Window) -> None:
        if not self.tried_no_items:
            self.tried_no_items = True
            self.journey.press(window, "OK")
            message = self.journey.meet("message")
            expect("No items selected" in message.texts(), "an empty selection is refused")
            self.journey.press(message, "OK")
            window = self.journey.meet("list")
        wanted = int(window.find(TEXT, "Minimum").text())
        for count, item in enumerate(window.find(LIST, window.texts()[0]).items()[:wanted], start=1):
            self.session.click(item)
            await_marks(self.session, window, count)
        self.journey.press(window, "OK")

    def answer_question(self, window: Window) -> None:
        self.journey.press(window, "No" if any("unused" in text for text in window.texts()) else "Yes")

    def answer_message(self, window: Window) -> None:
        self.journey.press(window, "OK")

    def answer_end_of_term(self, window: Window) -> None:
        self.journey.press(window, next(self.terms, "Muster Out"))

    def answer_transfer(self, window: Window) -> None:
        expect(not window.button("Accept").enabled, "a transfer needs a career")
        for label in ("Career", "Assignment"):
            combo_box = window.find(COMBO_BOX, label)
            self.session.choose(combo_box, combo_box.lines()[-1])
        self.journey.press(window, "Accept")

    def answer_mustering_out(self, window: Window) -> None:
        enabled = {button.name for button in enabled_buttons(window)}
        if "Material" in enabled and not self.tried_done:
            self.tried_done = True  # the question about unused rolls is answered with No
            self.journey.press(window, "Done")
        else:
            self.journey.press(window, "Material" if "Material" in enabled else "Done")

    def answer_export(self, window: Window) -> None:
        self.journey.press(window, next(self.exports, "Close"))


class KeyboardHand(Hand):
    """Answers by keys alone."""

    tried_escape = False
    took_cash = False

    def answer_choice(self, window: Window) -> None:
        if kind_of(window) == "choice" and not self.tried_escape:
            self.tried_escape = True
            self.refuse_to_scrap(window)
        place = window.all(BUTTON).index(pick_of(window)) + 1
        self.journey.type(window, str(place))

    answer_skill_tables = answer_choice

    def refuse_to_scrap(self, choice: Window) -> None:
        self.journey.type(choice, "Escape")
        question = self.journey.meet("question")
        expect("Scrap this character?" in question.texts(), "Escape asks before it scraps the character")
        focused = question.focused()
        expect(focused is not None and focused.name == "No", "No is the default")
        self.journey.type(question, "Return")
        expect(self.journey.meet("choice").buttons() == choice.buttons(), "No returns to the choice")

    def answer_list(self, window: Window) -> None:
        for count in range(1, int(window.find(TEXT, "Minimum").text()) + 1):
            self.session.keys("Down", "space")
            await_marks(self.session, window, count)
        self.journey.type(window, "Return")

    def answer_question(self, window: Window) -> None:
        self.journey.type(window, "Return")

    def answer_message(self, window: Window) -> None:
        self.journey.type(window, "Return")

    def answer_end_of_term(self, window: Window) -> None:
        answer = next(self.terms, "Muster Out")
        self.journey.type(window, {"Re-Enlist": "1", "Transfer & Re-Enlist": "2", "Muster Out": "3"}[answer])

    def answer_transfer(self, window: Window) -> None:
        for label in ("Career", "Assignment"):
            combo_box = tab_to(self.session, COMBO_BOX, label)
            self.session.keys("Down")
            self.session.wait_for(f"a {label} chosen", lambda: combo_box.now().name == combo_box.lines()[0])
        tab_to(self.session, BUTTON, "Accept")
        self.journey.type(window, "Return")

    def answer_mustering_out(self, window: Window) -> None:
        enabled = {button.name for button in enabled_buttons(window)}
        if "Cash" in enabled and not self.took_cash:
            self.took_cash = True
            self.journey.type(window, "1")
        else:
            self.journey.type(window, "2" if "Material" in enabled else "4")

    def answer_export(self, window: Window) -> None:
        self.journey.type(window, {"Roll Name": "alt+r", "Export": "alt+e"}.get(next(self.exports, ""), "Escape"))


def tab_to(session: Session, role: Any, name: str) -> Control:
    """Presses Tab until the control of that name or label has the focus, and returns it."""
    for _ in range(40):
        focused = session.front().focused()
        if focused and focused.role == role and name in (focused.name, focused.label):
            return focused
        session.keys("Tab")
        place = focused.extents() if focused else None

        def has_moved() -> bool:
            now = session.front().focused()
            return now is not None and now.extents() != place

        session.wait_for("the focus elsewhere", has_moved)
    raise Failure(f'Tab doesn\'t lead to "{name}"')


def live(journey: Journey, hand: Hand, start: Callable[[Window], None]) -> None:
    """Lives one life from the main window and checks how it is left."""
    main = journey.meet("main window")
    start(main)
    journey.session.front(lambda window: kind_of(window) != "main window")
    while window := journey.meet_next():
        hand.answer(window)
    check_end_of_life(journey)


def check_end_of_life(journey: Journey) -> None:
    main = journey.meet("main window")
    history = main.find(LIST, "History").lines()
    expect(history[:1] == ["-- Term 1 --"], f"the history begins with its first term: {history[:1]}")
    expect(len(history) > 1, "the history tells of the life")
    for name in ("Start Career", "Roll"):
        expect(main.button(name).enabled, f'"{name}" is unlocked')
    for label in ("Race", "Career", "Assignment"):
        expect(main.find(COMBO_BOX, label).enabled, f'"{label}" is unlocked')
    pages = list((Path(os.environ["HOME"]) / "Korvane").glob("*.htm"))
    expect(bool(pages) and all("|" not in page.read_text() for page in pages), f"pages without tags: {pages}")
    journey.say(f"a life of {len(history)} lines")


def live_until_all_is_met(
    journey: Journey, make_hand: Callable[[Journey], Hand], start: Callable[[Window], None]
) -> None:
    for _ in range(MOST_LIVES):
        live(journey, make_hand(journey), start)
        if NEEDED_KINDS <= journey.kinds:
            break
    expect(NEEDED_KINDS <= journey.kinds, f"in {MOST_LIVES} lives no {NEEDED_KINDS - journey.kinds}")
    journey.session.screenshot(f"{journey.name}-end-of-life")


def set_up_by_mouse(journey: Journey, rules: Path) -> None:
    message = journey.meet("message")
    expect("IMPERIAL HUMAN.ERI" in "".join(message.texts()), "the set-up explains itself")
    journey.press(message, "OK")
    dialog = journey.meet("file dialog")
    expect(dialog.find(TEXT, "File name:").text() == "Imperial Human.eri", "the default race's file is proposed")
    journey.press(dialog, "Open")
    message = journey.meet("message")
    expect(any(str(rules) in text for text in message.texts()), f"the folder is told: {message.texts()}")
    journey.press(message, "OK")


def check_configuration(file: Path, rules: Path) -> None:
    held = str(rules).replace("/", "\\")
    wanted = f"dataloc={held}\\\r\nLastMonth={date.today().month:02}\r\n"
    found = file.read_bytes().decode()
    expect(found == wanted, f"{file.name} holds {found!r}, not {wanted!r}")


def roll_until_changed(session: Session, main: Window, roll: Callable[[], None]) -> None:
    statistics = main.find(LIST, "Statistics")
    before = statistics.lines()
    expect(len(before) == 6, f"six characteristics: {before}")
    # Six equal rolls are rare, but allowed.
    session.repeat_until("other statistics", roll, lambda: statistics.lines() not in ([], before), times=3)


def first_run(journey: Journey, rules: Path) -> None:
    session = journey.session
    set_up_by_mouse(journey, rules)
    main = journey.meet("main window")
    check_configuration(Path(os.environ["WINDIR"]) / "Korvane.ini", rules)
    expect(main.title.startswith(TITLE), f"the title is {main.title}")
    roll_until_changed(session, main, lambda: session.click(main.button("Roll")))
    option = main.find(CHECK_BOX, OPTION)
    session.click(option)
    session.wait_for("the option ticked", lambda: option.now().checked)
    live_until_all_is_met(journey, MouseHand, lambda main: session.click(main.button("Start Career")))
    session.click(journey.meet("main window").find(pyatspi.ROLE_MENU_ITEM, "Exit"))
    expect(session.exit_status() == 0, "Exit ends the program well")


def choose_career_by_keys(session: Session) -> None:
    assignments = session.front().find(COMBO_BOX, "Assignment").lines()
    career = tab_to(session, COMBO_BOX, "Career")
    careers = career.lines()
    session.keys("Down")
    following = careers[careers.index(career.name) + 1]
    session.wait_for(f"the career {following}", lambda: career.now().name == following)
    session.wait_for(
        "its assignments", lambda: session.front().find(COMBO_BOX, "Assignment").lines() not in ([], assignments)
    )


def see_about_by_keys(journey: Journey) -> None:
    journey.session.keys("alt+a")
    about = journey.meet("about")
    expect(len(about.all(TEXT)) == 4, "four notices")
    journey.type(about, "Return")


def second_run(journey: Journey) -> None:
    session = journey.session
    # The first window is the main one: the set-up is known.
    main = session.front()
    expect(kind_of(main) == "main window", f"a {kind_of(main)} comes first: {main.texts()}")
    choose_career_by_keys(session)
    option = tab_to(session, CHECK_BOX, OPTION)
    session.keys("space")
    session.wait_for("the option ticked", lambda: option.now().checked)
    see_about_by_keys(journey)
    roll_until_changed(session, journey.meet("main window"), lambda: session.keys("ctrl+r"))
    live_until_all_is_met(journey, KeyboardHand, lambda _: session.keys("ctrl+Return"))
    session.keys("alt+e")
    expect(session.exit_status() == 0, "Exit ends the program well")


def cancelled_set_up(journey: Journey, windows: Path) -> None:
    journey.type(journey.meet("message"), "Return")
    journey.meet("file dialog")
    journey.session.keys("Escape")
    expect(journey.session.exit_status() == 0, "a cancelled set-up ends the program well")
    expect(not list(windows.iterdir()), f"a cancelled set-up writes nothing: {list(windows.iterdir())}")


def run(program: Path, rules: Path, artifacts: Path) -> list[str]:
    """Makes the three runs. Returns the controls without a name."""
    windows = Path(os.environ["WINDIR"]) / "empty"
    windows.mkdir()
    runs: list[tuple[str, dict[str, str], Callable[[Journey], None]]] = [
        ("cancelled", {"WINDIR": str(windows)}, lambda journey: cancelled_set_up(journey, windows)),
        ("mouse", {}, lambda journey: first_run(journey, rules)),
        ("keyboard", {}, second_run),
    ]
    unnamed: dict[str, None] = {}
    for name, environment, make in runs:
        with Session(program, rules, artifacts, environment) as session:
            journey = Journey(name, session)
            make(journey)
            unnamed |= journey.unnamed
            journey.say("done")
    return list(unnamed)


def main() -> int:
    def on_time_limit(*_: object) -> NoReturn:
        raise Failure("the time limit of the whole test")

    signal.signal(signal.SIGTERM, on_time_limit)
    program, rules, artifacts = (Path(argument) for argument in sys.argv[1:4])
    try:
        unnamed = run(program, rules, artifacts)
    except Failure as failure:
        print(f"FAILED: {failure}", file=sys.stderr)
        return 1
    if unnamed:
        print("FAILED: controls without an accessible name:", *unnamed, sep="\n  ", file=sys.stderr)
        return 1
    print("passed")
    return 0


if __name__ == "__main__":
    sys.exit(main())
