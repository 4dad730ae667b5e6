# SPDX-License-Identifier: MIT
"""The panel's place and size on several screens and on dense ones."""

import unittest

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

    def test_on_a_tiny_screen_it_shows_as_much_as_there_is_room_for(self):
        with Desktop(size="340x240", tray="top") as desktop:
            icon, panel = self.open_panel(desktop)
            self.assertTrue(Rect(0, 0, 340, 240).contains(panel), panel)
            self.assertFalse(panel.intersects(icon), (panel, icon))


if __name__ == "__main__":
    unittest.main()
