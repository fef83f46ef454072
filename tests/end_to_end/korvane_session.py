"""The desktop program at a real X server: its windows as a screen reader sees them, and a mouse and a keyboard."""

from __future__ import annotations

import os
import subprocess
import time
from collections import deque
from collections.abc import Callable, Iterator
from dataclasses import dataclass
from pathlib import Path
from typing import Any, TypeVar

import pyatspi
from gi.repository import GLib

T = TypeVar("T")

PATIENCE = 20.0  # seconds; only a machine that stands still needs more
POLL = 0.02
# A dialog takes no press within the double-click interval after it came.
SETTLED = 0.45

# What a user can work; each of these needs a name.
CONTROL_ROLES = {
    pyatspi.ROLE_PUSH_BUTTON,
    pyatspi.ROLE_CHECK_BOX,
    pyatspi.ROLE_RADIO_BUTTON,
    pyatspi.ROLE_COMBO_BOX,
    pyatspi.ROLE_LIST,
    pyatspi.ROLE_TEXT,
    pyatspi.ROLE_ENTRY,
    pyatspi.ROLE_TREE,
    pyatspi.ROLE_MENU_ITEM,
}
# What stands in these is content, not controls.
CLOSED_ROLES = {pyatspi.ROLE_LIST, pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_TREE}


class Failure(Exception):
    """The program doesn't do what it should."""


@dataclass(frozen=True)
class Control:
    """A control or a window as it stood when it was read. `label` is the text of the label that belongs to it."""

    node: Any
    role: Any
    name: str
    label: str
    states: frozenset[Any]

    @staticmethod
    def read(node: Any) -> Control:
        states = frozenset(node.getState().getStates())
        return Control(node, node.getRole(), node.name, label_of(node), states)

    @property
    def showing(self) -> bool:
        return pyatspi.STATE_SHOWING in self.states

    @property
    def enabled(self) -> bool:
        return pyatspi.STATE_ENABLED in self.states

    @property
    def active(self) -> bool:
        return pyatspi.STATE_ACTIVE in self.states

    @property
    def focused(self) -> bool:
        return pyatspi.STATE_FOCUSED in self.states

    def now(self) -> Control:
        return Control.read(self.node)

    def items(self) -> list[Control]:
        """The items of a list or a combo box."""
        is_combo_box = self.role == pyatspi.ROLE_COMBO_BOX
        return [Control.read(item) for item in (self.node.getChildAtIndex(0) if is_combo_box else self.node)]

    def lines(self) -> list[str]:
        return [item.name for item in self.items()]

    def text(self) -> str:
        """The content of a text field."""
        return str(self.node.queryText().getText(0, -1))

    def extents(self) -> tuple[int, int, int, int]:
        """Left, top, width and height on the screen."""
        box = self.node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        return box.x, box.y, box.width, box.height

    def __str__(self) -> str:
        return f'{role_name(self.role)} "{self.name or self.label}"'


def role_name(role: Any) -> str:
    return str(pyatspi.Role(role)).removeprefix("ROLE_").replace("_", " ").lower()


def label_of(node: Any) -> str:
    for relation in node.getRelationSet():
        if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY:
            targets = (relation.getTarget(i) for i in range(relation.getNTargets()))
            for target in targets:
                # A group counts for all that stands in it; only a label names one control.
                if target.getRole() == pyatspi.ROLE_LABEL:
                    return str(target.name)
    return ""


def walk(control: Control) -> Iterator[Control]:
    """All that shows in a window, top down."""
    waiting = deque([control])
    while waiting:
        control = waiting.popleft()
        yield control
        if control.role not in CLOSED_ROLES:
            children = (Control.read(child) for child in control.node if child is not None)
            waiting.extend(child for child in children if child.showing)


class Window:
    """A window and the controls that it showed when it was read."""

    def __init__(self, frame: Control) -> None:
        self.frame = frame
        self.controls = list(walk(frame))

    @property
    def title(self) -> str:
        return self.frame.name

    def all(self, role: Any) -> list[Control]:
        return [control for control in self.controls if control.role == role]

    def find(self, role: Any, name: str) -> Control:
        """The control of that name or label. Raises Failure when there is none."""
        found = self.seek(role, name)
        if found is None:
            raise Failure(f'"{self.title}" has no {role_name(role)} "{name}"')
        return found

    def seek(self, role: Any, name: str) -> Control | None:
        return next((control for control in self.all(role) if name in (control.label, control.name)), None)

    def button(self, name: str) -> Control:
        return self.find(pyatspi.ROLE_PUSH_BUTTON, name)

    def buttons(self) -> list[str]:
        return [button.name for button in self.all(pyatspi.ROLE_PUSH_BUTTON)]

    def texts(self) -> list[str]:
        """What the window says in its labels."""
        return [label.name for label in self.all(pyatspi.ROLE_LABEL) if label.name]

    def focused(self) -> Control | None:
        return next((control for control in self.controls if control.focused and control.role in CONTROL_ROLES), None)

    def unnamed(self) -> list[str]:
        """The controls that a screen reader can't tell apart. A combo box's own name is only its current item."""
        unnamed = []
        for control in self.controls:
            is_named = control.label or (control.name.strip() and control.role != pyatspi.ROLE_COMBO_BOX)
            if control.role in CONTROL_ROLES and not is_named:
                unnamed.append(f'"{self.title}": {control} at {control.extents()}')
        return unnamed


class Session:
    """One run of the program. Leaving the `with` block ends it, if it hasn't ended by itself."""

    def __init__(
        self,
        program: Path,
        folder: Path,
        artifacts: Path,
        environment: dict[str, str] | None = None,
        arguments: tuple[str, ...] = (),
    ) -> None:
        self.artifacts = artifacts
        # The toolkit tells which window has the input only to those who listen.
        pyatspi.Registry.registerEventListener(lambda event: None, "window:activate", "window:deactivate")
        self.process = subprocess.Popen([program, *arguments], cwd=folder, env=os.environ | (environment or {}))

    def __enter__(self) -> Session:
        return self

    def __exit__(self, error: type[BaseException] | None, *_: object) -> None:
        try:
            if error is not None:
                self.screenshot("failure")
        finally:
            self.process.kill()
            self.process.wait()

    def wait_for(self, what: str, probe: Callable[[], T | None], seconds: float = PATIENCE) -> T:
        """Polls until the probe returns something true, and returns it. Raises Failure when that takes too long."""
        deadline = time.monotonic() + seconds
        while True:
            self._dispatch_events()
            gone: Exception | None = None
            try:
                if result := probe():
                    return result
            except (GLib.GError, LookupError, AttributeError, NotImplementedError) as error:
                gone = error  # a control went while it was read
            if self.process.poll() is not None:
                raise Failure(f"the program ended with {self.process.returncode}; awaited: {what}")
            if time.monotonic() > deadline:
                raise Failure(f"awaited in vain: {what}") from gone
            time.sleep(POLL)

    def _dispatch_events(self) -> None:
        while GLib.MainContext.default().iteration(False):
            pass

    def windows(self) -> list[Control]:
        """The program's windows; none before it has announced itself."""
        applications = (node for node in pyatspi.Registry.getDesktop(0) if node is not None)
        mine = (node for node in applications if node.get_process_id() == self.process.pid)
        return [Control.read(node) for application in mine for node in application if node is not None]

    def front(self, wanted: Callable[[Window], bool] = lambda window: True) -> Window:
        """Waits until the window that has the input is a wanted one, and returns it."""

        def active_window() -> Window | None:
            active = [window for window in self.windows() if window.active and window.showing]
            window = Window(active[0]) if len(active) == 1 else None
            return window if window and wanted(window) else None

        return self.wait_for("a window", active_window)

    def click(self, control: Control) -> None:
        """Presses the mouse in the middle of a control, once it is enabled and stands still."""
        self.wait_for(f"{control} enabled", lambda: control.now().enabled and control.now().showing)
        places: list[tuple[int, int, int, int]] = [(0, 0, 0, 0)]

        def stands_still() -> bool:
            places.append(control.extents())
            return places[-1] == places[-2] and places[-1][2] > 0

        self.wait_for(f"{control} at rest", stands_still)
        left, top, width, height = places[-1]
        run_tool("xdotool", "mousemove", str(left + width // 2), str(top + height // 2), "click", "1")

    def settle(self) -> None:
        """Waits until a dialog that has just come takes an answer."""
        time.sleep(SETTLED)

    def keys(self, *keys: str) -> None:
        """Types keys, named as xdotool does, into the window that has the input."""
        run_tool("xdotool", "key", "--clearmodifiers", *keys)

    def screenshot(self, name: str) -> None:
        run_tool("import", "-window", "root", str(self.artifacts / f"{name}.png"))

    def exit_status(self) -> int:
        """Waits for the end of the program."""
        try:
            return self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            raise Failure("the program doesn't end") from None


def run_tool(*arguments: str) -> None:
    subprocess.run(arguments, check=True, timeout=PATIENCE)
