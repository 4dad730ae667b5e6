# SPDX-License-Identifier: MIT
"""The end of a session that has a session manager."""

import unittest

from session import ADDRESS, GOOD_KEY, Session
from session_manager import SessionManager
from virtual_desktop import wait_until

NEVER_RESTARTED = 3


class EndOfSession(unittest.TestCase):
    def test_the_client_ends_when_told_to_and_leaves_the_daemon_as_it_is(self):
        with SessionManager() as manager, \
                Session(environment={"SESSION_MANAGER": manager.address}) as session:
            session.begin(GOOD_KEY)
            session.open_panel()
            session.wait_for_texts("Connected", ADDRESS)
            wait_until(lambda: len(manager.ready) == 1, "the client to join the session")
            manager.end_session()
            self.assertEqual(session.client.wait_for_end(), 0)
            # Its autostart entry starts it: restored as well, it would be there twice.
            self.assertEqual(manager.properties["RestartStyleHint"][0], NEVER_RESTARTED)
            self.assertEqual(session.daemon.account()["backendState"], "Running")
            session.wait_for_calls([])


if __name__ == "__main__":
    unittest.main()
