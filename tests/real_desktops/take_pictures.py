# SPDX-License-Identifier: MIT
"""Takes the pictures of the documentation: take_pictures.py NAME FOLDER, under a real Xfce at two
pixels a point, of the installed client with a real pointer and keys."""

import pathlib
import sys
import time

import shell

POINT = 2  # pixels
shell.SIZE = (2560, 1600)  # before others take it from there

from trial import Trial  # noqa: E402
from virtual_desktop import Rect, wait_until  # noqa: E402
from x11_shells import Xfce  # noqa: E402

MARGIN = 28 * POINT  # around the windows of a picture
GOOD_KEY = "twkey-harbor-good"
SETTINGS = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="{name}" version="1.0">{properties}</channel>
"""
DENSE = ('<property name="Gdk" type="empty">'
         f'<property name="WindowScalingFactor" type="int" value="{POINT}"/></property>'
         '<property name="Xft" type="empty"><property name="DPI" type="int" value="96"/></property>')
DENSE_FRAMES = ('<property name="general" type="empty">'
                '<property name="theme" type="string" value="Default-xhdpi"/></property>')


class DenseXfce(Xfce):
    def start_shell(self):
        folder = self.home / ".config/xfce4/xfconf/xfce-perchannel-xml"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "xfwm4.xml").write_text(SETTINGS.format(name="xfwm4", properties=DENSE_FRAMES),
                                          encoding="utf-8")
        self.run("xfconf-query", "-c", "xsettings", "-p", "/Gdk/WindowScalingFactor", "--create",
                 "-t", "int", "-s", POINT, check=True)
        super().start_shell()


class Photographer:
    """Brings the client into each state as a user does, and keeps what is to be seen."""

    def __init__(self, trial, folder):
        self.trial = trial
        self.hand = trial.hand
        self.folder = folder

    def keep(self, name):
        """A picture of the client's windows, with their frames and what is around them."""
        time.sleep(1.5)
        rects = self.trial.windows()
        left, top = (min(values) for values in zip(*(rect[:2] for rect in rects)))
        right = max(rect.right for rect in rects)
        bottom = max(rect.bottom for rect in rects)
        x, y = max(0, left - MARGIN), max(0, top - MARGIN)
        right, bottom = min(shell.SIZE[0], right + MARGIN), min(shell.SIZE[1], bottom + MARGIN)
        self.hand.screenshot(self.folder / f"{name}.png", Rect(x, y, right - x, bottom - y))

    def rest(self):
        self.hand.move_mouse((shell.SIZE[0] // 2, shell.SIZE[1] - 40))

    def open_panel(self):
        self.trial.opened_panel()
        self.rest()

    def click_row(self, y):
        """In the panel, so many points below its top."""
        panel = self.trial.panel()
        self.trial.click((panel.x + 100 * POINT, panel.y + y * POINT))
        time.sleep(1)

    def connected(self, scheme):
        self.open_panel()
        self.keep(f"connected-{scheme}@2x")
        self.click_row(123)
        self.rest()
        self.keep(f"connected-devices-{scheme}@2x")
        self.trial.close_panel()


def main():
    folder = pathlib.Path(sys.argv[2]).resolve()
    folder.mkdir(parents=True, exist_ok=True)
    with DenseXfce() as desktop, Trial(desktop, folder) as trial:
        trial.start_client()
        photographer = Photographer(trial, folder)
        photographer.connected("light")
        desktop.set_dark(True)
        time.sleep(3)
        photographer.connected("dark")
        wait_until(lambda: trial.panel() is None, "the panel to close")


if __name__ == "__main__":
    main()
