#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""That the texts in a package are sound, and agree with each other.

usage: texts_test.py VERSION
"""

import configparser
import pathlib
import plistlib
import re
import sys
import unittest
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
LINUX = ROOT / "packaging/linux"
VERSION = sys.argv[1]


def desktop_entry(path):
    parser = configparser.ConfigParser(interpolation=None)
    parser.optionxform = str
    parser.read(path, encoding="utf-8")
    return parser["Desktop Entry"]


class Texts(unittest.TestCase):
    def test_launch_daemon_says_what_launchd_needs(self):
        job = plistlib.loads((ROOT / "packaging/macos/com.tarnwick.daemon.plist").read_bytes())
        daemon = "/Library/Application Support/Tarnwick/tarnwick-daemon"
        log = "/Library/Logs/tarnwick-daemon.log"
        expected = {
            "Label": "com.tarnwick.daemon",
            "Program": daemon,
            "ProgramArguments": [
                daemon,
                "--state=/Library/Application Support/Tarnwick/state.json",
                "--socket=/var/run/tarnwick.sock",
                "--tun=tarnwick0",
                "--no-logs-no-support",
            ],
            "RunAtLoad": True,
            "KeepAlive": True,
            "EnvironmentVariables": {"BROWSER": "echo"},
            "StandardOutPath": log,
            "StandardErrorPath": log,
        }
        self.assertEqual(job, expected)
        self.assertEqual(list(job), list(expected))

    def test_every_text_names_this_version(self):
        metainfo = xml.etree.ElementTree.parse(LINUX / "com.tarnwick.client.metainfo.xml")
        releases = [release.get("version") for release in metainfo.iter("release")]
        self.assertEqual(releases[0], VERSION)
        debian = (LINUX / "changelog.Debian").read_text().splitlines()[0]
        packed = re.search(r"PACKAGE_RELEASE (\S+)\)", (LINUX / "cpack.cmake").read_text())
        self.assertTrue(debian.startswith(f"tarnwick-client ({VERSION}-{packed[1]}) "), debian)
        self.assertIn(f"\n## {VERSION}\n", (ROOT / "CHANGELOG.md").read_text())

    def test_window_menu_and_store_mean_the_same_program(self):
        sources = "".join(path.read_text() for path in (ROOT / "src/app").glob("*.cpp"))
        entries = re.findall(r'setDesktopFileName\(u"(.*?)"_s\)', sources)
        self.assertEqual(entries, ["tarnwick-client"])
        metainfo = xml.etree.ElementTree.parse(LINUX / "com.tarnwick.client.metainfo.xml")
        self.assertEqual(metainfo.findtext("launchable"), "tarnwick-client.desktop")
        for path, command in ((LINUX / "tarnwick-client.desktop", "tarnwick-client"),
                              (LINUX / "autostart/tarnwick-client.desktop", "tarnwick-client --quiet")):
            entry = desktop_entry(path)
            self.assertEqual(entry["Exec"], command)
            self.assertEqual(entry["Icon"], "tarnwick-client")
            self.assertEqual(entry["Name"], metainfo.findtext("name"))
        self.assertTrue((LINUX / "icons/scalable/tarnwick-client.svg").exists())

    def test_manual_tells_every_option(self):
        manual = (LINUX / "tarnwick-client.1.in").read_text().replace("\\-", "-")
        options = (ROOT / "src/app/command_line_options.cpp").read_text()
        for option in re.findall(r'"(--?[a-z-]+)"_L1', options):
            self.assertIn(option, manual)

    def test_licence_is_the_projects(self):
        def words(text):
            return [word for word in text.split() if word != "."]

        licence = words((ROOT / "LICENSE").read_text().split("\n\n", 2)[2])
        packed = words((LINUX / "copyright").read_text().split("License: MIT\n")[-1])
        self.assertEqual(packed, licence)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
