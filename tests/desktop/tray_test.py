# SPDX-License-Identifier: MIT
"""The icon comes with whatever status area there is, whenever that comes."""

import socket
import time
import unittest

from gi.repository import GLib

from status_notifier_host import StatusNotifierHost
from virtual_desktop import TIME_LIMIT, Desktop, Rect, stays, wait_until


class XTray(unittest.TestCase):
    def test_one_that_starts_late_gets_the_icon(self):
        with Desktop() as desktop:
            client = desktop.start_client("--quiet")
            self.assertTrue(stays(lambda: not desktop.windows(client), 2.0))
            desktop.start_tray()
            desktop.wait_for_icon(client)

    def test_one_that_restarts_gets_the_icon_again(self):
        with Desktop(tray="top") as desktop:
            client = desktop.start_client()
            for _ in range(3):
                desktop.wait_for_icon(client)
                desktop.stop_tray()
                wait_until(lambda: desktop.icon(client) is None, "the icon to go")
                desktop.start_tray()
            icon = desktop.wait_for_icon(client)
            desktop.click(icon.center)
            desktop.wait_for_panel(client)

    def test_it_is_legible_on_dark_and_on_light(self):
        for tint in ("0x202020", "0xf4f4f4"):
            with self.subTest(tint=tint), Desktop() as desktop:
                desktop.start_tray(tint=tint)
                client = desktop.start_client()
                darkest, lightest = desktop.brightness(desktop.wait_for_icon(client))
                self.assertGreater(lightest - darkest, 0.6)

    def test_its_menu_opens_the_panel_and_quits(self):
        with Desktop(tray="top") as desktop:
            client = desktop.start_client()
            icon = desktop.wait_for_icon(client)
            desktop.click(icon.center, button=3)
            menu = desktop.wait_for_menu(client)
            desktop.click((menu.center[0], menu.y + menu.height // 4))
            desktop.wait_for_panel(client)
            desktop.key("Escape")
            desktop.wait_for_no_panel(client)
            time.sleep(0.5)  # sooner, the two clicks would be a double one
            desktop.click(icon.center, button=3)
            menu = desktop.wait_for_menu(client)
            desktop.click((menu.center[0], menu.bottom - menu.height // 4))
            self.assertEqual(client.wait_for_end(), 0)

    def test_it_comes_without_a_session_bus(self):
        with Desktop(tray="top", session_bus=False) as desktop:
            desktop.wait_for_icon(desktop.start_client())

    def test_it_comes_when_nobody_answers_at_the_session_buss_address(self):
        with Desktop(tray="top", session_bus=False) as desktop:
            path = desktop.runtime / "nobody"
            desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={path}"
            desktop.wait_for_icon(desktop.start_client())

    def test_it_comes_when_the_session_bus_says_nothing(self):
        with Desktop(tray="top", session_bus=False) as desktop:
            path = desktop.runtime / "mute"
            with socket.socket(socket.AF_UNIX) as mute:
                mute.bind(str(path))
                mute.listen()
                desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={path}"
                client = desktop.start_client()
                icon = desktop.wait_for_icon(client, seconds=15.0)  # a call's limit is 25
                desktop.click(icon.center)
                desktop.wait_for_panel(client, seconds=10.0)

    def test_it_comes_when_the_session_bus_dies_first(self):
        with Desktop() as desktop:
            client = desktop.start_client("--quiet")
            self.assertTrue(stays(client.is_running, 1.0))
            desktop.stop_bus("session")
            desktop.start_tray()
            desktop.wait_for_icon(client)


class NotifierHost(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.address = self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"]

    def test_one_that_is_there_gets_the_icon_and_its_clicks(self):
        with StatusNotifierHost(self.address) as host:
            client = self.desktop.start_client()
            host.wait_for_item()
            self.assertEqual(host.property("Title"), "Tarnwick Network")
            self.assertEqual(host.property("Menu"), "/NO_DBUSMENU")
            self.desktop.move_mouse((640, 8))
            host.activate((640, 8))
            panel = self.desktop.wait_for_panel(client)
            self.assertTrue(Rect(0, 0, 1280, 800).contains(panel))
            self.assertGreater(panel.y, 8)
            self.assertLess(panel.y, 40)
            host.activate((640, 8))
            self.desktop.wait_for_no_panel(client)
            self.assertEqual(client.stop(), 0)

    def test_each_button_opens_and_closes_the_panel(self):
        with StatusNotifierHost(self.address) as host:
            client = self.desktop.start_client()
            for method in ("ContextMenu", "SecondaryActivate"):
                host.call(method, "(ii)", 640, 8)
                self.desktop.wait_for_panel(client)
                host.call(method, "(ii)", 640, 8)
                self.desktop.wait_for_no_panel(client)
                self.desktop.settle()

    def test_its_tooltip_has_the_state(self):
        with StatusNotifierHost(self.address) as host:
            program = self.desktop.copy_client(
                '#!/bin/sh\necho \'{"BackendState": "NeedsLogin"}\'\n')
            self.desktop.start_client(program=program)
            wait_until(lambda: host.property("ToolTip")[2:] == ("Tarnwick Network", "Needs Login"),
                       "the state in the tooltip")

    def test_absurd_calls_do_no_harm(self):
        with StatusNotifierHost(self.address) as host:
            client = self.desktop.start_client()
            for point in ((2**31 - 1, -2**31), (-1, 100_000), (-2**31, -2**31)):
                host.activate(point)
                panel = self.desktop.wait_for_panel(client)
                self.assertTrue(Rect(0, 0, 1280, 800).contains(panel), (point, panel))
                host.activate(point)
                self.desktop.wait_for_no_panel(client)
                self.desktop.settle()
            for call in (("Activate", "(ss)", "1", "2"), ("Activate", "()"), ("Rubbish", "()"),
                         ("ProvideXdgActivationToken", "(i)", 1)):
                with self.assertRaises(GLib.Error):
                    host.call(*call)
            for token in ("", "x" * 1_000_000, "\n\x01", "a b"):
                host.call("ProvideXdgActivationToken", "(s)", token)
            host.call("Scroll", "(is)", -2**31, "sideways")
            self.assertIsNone(self.desktop.panel(client))
            self.assertEqual(client.stop(), 0)
            own = [line for line in client.output().splitlines()
                   if not line.startswith("qt.dbus.integration: ")]  # newer ones report each refusal
            self.assertEqual(own, [])

    def test_one_that_starts_late_gets_the_icon(self):
        self.desktop.start_client("--quiet")
        self.assertTrue(stays(lambda: True, 1.0))
        with StatusNotifierHost(self.address) as host:
            host.wait_for_item()

    def test_a_registry_whose_host_comes_late_gets_the_icon(self):
        with StatusNotifierHost(self.address, has_host=False) as host:
            self.desktop.start_client()
            self.assertTrue(stays(lambda: not host.items, 1.5))
            host.add_host()
            host.wait_for_item()

    def test_one_that_restarts_gets_the_icon_again(self):
        client = self.desktop.start_client("--quiet")
        for _ in range(3):
            with StatusNotifierHost(self.address) as host:
                host.wait_for_item()
                host.activate()
                self.desktop.wait_for_panel(client)
                host.activate()
                self.desktop.wait_for_no_panel(client)

    def test_one_that_hangs_at_first_gets_the_icon(self):
        with StatusNotifierHost(self.address, answers=False) as host:
            self.desktop.start_client()
            self.assertTrue(stays(lambda: not host.items, 4.0))  # longer than a call may take
            host.answer()
            host.wait_for_item()

    def test_while_one_hangs_the_icon_is_in_the_x_tray(self):
        self.desktop.start_tray()
        with StatusNotifierHost(self.address, answers=False) as host:
            client = self.desktop.start_client()
            self.desktop.wait_for_icon(client)
            host.answer()
            host.wait_for_item()
            wait_until(lambda: self.desktop.icon(client) is None, "the other icon to go")

    def test_one_more_host_does_not_get_a_second_icon(self):
        with StatusNotifierHost(self.address) as host:
            self.desktop.start_client()
            host.wait_for_item()
            host.add_host()
            self.assertTrue(stays(lambda: len(host.items) == 1, 1.0))

    def test_when_the_bus_restarts_the_icon_comes_again(self):
        client = self.desktop.start_client("--quiet")
        for _ in range(2):
            with StatusNotifierHost(self.address) as host:
                host.wait_for_item()
                self.desktop.stop_bus("session")
            self.desktop.start_bus("session")
        with StatusNotifierHost(self.address) as host:
            host.activate((640, 8))
            self.desktop.wait_for_panel(client)

    def test_when_the_last_host_goes_the_icon_moves_to_the_x_tray_and_back(self):
        self.desktop.start_tray()
        with StatusNotifierHost(self.address) as host:
            client = self.desktop.start_client()
            host.wait_for_item()
            host.remove_host()
            self.desktop.wait_for_icon(client)
            host.add_host()
            wait_until(lambda: self.desktop.icon(client) is None, "the other icon to go")

    def test_when_the_registry_goes_the_icon_moves_to_the_x_tray_and_back(self):
        self.desktop.start_tray()
        client = self.desktop.start_client()
        self.desktop.wait_for_icon(client)
        for _ in range(2):
            with StatusNotifierHost(self.address) as host:
                host.wait_for_item()
                wait_until(lambda: self.desktop.icon(client) is None, "the other icon to go")
            self.desktop.wait_for_icon(client)

    def test_it_comes_before_an_x_tray_for_old_programs(self):
        self.desktop.start_tray()
        with StatusNotifierHost(self.address) as host:
            client = self.desktop.start_client()
            host.wait_for_item()
            self.assertIsNone(self.desktop.icon(client))

    def test_pictures_go_with_the_icon(self):
        with StatusNotifierHost(self.address) as host:
            self.desktop.start_client()
            host.wait_for_item()
            pictures = host.property("IconPixmap")
            self.assertEqual([width for width, _, _ in pictures], [16, 22, 24, 32, 48, 64])
            for width, height, pixels in pictures:
                self.assertEqual((height, len(pixels)), (width, 4 * width * height))
                self.assertEqual(max(pixels[::4]), 255, "opaque somewhere")

    def test_an_installed_symbolic_icon_is_named_to_the_host(self):
        theme = self.desktop.home / ".local/share/icons/hicolor/symbolic/apps"
        theme.mkdir(parents=True)
        (theme / "tarnwick-client-symbolic.svg").write_text(
            '<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16"/>', encoding="utf-8")
        with StatusNotifierHost(self.address) as host:
            self.desktop.start_client()
            host.wait_for_item()
            self.assertEqual(host.property("IconName"), "tarnwick-client-symbolic")
            self.assertEqual(host.property("IconPixmap"), [])


# A click on a window gives it the focus, one on the empty desktop takes it from none.
CLICKS_LIKE_GNOMES = """<openbox_config xmlns="http://openbox.org/3.4/rc"><mouse><context name="Client">
  <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
</context></mouse></openbox_config>"""


class GnomeStatusArea(unittest.TestCase):
    """GNOME's extension is both kinds of status area, and only its X tray passes on each click."""

    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.address = self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"]

    def start_client(self, **options):
        return self.desktop.start_client(environment={"XDG_CURRENT_DESKTOP": "ubuntu:GNOME"}, **options)

    def check_clicks(self, client):
        icon = self.desktop.wait_for_icon(client)
        for button in (1, 3):
            self.desktop.click(icon.center, button=button)
            panel = self.desktop.wait_for_panel(client)
            self.assertLessEqual(abs(panel.y - icon.bottom), 8)
            self.assertTrue(panel.x <= icon.center[0] <= panel.right)
            self.desktop.click(icon.center, button=button)
            self.desktop.wait_for_no_panel(client)

    def test_its_x_tray_gets_the_icon_and_each_click_counts(self):
        self.desktop.start_tray()
        with StatusNotifierHost(self.address) as host:
            client = self.start_client()
            self.check_clicks(client)
            self.assertEqual(host.items, [])

    def test_it_is_legible_on_dark_and_on_light(self):
        for tint in ("0x202020", "0xf4f4f4"):
            with self.subTest(tint=tint), StatusNotifierHost(self.address):
                self.desktop.start_tray(tint=tint)
                client = self.start_client()
                darkest, lightest = self.desktop.brightness(self.desktop.wait_for_icon(client))
                self.assertGreater(lightest - darkest, 0.6)
                client.stop()
                self.desktop.stop_tray()

    def test_its_tooltip_and_its_name_have_the_state(self):
        self.desktop.start_tray()
        with StatusNotifierHost(self.address):
            program = self.desktop.copy_client(
                '#!/bin/sh\necho \'{"BackendState": "NeedsLogin"}\'\n')
            client = self.start_client(program=program)
            self.desktop.wait_for_icon(client)
            (window,) = self.desktop.windows(client)
            wait_until(lambda: '"Tarnwick Network: Needs Login"' in self.desktop.run(
                "xprop", "-id", window, "_NET_WM_NAME"), "the state in the icon's name")
            self.desktop.move_mouse(self.desktop.wait_for_icon(client).center)
            wait_until(lambda: self.desktop.find_window(client, lambda rect: rect.width > 64),
                       "the tooltip")
            self.desktop.move_mouse((640, 400))
            wait_until(lambda: len(self.desktop.windows(client)) == 1, "the tooltip to go")

    def test_a_click_on_the_empty_desktop_closes_the_panel_as_one_on_another_window_does(self):
        rules = self.desktop.directory / "rc.xml"
        rules.write_text(CLICKS_LIKE_GNOMES, encoding="utf-8")
        self.desktop.start_window_manager("--config-file", rules)
        self.desktop.start_tray()
        client = self.start_client()
        icon = self.desktop.wait_for_icon(client)
        _, other = self.desktop.open_window(Rect(100, 500, 300, 100))
        for point in ((100, 200), other.center):
            self.desktop.click(icon.center)
            self.desktop.wait_for_panel(client)
            self.desktop.click(point)
            self.desktop.wait_for_no_panel(client)

    def test_its_x_tray_that_restarts_gets_the_icon_again(self):
        self.desktop.start_tray()
        with StatusNotifierHost(self.address):
            client = self.start_client()
            for _ in range(2):
                self.desktop.wait_for_icon(client)
                self.desktop.stop_tray()
                wait_until(lambda: self.desktop.icon(client) is None, "the icon to go")
                self.desktop.start_tray()
            self.check_clicks(client)

    def test_without_its_x_tray_the_host_has_the_icon_until_that_comes(self):
        with StatusNotifierHost(self.address) as host:
            client = self.start_client()
            host.wait_for_item()
            self.desktop.start_tray()
            self.check_clicks(client)
            wait_until(lambda: not host.is_item_there(), "the item to go")


class NoStatusArea(unittest.TestCase):
    def check_that_a_window_opens(self, desktop, seconds=TIME_LIMIT):
        client = desktop.start_client()
        panel = desktop.wait_for_panel(client, seconds)
        window = next(iter(desktop.windows(client)))
        frame = desktop.run("xprop", "-id", window, "_NET_FRAME_EXTENTS").split("=")[1]
        self.assertGreater(int(frame.split(",")[2]), 8, "the title bar")
        self.assertNotIn("SKIP", desktop.run("xprop", "-id", window, "_NET_WM_STATE"))
        self.assertRegex(desktop.run("xprop", "-id", window, "WM_NORMAL_HINTS"),
                         r"minimum size: (\d+ by \d+)\s+.*maximum size: \1")
        self.assertEqual(client.output(), "")
        return client, panel

    def test_started_at_log_in_the_program_runs_and_shows_nothing(self):
        with Desktop() as desktop:
            client = desktop.start_client("--quiet")
            self.assertTrue(stays(lambda: client.is_running() and not desktop.windows(client), 3.0))
            self.assertEqual(client.output(), "")
            self.assertEqual(desktop.start_client("--quiet").wait_for_end(), 0)
            self.assertTrue(stays(lambda: client.is_running() and not desktop.windows(client), 1.0))
            self.assertEqual(client.stop(), 0)

    def test_started_by_hand_it_opens_its_panel_as_a_window_and_a_status_area_gets_the_icon(self):
        with Desktop() as desktop:
            client, panel = self.check_that_a_window_opens(desktop)
            desktop.start_tray()
            icon = desktop.wait_for_icon(client)
            self.assertEqual(desktop.panel(client), panel)
            desktop.key("Escape")
            desktop.wait_for_no_panel(client)
            desktop.click(icon.center)
            self.assertLess(desktop.wait_for_panel(client).y, 40)

    def test_started_by_hand_without_a_session_bus_it_does_so_too(self):
        with Desktop(session_bus=False) as desktop:
            self.check_that_a_window_opens(desktop)

    def test_started_by_hand_with_a_registry_that_hangs_it_does_so_too(self):
        with Desktop() as desktop, StatusNotifierHost(
                desktop.environment["DBUS_SESSION_BUS_ADDRESS"], answers=False) as host:
            self.check_that_a_window_opens(desktop)
            host.answer()
            host.wait_for_item()

    def test_a_status_area_that_goes_later_opens_no_window(self):
        with Desktop(tray="top") as desktop:
            client = desktop.start_client()
            desktop.wait_for_icon(client)
            desktop.stop_tray()
            self.assertTrue(stays(lambda: desktop.panel(client) is None, 2.0))


if __name__ == "__main__":
    unittest.main()
