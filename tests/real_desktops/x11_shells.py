# SPDX-License-Identifier: MIT
"""Desktops that draw on the X display themselves."""

from shell import COMMON, XShell


class Xfce(XShell):
    packages = f"xfce4 gnome-themes-extra {COMMON}"
    variables = {**XShell.variables, "XDG_CURRENT_DESKTOP": "XFCE", "DESKTOP_SESSION": "xfce"}
    restarts = "the panel"

    def start_shell(self):
        self.start("xfce4-session")
        self.wait_for_host()

    def restart(self):
        self.run("xfce4-panel", "--restart", check=True)

    def set_dark(self, dark):
        super().set_dark(dark)
        self.run("xfconf-query", "-c", "xsettings", "-p", "/Net/ThemeName", "--create", "-t", "string",
                 "-s", "Adwaita-dark" if dark else "Adwaita", check=True)
