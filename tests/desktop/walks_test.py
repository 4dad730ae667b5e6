# SPDX-License-Identifier: MIT
"""A whole session, from the first log-in to the last profile's removal, twice over: with the mouse,
and with the keyboard alone."""

import unittest

from desktop import wait_until
from session import ADDRESS, BUTTON, FIELD, GOOD_KEY, SERVER, Session, removal

DEV_SERVER = "https://control-dev.tarnwick.example"
LOG_IN_HEADING = "Connect to Tarnwick Network"
COMMON = ["Refresh", "Check for Updates...", "Website", "Quit Tarnwick Network"]


class Walk(unittest.TestCase):
    """The way through all variants of the panel. How the user does it is left to others."""

    def open_panel(self):
        self.session.open_panel()

    def choose(self, name, description=None):
        raise NotImplementedError

    def fill_in(self, name, text):
        raise NotImplementedError

    def walk(self):
        with Session() as self.session:
            self.open_panel()
            self.session.wait_for_texts("Needs Login")
            self.assertEqual(self.session.entries(), ["Use Auth Key..."] + COMMON)
            self.log_in("twkey-fernwood-good", "Attic Desktop", "100.101.7.2")
            self.assertEqual(self.session.entries(), ["Devices", "Disconnect"] + COMMON)
            self.disconnect()
            self.connect_by_picker()
            self.disconnect()
            self.log_in(GOOD_KEY, "Dev_Box", ADDRESS, server=DEV_SERVER)
            self.session.wait_for_texts("Switch network")
            self.switch()
            self.remove_the_other()
            self.disconnect()
            self.remove_the_last()

    def log_in(self, key, device, address, server=SERVER):
        session = self.session
        self.choose("Use Auth Key...")
        session.wait_for_texts(LOG_IN_HEADING, "Device Name", "Auth Key")
        self.fill_in("Device Name", device)
        self.fill_in("Auth Key", key)
        session.daemon.clear_log()
        self.choose("Connect")
        wait_until(lambda: LOG_IN_HEADING not in session.texts(), "the window to close")
        name = device.lower().replace(" ", "-").replace("_", "-")
        session.wait_for_calls([["login", f"--login-server={server}", "--authkey", key,
                                 "--hostname", name]])
        self.open_panel()
        session.wait_for_texts("Connected", address, name)

    def disconnect(self):
        self.choose("Disconnect")
        self.session.wait_for_texts("Stopped", without=["Disconnect", "IP Address"])
        self.session.daemon.clear_log()

    def connect_by_picker(self):
        session = self.session
        (profile,) = session.daemon.account()["profiles"]
        session.wait_for_texts("Connect (1)")
        self.assertEqual(session.entries(), ["Connect (1)", "Use Auth Key..."] + COMMON)
        self.choose("Connect (1)")
        self.choose("attic-desktop")
        session.wait_for_texts("Connected", "100.101.7.2")
        session.wait_for_calls([["switch", profile["id"]], ["up"]])

    def switch(self):
        session = self.session
        self.profiles = {profile["network"]: profile["id"]
                         for profile in session.daemon.account()["profiles"]}
        session.daemon.clear_log()
        self.choose("Switch network")
        self.choose("attic-desktop")
        session.wait_for_texts("Connected", "100.101.7.2", without=[ADDRESS])
        session.wait_for_calls([["switch", self.profiles["fernwood-home"]], ["up"]])

    def remove_the_other(self):
        session = self.session
        session.daemon.clear_log()
        self.choose("Switch network")
        self.choose("Remove profile")
        session.wait_for_texts("Connected", without=["Switch network"])
        session.wait_for_calls([removal(self.profiles["harbor-labs"])])

    def remove_the_last(self):
        session = self.session
        session.wait_for_texts("Connect (1)")
        self.choose("Connect (1)")
        self.choose("Remove profile", "attic-desktop")
        session.wait_for_texts("Needs Login")
        self.assertEqual(session.entries(), ["Use Auth Key..."] + COMMON)
        self.choose("Quit Tarnwick Network")
        self.assertEqual(session.client.wait(5.0), 0)


class ByMouse(Walk):
    def test_walk(self):
        self.walk()

    def choose(self, name, description=None):
        self.session.click(name, description=description)

    def fill_in(self, name, text):
        session = self.session
        session.desktop.click(session.wait_for(FIELD, name).center)
        session.desktop.key("ctrl+a")
        session.desktop.type(text)
        wait_until(lambda: session.find(FIELD, name).text == text, "the text")


class ByKeyboard(Walk):
    """The panel opens by a click or by starting the program again; the rest is keys."""

    MOST_STEPS = 40

    def test_walk(self):
        self.walk()

    def open_panel(self):
        session = self.session
        if session.panel() is None:
            again = session.start_again()
            self.assertEqual(again.wait(10.0), 0)
            wait_until(session.panel, "the panel")

    def focused(self):
        return next((node for node in self.session.shown() if "focused" in node.states), None)

    def go_to(self, role, name, description=None):
        """Goes on with the Tab key until it is there, and sees that each step leads somewhere."""
        self.session.wait_for(role, name, description)
        for _ in range(self.MOST_STEPS):
            node = self.focused()
            if node and (node.role, node.name) == (role, name) \
                    and description in (None, node.description):
                return
            before = node.id if node else None
            self.session.desktop.key("Tab")
            wait_until(lambda: (lambda now: now and now.id != before)(self.focused()), "the focus")
        self.fail(f"Tab does not lead to {name!r}")

    def choose(self, name, description=None):
        self.go_to(BUTTON, name, description)
        self.session.desktop.key("Return")

    def fill_in(self, name, text):
        self.go_to(FIELD, name)
        self.session.desktop.key("ctrl+a")
        self.session.desktop.type(text)
        wait_until(lambda: self.session.find(FIELD, name).text == text, "the text")


if __name__ == "__main__":
    unittest.main()
