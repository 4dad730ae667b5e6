# SPDX-License-Identifier: MIT
"""Opening the panel and leaving it without a mouse and without eyes."""

import unittest

from assistive import Assistive
from desktop import Desktop, wait_until


class WithoutAMouse(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(tray="top"))
        cls.assistive = cls.enterClassContext(Assistive(cls.desktop))

    def open_panel(self):
        """Launching the program again is how one opens it without a mouse."""
        client = self.desktop.start_client()
        self.addCleanup(client.stop)
        self.desktop.wait_for_icon(client)
        self.assertEqual(self.desktop.start_client().wait(10), 0)
        self.desktop.wait_for_panel(client)
        return client

    def test_a_second_launch_gives_the_panel_to_the_screen_reader_and_the_keyboard(self):
        client = self.open_panel()
        self.assistive.wait_for("Quit Tarnwick Network", "push button")
        wait_until(lambda: self.desktop.active_window() in self.desktop.windows(client), "focus")
        self.desktop.key("Tab")
        wait_until(self.assistive.focused, "a focused control")
        self.desktop.key("Escape")
        self.desktop.wait_for_no_panel(client)

    def test_the_screen_reader_can_quit(self):
        client = self.open_panel()
        self.assistive.press("Quit Tarnwick Network")
        self.assertEqual(client.wait(5), 0)


if __name__ == "__main__":
    unittest.main()
