# SPDX-License-Identifier: MIT
"""What a screen reader knows of the client, and what it can do with it.

    with Desktop(tray="top") as desktop, Assistive(desktop) as assistive:
        client = desktop.start_client()
        ...
        assistive.press("Refresh")

A process can look at one desktop only: a file of tests has one, made for all of its tests.
"""

import os

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

from desktop import TIME_LIMIT, wait_until  # noqa: E402

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
APPLICATION = "Tarnwick Network"


class Assistive:
    """Makes a desktop accessible; clients are to be started after it."""

    def __init__(self, desktop):
        self.desktop = desktop

    def __enter__(self):
        for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"):
            os.environ[name] = self.desktop.environment[name]
        self.desktop.start(LAUNCHER, "--launch-immediately")
        wait_until(lambda: "org.a11y.Bus" in self.desktop.run(
            "gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path",
            "/org/freedesktop/DBus", "--method", "org.freedesktop.DBus.ListNames"),
            "the accessibility bus")
        Atspi.init()
        return self

    def __exit__(self, *_):
        Atspi.exit()

    def application(self):
        """The client's node; None until it has registered."""
        root = Atspi.get_desktop(0)
        root.clear_cache()
        for index in range(root.get_child_count()):
            child = root.get_child_at_index(index)
            if child and child.get_name() == APPLICATION:
                return child
        return None

    def nodes(self, start=None):
        """Every visible node of the client, from the top down."""
        start = start or self.application()
        if start is None:
            return
        start.clear_cache()
        yield start
        for index in range(start.get_child_count()):
            child = start.get_child_at_index(index)
            if child and child.get_state_set().contains(Atspi.StateType.VISIBLE):
                yield from self.nodes(child)

    def find(self, name, role=None):
        """The visible node of that name and, if given, role ("push button"); None if none."""
        return next((node for node in self.nodes()
                     if node.get_name() == name and role in (None, node.get_role_name())), None)

    def wait_for(self, name, role=None, seconds=TIME_LIMIT):
        return wait_until(lambda: self.find(name, role), f"{name!r}", seconds)

    def wait_for_no(self, name, role=None, seconds=TIME_LIMIT):
        wait_until(lambda: self.find(name, role) is None, f"no {name!r}", seconds)

    def names(self, role):
        return [node.get_name() for node in self.nodes() if node.get_role_name() == role]

    def press(self, name, role="push button"):
        """Does the button's Press action."""
        node = self.wait_for(name, role)
        for index in range(node.get_n_actions()):
            if node.get_action_name(index) == "Press":
                return node.do_action(index)
        raise AssertionError(f"{name!r} cannot be pressed")

    def enter(self, name, text):
        """Replaces the text of a field."""
        self.wait_for(name, "text").set_text_contents(text)

    def focused(self):
        """The node that has the keyboard's focus; None when none has."""
        return next((node for node in self.nodes()
                     if node.get_state_set().contains(Atspi.StateType.FOCUSED)), None)
