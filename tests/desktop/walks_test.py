# SPDX-License-Identifier: MIT
"""A session through every entry of the panel, the log-in included, three times over: with the
mouse, with the keyboard alone, and with assistive technology alone."""

import unittest

from screen_reader import Role
from session import ADDRESS, GOOD_KEY, Session, removal
from virtual_desktop import wait_until

OTHER_KEY, OTHER_ADDRESS = "twkey-fernwood-good", "100.101.7.2"
OTHER, OTHER_UNSEEN = "attic-desktop", "Mira Lindqvist"  # once it was connected, and before
DEV_SERVER = "https://control-dev.tarnwick.example"
HEADING = "Connect to Tarnwick Network"
COMMON = ["Refresh", "Check for Updates...", "Website", "Quit Tarnwick Network"]


class Walk:
    """The way through the variants of the panel. How the user does it is left to others."""

    def open_panel(self):
        self.session.open_panel()

    def choose(self, name, description=None):
        raise NotImplementedError

    def fill_in(self, name, text):
        raise NotImplementedError

    def look(self):
        """Each window and variant that is come by."""

    def test_walk(self):
        with Session() as self.session:
            self.begin()
            self.connect_by_picker()
            self.see_the_devices()
            self.use_the_common_entries()
            self.disconnect()
            self.log_in()
            self.switch_and_remove()
            self.disconnect()
            self.remove_the_last()
            self.log_in_no_more()
            self.choose("Quit Tarnwick Network")
            self.assertEqual(self.session.client.wait_for_end(), 0)

    def begin(self):
        """The machine was in a network once, and the client is new to it."""
        session = self.session
        session.client.stop()
        session.daemon.log_in(OTHER_KEY)
        session.daemon.tool("down")
        session.daemon.clear_log()
        session.start_client()
        self.open_panel()

    def connect_by_picker(self):
        session = self.session
        (profile,) = session.daemon.account()["profiles"]
        session.wait_for_texts("Connect (1)")
        self.assertEqual(session.entries(), ["Connect (1)", "Use Auth Key..."] + COMMON)
        self.choose("Connect (1)")
        session.wait_for(Role.BUTTON, OTHER_UNSEEN)
        self.look()
        self.choose(OTHER_UNSEEN)
        session.wait_for_texts("Connected", OTHER_ADDRESS)
        session.wait_for_calls([["switch", profile["id"]], ["up"]])

    def see_the_devices(self):
        session = self.session
        self.assertEqual(session.entries(), ["Devices", "Disconnect"] + COMMON)
        self.choose("Devices")
        session.wait_for_texts("media-server")
        self.look()
        self.close_devices()
        session.wait_for_texts("Connected", without=["media-server"])

    def close_devices(self):
        self.choose("Devices")

    def use_the_common_entries(self):
        session = self.session
        session.daemon.clear_log()
        self.choose("Refresh")
        wait_until(session.calls, "the refresh")
        self.choose("Website")
        wait_until(session.opened, "the browser")
        self.choose("Check for Updates...")
        session.wait_for_texts("Software Update", "Close")
        self.look()
        self.choose("Close")
        wait_until(lambda: "Software Update" not in session.texts(), "the alert to close")
        self.open_panel()

    def disconnect(self):
        self.choose("Disconnect")
        self.session.wait_for_texts("Stopped", without=["Disconnect", "IP Address"])
        self.session.daemon.clear_log()

    def log_in(self):
        session = self.session
        self.choose("Use Auth Key...")
        session.wait_for_texts(HEADING, "Device Name", "Auth Key")
        self.look()
        self.fill_in("Device Name", "Dev_Box")
        self.fill_in("Auth Key", GOOD_KEY)
        self.choose("Connect")
        wait_until(lambda: HEADING not in session.texts(), "the window to close")
        session.wait_for_calls([["login", f"--login-server={DEV_SERVER}", "--authkey", GOOD_KEY,
                                 "--hostname", "dev-box"]])
        self.open_panel()
        session.wait_for_texts("Connected", ADDRESS, "dev-box", "Switch network")

    def switch_and_remove(self):
        session = self.session
        ids = {profile["network"]: profile["id"] for profile in
               session.daemon.account()["profiles"]}
        session.daemon.clear_log()
        self.choose("Switch network")
        session.wait_for(Role.BUTTON, OTHER)
        self.look()
        self.choose(OTHER)
        session.wait_for_texts("Connected", OTHER_ADDRESS, without=[ADDRESS])
        session.wait_for_calls([["switch", ids["fernwood-home"]], ["up"]])
        session.daemon.clear_log()
        self.choose("Switch network")
        self.choose("Remove profile", "dev-box")
        session.wait_for_texts("Connected", without=["Switch network"])
        session.wait_for_calls([removal(ids["harbor-labs"])])

    def remove_the_last(self):
        session = self.session
        session.wait_for_texts("Connect (1)")
        self.look()
        self.choose("Connect (1)")
        self.choose("Remove profile", OTHER)
        session.wait_for_texts("Needs Login")
        self.assertEqual(session.entries(), ["Use Auth Key..."] + COMMON)
        self.look()

    def log_in_no_more(self):
        session = self.session
        self.choose("Use Auth Key...")
        session.wait_for_texts(HEADING)
        self.choose("Cancel")
        wait_until(lambda: HEADING not in session.texts(), "the window to close")
        self.open_panel()


class ByMouse(Walk, unittest.TestCase):
    def choose(self, name, description=None):
        self.session.click(name, description=description)

    def fill_in(self, name, text):
        session = self.session
        session.click(name, role=Role.FIELD)
        session.desktop.key("ctrl+a")
        session.desktop.type(text)
        wait_until(lambda: session.find(Role.FIELD, name).text == text, "the text")


class ByKeyboard(Walk, unittest.TestCase):
    """The panel opens by starting the program again; the rest is keys."""

    MOST_STEPS = 40

    def open_panel(self):
        open_by_another_start(self.session)

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
        self.go_to(Role.BUTTON, name, description)
        self.session.desktop.key("Return")

    def close_devices(self):
        self.session.desktop.key("Escape")

    def fill_in(self, name, text):
        self.go_to(Role.FIELD, name)
        self.session.desktop.key("ctrl+a")
        self.session.desktop.type(text)
        wait_until(lambda: self.session.find(Role.FIELD, name).text == text, "the text")


class ByAssistiveTechnology(Walk, unittest.TestCase):
    """Not one click and not one key. Whatever can have the focus has a name all the way."""

    def open_panel(self):
        open_by_another_start(self.session)

    def choose(self, name, description=None):
        self.session.press(name, description=description)

    def fill_in(self, name, text):
        self.session.reader.write(self.session.wait_for(Role.FIELD, name), text)
        wait_until(lambda: self.session.find(Role.FIELD, name).text == text, "the text")

    def look(self):
        check_names(self, self.session)


class NotInstalled(unittest.TestCase):
    """The one variant that no session leads to."""

    def test_all_that_can_have_the_focus_has_a_name(self):
        with Session(installed=False) as session:
            session.open_panel()
            session.wait_for(Role.BUTTON, "Use Auth Key...")
            self.assertEqual(session.entries(), ["Use Auth Key..."] + COMMON)
            check_names(self, session)


def open_by_another_start(session):
    if session.panel() is None:
        again = session.start_again()
        wait_until(lambda: again.poll() == 0, "the other start to end")
        wait_until(session.panel, "the panel")


def check_names(test, session):
    """Whatever can have the focus has a name, and an enabled button can be pressed."""
    focusable = [node for node in session.shown() if "focusable" in node.states]
    test.assertTrue(focusable)
    for node in focusable:
        test.assertTrue(node.name.strip(), f"{node} in {node.parent}")
        if node.role == Role.BUTTON and "enabled" in node.states:
            test.assertIn("Press", node.actions, node)


if __name__ == "__main__":
    unittest.main()
