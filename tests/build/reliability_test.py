# SPDX-License-Identifier: MIT
"""Every row of docs/reliability.md names tests that there are."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


def unit_tests():
    """The tests of each suite."""
    suites = {}
    for file in (ROOT / "tests").rglob("*_test.cpp"):
        for suite, test in re.findall(r"TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\)", file.read_text()):
            suites.setdefault(suite, set()).add(test)
    return suites


def desktop_tests(name):
    """The tests of each class in one file; what a base class has counts for all."""
    text = (ROOT / "tests" / "desktop" / f"{name}_test.py").read_text()
    tests = set(re.findall(r"def (test_\w+)", text))
    return {each: tests for each in re.findall(r"^class (\w+)", text, re.M)}


def rows():
    for line in (ROOT / "docs" / "reliability.md").read_text().splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if line.startswith("| ") and cells[-1] != "Test":
            yield cells[0], re.sub(r" \(.*?\)", "", cells[-1])


def named(cell):
    """The tests of a row, each as what it is to be found in, its suite, and its name or None."""
    for group in cell.split("; "):
        file, _, names = group.rpartition(": ")
        suite = None
        for name in names.split(", "):
            if "." in name:
                suite, name = name.split(".")
            elif suite is None or not (name.startswith("test_") or not file):
                suite, name = name, None
            yield file, suite, name


class Rows(unittest.TestCase):
    def test_name_tests_that_there_are(self):
        of_units = unit_tests()
        count = 0
        for what, cell in rows():
            for file, suite, name in named(cell):
                suites = desktop_tests(file) if file else of_units
                with self.subTest(row=what, test=f"{file} {suite}.{name}"):
                    tests = suites.get(suite) or suites.get(name)  # a suite can stand alone
                    self.assertTrue(tests and (name in tests or name is None or name in suites))
                    count += 1
        self.assertGreater(count, 100)


if __name__ == "__main__":
    unittest.main()
