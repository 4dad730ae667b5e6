# SPDX-License-Identifier: MIT
"""Starting, starting again and ending the program."""

import os
import signal
import subprocess
import time
import unittest

from startup_listener import StartupListener
from status_notifier_host import StatusNotifierHost
from virtual_desktop import Desktop, Rect, bin_dir, stays, wait_until

CLIENT = bin_dir() / "tarnwick-client"
HANGING_TOOL = "#!/bin/sh\ntrap '' TERM\necho \"$@\" >>\"$0.calls\"\nexec sleep 60\n"
STOPPED_TOOL = '#!/bin/sh\necho "$@" >>"$0.calls"\necho \'{"BackendState": "Stopped"}\'\n'


def calls(client):
    """What the tool beside that copy of the client was called with, without the socket."""
    return [line.split(" ", 1)[1] for log in client.parent.glob("tarnwick-*.calls")
            for line in log.read_text().splitlines()]


class CommandLine(unittest.TestCase):
    """None of it needs a display."""

    def run_client(self, *arguments):
        return subprocess.run([CLIENT, *arguments], env={"PATH": os.environ["PATH"]}, timeout=20,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)

    def test_version(self):
        result = self.run_client("--version")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertRegex(result.stdout, r"^tarnwick-client \d+\.\d+\.\d+\n$")

    def test_help(self):
        result = self.run_client("--help")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("--install-daemon", result.stdout.splitlines()[1])

    def test_an_unknown_option_is_an_error(self):
        result = self.run_client("--frobnicate")
        self.assertEqual((result.returncode, result.stdout), (2, ""))
        self.assertEqual(result.stderr, "tarnwick-client: unknown option '--frobnicate'\n")

    def test_no_display_is_an_error_and_not_a_hang(self):
        self.assertNotEqual(self.run_client().returncode, 0)


class ActivationToken(unittest.TestCase):
    def test_that_of_a_launch_is_in_no_childs_environment(self):
        with Desktop(tray="top") as desktop:
            program = desktop.copy_client('#!/bin/sh\n{ env; echo; } >>"$0.environments"\n')

            def environments():
                return "".join(log.read_text() for log in
                               program.parent.glob("tarnwick-*.environments")).split("\n\n")

            def wait_for_runs(number):
                wait_until(lambda: len(environments()) > number, "the tool to run")

            client = desktop.start_client(
                program=program, environment={"XDG_ACTIVATION_TOKEN": "token-of-the-first"})
            desktop.wait_for_icon(client)
            wait_for_runs(1)
            second = desktop.start_client(
                program=program, environment={"XDG_ACTIVATION_TOKEN": "token-of-the-second"})
            self.assertEqual(second.wait(10), 0, second.output())
            desktop.wait_for_panel(client)
            wait_for_runs(len(environments()) + 1)
            self.assertIn("BROWSER=echo", environments()[-2])
            self.assertNotIn("token-of", "".join(environments()))


class BusyPointer(unittest.TestCase):
    """It shows from the start of a program or from a click until the program says that it is there."""

    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.listener = self.enterContext(StartupListener(self.desktop.environment["DISPLAY"]))

    def test_it_ends_when_the_icon_is_there(self):
        self.desktop.start_tray()
        client = self.desktop.start_client(environment={"DESKTOP_STARTUP_ID": "shell-1_TIME12"})
        self.desktop.wait_for_icon(client)
        self.listener.wait_for('remove: ID="shell-1_TIME12"')

    def test_it_ends_without_a_status_area(self):
        for number, options in enumerate((["--quiet"], [])):
            token = f"shell-2-{number}"
            client = self.desktop.start_client(*options,
                                               environment={"XDG_ACTIVATION_TOKEN": token})
            wait_until(lambda: self.listener.heard()[number:] == [f'remove: ID="{token}"'], token)
            client.stop()

    def test_it_ends_when_a_second_launch_has_opened_the_panel(self):
        self.desktop.start_tray()
        client = self.desktop.start_client()
        self.desktop.wait_for_icon(client)
        token = 'long-"and"-\\quoted-' + "x" * 20 + "_TIME99"
        self.desktop.start_client(environment={"DESKTOP_STARTUP_ID": token}).wait_for_end()
        self.desktop.wait_for_panel(client)
        quoted = token.replace("\\", "\\\\").replace('"', '\\"')
        self.listener.wait_for(f'remove: ID="{quoted}"')

    def test_it_ends_when_a_click_on_the_icon_has_opened_or_closed_the_panel(self):
        with StatusNotifierHost(self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"]) as host:
            client = self.desktop.start_client()
            host.call("ProvideXdgActivationToken", "(s)", "click-1")
            host.activate((640, 8))
            self.desktop.wait_for_panel(client)
            self.listener.wait_for('remove: ID="click-1"')
            host.call("ProvideXdgActivationToken", "(s)", "click-2")
            host.activate((640, 8))
            self.desktop.wait_for_no_panel(client)
            self.listener.wait_for('remove: ID="click-1"', 'remove: ID="click-2"')


class SecondLaunch(unittest.TestCase):
    def launch_again(self, desktop, **options):
        started = time.monotonic()
        second = desktop.start_client(**options)
        self.assertEqual(second.wait_for_end(), 0, second.output())
        return time.monotonic() - started

    def test_it_opens_the_panel_of_the_first_under_its_icon(self):
        with Desktop(tray="bottom") as desktop:
            client = desktop.start_client()
            icon = desktop.wait_for_icon(client)
            self.launch_again(desktop)
            panel = desktop.wait_for_panel(client)
            self.assertLessEqual(panel.bottom, icon.y)
            wait_until(lambda: desktop.active_window() in desktop.windows(client), "the focus")
            self.launch_again(desktop)
            self.assertTrue(stays(lambda: desktop.panel(client), 1.0))

    def test_without_an_icon_it_opens_an_ordinary_window(self):
        with Desktop() as desktop:
            client = desktop.start_client("--quiet")
            self.assertTrue(stays(lambda: not desktop.windows(client), 1.0))
            self.launch_again(desktop)
            panel = desktop.wait_for_panel(client)
            (window,) = desktop.windows(client)
            self.assertIn('"Tarnwick Network"', desktop.run("xprop", "-id", window, "_NET_WM_NAME"))
            frame = desktop.run("xprop", "-id", window, "_NET_FRAME_EXTENTS").split("=")[1]
            self.assertGreater(int(frame.split(",")[2]), 8, "the title bar")
            _, other = desktop.open_window(Rect(20, 40, 200, 60))
            desktop.click(other.center)
            self.assertTrue(stays(lambda: desktop.panel(client), 1.0))
            self.assertEqual(desktop.panel(client), panel)
            desktop.run("xdotool", "windowactivate", "--sync", window)
            desktop.key("Escape")
            desktop.wait_for_no_panel(client)
            self.assertTrue(client.is_running())

    def test_a_crash_leaves_nothing_in_the_way(self):
        with Desktop(tray="top") as desktop:
            for _ in range(2):
                client = desktop.start_client()
                desktop.wait_for_icon(client)
                client.stop(signal.SIGKILL)
            client = desktop.start_client()
            desktop.wait_for_icon(client)
            self.launch_again(desktop)
            desktop.wait_for_panel(client)

    def test_a_session_on_another_display_has_a_copy_of_its_own(self):
        with Desktop(tray="top") as one, Desktop(tray="top") as other:
            first = one.start_client()
            one.wait_for_icon(first)
            second = other.start_client(environment={"XDG_RUNTIME_DIR": str(one.runtime)})
            other.wait_for_icon(second)
            self.assertTrue(first.is_running())

    def test_another_users_copy_does_not_matter(self):
        with Desktop(tray="top") as desktop:
            desktop.wait_for_icon(desktop.start_client())
            runtime = desktop.directory / "other-run"
            runtime.mkdir(mode=0o700)
            second = desktop.start_client(environment={"XDG_RUNTIME_DIR": str(runtime)})
            desktop.wait_for_icon(second)

    def test_many_at_once_are_one(self):
        with Desktop(tray="top") as desktop:
            copies = [desktop.start_client() for _ in range(6)]
            wait_until(lambda: sum(copy.is_running() for copy in copies) == 1, "one to be left")
            self.assertEqual([copy.returncode for copy in copies if not copy.is_running()], [0] * 5)


class OneController(unittest.TestCase):
    def test_there_is_one_however_often_icon_and_panel_are_made(self):
        with Desktop(tray="top") as desktop:
            client = desktop.copy_client(STOPPED_TOOL)
            process = desktop.start_client(program=client)
            for _ in range(2):
                desktop.click(desktop.wait_for_icon(process).center)
                desktop.wait_for_panel(process)
                desktop.key("Escape")
                desktop.stop_tray()
                desktop.start_tray()
            desktop.wait_for_icon(process)
            started = time.monotonic()
            before = len(calls(client))
            self.assertGreater(before, 0)
            wait_until(lambda: calls(client)[before:].count("status --json") >= 4, "four polls")
            # One every five seconds, which a timer may shorten a little: there are three between.
            self.assertGreater(time.monotonic() - started, 3 * 4.5)


class Leaving(unittest.TestCase):
    def time_to_leave(self, tool, with_signal, after):
        with Desktop(tray="top") as desktop:
            client = desktop.copy_client(tool)
            process = desktop.start_client(program=client)
            desktop.wait_for_icon(process)
            wait_until(lambda: calls(client), "a call of the tool")
            time.sleep(after)
            started = time.monotonic()
            process.send_signal(with_signal)
            self.assertEqual(process.wait_for_end(), 0)
            return time.monotonic() - started

    def test_takes_hardly_longer_on_either_signal_while_the_tool_hangs(self):
        idle = self.time_to_leave(STOPPED_TOOL, signal.SIGTERM, 1.0)
        for with_signal in (signal.SIGTERM, signal.SIGINT):
            for after in (0, 0.7):
                with self.subTest(signal=with_signal, after=after):
                    hanging = self.time_to_leave(HANGING_TOOL, with_signal, after)
                    # Where nothing else is at work, less than a second; the tool has twelve.
                    self.assertLess(hanging, 4.0 + 5 * idle)

    def test_the_display_going_away_ends_the_program(self):
        with Desktop(tray="top") as desktop:
            client = desktop.start_client()
            desktop.wait_for_icon(client)
            next(process for process in desktop.processes if process.args[0] == "Xvfb").stop()
            client.wait_for_end()


if __name__ == "__main__":
    unittest.main()
