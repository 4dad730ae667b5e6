# SPDX-License-Identifier: MIT
"""Takes the pictures of the documentation: take_pictures.py xfce FOLDER, under a real Xfce at two
pixels a point, of the installed client with a real pointer and keys."""

import pathlib
import re
import sys
import time

from PIL import Image, ImageDraw, ImageFont

import shell

POINT = 2  # pixels
shell.SIZE = (2560, 1600)  # before others take it from there

import trial  # noqa: E402
from virtual_desktop import Rect, wait_until  # noqa: E402
from x11_shells import Xfce  # noqa: E402

trial.ANSWER_LIMIT = 60.0  # seconds: nothing is measured here
MARGIN = 24 * POINT  # around the windows of a picture
CLOCK = 120 * POINT
KEY = "twkey-harbor-good"
NAME = "annas-computer"
COLORS = 256  # of a picture; all of them would take three times the room
FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"
CAPTION = 40  # pixels, in the picture of the steps
GAP = 28
PAPER, INK, BADGE = "#dde3ea", "#1d1d20", "#2b6cb8"
STEPS = ((("step-1", "Click the icon"), ("step-2", "Name this machine and paste a key"),
          ("connected-light@2x", "Connected")),
         (("step-4", "See the other devices"),
          ("step-5", "Disconnect, and pick a network to be back")))
# Points below the panel's top.
USE_AUTH_KEY = CONNECT = 73
DEVICES = 123
DISCONNECT = 157


class DenseXfce(Xfce):
    variables = {**Xfce.variables, "QT_SCALE_FACTOR": str(POINT)}

    def start_shell(self):
        for channel, name, kind, value in (
                ("xsettings", "/Gdk/WindowScalingFactor", "int", POINT),
                ("xfwm4", "/general/theme", "string", "Default-xhdpi")):
            self.run("xfconf-query", "-c", channel, "-p", name, "--create", "-t", kind, "-s", value,
                     check=True)
        super().start_shell()


class Photographer(trial.Trial):
    """Brings the client into each state as a user does, and keeps what is to be seen."""

    def __enter__(self):
        self.shell.user_socket.parent.mkdir()
        self.daemon.start()
        # The clock, at the end, may go on and look like an icon.
        self.bar = self.bar._replace(width=self.bar.width - CLOCK)
        self.start_client()
        return self

    def frame_of(self, rect):
        """That window with its frame, which the window manager draws."""
        window = next(window for window, place in self.shell.windows(self.client).items()
                      if place == rect)
        text = self.hand.run("xprop", "-id", window, "_NET_FRAME_EXTENTS")
        left, right, top, bottom = (int(part) for part in text.split("=")[1].split(",")) \
            if "=" in text else (0, 0, 0, 0)
        if not any((left, right, top, bottom)):
            return rect
        place = self.hand.run("xwininfo", "-id", window)  # xdotool counts the frame twice
        x, y = (int(re.search(rf"Absolute upper-left {axis}: +(-?\d+)", place)[1]) for axis in "XY")
        return Rect(x - left, y - top, rect.width + left + right, rect.height + top + bottom)

    def shot(self, name):
        """A picture of the client's windows and what is around them."""
        self.hand.move_mouse((shell.SIZE[0] // 2, shell.SIZE[1] - 40))
        self.still_picture()
        rects = [self.frame_of(rect) for rect in self.windows()]
        left = max(0, min(rect.x for rect in rects) - MARGIN)
        top = max(0, min(rect.y for rect in rects) - MARGIN)
        if top < self.bar.bottom:
            top = 0  # no half a bar
        right = min(shell.SIZE[0], max(rect.right for rect in rects) + MARGIN)
        bottom = min(shell.SIZE[1], max(rect.bottom for rect in rects) + MARGIN)
        with Image.open(self.directory / "still.png") as picture:
            part = picture.convert("RGB").crop((left, top, right, bottom))
        part.save(self.directory / f"{name}.png")

    def click_row(self, y):
        panel = self.panel()
        self.click((panel.x + 100 * POINT, panel.y + y * POINT))
        time.sleep(1)

    def wait_for_state(self, state):
        self.daemon.wait_for(lambda status: status["BackendState"] == state)

    def join(self):
        self.open_panel()
        self.shot("step-1")
        self.click_row(USE_AUTH_KEY)
        wait_until(lambda: self.panel() and self.panel().width > 350 * POINT, "the window for a key")
        time.sleep(2)
        self.hand.key("ctrl+a")
        self.hand.type(NAME)
        self.hand.key("Tab")
        self.hand.type(KEY)
        self.shot("step-2")
        self.hand.key("Return")
        self.wait_for_state("Running")
        wait_until(lambda: self.panel() is None, "the window to close")

    def connected(self, scheme):
        self.shell.set_dark(scheme == "dark")
        time.sleep(3)
        self.open_panel()
        self.shot(f"connected-{scheme}@2x")
        if scheme == "light":
            self.click_row(DEVICES)
            self.shot("step-4")
        self.close_panel()

    def leave(self):
        self.shell.set_dark(False)
        time.sleep(3)
        self.open_panel()
        self.click_row(DISCONNECT)
        self.wait_for_state("Stopped")
        time.sleep(3)
        self.click_row(CONNECT)
        self.shot("step-5")


def steps_of(folder):
    """All steps in one picture, at one pixel a point."""
    rows = []
    for row in STEPS:
        pictures = []
        for name, caption in row:
            with Image.open(folder / f"{name}.png") as picture:
                half = picture.width // POINT, picture.height // POINT
                pictures.append((picture.convert("RGB").resize(half, Image.LANCZOS), caption))
        rows.append(pictures)
    width = max(sum(picture.width + GAP for picture, _ in row) for row in rows) + GAP
    height = sum(max(picture.height for picture, _ in row) + CAPTION + GAP for row in rows) + GAP
    sheet = Image.new("RGB", (width, height), PAPER)
    draw = ImageDraw.Draw(sheet)
    number, y = 0, GAP // 2
    for row in rows:
        x = GAP
        for picture, caption in row:
            number += 1
            draw.ellipse((x, y + 8, x + 22, y + 30), fill=BADGE)
            draw.text((x + 11, y + 19), str(number), "white", ImageFont.truetype(FONT, 13), "mm")
            draw.text((x + 30, y + 19), caption, INK, ImageFont.truetype(FONT, 14), "lm")
            sheet.paste(picture, (x, y + CAPTION))
            x += picture.width + GAP
        y += max(picture.height for picture, _ in row) + CAPTION + GAP
    return sheet


def main():
    folder = pathlib.Path(sys.argv[2]).resolve()
    folder.mkdir(parents=True, exist_ok=True)
    with DenseXfce() as desktop, Photographer(desktop, folder) as photographer:
        photographer.join()
        photographer.connected("light")
        photographer.connected("dark")
        photographer.leave()
    steps_of(folder).save(folder / "session.png")
    for path in folder.glob("*.png"):
        if path.stem != "session" and not path.stem.startswith("connected"):
            path.unlink()
            continue
        with Image.open(path) as picture:
            few = picture.convert("RGB").quantize(
                COLORS, Image.Quantize.MEDIANCUT, kmeans=3,  # leaves large areas as they are
                dither=Image.Dither.NONE)
        few.save(path, optimize=True)


if __name__ == "__main__":
    main()
