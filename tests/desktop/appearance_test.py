# SPDX-License-Identifier: MIT
"""The user changes colours and sizes while the panel is open, as their desktop announces it."""

import signal
import unittest

from screen_reader import Role
from session import ADDRESS, GOOD_KEY, Session
from settings_portal import APPEARANCE, GNOME, SettingsPortal
from virtual_desktop import Rect, stays, wait_until

LIGHT = ("239,240,241", "35,38,41")
DARK = ("32,35,38", "252,252,252")
HIGH_CONTRAST = ("0,0,0", "255,255,255")
PLASMA_SETTINGS = "org.kde.kdeglobals."
PLASMA = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5"}


class PlasmaSettings:
    """The settings of a Plasma session: a file, and a message that reports a change."""

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


DARK_PREFERENCE = (APPEARANCE, "color-scheme", "uint32 1")
LIGHT_PREFERENCE = (APPEARANCE, "color-scheme", "uint32 2")
MORE_CONTRAST = (APPEARANCE, "contrast", "uint32 1")
NO_CONTRAST = (APPEARANCE, "contrast", "uint32 0")
VIOLET = (APPEARANCE, "accent-color", "(0.57, 0.25, 0.67)")
LARGE_FONT = (GNOME, "font-name", "'DejaVu Sans 22'")
USUAL_FONT = (GNOME, "font-name", "'DejaVu Sans 10'")
LARGE_TEXT = (GNOME, "text-scaling-factor", "2.0")
ABSURD = (
    (APPEARANCE, "color-scheme", "'dark'"), (APPEARANCE, "contrast", "true"),
    (APPEARANCE, "accent-color", "(7.0, -1.0, 0.5)"), (GNOME, "font-name", "' '"),
    (GNOME, "monospace-font-name", "uint32 12"), (GNOME, "text-scaling-factor", "1e9"))


class Portal(unittest.TestCase):
    """The user's choices as the settings portal has them."""

    @classmethod
    def setUpClass(cls):
        cls.session = cls.enterClassContext(Session(daemon=False, size="1280x1400"))
        cls.desktop = cls.session.desktop

    def start_portal(self, *settings):
        portal = SettingsPortal(self.desktop, *settings)
        self.addCleanup(portal.die)
        return portal

    def open(self):
        """The panel of a client that has just been started."""
        self.session.client.stop()
        self.session.start_client()
        return self.open_again()

    def open_again(self):
        self.session.open_panel()
        return self.desktop.wait_for_panel(self.session.client)

    def background(self):
        """The lightest grey in the upper right of the panel, where no text is."""
        panel = self.desktop.panel(self.session.client)
        return self.desktop.brightness(Rect(panel.right - 40, panel.y + 14, 20, 8))[1]

    def is_dark(self):
        return self.background() < 0.3

    def is_light(self):
        return self.background() > 0.8

    def wait_for(self, condition):
        wait_until(condition, "the colours", step=0.1, describe=self.background)

    def test_dark_from_the_first_frame(self):
        self.start_portal(DARK_PREFERENCE)
        self.open()
        self.assertTrue(self.is_dark())

    def test_dark_and_light_again_while_open(self):
        portal = self.start_portal(LIGHT_PREFERENCE)
        self.open()
        self.assertTrue(self.is_light())
        portal.change(DARK_PREFERENCE)
        self.wait_for(self.is_dark)
        portal.change(LIGHT_PREFERENCE)
        self.wait_for(self.is_light)

    def test_high_contrast_while_open(self):
        portal = self.start_portal(DARK_PREFERENCE, NO_CONTRAST)
        self.open()
        self.assertGreater(self.background(), 0.0)
        portal.change(DARK_PREFERENCE, MORE_CONTRAST)
        self.wait_for(lambda: self.background() == 0.0)
        portal.change(LIGHT_PREFERENCE, MORE_CONTRAST)
        self.wait_for(lambda: self.background() == 1.0)

    def test_accent_colour_of_the_focus_ring(self):
        self.start_portal(LIGHT_PREFERENCE, VIOLET)
        self.open()
        self.desktop.key("Tab")

        def is_violet():
            panel = self.desktop.panel(self.session.client)
            picture = self.desktop.screenshot(self.desktop.directory / "panel.png", panel)
            pixels = self.desktop.pixels(picture, Rect(0, 0, panel.width, panel.height))
            return any(green + 60 < red and green + 60 < blue for red, green, blue in pixels)

        wait_until(is_violet, "a violet ring")

    def test_font_and_text_scale(self):
        portal = self.start_portal(USUAL_FONT)
        usual = self.open()
        for settings in ((LARGE_FONT,), (USUAL_FONT, LARGE_TEXT)):
            portal.change(*settings)
            wait_until(lambda: self.desktop.panel(self.session.client).height > usual.height * 1.2,
                       "larger texts")
            portal.change(USUAL_FONT, (GNOME, "text-scaling-factor", "1.0"))
            wait_until(lambda: self.desktop.panel(self.session.client) == usual, "usual texts")

    def test_text_scale_counts_once_where_the_display_has_it_too(self):
        self.start_portal(USUAL_FONT).die()
        usual = self.open()
        path = self.desktop.home / "xsettings.conf"
        path.write_text(f"Xft/DPI {96 * 2 * 1024}\n", encoding="utf-8")
        settings = self.desktop.start("xsettingsd", "-c", path)
        self.addCleanup(settings.stop)
        self.start_portal(USUAL_FONT, LARGE_TEXT)
        panel = self.open()
        self.assertEqual(panel.width, 600)
        self.assertAlmostEqual(panel.height, usual.height * 2, delta=12)

    def test_absurd_values_are_as_if_nothing_were_said(self):
        portal = self.start_portal()
        usual = self.open()
        background = self.background()
        self.session.close_panel()
        portal.change(*ABSURD)
        self.assertEqual(self.open_again(), usual)
        self.assertEqual(self.background(), background)
        self.assertEqual(self.open(), usual)
        self.assertEqual(self.background(), background)

    def test_one_that_hangs_holds_nobody_up_and_counts_when_it_goes_on(self):
        portal = self.start_portal(DARK_PREFERENCE)
        portal.hang()
        self.addCleanup(portal.go_on)
        self.open()
        self.assertTrue(self.is_light())
        portal.go_on()
        self.wait_for(self.is_dark)

    def test_one_that_dies_changes_nothing_and_the_next_is_asked(self):
        portal = self.start_portal(DARK_PREFERENCE)
        self.open()
        portal.die()
        self.assertTrue(stays(self.is_dark, 1.0))
        self.start_portal(LIGHT_PREFERENCE)
        self.wait_for(self.is_light)

    def test_one_that_comes_late_is_asked(self):
        self.open()
        self.assertTrue(self.is_light())
        self.start_portal(DARK_PREFERENCE)
        self.wait_for(self.is_dark)


class PortalOnPlasma(unittest.TestCase):
    """Where Plasma's plug-in for this Qt is not installed, as on these systems."""

    def test_colours_that_nobody_chose_are_breezes_and_others_plasmas_own(self):
        with Session(daemon=False, environment=PLASMA) as session:
            session.client.stop()
            scheme = (PLASMA_SETTINGS + "General", "ColorScheme", "''")
            portal = SettingsPortal(session.desktop, LIGHT_PREFERENCE, scheme)
            self.addCleanup(portal.die)
            session.start_client()
            session.open_panel()
            panel = session.desktop.wait_for_panel(session.client)
            corner = Rect(panel.right - 40, panel.y + 14, 20, 8)
            self.assertAlmostEqual(session.desktop.brightness(corner)[1], 240 / 255, delta=0.01)
            window = PLASMA_SETTINGS + "Colors:Window"
            portal.change(LIGHT_PREFERENCE, (PLASMA_SETTINGS + "General", "ColorScheme", "'Own'"),
                          (window, "BackgroundNormal", "'20,20,20'"),
                          (window, "ForegroundNormal", "'250,250,250'"))
            wait_until(lambda: session.desktop.brightness(corner)[1] < 0.1, "Plasma's colours")

    def test_the_palette_stays_plasmas(self):
        with Session(daemon=False, environment=PLASMA) as session:
            PlasmaSettings(session.desktop)
            session.client.stop()
            portal = SettingsPortal(session.desktop, DARK_PREFERENCE, VIOLET, LARGE_FONT)
            self.addCleanup(portal.die)
            session.start_client()
            session.open_panel()
            panel = session.desktop.wait_for_panel(session.client)
            corner = Rect(panel.right - 40, panel.y + 14, 20, 8)
            lightest = session.desktop.brightness(corner)[1]
            self.assertAlmostEqual(lightest, 240 / 255, delta=0.02)


if __name__ == "__main__":
    unittest.main()
