# SPDX-License-Identifier: MIT
"""What each control of the panel calls: real clicks, judged by those who are called."""

import time
import unittest

from screen_reader import Role
from session import ADDRESS, GOOD_KEY, Session, removal
from virtual_desktop import stays, wait_until

KEYS = ("twkey-fernwood-good", "twkey-kite-good", GOOD_KEY)
AUTH_KEY_HEADING = "Connect to Tarnwick Network"


class Calls(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.session = cls.enterClassContext(Session())

    def begin(self, *keys):
        self.profiles = self.session.begin(*keys)
        self.session.open_panel()


class WhenConnected(Calls):
    """To harbor-labs, with two other networks known."""

    def setUp(self):
        self.begin(*KEYS)
        self.session.wait_for_texts("Connected", "Switch network", ADDRESS)

    def test_switch_network_lists_the_others_and_switches_to_the_one_picked(self):
        session = self.session
        session.click("Switch network")
        texts = session.wait_for_texts("fernwood-home", "kite-studio")
        self.assertNotIn("harbor-labs", texts)
        session.click("mira.l@kite.example")
        session.wait_for_texts("Connected", "100.118.40.9", without=[ADDRESS])
        session.wait_for_calls([["switch", self.profiles["kite-studio"]], ["up"]])

    def test_trash_in_switch_network_removes_that_profile(self):
        session = self.session
        session.click("Switch network")
        session.click("Remove profile", description="mira.l@kite.example")
        wait_until(lambda: "kite-studio" not in self.networks(), "the profile to go")
        session.wait_for_calls([removal(self.profiles["kite-studio"])])
        self.assertIn("Connected", session.texts())
        session.click("Switch network")
        texts = session.wait_for_texts("fernwood-home")
        self.assertNotIn("kite-studio", texts)

    def networks(self):
        return [profile["network"] for profile in self.session.daemon.account()["profiles"]]

    def test_disconnect_disconnects(self):
        self.session.click("Disconnect")
        self.session.wait_for_texts("Stopped", "Connect (3)", without=["Disconnect", ADDRESS])
        self.session.wait_for_calls([["down"]])

    def test_refresh_asks_for_the_status_and_not_for_the_profiles(self):
        session = self.session
        session.daemon.clear_log()
        began = time.monotonic()

        def is_asked_more_often_than_by_the_poll():
            session.click("Refresh")
            time.sleep(1.0)  # while a poll is under way, a click is answered by it
            return len(session.calls()) > 1 + (time.monotonic() - began) / 4.5

        wait_until(is_asked_more_often_than_by_the_poll, "a status for each click")
        self.assertEqual(session.calls("status"), [])

    def test_devices_calls_nobody(self):
        session = self.session
        session.click("Devices")
        session.wait_for_texts("aurora-build", "100.72.14.20")
        session.click("Devices")
        session.wait_for_texts("Connected", without=["aurora-build"])
        session.wait_for_calls([])

    def test_website_is_opened_in_the_browser(self):
        self.session.click("Website")
        wait_until(self.session.opened, "the browser")
        self.assertEqual(len(self.session.opened()), 1)
        self.assertRegex(self.session.opened()[0], r"^https://[a-z.]+/?$")

    def test_check_for_updates_tells_what_went_wrong(self):
        session = self.session
        session.click("Check for Updates...")
        # Nobody answers there: the address is a made-up one.
        session.wait_for_texts("Software Update", "Close")
        problem = [text for text in session.texts() if text.startswith("Couldn't check")]
        self.assertEqual(len(problem), 1)
        self.assertRegex(problem[0], r"^Couldn't check for updates: .*api\.tarnwick\.example")
        session.click("Close")
        wait_until(lambda: "Software Update" not in session.texts(), "the alert to close")
        self.assertEqual(session.opened(), [])

    def test_a_click_in_the_empty_middle_of_an_entry_counts(self):
        x, y = self.session.wait_for(Role.BUTTON, "Disconnect").center
        self.session.desktop.click((x + 90, y))
        self.session.wait_for_calls([["down"]])

    def test_quit_ends_the_program_and_leaves_the_daemon_as_it_is(self):
        self.session.click("Quit Tarnwick Network")
        self.assertEqual(self.session.client.wait_for_end(), 0)
        self.assertEqual(self.session.daemon.account()["backendState"], "Running")
        self.session.wait_for_calls([])


class WhenDisconnected(Calls):
    def setUp(self):
        self.begin(*KEYS)
        self.session.wait_for_texts("Connected", ADDRESS)
        self.session.click("Disconnect")
        self.session.wait_for_texts("Stopped", "Connect (3)")
        self.session.daemon.clear_log()

    def test_connect_lists_all_and_connects_to_the_one_picked(self):
        session = self.session
        session.click("Connect (3)")
        session.wait_for_texts("fernwood-home", "kite-studio", "mira-workstation")
        session.click("Mira Lindqvist")
        session.wait_for_texts("Connected", "attic-desktop", "100.101.7.2")
        session.wait_for_calls([["switch", self.profiles["fernwood-home"]], ["up"]])

    def test_trash_in_connect_removes_even_the_current_profile(self):
        session = self.session
        session.click("Connect (3)")
        session.click("Remove profile", description="mira-workstation")
        session.wait_for_calls([removal(self.profiles["harbor-labs"])])
        # The daemon has no current profile any more.
        session.wait_for_texts("Needs Login", without=["Connect (3)"])

    def test_trash_in_connect_removes_another_profile(self):
        session = self.session
        session.click("Connect (3)")
        session.click("Remove profile", description="Mira Lindqvist")
        session.wait_for_texts("Stopped", "Connect (2)")
        session.wait_for_calls([removal(self.profiles["fernwood-home"])])

    def test_use_auth_key_opens_the_window(self):
        session = self.session
        session.click("Use Auth Key...")
        session.wait_for_texts(AUTH_KEY_HEADING, "Device Name", "Auth Key", "Cancel")
        session.click("Cancel")
        wait_until(lambda: AUTH_KEY_HEADING not in session.texts(), "the window to close")
        session.wait_for_calls([])


class UseAuthKey(Calls):
    """The entry stands in each variant in which there is no connection, and opens one window."""

    def check(self):
        session = self.session
        session.open_panel()
        session.click("Use Auth Key...")
        session.wait_for_texts(AUTH_KEY_HEADING)
        self.assertTrue(stays(lambda: session.texts().count(AUTH_KEY_HEADING) == 1, 0.5))
        session.desktop.key("Escape")
        wait_until(lambda: AUTH_KEY_HEADING not in session.texts(), "the window to close")
        session.wait_for_calls([])

    def test_when_a_log_in_is_needed(self):
        self.begin()
        self.session.wait_for_texts("Needs Login")
        self.assertEqual(self.session.entries()[0], "Use Auth Key...")
        self.check()

    def test_when_there_is_no_daemon_and_so_no_profile(self):
        self.begin()
        self.session.daemon.stop()
        self.session.refresh("Stopped")
        self.assertEqual(self.session.entries()[0], "Use Auth Key...")
        self.session.click("Use Auth Key...")
        self.session.wait_for_texts(AUTH_KEY_HEADING)

    def test_in_a_second_window_the_form_is_a_new_one(self):
        session = self.session
        self.begin()
        session.wait_for_texts("Needs Login")
        session.click("Use Auth Key...")
        session.click("Auth Key", role=Role.FIELD)
        session.desktop.type("half-a-key")
        wait_until(lambda: session.find(Role.FIELD, "Auth Key").text == "half-a-key", "the text")
        session.open_panel()
        session.click("Use Auth Key...")
        wait_until(lambda: session.find(Role.FIELD, "Auth Key").text == "", "a new form")
        self.assertEqual(session.texts().count(AUTH_KEY_HEADING), 1)


class NotInstalled(unittest.TestCase):
    def test_only_use_auth_key_is_offered_though_there_are_profiles(self):
        with Session(installed=False) as session:
            session.begin(*KEYS)
            session.open_panel()
            session.wait_for_texts("Connected")
            session.click("Disconnect")
            session.wait_for_texts("Stopped", without=["Disconnect"])
            self.assertEqual(session.entries(), ["Use Auth Key...", "Refresh",
                                                 "Check for Updates...", "Website",
                                                 "Quit Tarnwick Network"])
            session.click("Use Auth Key...")
            session.wait_for_texts(AUTH_KEY_HEADING)


if __name__ == "__main__":
    unittest.main()
