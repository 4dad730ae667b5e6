# SPDX-License-Identifier: MIT
"""The shadow around the panel and its popovers, under a compositor and without one."""

import unittest

from virtual_desktop import PANEL_WIDTH, Desktop, Rect, wait_until


class Shadow(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop(tray="top"))
        self.compositor = None
        self.start_compositor()
        self.client = self.desktop.start_client()
        self.icon = self.desktop.wait_for_icon(self.client)

    def start_compositor(self):
        self.compositor = self.desktop.start("xcompmgr", "-n")
        wait_until(lambda: "_NET_WM_CM_S0" in self.desktop.run("xlsatoms"), "the compositor")

    def open_panel(self):
        self.desktop.click(self.icon.center)
        return self.desktop.wait_for_panel(self.client)

    def window_of(self, rect):
        return next(window for window, place in self.desktop.windows(self.client).items()
                    if place == rect)

    def margins(self, panel):
        return self.desktop.shadow_margins(self.window_of(panel))

    def test_is_outside_of_the_panel_whose_visible_edge_is_at_the_bar(self):
        panel = self.open_panel()
        self.assertGreater(min(self.margins(panel)), 0)
        self.assertEqual(panel.width, PANEL_WIDTH)
        self.assertGreaterEqual(panel.y, self.icon.bottom)
        self.assertLess(panel.y, self.icon.bottom + 8)

    def test_darkens_what_is_below_and_fades(self):
        panel = self.open_panel()
        middle = panel.y + panel.height // 2

        def brightness(distance):
            return self.desktop.brightness(Rect(panel.x - distance - 1, middle, 1, 1))[0]

        wait_until(lambda: brightness(1) < 0.9 * brightness(60), "the shadow")
        self.assertLess(brightness(1), brightness(8))
        self.assertLess(brightness(8), brightness(20))
        self.assertAlmostEqual(brightness(26), brightness(60), places=2)

    def test_takes_no_clicks(self):
        below, rect = self.desktop.open_window(Rect(700, 200, 560, 500))
        panel = self.open_panel()
        point = panel.center[0], panel.bottom + 4
        self.assertTrue(rect.y < point[1] < rect.bottom, (rect, panel))
        self.desktop.click(point)
        self.desktop.wait_for_no_panel(self.client)
        self.assertEqual(self.desktop.active_window(), below)

    def test_comes_and_goes_with_the_compositor(self):
        panel = self.open_panel()
        self.compositor.stop()
        window = self.window_of(panel)
        wait_until(lambda: self.desktop.shadow_margins(window) is None, "the panel without shadow")
        self.assertEqual(self.desktop.wait_for_panel(self.client), panel)
        self.start_compositor()
        wait_until(lambda: self.desktop.shadow_margins(window), "the panel with its shadow")
        self.assertEqual(self.desktop.wait_for_panel(self.client), panel)


if __name__ == "__main__":
    unittest.main()
