# SPDX-License-Identifier: MIT
"""A machine that works against the client: its disk, its limits, its signals and its desktop. It
goes on, loses nothing, and the next good poll puts it right."""

import itertools
import os
import pathlib
import signal
import subprocess
import sys
import time
import unittest

from session import ADDRESS, GOOD_KEY, Session, skip_where_mounts_are_refused
from virtual_desktop import bin_dir, comes, stays, wait_until

KEYS = ("twkey-fernwood-good", GOOD_KEY)
CONNECTED = ("Connected", ADDRESS, "Switch network", "Disconnect")
GONE = ("Disconnect", "IP Address", "Devices")
SANITIZED = os.environ.get("TARNWICK_SANITIZED") == "ON"
SOURCE = pathlib.Path(__file__).resolve().parents[2]

# Gives up being root. A checkout in root's home is closed to others, hence the other place.
AS_NOBODY = """
mount -t tmpfs none /mnt
mkdir /mnt/source /mnt/bin
mount --bind "$1" /mnt/source
mount --bind "$2" /mnt/bin
shift 2
exec setpriv --reuid=nobody --regid=nogroup --clear-groups "$@"
"""


class Settings(unittest.TestCase):
    """What is remembered of the networks stands in one file."""

    def start(self, **options):
        session = self.enterContext(Session(**options))
        session.begin(*KEYS)
        return session

    @staticmethod
    def file(session):
        return session.desktop.home / ".config/tarnwick/client.conf"

    @staticmethod
    def seen_by(session, path):
        """That path as the client sees it."""
        return pathlib.Path(f"/proc/{session.client.pid}/root{path}")

    def disconnect(self, session, *wanted):
        """Shows what is remembered: only then is the current network in the picker."""
        session.open_panel()
        session.wait_for_texts("Connected")
        session.click("Disconnect")
        session.wait_for_texts("Connect (2)")
        session.click("Connect (2)")
        session.wait_for_texts(*wanted)

    def test_corrupt_is_nothing_remembered_and_mended_by_the_next_poll(self):
        session = self.start()
        session.refresh(*CONNECTED)
        path = self.file(session)
        wait_until(path.exists, "the settings")
        session.client.stop()
        path.write_bytes(os.urandom(3000))
        session.start_client()
        session.refresh(*CONNECTED)
        wait_until(lambda: b"mira-workstation" in path.read_bytes(), "the settings to be mended")
        self.disconnect(session, "mira-workstation")

    def test_locked_by_another_holds_nobody_up(self):
        # The lock is in force while the program runs that it names. Of those that run, the client
        # of a user who is not root sees none but itself, for it runs in a view of its own.
        session = self.start(mounts='[ ! -e "$HOME/lock it" ] || printf "%s\\n" $$ tarnwick-client '
                                    '"$(uname -n)" >"$HOME/.config/tarnwick/client.conf.lock"')
        session.refresh(*CONNECTED)
        path = self.file(session)
        wait_until(path.exists, "the settings")
        session.client.stop()
        path.unlink()
        lock = path.with_name(path.name + ".lock")
        (session.desktop.home / "lock it").touch()
        session.start_client()
        session.refresh(*CONNECTED)
        self.assertTrue(stays(lambda: "Connected" in session.texts(), 1.0))
        self.assertFalse(path.exists())
        lock.unlink()
        session.refresh(*CONNECTED)
        wait_until(path.exists, "the settings", 10.0)

    def test_a_full_disk_loses_nothing_that_was_there(self):
        home = "$HOME/.config"
        session = self.start(mounts=f'mkdir -p "{home}"; mount -t tmpfs -o size=64k none "{home}"')
        session.refresh(*CONNECTED)
        directory = self.seen_by(session, session.desktop.home / ".config")
        path = directory / "tarnwick/client.conf"
        wait_until(path.exists, "the settings")
        before = path.read_bytes()
        filler = directory / "filler"
        with open(filler, "wb", buffering=0) as file:
            with self.assertRaises(OSError):
                while True:
                    file.write(bytes(4096))
        session.open_panel()
        session.click("Switch network")
        session.click("Mira Lindqvist")
        session.wait_for_texts("Connected", "attic-desktop")
        self.assertEqual(path.read_bytes(), before)
        filler.unlink()
        session.refresh("Connected", "attic-desktop")
        wait_until(lambda: b"attic-desktop" in path.read_bytes(), "the settings")

    def test_a_home_that_cannot_be_written_to(self):
        home = "$HOME"
        session = self.start(mounts=f'mount --bind "{home}" "{home}"; '
                                    f'mount -o remount,bind,ro "{home}"')
        session.refresh(*CONNECTED)
        self.assertFalse(self.file(session).exists())
        self.disconnect(session, "mira-workstation")
        self.assertTrue(session.client.is_running())


class Limits(unittest.TestCase):
    def assert_passes_for_nobody(self):
        """Runs this test as an ordinary user, in a process of its own."""
        skip_where_mounts_are_refused()
        _, *test = self.id().split(".")
        environment = {**os.environ, "HOME": "/nonexistent", "TARNWICK_BIN_DIR": "/mnt/bin",
                       "PYTHONPATH": "/mnt/source:/mnt/source/tests/simulator"}
        run = subprocess.run(
            ["unshare", "--mount", "sh", "-euc", AS_NOBODY, "sh", SOURCE, bin_dir(),
             sys.executable, "-B", f"/mnt/source/tests/desktop/{pathlib.Path(__file__).name}",
             "-v", ".".join(test)],
            env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, text=True, check=False)
        self.assertEqual(run.returncode, 0, run.stdout)
        self.assertIn("Ran 1 test", run.stdout)
        self.assertNotIn("skipped", run.stdout)

    def use_up_descriptors(self, client):
        """Leaves no number for a new one. The limit is for numbers, so what counts is the first that
        is free, which a poll that is under way makes higher, and a window that closes lower."""
        used = {int(number) for number in os.listdir(f"/proc/{client}/fd")}
        free = next(number for number in itertools.count() if number not in used)
        subprocess.run(["prlimit", "--pid", client, f"--nofile={free}:"], check=True)

    @unittest.skipIf(SANITIZED, "the sanitizer looks at memory through a pipe of its own")
    def test_out_of_descriptors_is_stopped_and_no_more(self):
        with Session() as session:
            session.begin(*KEYS)
            session.refresh(*CONNECTED)
            client = str(session.client.pid)

            def is_stopped():
                self.use_up_descriptors(client)
                session.press("Refresh")
                return comes(lambda: "Stopped" in session.texts(), 3.0)

            wait_until(is_stopped, "a poll without descriptors")
            session.wait_for_texts("Stopped", without=GONE)
            subprocess.run(["prlimit", "--pid", client, "--nofile=1024:"], check=True)
            session.refresh(*CONNECTED)

    def test_out_of_processes_is_stopped_and_no_more(self):
        if os.getuid() == 0:  # for whom the limit does not hold
            self.assert_passes_for_nobody()
            return
        with Session() as session:
            session.begin(*KEYS)
            session.refresh(*CONNECTED)
            client = str(session.client.pid)
            subprocess.run(["prlimit", "--pid", client, "--nproc=1:"], check=True)
            session.refresh("Stopped", without=GONE)
            subprocess.run(["prlimit", "--pid", client, "--nproc=4096:"], check=True)
            session.refresh(*CONNECTED)

    @unittest.skipIf(SANITIZED, "the sanitizer's map of memory is larger than any limit")
    def test_little_memory_is_enough(self):
        # Address space and not memory: libraries and stacks are in it.
        with Session(limits=["as=700000000", "stack=1000000", "nofile=64"]) as session:
            session.begin(*KEYS)
            session.refresh(*CONNECTED)
            session.click("Devices")
            session.wait_for_texts("aurora-build")


class Signals(unittest.TestCase):
    def test_each_that_asks_to_end_ends_it_and_leaves_the_daemon(self):
        with Session() as session:
            for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
                with self.subTest(signal=number.name):
                    session.begin(*KEYS)
                    session.refresh(*CONNECTED)
                    session.client.send_signal(number)
                    self.assertEqual(session.client.wait_for_end(), 0)
                    self.assertEqual(session.daemon.account()["backendState"], "Running")

    def test_those_that_mean_something_else_do_nothing(self):
        with Session() as session:
            session.begin(*KEYS)
            session.refresh(*CONNECTED)
            for number in (signal.SIGCHLD, signal.SIGWINCH, signal.SIGCONT):
                session.client.send_signal(number)
            session.refresh(*CONNECTED)

    def test_stopped_and_continued_it_goes_on(self):
        with Session() as session:
            session.begin(*KEYS)
            session.refresh(*CONNECTED)
            session.client.send_signal(signal.SIGSTOP)
            time.sleep(2.0)
            session.client.send_signal(signal.SIGCONT)
            session.daemon.tool("down")
            session.refresh("Stopped", "Connect (2)")

    def test_killed_it_starts_again_and_remembers(self):
        with Session() as session:
            session.begin(*KEYS)
            session.refresh(*CONNECTED)
            session.click("Disconnect")
            session.wait_for_texts("Connect (2)")
            session.client.stop(signal.SIGKILL)
            session.start_client()
            session.open_panel()
            session.click("Connect (2)")
            session.wait_for_texts("mira-workstation", ADDRESS)


class Surroundings(unittest.TestCase):
    """Parts of the desktop that go away and come back."""

    def start(self, **options):
        session = self.enterContext(Session(**options))
        session.begin(*KEYS)
        session.refresh(*CONNECTED)
        return session

    def test_the_session_bus_goes(self):
        session = self.start()
        bus = next(process for process in session.desktop.processes
                   if process.args[0] == "dbus-daemon")
        bus.stop(signal.SIGKILL)
        self.assertTrue(stays(session.client.is_running, 1.0))
        session.daemon.clear_log()
        # Nobody can read it out any more; keys and mouse still work it.
        session.desktop.key("Escape")
        session.desktop.wait_for_no_panel(session.client)
        session.desktop.click(session.icon.center)
        session.desktop.wait_for_panel(session.client)
        wait_until(lambda: len(session.calls("list")) >= 2, "two polls")
        self.assertTrue(session.client.is_running())

    def test_the_tray_goes_and_comes_back(self):
        session = self.start()
        session.close_panel()
        session.desktop.stop_tray()
        self.assertEqual(session.start_again().wait_for_end(), 0)
        session.wait_for_texts(*CONNECTED)
        session.close_panel()
        session.desktop.start_tray()
        session.icon = session.desktop.wait_for_icon(session.client)
        session.refresh(*CONNECTED)

    def test_the_window_manager_goes_and_comes_back(self):
        session = self.start()
        manager = next(process for process in session.desktop.processes
                       if process.args[0] == "openbox")
        manager.stop()
        self.assertTrue(stays(session.client.is_running, 1.0))
        session.desktop.start_window_manager()
        wait_until(lambda: self.works(session), "the panel")

    @staticmethod
    def works(session):
        session.close_panel()
        session.open_panel()
        return "Connected" in session.texts()

    def check_for_updates(self, session):
        """Returns what the client says of a check that fails, and sees that it goes on."""
        session.click("Check for Updates...")
        session.wait_for_texts("Software Update", "Close")
        problem = next(text for text in session.texts() if text.startswith("Couldn't check"))
        session.click("Close")
        session.refresh(*CONNECTED)
        return problem

    def test_the_module_that_checks_for_updates_is_damaged(self):
        version = subprocess.run([bin_dir() / "tarnwick-client", "--version"], text=True,
                                 capture_output=True, check=True).stdout.split()[-1]
        module = bin_dir() / f"tarnwick-network-{version}.so"  # older ones may stand beside it
        session = self.start(mounts=f"mount --bind /dev/null '{module}'")
        self.assertIn(module.name, self.check_for_updates(session))

    def test_the_module_that_checks_for_updates_is_gone(self):
        # As after an upgrade of the package, which brings a module of another version.
        rest = f'mkdir -p "$HOME/bin"; cp -a "{bin_dir()}"/tarnwick* "$HOME/bin"; rm "$HOME"/bin/*.so'
        session = self.start(mounts=f'{rest}; mount --bind "$HOME/bin" "{bin_dir()}"')
        self.assertIn("Quit it and open it again.", self.check_for_updates(session))

    def test_the_display_goes(self):
        session = self.start()
        display = next(process for process in session.desktop.processes
                       if process.args[0] == "Xvfb")
        display.stop()
        session.client.wait_for_end()
        self.assertEqual(session.daemon.account()["backendState"], "Running")


if __name__ == "__main__":
    unittest.main()
