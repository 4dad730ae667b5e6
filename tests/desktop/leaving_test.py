# SPDX-License-Identifier: MIT
"""Quitting while commands run or wait: what the user asked for last still takes effect."""

import time
import unittest

from session import GOOD_KEY, Session
from virtual_desktop import wait_until

KEYS = ("twkey-fernwood-good", GOOD_KEY)
CONNECTED = ("Connected", "Switch network", "Disconnect")

# In the tool's place: `up` takes a moment, speaks, and only then does its work.
LATE_TOOL = """#!/bin/sh
here=${0%/*}
case " $* " in
*" up "*) : >"$here/begun"; while [ -e "$here/hold" ]; do sleep 0.05; done; echo "Bringing it up" ;;
esac
exec "$here/real" "$@"
"""


class Leaving(unittest.TestCase):
    def setUp(self):
        self.session = self.enterContext(Session())
        self.session.begin(*KEYS)
        self.session.open_panel()
        self.session.wait_for_texts(*CONNECTED)
        self.session.daemon.clear_log()

    def switch(self):
        self.session.click("Switch network")
        self.session.click("Mira Lindqvist")

    def asked(self):
        return [entry["command"] for entry in self.session.daemon.log()]

    def leave(self):
        started = time.monotonic()
        self.assertEqual(self.session.client.stop(), 0)
        # Under one second, and what a loaded machine needs for a window, an icon and an exit.
        self.assertLess(time.monotonic() - started, 3.0)

    def test_in_the_pause_of_a_switch_brings_the_network_up_all_the_same(self):
        self.switch()
        wait_until(lambda: "switch" in self.asked(), "the switch")
        self.leave()
        wait_until(lambda: self.asked()[-2:] == ["switch", "up"], "the network to be brought up",
                   describe=self.asked)

    def test_starts_what_waits_in_the_queue(self):
        self.session.daemon.set_faults("hang@status")
        self.session.daemon.clear_log()
        wait_until(lambda: self.asked() == ["status"], "a status that hangs")
        self.session.click("Disconnect")
        self.leave()
        wait_until(lambda: self.asked() == ["status", "down"], "the disconnection",
                   describe=self.asked)

    def test_leaves_a_tool_alive_that_speaks_before_it_does_its_work(self):
        tool = self.session.installed_tool
        tool.rename(tool.parent / "real")
        tool.write_text(LATE_TOOL, encoding="utf-8")
        tool.chmod(0o755)
        (tool.parent / "hold").touch()
        self.switch()
        wait_until((tool.parent / "begun").exists, "the tool")
        self.leave()
        (tool.parent / "hold").unlink()
        wait_until(lambda: self.asked()[-1:] == ["up"], "the tool's work", describe=self.asked)


if __name__ == "__main__":
    unittest.main()
