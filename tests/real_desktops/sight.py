# SPDX-License-Identifier: MIT
"""What can be seen in pictures of the screen, whoever drew it."""

import re

from PIL import Image, ImageChops
from Xlib import display, ext

from virtual_desktop import Rect

# No other one is used, and setting up RandR fails at times.
ext.__extensions__ = [extension for extension in ext.__extensions__ if extension[1] == "xfixes"]

LEAST_CHANGE = 24  # of 255, of a colour that counts as another one
ICON_WIDTHS = range(6, 49)
LONGEST_MOVE = 64  # pixels, of what makes room for an icon
SAME = rb"\0{8,}"  # so many columns side by side are no coincidence


def load(path):
    with Image.open(path) as picture:
        return picture.convert("RGB")


def changes(before, after, rect):
    """A mask of the pixels in a part of the screen that became others, in that part's coordinates."""
    box = (rect.x, rect.y, rect.right, rect.bottom)
    bands = ImageChops.difference(before.crop(box), after.crop(box)).split()
    most = ImageChops.lighter(ImageChops.lighter(bands[0], bands[1]), bands[2])
    return most.point(lambda value: 255 if value >= LEAST_CHANGE else 0)


def changed_rect(before, after, rect):
    """What surrounds all that changed in a part of the screen; None when nothing did."""
    box = changes(before, after, rect).getbbox()
    if box is None:
        return None
    left, top, right, bottom = box
    return Rect(rect.x + left, rect.y + top, right - left, bottom - top)


def share_of_changes(before, after, rect):
    histogram = changes(before, after, rect).histogram()
    return histogram[255] / max(1, sum(histogram))


def find_new_icon(before, after, bar):
    """Where an icon came into a bar. Others may have been moved: what is new is what was nowhere near
    before. Of that it is the last part that has an icon's width, as clocks and meters change too."""
    if changed_rect(before, after, bar) is None:
        return None
    old = before.crop((bar.x, bar.y, bar.right, bar.bottom))
    new = after.crop((bar.x, bar.y, bar.right, bar.bottom))
    known = bytearray(bar.width)
    for move in range(-LONGEST_MOVE, LONGEST_MOVE + 1):
        same = re.finditer(SAME, changed_columns(ImageChops.offset(old, move, 0), new))
        for first, last in (match.span() for match in same):
            known[first:last] = b"x" * (last - first)
    for first, last in reversed([match.span() for match in re.finditer(rb"\0+", bytes(known))]):
        if last - first in ICON_WIDTHS:
            part = Rect(bar.x + first, bar.y, last - first, bar.height)
            return changed_rect(before, after, part)
    return None


def changed_columns(before, after):
    """A byte for each column of pixels: 0 when nothing in it changed."""
    mask = changes(before, after, Rect(0, 0, *after.size))
    return mask.resize((mask.width, 1), Image.BOX).tobytes()


def brightness(picture, rect):
    """The middle grey of a part of a picture, from 0 to 1: that of its background."""
    histogram = picture.crop((rect.x, rect.y, rect.right, rect.bottom)).convert("L").histogram()
    half, below = sum(histogram) / 2, 0
    for grey, count in enumerate(histogram):
        below += count
        if below >= half:
            return grey / 255
    return 0.0


def number_of_colors(picture, rect):
    colors = picture.crop((rect.x, rect.y, rect.right, rect.bottom)).getcolors(1 << 24)
    return len(colors)


class Pointer:
    """The pointer's own picture, as the X server shows it."""

    def __init__(self, name):
        self._display = display.Display(name)
        self._display.xfixes_query_version()

    def image(self):
        cursor = self._display.xfixes_get_cursor_image(self._display.screen().root)
        return cursor.width, cursor.height, tuple(cursor.cursor_image)

    def close(self):
        self._display.close()


def has_owner(name, selection):
    """Whether somebody owns that selection of an X display, as an X tray does."""
    connection = display.Display(name)
    try:
        return connection.get_selection_owner(connection.get_atom(selection)) != 0
    finally:
        connection.close()
