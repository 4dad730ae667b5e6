# SPDX-License-Identifier: MIT
"""The sessions that can be tried, by their names: release of Debian and shell."""

from gnome import GnomeWayland, GnomeX11, GnomeX11Plain
from plasma import Plasma6Wayland, Plasma6X11, PlasmaWayland, PlasmaX11
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
    "gnome-wayland-13": ("trixie", GnomeWayland),
    "gnome-x11-13": ("trixie", GnomeX11),
    "plasma-x11-13": ("trixie", Plasma6X11),
    "plasma-wayland-13": ("trixie", Plasma6Wayland),
}
