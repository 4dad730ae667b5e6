# SPDX-License-Identifier: MIT
"""A desktop that nobody sees, for whatever drives the built client as a user does: the desktop
tests, the benchmark and the demo.

    with Desktop(tray="top") as desktop:
        client = desktop.start_client()
        desktop.click(desktop.wait_for_icon(client).center)
        panel = desktop.wait_for_panel(client)

Everything runs in a directory of its own: home, runtime directory, session bus, system bus and X
display. Every wait is bounded, and every process is ended by its id, also when its parent is killed.
"""

from virtual_desktop.desktop import PANEL_WIDTH, Desktop, bin_dir
from virtual_desktop.film import Film
from virtual_desktop.process import Process
from virtual_desktop.screen import Rect, Screen
from virtual_desktop.waiting import TIME_LIMIT, comes, stays, wait_until

__all__ = ["PANEL_WIDTH", "TIME_LIMIT", "Desktop", "Film", "Process", "Rect", "Screen", "bin_dir",
           "comes", "stays", "wait_until"]
