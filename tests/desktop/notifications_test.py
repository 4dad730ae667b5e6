# SPDX-License-Identifier: MIT
"""A command of the user's that failed is also shown as a notification of the desktop: what the panel
says is gone with the next status, and behind a closed panel nobody reads it."""

import time
import unittest

from notification_service import NotificationService
from screen_reader import Role
from session import GOOD_KEY, Session
from virtual_desktop import stays, wait_until

KEYS = ("twkey-fernwood-good", GOOD_KEY)
GONE_WRONG = "error: the daemon is not in the mood (simulated)"
CONNECTED = ("Connected", "Switch network", "Disconnect")

# In the tool's place: says the text of the file `says` where the command is in `fails`.
TOOL = """#!/bin/sh
for last; do [ "$previous" != --authkey ] || key=$last; previous=$last; done
here=${0%/*}
case " $* " in *" $(cat "$here/fails" 2>/dev/null || echo none) "*)
    sed "s/KEY/$key/" "$here/says"; exit 1 ;;
esac
exec "$here/real" "$@"
"""


class Notifications(unittest.TestCase):
    def start(self, *keys, capabilities=("body",), hangs=False):
        """A session with these networks, and a notification service on its bus."""
        self.session = self.enterContext(Session())
        self.service = self.enterContext(NotificationService(
            self.session.desktop.environment["DBUS_SESSION_BUS_ADDRESS"], capabilities, hangs))
        self.session.begin(*keys)
        self.session.open_panel()
        return self.session, self.service

    def wait_for(self, *texts):
        wait_until(lambda: self.service.texts == list(texts), f"notifications {texts}",
                   describe=lambda: self.service.asked)

    def switch(self):
        self.session.click("Switch network")
        self.session.click("Mira Lindqvist")

    def remove(self, title="Mira Lindqvist"):
        self.session.click("Switch network")
        self.session.click("Remove profile", description=title)

    def fill_in(self, key):
        self.session.click("Auth Key", role=Role.FIELD)
        self.session.desktop.key("ctrl+a")
        self.session.desktop.type(key)
        wait_until(lambda: self.session.find(Role.FIELD, "Auth Key").text == key, "the key")
        self.session.desktop.key("Return")

    def fail_with(self, command, text):
        """From now on that command of the tool fails with this text; with none, it works again."""
        tool = self.session.installed_tool
        if not (tool.parent / "real").exists():
            tool.rename(tool.parent / "real")
        (tool.parent / "says").write_text(text, encoding="utf-8")
        (tool.parent / "fails").write_text(command, encoding="utf-8")
        fresh = tool.parent / "fresh"
        fresh.write_text(TOOL, encoding="utf-8")
        fresh.chmod(0o755)
        fresh.rename(tool)

    def test_each_refused_command_shows_one_and_the_next_takes_its_place(self):
        session, service = self.start(*KEYS)
        session.wait_for_texts(*CONNECTED)
        session.daemon.set_faults("error@up", "error@remove")
        self.remove()
        self.wait_for(GONE_WRONG)
        session.wait_for_texts(*CONNECTED, without=[GONE_WRONG])  # its lines move the rows
        self.switch()
        wait_until(lambda: len(service.notified) == 2, "a second notification")
        self.wait_for(GONE_WRONG)
        session.daemon.set_faults("none")
        session.refresh("Connected", "100.101.7.2", "Switch network")
        self.remove("mira-workstation")
        self.wait_for()
        session.wait_for_texts("Connected", without=["Switch network"])
        self.assertEqual(service.notified, [GONE_WRONG] * 2)

    def test_a_refused_connection_shows_one_until_the_next_succeeds(self):
        session, service = self.start(*KEYS)
        session.wait_for_texts(*CONNECTED)
        session.click("Disconnect")
        session.daemon.set_faults("error@up")
        session.click("Connect (2)")
        session.click("Mira Lindqvist")
        self.wait_for(GONE_WRONG)
        session.close_panel()
        self.assertTrue(stays(lambda: service.texts == [GONE_WRONG], 6.0), "through the next poll")
        session.daemon.set_faults("none")
        session.open_panel()
        session.click("Connect (2)")
        session.click("Mira Lindqvist")
        self.wait_for()
        session.wait_for_texts("Connected")

    def test_a_refused_log_in_shows_one_without_its_key(self):
        session, service = self.start()
        self.fail_with("login", "error: refused: KEY is not valid")
        session.click("Use Auth Key...")
        self.fill_in("twkey-secret")
        self.wait_for("error: refused: ••• is not valid")
        self.fail_with("none", "")
        session.wait_for(Role.BUTTON, "Connect")
        self.fill_in(GOOD_KEY)
        self.wait_for()
        self.assertNotIn("twkey", str(service.asked))

    def test_polls_show_none(self):
        session, service = self.start(*KEYS)
        session.wait_for_texts(*CONNECTED)
        session.daemon.set_faults("error@status", "error@list")
        session.wait_for_texts("Stopped", without=["Disconnect"])
        session.press("Refresh")
        session.daemon.set_faults("none")
        session.refresh(*CONNECTED)
        self.assertEqual(service.asked, [])

    def test_its_text_is_no_markup_and_is_cut(self):
        session, service = self.start(*KEYS, capabilities=("body", "body-markup"))
        session.wait_for_texts(*CONNECTED)
        self.fail_with("up", "error: <b>bold</b> & <img src='x'>\n" + "very " * 500)
        self.switch()
        wait_until(lambda: service.texts, "a notification")
        (text,) = service.texts
        self.assertTrue(text.startswith("error: &lt;b&gt;bold&lt;/b&gt; &amp; &lt;img"), text)
        self.assertNotRegex(text, "[<>\n]")
        self.assertLess(len(text), 400)

    def test_without_a_service_nothing_waits(self):
        session = self.session = self.enterContext(Session())
        session.begin(*KEYS)
        session.open_panel()
        session.wait_for_texts(*CONNECTED)
        self.check_that_nothing_waits()

    def test_a_service_that_hangs_holds_nothing_up(self):
        session, service = self.start(*KEYS, hangs=True)
        session.wait_for_texts(*CONNECTED)
        self.check_that_nothing_waits()
        self.assertEqual([method for method, _ in service.asked][:1], ["GetCapabilities"])

    def check_that_nothing_waits(self):
        """The message is in the panel, the next command works, and leaving is quick."""
        session = self.session
        session.daemon.set_faults("error@up", "slow:4@status")
        self.switch()
        session.wait_for_texts(GONE_WRONG + "\n")
        session.daemon.set_faults("none")
        session.refresh("Connected", without=[GONE_WRONG + "\n"])
        session.click("Disconnect")
        session.wait_for_texts("Stopped")
        started = time.monotonic()
        self.assertEqual(session.client.stop(), 0)
        self.assertLess(time.monotonic() - started, 5.0)


if __name__ == "__main__":
    unittest.main()
