# SPDX-License-Identifier: MIT
"""Every fault of the poll in every state of the client, each on a desktop of its own: what the user
sees meanwhile, and that the first good answer puts it right."""

import contextlib
import unittest

from session import ADDRESS, GOOD_KEY, Session, at_the_same_time
from virtual_desktop import stays, wait_until

KEYS = ("twkey-fernwood-good", GOOD_KEY)


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

    def check(self, fault):
        gone = ["Disconnect", "IP Address", "Devices"]

        def go_through(name, session, shown):
            with self.naming(name):
                session.daemon.set_faults(fault)
                session.daemon.clear_log()
                session.refresh("Stopped", without=gone)
                # Polls do not overlap: the first of two has had its whole time.
                told = fault.partition("@")[0]
                wait_until(lambda: self.statuses_with(session, told) >= 2, "two polls")
                session.wait_for_texts("Stopped", without=gone)
                self.assertTrue(session.client.is_running())
                session.daemon.set_faults("none")
                wait_until(lambda: self.statuses_with(session, None), "a good poll")
                session.refresh(*shown)

        at_the_same_time(go_through, self.states)

    @staticmethod
    def statuses_with(session, fault):
        """How many polls met that fault since the log was cleared."""
        return sum(entry["command"] == "status" and entry["fault"] == fault
                   for entry in session.daemon.log())

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
                wait_until(lambda: self.statuses_with(session, "slow:1.5"), "a slow status")
                self.assertTrue(stays(lambda: set(shown) <= set(session.texts()), 3.0, step=0.2))
                session.daemon.set_faults("none")
                session.refresh(*shown)

        at_the_same_time(go_through, self.states)


if __name__ == "__main__":
    unittest.main()
