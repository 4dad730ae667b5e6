# SPDX-License-Identifier: MIT
"""The sessions that can be tried, by their names: release of Debian and shell."""

from gnome import GnomeWayland, GnomeX11, GnomeX11Plain
from plasma import PlasmaWayland, PlasmaX11
from sway import Sway
from x11_shells import Cinnamon, Lxqt, Mate, Xfce

SESSIONS = {
    "xfce": ("bookworm", Xfce),
    "gnome-wayland": ("bookworm", GnomeWayland),
    "gnome-x11": ("bookworm", GnomeX11),
    "gnome-x11-plain": ("bookworm", GnomeX11Plain),
    "plasma-x11": ("bookworm", PlasmaX11),
    "plasma-wayland": ("bookworm", PlasmaWayland),
    "mate": ("bookworm", Mate),
    "lxqt": ("bookworm", Lxqt),
    "cinnamon": ("bookworm", Cinnamon),
    "sway": ("bookworm", Sway),
}
