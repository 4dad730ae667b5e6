# SPDX-License-Identifier: MIT
"""One client under one shell, and what a user would find."""

import pathlib
import shutil
import time

import sight
from shell import EMPTY_SPOT, SIZE
from simulated_daemon import SimulatedDaemon, quick_world
from virtual_desktop import PANEL_WIDTH, Rect, comes, stays, wait_until

ICON_LIMIT = 5.0  # seconds
ANSWER_LIMIT = 5.0  # seconds, for what follows at once on a quiet machine
NEAR = 8  # pixels
POPOVER_GAP = 16  # pixels
WHOLE = Rect(0, 0, *SIZE)
AWAY = (640, 500)


class No(Exception):
    """What was found instead."""


class Trial:
    """The hand, the eye and the client in a session under a shell."""

    def __init__(self, shell, directory):
        self.shell = shell
        self.directory = directory
        self.hand = shell.hand
        self.pointer = sight.Pointer(self.hand.environment["DISPLAY"])
        self.daemon = SimulatedDaemon(quick_world(), directory=self._make_directory("daemon"))
        self.daemon.socket = shell.user_socket
        self.client = self.icon = None
        self.bar = self._bar_rect(shell.bar_thickness())
        self.pictures = 0

    def _make_directory(self, name):
        path = self.shell.directory / name
        path.mkdir()
        return path

    def _bar_rect(self, thickness):
        top = 0 if self.shell.edge == "top" else SIZE[1] - thickness
        return Rect(0, top, SIZE[0], thickness)

    def __enter__(self):
        self.shell.user_socket.parent.mkdir()
        self.daemon.start()
        self.daemon.log_in("twkey-harbor-good", host_name="laptop")
        self.daemon.wait_for(lambda status: status["BackendState"] == "Running")
        return self

    def __exit__(self, *_):
        self.pointer.close()
        self.daemon.close()

    # Seeing

    def picture(self, name=None):
        """What is on the screen; kept under that name."""
        self.pictures += 1
        path = self.directory / f"{name or f'{self.pictures:03}'}.png"
        return sight.load(self.hand.screenshot(path))

    def still_picture(self, seconds=10.0):
        """As soon as nothing moves any more, or after so long."""
        pictures = [self.picture("still")]

        def is_still():
            pictures.append(self.picture("still"))
            return sight.changed_rect(pictures[-2], pictures[-1], WHOLE) is None

        comes(is_still, seconds)
        return pictures[-1]

    def windows(self):
        """The client's, the panel first."""
        if self.client is None:
            return []
        rects = [rect for rect in self.shell.windows(self.client).values()
                 if rect.width >= 150 and rect.height >= 60]
        return sorted(rects, key=lambda rect: abs(rect.width - PANEL_WIDTH))

    def panel(self):
        return next(iter(self.windows()), None)

    def pointer_picture(self, name="pointer"):
        """The pointer at rest: the server's, or the one that a compositor drew."""
        x, y = self.shell.resting_spot
        around = (x - 8, y - 8, x + 24, y + 24)
        return self.pointer.image(), self.picture(name).crop(around)

    # Doing

    def click(self, point):
        """As a hand does it: it moves there, rests, presses and lets go."""
        self.hand.move_mouse(point)
        time.sleep(0.3)
        self.hand.run("xdotool", "mousedown", 1, check=True)
        time.sleep(0.08)
        self.hand.run("xdotool", "mouseup", 1, check=True)

    def start_client(self):
        """Starts it and finds its icon; returns after how many seconds that was to be seen."""
        wait_for_a_quiet_clock()
        self.hand.move_mouse(AWAY)
        before = self.still_picture()
        self.keep("before.png")
        self.client = self.shell.start("tarnwick-client",
                                       environment={"QT_LOGGING_RULES": "tarnwick.*=true"})
        began = time.monotonic()
        seen = comes(lambda: sight.find_new_icon(before, self.picture("bar"), self.bar), 3 * ICON_LIMIT)
        took = time.monotonic() - began
        if not self.client.is_running():
            raise No(f"the client ended: {self.client.output()[-500:]}")
        if not seen:
            raise No(f"not there after {3 * ICON_LIMIT:.0f} s")
        self.icon = sight.find_new_icon(before, self.still_picture(), self.bar)
        self.keep("after.png")
        return took

    def stop_client(self):
        self.client.stop()

    def wait_until_closed(self, seconds=ANSWER_LIMIT):
        return comes(lambda: self.panel() is None, seconds)

    def open_panel(self):
        """With one click on the icon; returns where the panel stands."""
        if self.icon is None:
            raise No("there is no icon to click")
        self.click(self.icon.center)
        if not comes(self.panel, ANSWER_LIMIT):
            self.hand.key("Escape")  # whatever else the click opened
            raise No("one click opens no panel")
        wait_until(lambda: stays(lambda last=self.panel(): last and self.panel() == last, 0.4),
                   "the panel to stand still", 10.0)
        return self.panel()

    def opened_panel(self):
        return self.panel() or self.open_panel()

    def panel_anyhow(self):
        """For checks of what has nothing to do with the icon: launching the client again opens the
        panel too, as an ordinary window."""
        try:
            return self.opened_panel()
        except No:
            self.launch()
            return self.panel()

    def launch(self):
        """As from the desktop's menu; returns after how many seconds the panel was there."""
        began = time.monotonic()
        program = self.shell.start("tarnwick-client")
        if self.client is None:
            self.client = program
        else:
            program.wait_for_end()
        if not comes(self.panel, ANSWER_LIMIT):
            raise No("launching it opens no panel")
        return time.monotonic() - began

    def close_panel(self):
        """In whatever way."""
        for _ in range(3):
            if self.wait_until_closed(1.0 if self.panel() else 0):
                return
            self.hand.key("Escape")
        if self.panel():
            self.stop_client()
            self.start_client()

    def keep(self, name):
        shutil.copy(self.directory / "still.png", pathlib.Path(self.directory, name))


def wait_for_a_quiet_clock():
    """A clock in the bar that goes on to the next minute would look like an icon. Some do so a second
    or two late."""
    wait_until(lambda: 3 <= time.localtime().tm_sec <= 40, "the next minute", 60, 0.5)
