# SPDX-License-Identifier: MIT
"""Sway with Waybar, as an ordinary user."""

from shell import COMMON, SIZE, NestedShell

# The system's own settings but for the bar.
CONFIGURATION = """
output X11-1 mode {}x{}
bar {{
    swaybar_command waybar
}}
exec env >{told}.new && mv {told}.new {told}
"""


class Sway(NestedShell):
    packages = f"sway waybar swaybg xwayland xdg-desktop-portal-wlr {COMMON}"
    bar = 30
    variables = {**NestedShell.variables, "XDG_CURRENT_DESKTOP": "sway", "WLR_BACKENDS": "x11",
                 "WLR_RENDERER": "pixman"}
    restarts = "the bar"
    # Sway places X windows itself, a popover in the middle of its panel too. Opened over a window of a
    # Wayland client the panel is never reported to have the focus, so that it cannot lose it either.
    known_limits = {"under the icon": "pixels from the bar", "other window": "still open",
                    "devices": "pixels from the panel's side"}

    def start_shell(self):
        told = self.directory / "displays"
        configuration = self.directory / "sway.conf"
        configuration.write_text(CONFIGURATION.format(*SIZE, told=told), encoding="utf-8")
        self.start("sway", "--config", configuration)
        self.wait_for_file(told)
        self.wait_for_status_area()

    def restart(self):
        self.crash_watcher()
        self.run("swaymsg", "reload", check=True)
