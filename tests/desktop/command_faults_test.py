# SPDX-License-Identifier: MIT
"""Faults of the daemon and its tool while a command runs: what the user sees meanwhile, and that
the next try succeeds. Each fault has a desktop of its own."""

import unittest

from screen_reader import Role
from session import ADDRESS, GOOD_KEY, Session, at_the_same_time
from virtual_desktop import wait_until

KEYS = ("twkey-fernwood-good", GOOD_KEY)
GONE_WRONG = "error: the daemon is not in the mood (simulated)\n"
TIMED_OUT = "error: connection timed out"
LOG_IN_HEADING = "Connect to Tarnwick Network"
# The next status clears a message; it is to stand long enough to be seen.
SLOW_STATUS = "slow:4@status"


def no_message(texts):
    return not any(text.startswith("error") for text in texts)


class Commands(unittest.TestCase):
    """A command fails while the status is good: the message stands until the status is known."""

    @classmethod
    def setUpClass(cls):
        cls.sessions = [cls.enterClassContext(Session()) for _ in range(3)]

    def check(self, work, faults=("error",)):
        """Does the work with each of these faults, all of which end in a message."""
        told = {"error": GONE_WRONG, "hang": TIMED_OUT, "flood": TIMED_OUT}
        at_the_same_time(work, [(session, fault, told[fault])
                                for session, fault in zip(self.sessions, faults)])

    def connect(self, session):
        session.begin(*KEYS)
        session.open_panel()
        session.wait_for_texts("Connected", "Switch network")

    @staticmethod
    def disconnect(session):
        session.click("Disconnect")

    @staticmethod
    def switch(session):
        session.click("Switch network")
        session.click("Mira Lindqvist")

    @staticmethod
    def remove(session):
        session.click("Switch network")
        session.click("Remove profile", description="Mira Lindqvist")

    @staticmethod
    def polled_after(session, command):
        names = [entry["command"] for entry in session.daemon.log()]
        return command in names and "status" in names[names.index(command):]

    def tells_nothing(self, session, act, faulty, last=None, shown=no_message):
        """Does something of which one command meets a fault, and sees to it that no message comes
        of it until the status after the last command is known."""
        session.daemon.clear_log()
        act(session)
        session.wait_while(shown, lambda: self.polled_after(session, last or faulty), "a status")
        self.assertTrue(any(entry["command"] == faulty and entry["fault"]
                            for entry in session.daemon.log()))

    def test_bringing_up_tells_and_leaves_the_network_as_it_was(self):
        def work(session, fault, message):
            self.connect(session)
            self.disconnect(session)
            session.wait_for_texts("Connect (2)")
            session.daemon.set_faults(f"{fault}@up", SLOW_STATUS)
            session.click("Connect (2)")
            session.click("Mira Lindqvist")
            session.wait_for_texts(message)
            session.wait_for_texts("Stopped", "Connect (2)", without=[message])
            session.daemon.set_faults("none")
            session.click("Connect (2)")
            session.click("Mira Lindqvist")
            session.wait_for_texts("Connected", "100.101.7.2")

        self.check(work, ("error", "hang", "flood"))

    def test_disconnecting_tells_nothing_and_leaves_the_connection(self):
        def work(session, fault, _):
            self.connect(session)
            session.daemon.set_faults(f"{fault}@down", SLOW_STATUS)
            self.tells_nothing(session, self.disconnect, "down",
                               shown=lambda texts: no_message(texts) and "Connected" in texts)
            session.daemon.set_faults("none")
            self.disconnect(session)
            session.wait_for_texts("Stopped", without=["Disconnect"])

        self.check(work)

    def test_removing_tells_and_keeps_the_profile(self):
        def work(session, fault, message):
            self.connect(session)
            session.daemon.set_faults(f"{fault}@remove", SLOW_STATUS)
            self.remove(session)
            session.wait_for_texts(message, "Switch network")
            session.daemon.set_faults("none")
            session.refresh("Connected", "Switch network", without=[message])
            self.remove(session)
            session.wait_for_texts("Connected", without=["Switch network"])

        self.check(work)

    def test_switching_that_fails_tells_nothing_if_the_network_comes_up(self):
        def work(session, fault, _):
            self.connect(session)
            session.daemon.set_faults(f"{fault}@switch", SLOW_STATUS)
            self.tells_nothing(session, self.switch, "switch", last="up")
            session.wait_for_texts("Connected", ADDRESS)
            session.daemon.set_faults("none")
            self.switch(session)
            session.wait_for_texts("Connected", "100.101.7.2")

        self.check(work)

    def test_a_list_that_fails_costs_the_pickers_until_the_next(self):
        def work(session, fault, _):
            self.connect(session)
            session.daemon.set_faults(f"{fault}@list")
            self.disconnect(session)
            session.wait_for_texts("Stopped", without=["Connect (2)", "Disconnect"])
            session.daemon.set_faults("none")
            session.refresh("Stopped", "Connect (2)")

        self.check(work)

    def test_a_tool_that_dies_or_prints_rubbish_tells_nothing_and_loses_nothing(self):
        def work(session, fault):
            self.connect(session)
            session.daemon.set_faults(SLOW_STATUS, *(f"{fault}@{name}" for name in
                                                     ("up", "down", "switch", "remove")))
            for act, command in ((self.switch, "up"), (self.remove, "remove"),
                                 (self.disconnect, "down")):
                self.tells_nothing(session, act, command)
                session.wait_for_texts("Connected", ADDRESS, "Switch network")
            session.daemon.set_faults("none")
            session.refresh("Connected", "Switch network", "Disconnect")

        at_the_same_time(work, list(zip(self.sessions, ("crash", "garbage"))))


class LogIn(unittest.TestCase):
    """The window stays until the machine is connected."""

    @classmethod
    def setUpClass(cls):
        cls.sessions = [cls.enterClassContext(Session()) for _ in range(4)]

    def fill_in(self, session, key):
        session.begin()
        session.open_panel()
        session.wait_for_texts("Needs Login")
        session.click("Use Auth Key...")
        session.click("Auth Key", role=Role.FIELD)
        session.desktop.type(key)
        wait_until(lambda: session.find(Role.FIELD, "Auth Key").text == key, "the key")

    def test_each_fault_leaves_the_window_and_a_second_try_succeeds(self):
        def work(session, fault, message):
            self.fill_in(session, GOOD_KEY)
            session.daemon.set_faults(f"{fault}@login", SLOW_STATUS)
            session.daemon.clear_log()
            session.desktop.key("Return")
            # "Connecting..." may be gone before a busy machine has looked.
            wait_until(lambda: "login" in (entry["command"] for entry in session.daemon.log()),
                       "the log-in")
            if message:
                session.wait_for_texts(message)
            session.wait_for(Role.BUTTON, "Connect")
            session.daemon.set_faults("none")
            session.click("Connect")
            wait_until(lambda: LOG_IN_HEADING not in session.texts(), "the window to close")
            session.open_panel()
            session.wait_for_texts("Connected", ADDRESS)

        faults = [("error", GONE_WRONG), ("crash", None), ("garbage", None), ("hang", TIMED_OUT)]
        at_the_same_time(work, [(session, *fault)
                                for session, fault in zip(self.sessions, faults)])

    def test_a_refused_key_tells_why(self):
        session = self.sessions[0]
        self.fill_in(session, "twkey-harbor-expired")
        session.daemon.set_faults(SLOW_STATUS)
        session.desktop.key("Return")
        session.wait_for_texts("error: the control server refused the log-in: the auth key has "
                               "expired\n")
        session.wait_for(Role.BUTTON, "Connect")
        self.assertIn(LOG_IN_HEADING, session.texts())


if __name__ == "__main__":
    unittest.main()
