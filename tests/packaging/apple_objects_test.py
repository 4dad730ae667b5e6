#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What the check of the macOS build finds wrong."""

import pathlib
import struct
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import apple_objects


class Sources(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def add(self, *names):
        for name in names:
            path = self.root / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.touch()

    def test_every_folder_is_searched(self):
        self.add("src/app/main.cpp", "src/model/deep/a.cpp", "simulator/tool/b.cpp", "tests/c.cpp")
        self.assertEqual(
            apple_objects.sources(self.root),
            {"src/app/main.cpp", "src/model/deep/a.cpp", "simulator/tool/b.cpp"},
        )

    def test_linux_half_is_left_out(self):
        self.add("src/platform/spawn_linux.cpp", "src/platform/spawn_darwin.cpp")
        self.assertEqual(apple_objects.sources(self.root), {"src/platform/spawn_darwin.cpp"})

    def test_what_only_linux_has_is_left_out(self):
        self.add("src/desktop/x_linux.cpp", "src/desktop/x_linux.h")
        self.assertEqual(apple_objects.sources(self.root), set())

    def test_linux_half_alone_is_an_error(self):
        self.add("src/platform/spawn_linux.cpp")
        with self.assertRaises(SystemExit):
            apple_objects.sources(self.root)

    def test_source_that_nothing_compiles_is_named(self):
        self.add("src/a.cpp", "src/b.cpp")
        commands = [{"file": str(self.root / "src/a.cpp")}]
        wanted = apple_objects.sources(self.root)
        self.assertEqual(apple_objects.left_out(wanted, commands, self.root), ["src/b.cpp"])

    def test_sources_that_are_joined_are_compiled(self):
        self.add("src/a.cpp", "src/b.cpp", "src/c.cpp", "build/Unity/unity_0_cxx.cxx")
        joined = self.root / "build/Unity/unity_0_cxx.cxx"
        joined.write_text("".join(f'#include "{self.root}/src/{name}.cpp"\n' for name in "ab"))
        wanted = apple_objects.sources(self.root)
        self.assertEqual(apple_objects.left_out(wanted, [{"file": str(joined)}], self.root),
                         ["src/c.cpp"])


class Objects(unittest.TestCase):
    def reason(self, content, processor="arm64"):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "a.o"
            path.write_bytes(content)
            return apple_objects.wrong_object(path, processor)

    def header(self, magic=0xFEEDFACF, cpu=0x0100000C, kind=1):
        return struct.pack("<4I", magic, cpu, 0, kind)

    def test_object_for_the_processor_is_right(self):
        self.assertEqual(self.reason(self.header()), "")
        self.assertEqual(self.reason(self.header(cpu=0x01000007), "x86_64"), "")

    def test_object_for_another_processor_is_wrong(self):
        self.assertNotEqual(self.reason(self.header(), "x86_64"), "")

    def test_object_of_this_system_is_wrong(self):
        self.assertNotEqual(self.reason(b"\x7fELF" + bytes(60)), "")

    def test_program_and_empty_file_are_wrong(self):
        self.assertNotEqual(self.reason(self.header(kind=2)), "")
        self.assertNotEqual(self.reason(b""), "")


if __name__ == "__main__":
    unittest.main()
