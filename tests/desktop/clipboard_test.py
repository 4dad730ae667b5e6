# SPDX-License-Identifier: MIT
"""What another program can paste after the user has copied in the panel."""

import unittest

from screen_reader import Role
from session import ADDRESS, GOOD_KEY, Session
from virtual_desktop import wait_until


class Clipboard(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.session = cls.enterClassContext(Session())
        cls.session.begin(GOOD_KEY)

    def setUp(self):
        self.put_on_clipboard("something else")
        self.session.open_panel()
        self.session.wait_for_texts("Connected", ADDRESS, "mira-workstation")

    def tearDown(self):
        self.session.close_panel()

    def put_on_clipboard(self, text):
        path = self.session.desktop.home / "to-copy"
        path.write_text(text, encoding="utf-8")
        self.session.desktop.start("xclip", "-quiet", "-selection", "clipboard", path)
        self.wait_for_clipboard(text)

    def clipboard(self):
        return self.session.desktop.run("timeout", 5, "xclip", "-o", "-selection", "clipboard")

    def wait_for_clipboard(self, text):
        wait_until(lambda: self.clipboard() == text, f"{text!r} on the clipboard",
                   describe=lambda: f"have {self.clipboard()!r}; shown: {self.session.texts()}")

    def drag_over(self, text):
        """Selects with the mouse, from the first letter to beyond the last, and copies."""
        desktop = self.session.desktop
        x, y, width, height = self.session.settled(Role.LABEL, text).rect
        middle = y + height // 2
        desktop.run("xdotool", "mousemove", x + 1, middle, "mousedown", 1,
                    "mousemove", x + width // 2, middle, "mousemove", x + width + 8, middle,
                    "mouseup", 1, check=True)
        desktop.key("ctrl+c")

    def test_the_address_is_copied_with_the_mouse(self):
        self.drag_over(ADDRESS)
        self.wait_for_clipboard(ADDRESS)

    def test_the_address_is_copied_with_the_keyboard(self):
        self.session.desktop.key("Tab", "ctrl+c")
        self.wait_for_clipboard(ADDRESS)

    def test_the_host_name_cannot_be_selected(self):
        self.drag_over("mira-workstation")
        # Keys arrive in their order: once this one has done its work, that one has had its chance.
        self.session.desktop.key("Down")
        wait_until(lambda: any("focused" in node.states for node in self.session.shown()), "focus")
        self.assertEqual(self.clipboard(), "something else")


if __name__ == "__main__":
    unittest.main()
