# SPDX-License-Identifier: MIT
"""Names the tests that were skipped, each with its reason: skipped_tests.py REPORT, a JUnit file
written by ctest. A suite in Python is one test to ctest, which does not see what it skips inside.
Where no skip is allowed, with CI or TARNWICK_NO_SKIP set, one that is found is a failure."""

import os
import re
import sys
from xml.etree import ElementTree

# "path:line: Skipped", the reason, and an empty line or the closing line.
GOOGLE_TEST = re.compile(r": Skipped\n(.*?)\n\s*(?:\n|\[  SKIPPED \])", re.DOTALL)
# "name (module.class.name) ... skipped 'reason'"; a documented test has its first line in between.
PYTHON_TEST = re.compile(r"^ *(\w+ \([\w.]+\))")
PYTHON_REASON = re.compile(r"\.\.\. skipped (['\"])(.*)\1$")
PYTHON_COUNT = re.compile(r"^(?:OK|FAILED) \(.*\bskipped=(\d+)")


def skipped_in_suite(name, output):
    test, missing = "", 0
    for line in output.splitlines():
        if begun := PYTHON_TEST.match(line):
            test = begun[1]
        if reason := PYTHON_REASON.search(line):
            missing -= 1
            yield f"{name} {test}", reason[2]
        if total := PYTHON_COUNT.match(line):
            missing += int(total[1])
    if missing > 0:
        yield name, f"{missing} in it, whose reasons it does not print"


def skipped(report):
    """Pairs of a test's name and the reason."""
    for test in ElementTree.parse(report).iter("testcase"):
        name, output = test.get("name"), test.findtext("system-out") or ""
        if test.find("skipped") is None:
            yield from skipped_in_suite(name, output)
            continue
        reason = GOOGLE_TEST.search(output)
        yield name, " ".join(reason[1].split()) if reason else output.strip() or "no reason given"


def main():
    found = list(skipped(sys.argv[1]))
    if not found:
        return 0
    print("\nSkipped:")
    for name, reason in found:
        print(f"  {name}: {reason}")
    if not (os.environ.get("CI") or os.environ.get("TARNWICK_NO_SKIP")):
        return 0
    print("Here none may be skipped.")
    return 1


if __name__ == "__main__":
    sys.exit(main())
