# SPDX-License-Identifier: MIT
"""Waking from sleep, and state changes that must not be in the user's way."""

import socket
import time
import unittest

from gi.repository import Gio, GLib

from virtual_desktop import Desktop, Rect, stays, wait_until

LOGIN = "org.freedesktop.login1"
STATUS = "status --json"
BETWEEN = 0.5  # seconds: a poll that is under way answers for what happens meanwhile
STOPPED = '{"BackendState": "Stopped"}'
CONNECTED = ('{"BackendState": "Running", "Self": {"HostName": "box", "DNSName": "box.example.", '
             '"TailscaleIPs": ["100.64.0.1"], "Online": true}, "Peer": {}}')


class SleepMonitor:
    """A stand-in for the system's log-in manager, which announces sleep and wake-up."""

    def __init__(self, bus_address):
        flags = Gio.DBusConnectionFlags
        self._bus = Gio.DBusConnection.new_for_address_sync(
            bus_address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None)
        self._bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus",
                            "org.freedesktop.DBus", "RequestName",
                            GLib.Variant("(su)", (LOGIN, 0)), None, Gio.DBusCallFlags.NONE, 5000,
                            None)

    def has_listener(self):
        """Whether anybody else is on the bus: the client is there for this alone."""
        names = self._bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                    "org.freedesktop.DBus", "ListNames", None, None,
                                    Gio.DBusCallFlags.NONE, 5000, None).unpack()[0]
        return set(names) - {self._bus.get_unique_name(), LOGIN, "org.freedesktop.DBus"}

    def announce(self, sleeping):
        self._bus.emit_signal(None, "/org/freedesktop/login1", f"{LOGIN}.Manager",
                              "PrepareForSleep", GLib.Variant("(b)", (sleeping,)))
        self._bus.flush_sync(None)

    def close(self):
        self._bus.close_sync(None)


class Stub(unittest.TestCase):
    """A client whose tool prints what the test says and notes when it was called."""

    def setUp(self):
        self.desktop = self.enterContext(Desktop(tray="top"))
        self.answer = self.desktop.directory / "answer"
        self.answer.write_text(STOPPED)
        self.calls_log = self.desktop.directory / "calls"
        self.calls_log.touch()
        self.program = self.desktop.copy_client(
            f'#!/bin/sh\nshift\necho "$@" >>{self.calls_log}\ncat {self.answer}\n')

    def status_calls(self):
        return self.calls_log.read_text().splitlines().count(STATUS)

    def wait_for_next_status(self):
        seen = self.status_calls()
        wait_until(lambda: self.status_calls() > seen, "a status")


class Polls:
    """Those since it was made."""

    def __init__(self, stub):
        self._stub, self._before, self._began = stub, stub.status_calls(), time.monotonic()

    def are_more_than_the_timers(self):
        """Than one every five seconds, which a timer may shorten a little."""
        seen = self._stub.status_calls() - self._before
        return seen > 1 + (time.monotonic() - self._began) / 4.5


class WakeUp(Stub):
    def check(self, start_manager_first):
        address = self.desktop.environment["DBUS_SYSTEM_BUS_ADDRESS"]
        manager = SleepMonitor(address) if start_manager_first else None
        client = self.desktop.start_client(program=self.program)
        self.desktop.wait_for_icon(client)
        manager = manager or SleepMonitor(address)
        self.addCleanup(manager.close)
        self.check_announcements(manager)

    def check_announcements(self, manager):
        wait_until(manager.has_listener, "the client to listen")
        polls = Polls(self)
        for _ in range(5):
            manager.announce(True)
            time.sleep(BETWEEN)
        self.assertFalse(polls.are_more_than_the_timers())
        polls = Polls(self)

        def wakes():
            manager.announce(False)
            time.sleep(BETWEEN)
            return polls.are_more_than_the_timers()

        wait_until(wakes, "a poll for each time it wakes")

    def test_polling_goes_on_at_once(self):
        self.check(start_manager_first=True)

    def test_also_with_a_log_in_manager_that_comes_later(self):
        self.check(start_manager_first=False)

    def test_also_with_a_system_bus_that_comes_later_or_comes_back(self):
        self.desktop.stop_bus("system")
        client = self.desktop.start_client(program=self.program)
        self.desktop.wait_for_icon(client)
        for _ in range(2):
            manager = SleepMonitor(self.desktop.start_bus("system"))
            self.check_announcements(manager)
            self.desktop.stop_bus("system")

    def test_a_system_bus_that_says_nothing_holds_nobody_up(self):
        self.desktop.stop_bus("system")
        with socket.socket(socket.AF_UNIX) as mute:
            mute.bind(str(self.desktop.runtime / "system-bus"))
            mute.listen()
            client = self.desktop.start_client(program=self.program)
            icon = self.desktop.wait_for_icon(client, seconds=10.0)
            self.desktop.click(icon.center)
            self.desktop.wait_for_panel(client, seconds=10.0)


class NeverInTheWay(Stub):
    def test_a_state_change_opens_nothing_and_takes_no_focus(self):
        window, _ = self.desktop.open_window(Rect(100, 300, 300, 100))
        self.desktop.run("xdotool", "windowactivate", "--sync", window)
        client = self.desktop.start_client(program=self.program)
        icon = self.desktop.wait_for_icon(client)
        for answer in (CONNECTED, "error: no daemon", CONNECTED):
            self.answer.write_text(answer)
            self.wait_for_next_status()
            self.assertTrue(stays(lambda: self.desktop.active_window() == window, 0.5))
        self.assertEqual(list(self.desktop.windows(client).values()), [icon])


if __name__ == "__main__":
    unittest.main()
