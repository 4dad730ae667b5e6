# SPDX-License-Identifier: MIT
"""The panel's place and size on several screens and on dense ones."""

import unittest

from status_notifier_host import StatusNotifierHost
from virtual_desktop import Desktop, Rect


class Screens(unittest.TestCase):
    def open_panel(self, desktop):
        client = desktop.start_client()
        icon = desktop.wait_for_icon(client)
        desktop.click(icon.center)
        return icon, desktop.wait_for_panel(client)

    def check_two_screens(self, edge, align, number):
        with self.subTest(edge=edge, align=align, screen=number), \
                Desktop(size="1600x600") as desktop:
            screen = desktop.split_screen()[number]
            desktop.start_tray(edge, align, screen=number)
            icon, panel = self.open_panel(desktop)
            self.assertTrue(screen.contains(icon), icon)
            self.assertTrue(screen.contains(panel), panel)
            self.assertFalse(panel.intersects(icon))

    def test_it_opens_on_the_screen_of_its_icon_and_does_not_reach_over_into_the_next(self):
        self.check_two_screens("top", "right", 0)
        self.check_two_screens("bottom", "left", 1)
        self.check_two_screens("right", "center", 0)

    def test_fractional_and_double_scales_keep_it_beside_the_icon(self):
        for scale, width in ((1.5, 450), (2, 600)):
            for edge in ("top", "bottom"):
                with self.subTest(scale=scale, edge=edge), \
                        Desktop(size="1600x1200") as desktop:
                    desktop.environment["QT_SCALE_FACTOR"] = str(scale)
                    desktop.start_tray(edge, "center")
                    icon, panel = self.open_panel(desktop)
                    self.assertEqual(panel.width, width)
                    self.assertTrue(Rect(0, 0, 1600, 1200).contains(panel), panel)
                    self.assertFalse(panel.intersects(icon), (panel, icon))

    def test_a_click_that_a_host_reports_is_where_the_panel_opens_at_every_scale(self):
        for scale, edge, x in ((1, "top", 300), (1.25, "top", 700), (2, "top", 1300),
                               (1.25, "bottom", 900), (2, "bottom", 400)):
            with self.subTest(scale=scale, edge=edge), Desktop(size="1600x1200") as desktop:
                desktop.environment["QT_SCALE_FACTOR"] = str(scale)
                desktop.start_tray(edge, "left", height=40)  # reserves the room of a bar
                address = desktop.environment["DBUS_SESSION_BUS_ADDRESS"]
                with StatusNotifierHost(address) as host:
                    client = desktop.start_client()
                    desktop.move_mouse((20, 600))
                    host.activate((x, 20 if edge == "top" else 1180))
                    panel = desktop.wait_for_panel(client)
                    self.assertLess(abs(panel.center[0] - x), 4, panel)
                    touches = panel.y - 40 if edge == "top" else 1160 - panel.bottom
                    self.assertTrue(0 <= touches <= 8, (panel, touches))

    def test_on_a_tiny_screen_it_shows_as_much_as_there_is_room_for(self):
        with Desktop(size="340x240", tray="top") as desktop:
            icon, panel = self.open_panel(desktop)
            self.assertTrue(Rect(0, 0, 340, 240).contains(panel), panel)
            self.assertFalse(panel.intersects(icon), (panel, icon))


if __name__ == "__main__":
    unittest.main()
