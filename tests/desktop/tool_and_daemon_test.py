# SPDX-License-Identifier: MIT
"""A tool and a daemon that fail under the client. It says that nobody answers, and the next good
poll puts it right."""

import os
import shutil
import signal
import socket
import time
import unittest

from session import ADDRESS, GOOD_KEY, Session
from virtual_desktop import stays, wait_until

KEYS = ("twkey-fernwood-good", GOOD_KEY)
CONNECTED = ("Connected", ADDRESS, "Switch network", "Disconnect")
GONE = ("Disconnect", "IP Address", "Devices")


class Hostile(unittest.TestCase):
    """One connected client for all tests of a class; each leaves it as it was."""

    options = {}

    @classmethod
    def setUpClass(cls):
        cls.session = cls.enterClassContext(Session(**cls.options))
        cls.session.begin(*KEYS)

    def setUp(self):
        self.session.refresh(*CONNECTED)

    def tearDown(self):
        self.assertTrue(self.session.client.is_running())
        self.session.close_panel()

    def stays_connected_for(self, polls):
        """Waits for so many polls, counted since the log was cleared, of which nothing may show."""
        self.session.wait_while(lambda texts: set(CONNECTED) <= set(texts),
                                lambda: len(self.session.calls("list")) >= polls, "polls")


class Tool(Hostile):
    def setUp(self):
        super().setUp()
        self.tool = self.session.installed_tool
        self.kept = self.tool.with_name("kept")
        self.tool.rename(self.kept)
        self.addCleanup(self.session.refresh, *CONNECTED)
        self.addCleanup(self.kept.rename, self.tool)

    def replace(self, text):
        self.tool.write_text(text, encoding="utf-8")
        self.tool.chmod(0o755)

    def expect_stopped(self):
        self.session.refresh("Stopped", without=GONE)

    def test_missing(self):
        self.expect_stopped()

    def test_not_executable(self):
        self.replace("#!/bin/sh\n")
        self.tool.chmod(0o644)
        self.expect_stopped()

    def test_no_program_at_all(self):
        self.replace("this is no program\n")
        self.expect_stopped()

    def test_a_directory_in_its_place(self):
        self.tool.mkdir()
        self.addCleanup(self.tool.rmdir)
        self.expect_stopped()

    def test_replaced_while_running(self):
        running = self.tool.with_name("running")
        self.replace(f"#!/bin/sh\ntouch '{running}'\nsleep 1\nexec '{self.kept}' \"$@\"\n")
        good = self.tool.with_name("good")
        shutil.copy2(self.kept, good)
        self.session.daemon.clear_log()
        self.session.click("Refresh")
        wait_until(running.exists, "the tool to run")
        os.replace(good, self.tool)  # under the one that runs
        self.stays_connected_for(polls=2)

    def test_crashes(self):
        self.replace("#!/bin/sh\nkill -SEGV $$\n")
        self.expect_stopped()

    def test_prints_rubbish(self):
        self.replace("#!/bin/sh\nhead -c 4000 /dev/urandom\n")
        self.expect_stopped()

    def test_floods(self):
        self.replace("#!/bin/sh\nexec yes error\n")
        self.expect_stopped()

    def test_hangs_and_does_not_listen(self):
        self.replace("#!/bin/sh\ntrap '' TERM\nsleep 14\n")
        started = time.monotonic()
        self.expect_stopped()
        self.assertGreater(time.monotonic() - started, 11.0)

    def test_leaves_a_child_behind_that_holds_its_output(self):
        self.replace(f"#!/bin/sh\nsleep 8 &\nexec '{self.kept}' \"$@\"\n")
        self.session.daemon.clear_log()
        # The child is not waited for longer than the limit, and the answer counts.
        self.session.click("Refresh")
        self.stays_connected_for(polls=2)

    def test_slow(self):
        self.replace(f"#!/bin/sh\nsleep 2\nexec '{self.kept}' \"$@\"\n")
        self.session.click("Refresh")
        self.assertTrue(stays(lambda: "Connected" in self.session.texts(), 3.0))


class Daemon(Hostile):
    def setUp(self):
        super().setUp()
        self.addCleanup(self.session.refresh, *CONNECTED)

    def expect_stopped(self):
        self.session.refresh("Stopped", without=GONE)

    def move_aside(self, path):
        """Until the test ends."""
        aside = path.with_name("aside")
        path.rename(aside)
        self.addCleanup(aside.replace, path)

    def test_stopped_and_started_again(self):
        self.addCleanup(self.session.daemon.start)
        self.session.daemon.stop()
        self.expect_stopped()

    def test_killed_and_its_socket_left_behind(self):
        self.addCleanup(self.session.daemon.start)
        self.session.daemon.stop(signal.SIGKILL)
        self.assertTrue(self.session.desktop.user_socket.exists())
        self.expect_stopped()

    def test_restarted_between_two_polls_is_not_even_seen(self):
        def restart():
            """Whether that was done while nobody asked."""
            self.session.daemon.clear_log()
            wait_until(self.session.calls, "a poll")
            began = time.monotonic()
            time.sleep(1.0)  # until it is over, lists of profiles included
            self.session.daemon.restart()
            return time.monotonic() - began < 4.0

        while not restart():
            self.session.refresh(*CONNECTED)
        self.stays_connected_for(polls=2)

    def test_that_stands_still(self):
        self.addCleanup(self.session.daemon.process.send_signal, signal.SIGCONT)
        self.session.daemon.process.send_signal(signal.SIGSTOP)
        self.expect_stopped()

    def test_its_socket_removed(self):
        self.move_aside(self.session.desktop.user_socket)
        self.expect_stopped()

    def test_its_socket_replaced_by_a_file(self):
        path = self.session.desktop.user_socket
        self.move_aside(path)
        path.write_text("no socket\n", encoding="utf-8")
        self.expect_stopped()

    def test_its_socket_taken_by_somebody_who_says_nothing(self):
        path = self.session.desktop.user_socket
        self.move_aside(path)
        with socket.socket(socket.AF_UNIX) as other:
            other.bind(str(path))
            other.listen()
            self.expect_stopped()

    def test_its_directory_removed_comes_back(self):
        directory = self.session.desktop.user_socket.parent
        self.move_aside(directory)
        self.expect_stopped()
        self.assertTrue(directory.is_dir())


if __name__ == "__main__":
    unittest.main()
