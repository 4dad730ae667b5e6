# SPDX-License-Identifier: MIT
"""The user changes colours and sizes while the panel is open, as their desktop announces it."""

import signal
import unittest

from screen_reader import Role
from session import ADDRESS, GOOD_KEY, Session
from virtual_desktop import Rect, wait_until

LIGHT = ("239,240,241", "35,38,41")
DARK = ("32,35,38", "252,252,252")
HIGH_CONTRAST = ("0,0,0", "255,255,255")
PLASMA = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5"}


class PlasmaSettings:
    """The settings of a Plasma session: a file, and a message that tells of a change."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.path = desktop.home / ".config/kdeglobals"
        self.path.parent.mkdir(exist_ok=True)
        self.write(LIGHT)

    def write(self, colors):
        background, text = colors
        groups = "".join(f"[Colors:{group}]\nBackgroundNormal={background}\n"
                         f"BackgroundAlternate={background}\nForegroundNormal={text}\n"
                         f"ForegroundInactive={text}\nForegroundLink=41,128,185\n"
                         for group in ("Window", "View", "Button", "Tooltip"))
        self.path.write_text(
            f"{groups}[Colors:Selection]\nBackgroundNormal=61,174,233\nForegroundNormal={text}\n"
            "[General]\nColorScheme=Test\n", encoding="utf-8")

    def change(self, colors):
        self.write(colors)
        self.desktop.run(
            "dbus-send", "--session", "--type=signal", "/org/freedesktop/portal/desktop",
            "org.freedesktop.portal.Settings.SettingChanged", "string:org.kde.kdeglobals.General",
            "string:ColorScheme", "variant:string:Test", check=True)


class Colors(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.session = cls.enterClassContext(Session(environment=PLASMA))
        cls.settings = PlasmaSettings(cls.session.desktop)
        cls.session.begin("twkey-fernwood-good", GOOD_KEY)

    def setUp(self):
        self.session.open_panel()
        self.session.wait_for_texts("Connected", ADDRESS, "Switch network")

    def tearDown(self):
        self.settings.change(LIGHT)
        self.session.close_panel()

    def wait_for_ground(self, condition, rect):
        """Waits for the lightest grey in the upper right of a window, where no text is."""
        def ground():
            return self.session.desktop.brightness(Rect(rect.right - 40, rect.y + 14, 20, 8))[1]
        wait_until(lambda: condition(ground()), "the colours", step=0.1)

    def test_dark_and_light_again_with_a_popover_open(self):
        session = self.session
        panel = session.desktop.panel(session.client)
        self.wait_for_ground(lambda grey: grey > 0.8, panel)
        session.click("Devices")
        session.wait_for_texts("aurora-build")
        popover = Rect(*next(window.rect for window in session.windows()
                             if window.name == "Devices"))
        for colors, condition in ((DARK, lambda grey: grey < 0.3), (LIGHT, lambda grey: grey > 0.8)):
            self.settings.change(colors)
            self.wait_for_ground(condition, panel)
            self.wait_for_ground(condition, popover)
        self.assertIn("aurora-build", session.texts())

    def test_high_contrast_is_black_and_white(self):
        session = self.session
        entry = Rect(*session.settled(Role.BUTTON, "Refresh").rect)
        self.settings.change(HIGH_CONTRAST)
        self.wait_for_ground(lambda grey: grey == 0.0, session.desktop.panel(session.client))
        wait_until(lambda: session.desktop.brightness(entry) == (0.0, 1.0), "white on black")


class TextScale(unittest.TestCase):
    """Texts of twice the size, as desktops with X settings announce them. All of it grows."""

    def configure(self, session, dots_an_inch):
        path = session.desktop.home / "xsettings.conf"
        path.write_text(f"Xft/DPI {dots_an_inch * 1024}\n", encoding="utf-8")
        return path

    def test_doubled_while_it_runs(self):
        with Session(size="2400x1600") as session:
            settings = session.desktop.start("xsettingsd", "-c", self.configure(session, 96))
            session.begin(GOOD_KEY)
            session.open_panel()
            session.wait_for_texts("Connected", ADDRESS)
            self.assertEqual(session.desktop.panel(session.client).width, 300)
            self.configure(session, 192)
            settings.send_signal(signal.SIGHUP)
            wait_until(lambda: self.width_when_opened_again(session) == 600, "the panel")
            session.wait_for_texts("Connected", ADDRESS)
            panel = session.desktop.panel(session.client)
            self.assertTrue(Rect(0, 0, 2400, 1600).contains(panel), panel)
            session.press("Disconnect")
            session.wait_for_texts("Stopped", "Connect (1)")

    @staticmethod
    def width_when_opened_again(session):
        session.close_panel()
        session.open_panel()
        panel = session.desktop.panel(session.client)
        return panel.width if panel else None


if __name__ == "__main__":
    unittest.main()
