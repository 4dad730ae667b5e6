# SPDX-License-Identifier: MIT
"""What scripts/run-tests prints of skipped tests, from what ctest really reports."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts/skipped_tests.py"

PROJECT = """
cmake_minimum_required(VERSION 3.22)
project(skips NONE)
enable_testing()
add_test(NAME passes COMMAND ${CMAKE_COMMAND} -E true)
add_test(NAME fails COMMAND ${CMAKE_COMMAND} -E false)
"""

GOOGLE_TEST = """
add_test(NAME Unit.Skips COMMAND sh -c "printf '%s\\\\n' 'a_test.cpp:12: Skipped' 'not' 'here' '' '[  SKIPPED ] Unit.Skips (0 ms)'")
set_tests_properties(Unit.Skips PROPERTIES SKIP_REGULAR_EXPRESSION "[[]  SKIPPED []]")
"""

PYTHON = """
file(WRITE ${CMAKE_BINARY_DIR}/suite.py [[
import unittest

class Suite(unittest.TestCase):
    @unittest.skipIf(True, "it's said")
    def test_plain(self):
        pass

    def test_documented(self):
        '''This one has a description.'''
        self.skipTest("no room")

    def test_passes(self):
        print("... skipped is a word")

class Class(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        raise unittest.SkipTest("no class")

    def test_never(self):
        pass

unittest.main()
]])
"""


class SkippedTests(unittest.TestCase):
    def summary(self, *parts, **environment):
        """Exit status and lines after a run of ctest over a project with these parts."""
        with tempfile.TemporaryDirectory() as directory:
            pathlib.Path(directory, "CMakeLists.txt").write_text("".join((PROJECT, *parts)),
                                                                 encoding="utf-8")
            build = pathlib.Path(directory, "build")
            subprocess.run(["cmake", "-G", "Ninja", "-S", directory, "-B", build], check=True,
                           capture_output=True)
            subprocess.run(["ctest", "--test-dir", build, "--output-junit", "report.xml"],
                           check=False, capture_output=True)
            kept = {name: value for name, value in os.environ.items()
                    if name not in ("CI", "TARNWICK_NO_SKIP")}
            run = subprocess.run([sys.executable, SCRIPT, build / "report.xml"], text=True,
                                 stdout=subprocess.PIPE, env={**kept, **environment}, check=False)
        return run.returncode, [line.strip() for line in run.stdout.splitlines() if line]

    def suite(self, *options):
        return (f"add_test(NAME suite COMMAND {sys.executable} -B ${{CMAKE_BINARY_DIR}}/suite.py "
                f"{' '.join(options)})\n")

    def test_nothing_skipped_is_nothing_said(self):
        self.assertEqual(self.summary(CI="true"), (0, []))

    def test_a_skipped_unit_test_has_its_reason(self):
        self.assertEqual(self.summary(GOOGLE_TEST), (0, ["Skipped:", "Unit.Skips: not here"]))

    def test_those_inside_a_suite_are_named_too(self):
        status, lines = self.summary(PYTHON, self.suite("-v"))
        self.assertEqual((status, lines[0]), (0, "Skipped:"))
        for test, reason in (("test_plain", "it's said"), ("test_documented", "no room"),
                             ("setUpClass", "no class")):
            self.assertTrue(any(line.startswith(f"suite {test} (") and line.endswith(f": {reason}")
                                for line in lines), lines)

    def test_a_suite_that_says_only_how_many_is_named_itself(self):
        self.assertEqual(self.summary(PYTHON, self.suite())[1],
                         ["Skipped:", "suite: 3 in it, whose reasons it does not print"])

    def test_where_none_may_be_skipped_one_is_a_failure(self):
        for name in ("CI", "TARNWICK_NO_SKIP"):
            with self.subTest(variable=name):
                status, lines = self.summary(GOOGLE_TEST, **{name: "1"})
                self.assertEqual((status, lines[-1]), (1, "Here none may be skipped."))


if __name__ == "__main__":
    unittest.main()
