# SPDX-License-Identifier: MIT
"""A list of devices that is much longer than its popover."""

import unittest

from session import Session
from simulated_daemon import quick_world
from virtual_desktop import wait_until

DEVICES = 300


def large_world():
    world = quick_world()
    peers = world["networks"][0]["peers"]
    peers[:] = [{**peers[0], "hostName": f"device-{number:03}",
                 "addresses": [f"100.99.{number // 200}.{number % 200 + 1}"]}
                for number in range(DEVICES)]
    return world


class ManyDevices(unittest.TestCase):
    def test_a_screen_reader_finds_all_of_them_in_order(self):
        with Session(world=large_world()) as session:
            session.begin("twkey-harbor-good")
            session.open_panel()
            session.press("Devices")
            expected = [f"device-{number:03}" for number in range(DEVICES)]

            def found():
                return [name for name in session.texts() if name.startswith("device-")] == expected

            wait_until(found, "every device", describe=lambda: f"have {session.texts()}")


if __name__ == "__main__":
    unittest.main()
