# SPDX-License-Identifier: MIT
"""A key that is really held down, with the display's own auto-repeat, calls once."""

import time
import unittest

from session import ADDRESS, GOOD_KEY, Session

KEYS = ("twkey-fernwood-good", "twkey-kite-good", GOOD_KEY)
KEY_NAMES = ("Return", "KP_Enter", "space")
REPEATING_FOR = 1.5  # seconds, far longer than the delay of the first repetition
CONTROLS = ("the address", "Devices", "Switch network", "Disconnect")  # in the order of Tab


class HeldKey(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.session = cls.enterClassContext(Session())
        cls.repeat("rate", "200", "30")
        cls.repeat("off")

    @classmethod
    def repeat(cls, *setting):
        cls.session.desktop.run("xset", "r", *setting, check=True)

    def hold(self, key, control):
        """Holds the key on a control of a freshly opened panel. Nothing repeats until then: on a
        busy machine a Tab is down for long enough to count twice."""
        self.session.begin(*KEYS)
        self.session.open_panel()
        self.session.wait_for_texts("Connected", "Switch network", ADDRESS)
        self.session.desktop.key(*["Tab"] * (CONTROLS.index(control) + 1))
        self.repeat("on")
        self.session.desktop.run("xdotool", "keydown", key, check=True)
        try:
            time.sleep(REPEATING_FOR)
        finally:
            self.session.desktop.run("xdotool", "keyup", key, check=True)
            self.repeat("off")

    def test_on_disconnect_disconnects_once(self):
        for key in KEY_NAMES:
            with self.subTest(key=key):
                self.hold(key, "Disconnect")
                self.session.wait_for_texts("Stopped", without=["Disconnect"])
                self.session.wait_for_calls([["down"]])

    def test_on_switch_network_opens_the_picker_and_picks_nothing(self):
        for key in KEY_NAMES:
            with self.subTest(key=key):
                self.hold(key, "Switch network")
                self.session.wait_for_texts("fernwood-home", "kite-studio")
                self.session.wait_for_calls([])


if __name__ == "__main__":
    unittest.main()
