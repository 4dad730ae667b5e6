# SPDX-License-Identifier: MIT
"""Wayland sessions, with and without an X display beside them."""

import unittest

from status_notifier_host import StatusNotifierHost
from virtual_desktop import Desktop, stays, wait_until


class Wayland(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.x_display = self.desktop.environment.pop("DISPLAY")
        self.weston = self.desktop.start("weston", "--backend=headless-backend.so",
                                         "--socket=wayland-test", "--idle-time=0", "--no-config")
        wait_until((self.desktop.runtime / "wayland-test").exists, "weston")
        self.desktop.environment["WAYLAND_DISPLAY"] = "wayland-test"

    def start_client(self, *arguments, **environment):
        return self.desktop.start_client(*arguments, environment={"WAYLAND_DEBUG": "client", **environment})

    def test_the_program_runs_and_shows_its_icon_and_panel(self):
        address = self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"]
        with StatusNotifierHost(address) as host:
            client = self.start_client()
            host.wait_for_item()
            self.assertNotIn("set_title", client.output())
            host.activate((10, 10))
            wait_until(lambda: 'set_title("Tarnwick Network")' in client.output(), "the panel")
            self.assertTrue(stays(client.is_running, 1.0))
            host.activate((10, 10))
            self.assertEqual(client.stop(), 0)

    def test_without_a_status_area_the_panel_opens(self):
        client = self.start_client()
        wait_until(lambda: 'set_title("Tarnwick Network")' in client.output(), "the panel")
        self.assertEqual(client.stop(), 0)

    def test_without_an_icon_a_second_launch_opens_the_panel(self):
        client = self.start_client("--quiet")
        self.assertTrue(stays(client.is_running, 1.0))
        second = self.desktop.start_client()
        self.assertEqual(second.wait_for_end(), 0)
        wait_until(lambda: 'set_title("Tarnwick Network")' in client.output(), "the panel")
        self.assertTrue(stays(client.is_running, 1.0))
        self.assertEqual(client.stop(), 0)

    def test_an_x_display_beside_it_is_used(self):
        self.desktop.environment["DISPLAY"] = self.x_display
        self.desktop.start_tray()
        client = self.start_client()
        self.desktop.wait_for_icon(client)
        self.assertNotIn("wl_display", client.output())

    def test_an_x_display_that_is_gone_is_not(self):
        client = self.start_client(DISPLAY=":12345")
        wait_until(lambda: "wl_display" in client.output(), "a connection to Wayland")
        self.assertTrue(stays(client.is_running, 1.0))

    def test_the_users_choice_comes_first(self):
        self.desktop.environment["DISPLAY"] = self.x_display
        client = self.start_client(QT_QPA_PLATFORM="wayland")
        wait_until(lambda: "wl_display" in client.output(), "a connection to Wayland")


class Xwayland(unittest.TestCase):
    """An X server whose pointer is that of a Wayland session, known over X windows alone."""

    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.desktop.start("weston", "--backend=headless-backend.so", "--width=1280",
                           "--height=800", "--socket=wayland-test", "--idle-time=0", "--no-config")
        wait_until((self.desktop.runtime / "wayland-test").exists, "weston")
        # A whole screen in one window: weston would place windows of its own accord.
        display = self.desktop.start_display("Xwayland",
                                             environment={"WAYLAND_DISPLAY": "wayland-test"})
        self.desktop.environment.update(DISPLAY=display)
        self.desktop.start_window_manager()
        # Newer ones do not take the size of the compositor's screen.
        self.width = int(self.desktop.run("xdotool", "getdisplaygeometry").split()[0])
        self.desktop.move_mouse((self.width // 4, 400))

    def open_at(self, point):
        address = self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"]
        with StatusNotifierHost(address) as host:
            client = self.desktop.start_client()
            host.activate(point)
            panel = self.desktop.wait_for_panel(client)
            host.activate(point)
            self.desktop.wait_for_no_panel(client)
        return panel

    def test_it_opens_where_the_click_was(self):
        x = self.width * 2 // 5
        panel = self.open_at((x, 10))
        self.assertLess(abs(panel.center[0] - x), 4, panel)
        self.assertLess(panel.y, 40)

    def test_where_the_click_is_unknown_it_opens_in_the_corner_and_not_at_the_stale_pointer(self):
        panel = self.open_at((0, 0))
        self.assertEqual(panel.right, self.width)
        self.assertLess(panel.y, 40)


if __name__ == "__main__":
    unittest.main()
