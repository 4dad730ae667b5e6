# SPDX-License-Identifier: MIT
"""Every fault of the daemon and its tool in every state of the client: what the user sees
meanwhile, and that the first good answer puts it right.

Time limits make this slow, and waiting costs nothing: the states are tried at the same time, each
on a desktop of its own.
"""

import concurrent.futures
import contextlib
import unittest

from desktop import stays, wait_until
from session import ADDRESS, BUTTON, FIELD, GOOD_KEY, Session

KEYS = ("twkey-fernwood-good", GOOD_KEY)
GONE_WRONG = "error: the daemon is not in the mood (simulated)\n"
TIMED_OUT = "error: connection timed out"
LOG_IN_HEADING = "Connect to Tarnwick Network"
LIMIT = 20.0  # seconds, for what takes the client's own limit of twelve


def at_the_same_time(work, sessions):
    """Does that work in every session; fails with the first failure, when all have ended."""
    with concurrent.futures.ThreadPoolExecutor(len(sessions)) as pool:
        futures = [pool.submit(work, *session) for session in sessions]
    for future in futures:
        future.result()


class StatusInEveryState(unittest.TestCase):
    """The poll fails. The state that it leads back to is the one before."""

    @classmethod
    def setUpClass(cls):
        def start(name, installed=True, keys=KEYS, down=False, shown=()):
            session = cls.enterClassContext(Session(installed=installed))
            for key in keys:
                session.daemon.log_in(key)
            if down:
                session.daemon.tool("down")
            session.refresh(*shown)
            cls.states.append((name, session, shown))

        cls.states = []
        start("needs login", keys=(), shown=("Needs Login", "Use Auth Key..."))
        start("connected", shown=("Connected", ADDRESS, "Switch network", "Disconnect", "Devices"))
        start("disconnected", down=True, shown=("Stopped", "Connect (2)", "Use Auth Key..."))
        start("not installed", installed=False, shown=("Connected", ADDRESS, "Switch network"))

    def check(self, fault, seconds=LIMIT, meanwhile="Stopped"):
        def go_through(name, session, shown):
            with self.naming(name):
                session.daemon.clear_log()
                session.daemon.set_faults(fault)
                session.refresh(meanwhile, without=["Disconnect", "IP Address", "Devices"],
                                seconds=seconds)
                self.assertIn(fault.partition("@")[0], self.faults_told(session))
                self.assertTrue(session.client.is_running())
                session.daemon.set_faults("none")
                session.refresh(*shown, seconds=seconds)

        at_the_same_time(go_through, self.states)

    @staticmethod
    def faults_told(session):
        return {entry["fault"] for entry in session.daemon.log()}

    @contextlib.contextmanager
    def naming(self, state):
        try:
            yield
        except Exception as failure:
            raise AssertionError(f"when {state}: {failure}") from failure

    def test_error(self):
        self.check("error")

    def test_crash(self):
        self.check("crash")

    def test_garbage(self):
        self.check("garbage")

    def test_hang(self):
        self.check("hang@status")

    def test_flood(self):
        self.check("flood@status")

    def test_slow_is_late_and_nothing_else(self):
        def go_through(name, session, shown):
            with self.naming(name):
                session.daemon.set_faults("slow:1.5")
                session.daemon.clear_log()
                session.refresh(*shown)
                wait_until(lambda: self.faults_told(session) == {"slow:1.5"}, "a slow status")
                self.assertTrue(stays(lambda: set(shown) <= set(session.texts()), 3.0, step=0.2))
                session.daemon.set_faults("none")
                session.refresh(*shown)

        at_the_same_time(go_through, self.states)


class Commands(unittest.TestCase):
    """A command fails while the status is good: the message stands until the status is known."""

    @classmethod
    def setUpClass(cls):
        cls.sessions = [(cls.enterClassContext(Session()),) for _ in range(3)]

    def check(self, work, faults=("error",)):
        """Does the work with each of these faults, all of which end in a message."""
        told = {"error": (GONE_WRONG, LIMIT), "hang": (TIMED_OUT, LIMIT), "flood": (TIMED_OUT, LIMIT)}
        at_the_same_time(work, [(session, fault, *told[fault])
                                for (session,), fault in zip(self.sessions, faults)])

    def connect(self, session):
        session.begin(*KEYS)
        session.open_panel()
        session.wait_for_texts("Connected", "Switch network")

    def test_bringing_up_tells_and_leaves_the_network_as_it_was(self):
        def work(session, fault, message, seconds):
            self.connect(session)
            session.click("Disconnect")
            session.wait_for_texts("Connect (2)")
            # The next status clears the message; it is to stand long enough to be read.
            session.daemon.set_faults(f"{fault}@up", "slow:2@status")
            session.click("Connect (2)")
            session.click("Mira Lindqvist")
            session.wait_for_texts(message, seconds=seconds)
            session.wait_for_texts("Stopped", "Connect (2)", without=[message])
            session.daemon.set_faults("none")
            session.click("Connect (2)")
            session.click("Mira Lindqvist")
            session.wait_for_texts("Connected", "100.101.7.2")

        self.check(work, ("error", "hang", "flood"))

    def test_disconnecting_tells_nothing_and_leaves_the_connection(self):
        def work(session, fault, message, seconds):
            self.connect(session)
            session.daemon.set_faults(f"{fault}@down")
            session.daemon.clear_log()
            session.click("Disconnect")
            # The poll goes on behind the command.
            wait_until(lambda: self.polled_after(session, "down"), "a status", seconds)
            texts = session.texts()
            self.assertIn("Connected", texts)
            self.assertNotIn(message, texts)
            session.daemon.set_faults("none")
            session.click("Disconnect")
            session.wait_for_texts("Stopped", without=["Disconnect"])

        self.check(work)

    @staticmethod
    def polled_after(session, command):
        names = [entry["command"] for entry in session.daemon.log()]
        return command in names and "status" in names[names.index(command):]

    def test_removing_tells_and_keeps_the_profile(self):
        def work(session, fault, message, seconds):
            self.connect(session)
            session.daemon.set_faults(f"{fault}@remove", "slow:2@status")
            session.click("Switch network")
            session.click("Remove profile", description="Mira Lindqvist")
            session.wait_for_texts(message, "Switch network", seconds=seconds)
            session.daemon.set_faults("none")
            session.refresh("Connected", "Switch network", without=[message])
            session.click("Switch network")
            session.click("Remove profile", description="Mira Lindqvist")
            session.wait_for_texts("Connected", without=["Switch network"])

        self.check(work)

    def test_switching_that_fails_tells_nothing_if_the_network_comes_up(self):
        def work(session, fault, message, seconds):
            self.connect(session)
            session.daemon.set_faults(f"{fault}@switch")
            session.daemon.clear_log()
            session.click("Switch network")
            session.click("Mira Lindqvist")
            wait_until(lambda: self.polled_after(session, "up"), "a status", seconds)
            session.wait_for_texts("Connected", ADDRESS, without=[message])
            session.daemon.set_faults("none")
            session.click("Switch network")
            session.click("Mira Lindqvist")
            session.wait_for_texts("Connected", "100.101.7.2")

        self.check(work)

    def test_a_list_that_fails_costs_the_pickers_until_the_next(self):
        def work(session, fault, _, seconds):
            self.connect(session)
            session.daemon.set_faults(f"{fault}@list")
            session.click("Disconnect")
            session.wait_for_texts("Stopped", without=["Connect (2)", "Disconnect"],
                                   seconds=seconds)
            session.daemon.set_faults("none")
            session.refresh("Stopped", "Connect (2)", seconds=seconds)

        self.check(work)

    def test_a_tool_that_dies_or_prints_rubbish_tells_nothing_and_loses_nothing(self):
        def work(session, fault):
            self.connect(session)
            session.daemon.set_faults(*(f"{fault}@{name}" for name in
                                        ("up", "down", "switch", "remove")))
            for act in (lambda: session.click("Mira Lindqvist"),
                        lambda: session.click("Remove profile", description="Mira Lindqvist")):
                session.daemon.clear_log()
                session.click("Switch network")
                act()
                wait_until(lambda: self.polled_after(session, "list"), "the profiles")
                session.wait_for_texts("Connected", ADDRESS, "Switch network")
            session.click("Disconnect")
            session.daemon.set_faults("none")
            session.refresh("Connected", "Switch network", "Disconnect")

        at_the_same_time(work, [(session, fault) for (session,), fault
                                in zip(self.sessions, ("crash", "garbage"))])


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
        session.click("Auth Key", role=FIELD)
        session.desktop.type(key)
        wait_until(lambda: session.find(FIELD, "Auth Key").text == key, "the key")

    def test_each_fault_leaves_the_window_and_a_second_try_succeeds(self):
        def work(session, fault, message, seconds):
            self.fill_in(session, GOOD_KEY)
            session.daemon.set_faults(f"{fault}@login", "slow:2@status")
            session.desktop.key("Return")
            session.wait_for(BUTTON, "Connecting...")
            if message:
                session.wait_for_texts(message, seconds=seconds)
            session.wait_for(BUTTON, "Connect", seconds=seconds)
            session.daemon.set_faults("none")
            session.click("Connect")
            wait_until(lambda: LOG_IN_HEADING not in session.texts(), "the window to close")
            session.open_panel()
            session.wait_for_texts("Connected", ADDRESS)

        faults = [("error", GONE_WRONG, 10.0), ("crash", None, 10.0), ("garbage", None, 10.0),
                  ("hang", TIMED_OUT, 45.0)]
        at_the_same_time(work, [(session, *fault)
                                for session, fault in zip(self.sessions, faults)])

    def test_a_refused_key_tells_why(self):
        session = self.sessions[0]
        self.fill_in(session, "twkey-harbor-expired")
        session.daemon.set_faults("slow:2@status")
        session.desktop.key("Return")
        session.wait_for_texts("error: the control server refused the log-in: the auth key has "
                               "expired\n")
        session.wait_for(BUTTON, "Connect")
        self.assertIn(LOG_IN_HEADING, session.texts())


if __name__ == "__main__":
    unittest.main()
