#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""That the README's words on installing name what there is.

usage: readme_test.py VERSION
"""

import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
VERSION = sys.argv[1]


def read(path):
    return (ROOT / path).read_text()


class Install(unittest.TestCase):
    def setUp(self):
        self.text = re.search(r"^## Install\n(.*?)(?=^## |\Z)", read("README.md"), re.M | re.S)[1]

    def test_scripts_are_there(self):
        scripts = set(re.findall(r"scripts/[a-z-]+", self.text))
        self.assertIn("scripts/package", scripts)
        for script in scripts:
            self.assertTrue((ROOT / script).stat().st_mode & 0o111, script)

    def test_debian_package_is_called_so(self):
        cpack = read("packaging/linux/cpack.cmake")
        release = re.search(r"PACKAGE_RELEASE (\S+)\)", cpack)[1]
        name = f"tarnwick-client_{VERSION}-{release}_amd64.deb"
        self.assertEqual(re.findall(r"\./(\S+\.deb)", self.text), ["build/release/packages/" + name])
        self.assertIn("${CMAKE_BINARY_DIR}/packages", read("packaging/CMakeLists.txt"))

    def test_disk_image_and_bundle_are_called_so(self):
        cpack = read("packaging/macos/cpack.cmake")
        pattern = re.search(r"PACKAGE_FILE_NAME (\S+)\)", cpack)[1]
        name = pattern.replace("${PROJECT_VERSION}", VERSION)
        name = name.replace("${TARNWICK_VARIANT_SUFFIX}", "darwin-arm64")
        self.assertIn(f"`build/release/packages/{name}.dmg`", self.text)
        bundle = re.search(r'set\(bundle "(.*?)"\)', read("packaging/macos/CMakeLists.txt"))[1]
        self.assertIn(f'"{bundle}"', self.text)

    def test_menu_entry_is_called_so(self):
        name = re.search(r"^Name=(.*)$", read("packaging/linux/tarnwick-client.desktop"), re.M)[1]
        self.assertIn(f'"{name}" in the menu', self.text)

    def test_options_exist(self):
        rules = read("packaging/CMakeLists.txt")
        variables = re.findall(r"-D(TARNWICK_\w+)=", self.text)
        self.assertEqual(len(variables), 2)
        for variable in variables:
            self.assertIn(f"set({variable} ", rules)
        sources = read("src/app/command_line_options.cpp")
        for option in re.findall(r"tarnwick-client (--\S+)", self.text):
            self.assertIn(f'"{option}"_L1', sources)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
