# SPDX-License-Identifier: MIT
"""The icon in an X tray and the panel that hangs under it."""

import unittest

from virtual_desktop import Desktop, Rect, stays, wait_until

SCREEN = Rect(0, 0, 1280, 800)


class PanelOpensAndCloses(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(tray="top"))
        cls.client = cls.desktop.start_client()
        cls.icon = cls.desktop.wait_for_icon(cls.client)

    def setUp(self):
        self.assertIsNone(self.desktop.panel(self.client))
        self.desktop.click(self.icon.center)
        self.panel = self.desktop.wait_for_panel(self.client)

    def tearDown(self):
        if self.desktop.panel(self.client):
            self.desktop.key("Escape")
            self.desktop.wait_for_no_panel(self.client)

    def test_a_click_opens_it_under_the_icon_and_a_second_closes_it(self):
        self.assertEqual(self.panel.width, 300)
        self.assertGreaterEqual(self.panel.y, self.icon.bottom)
        self.assertLess(self.panel.y, self.icon.bottom + 8)
        self.assertTrue(SCREEN.contains(self.panel), self.panel)
        self.desktop.click(self.icon.center)
        self.desktop.wait_for_no_panel(self.client)
        self.assertTrue(stays(lambda: self.desktop.panel(self.client) is None, 1.0))

    def test_escape_closes_it(self):
        self.desktop.key("Escape")
        self.desktop.wait_for_no_panel(self.client)

    def test_a_click_elsewhere_closes_it(self):
        # A new window takes the focus, and the panel closes with that: open it again.
        _, rect = self.desktop.open_window(Rect(100, 500, 300, 100))
        self.desktop.wait_for_no_panel(self.client)
        self.desktop.click(self.icon.center)
        self.desktop.wait_for_panel(self.client)
        self.desktop.click(rect.center)
        self.desktop.wait_for_no_panel(self.client)

    def test_it_has_the_focus(self):
        wait_until(lambda: self.desktop.active_window() in self.desktop.windows(self.client),
                   "the focus")

    def test_task_bars_and_pagers_leave_it_out(self):
        (window,) = (name for name, rect in self.desktop.windows(self.client).items()
                     if rect == self.panel)
        states = self.desktop.run("xprop", "-id", window, "_NET_WM_STATE")
        for state in ("SKIP_TASKBAR", "SKIP_PAGER"):
            self.assertIn(state, states)


class PanelIsPlacedBesideTheIcon(unittest.TestCase):
    def check(self, edge, align, beside):
        with self.subTest(edge=edge, align=align), Desktop() as desktop:
            desktop.start_tray(edge, align)
            client = desktop.start_client()
            icon = desktop.wait_for_icon(client)
            desktop.click(icon.center)
            panel = desktop.wait_for_panel(client)
            self.assertTrue(SCREEN.contains(panel), panel)
            self.assertFalse(panel.intersects(icon), (panel, icon))
            self.assertTrue(beside(panel, icon), (panel, icon))

    def test_with_a_tray_at_each_edge(self):
        self.check("top", "left", lambda panel, icon: panel.y >= icon.bottom)
        self.check("bottom", "right", lambda panel, icon: panel.bottom <= icon.y)
        self.check("left", "center", lambda panel, icon: panel.x >= icon.right)
        self.check("right", "center", lambda panel, icon: panel.right <= icon.x)


if __name__ == "__main__":
    unittest.main()
