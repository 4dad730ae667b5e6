# SPDX-License-Identifier: MIT
"""What scripts/demo shows, in a session and where there is no display, and that it can fail."""

import contextlib
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import types
import unittest

from virtual_desktop import Desktop, bin_dir, wait_until

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "scripts"
sys.path.insert(0, str(SCRIPTS))
from demonstration import check_panel  # noqa: E402

NO_ICON = "#!/bin/sh\nexec sleep 600\n"


class Demonstration(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def run_demonstration(self, programs):
        environment = {**os.environ, "TARNWICK_BIN_DIR": str(programs)}
        return subprocess.run(
            [sys.executable, "-B", SCRIPTS / "demonstration.py", "on_virtual_desktop", self.folder],
            env=environment, capture_output=True, text=True, timeout=300, check=False)

    def test_it_leaves_three_pictures(self):
        result = self.run_demonstration(bin_dir())
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        pictures = sorted(path.name for path in self.folder.glob("*.png"))
        self.assertEqual(pictures, ["1-icon.png", "2-connected.png", "3-disconnected.png"])
        for picture in pictures:
            self.assertIn(f"demo: {self.folder / picture}\n", result.stdout)

    def test_a_client_without_an_icon_is_a_failure(self):
        programs = self.folder / "bin"
        programs.mkdir()
        for program in bin_dir().glob("tarnwick-*64"):
            (programs / program.name).symlink_to(program)
        (programs / "tarnwick-client").write_text(NO_ICON, encoding="utf-8")
        (programs / "tarnwick-client").chmod(0o755)
        result = self.run_demonstration(programs)
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stderr, r"^demo: waited [0-9.]+ s for the icon")
        self.assertEqual(list(self.folder.glob("*.png")), [])


class InSession(unittest.TestCase):
    def test_it_shows_the_client_until_it_is_interrupted(self):
        with Desktop(tray="top") as desktop:
            folder = desktop.directory / "demo"
            folder.mkdir()
            names = ("PYTHONPATH", "TARNWICK_BIN_DIR")
            demo = desktop.start(
                sys.executable, "-B", SCRIPTS / "demonstration.py", "in_session", folder,
                environment={name: os.environ[name] for name in names})
            children = wait_until(lambda: self.children(demo), "daemon and client",
                                  describe=demo.output)
            wait_until(lambda: desktop.icon(children["tarnwick-client"]), "the icon")
            demo.send_signal(signal.SIGINT)
            self.assertEqual(demo.wait_for_end(), 130, demo.output())
            self.assertIn("Ctrl-C ends the demo", demo.output())
            for process in children.values():
                self.assertFalse(pathlib.Path(f"/proc/{process.pid}").exists())

    @staticmethod
    def children(demo):
        """The two programs by their names, once it has started both."""
        found = {}
        for pid in pathlib.Path(f"/proc/{demo.pid}/task/{demo.pid}/children").read_text().split():
            with contextlib.suppress(FileNotFoundError):  # of a tool that has just ended
                program = pathlib.Path(os.readlink(f"/proc/{pid}/exe")).name
                found[program] = types.SimpleNamespace(pid=int(pid))
        return found if len(found) == 2 and "tarnwick-client" in found else None


class Panel(unittest.TestCase):
    """What counts as a picture of it."""

    BACKGROUND = [(58, 90, 120)] * 1000
    TEXTS = [(grey, grey, grey) for grey in range(200, 250)] * 20

    def test_texts_on_another_colour(self):
        check_panel(self.BACKGROUND, self.TEXTS)

    def test_nothing_in_it_is_none(self):
        with self.assertRaisesRegex(RuntimeError, "1 colours"):
            check_panel(self.BACKGROUND, [(240, 240, 240)] * 1000)

    def test_what_was_there_before_is_none(self):
        with self.assertRaisesRegex(RuntimeError, "shows no panel: 0%"):
            check_panel(self.TEXTS, self.TEXTS)


if __name__ == "__main__":
    unittest.main()
