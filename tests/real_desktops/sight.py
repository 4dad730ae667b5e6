# SPDX-License-Identifier: MIT
"""What can be seen in pictures of the screen, whoever drew it."""

from PIL import Image, ImageChops
from Xlib import display

from virtual_desktop import Rect

LEAST_CHANGE = 24  # of 255, of a colour that counts as another one
GREATEST_GAP = 3  # pixels, between parts of one icon
ICON_WIDTHS = range(6, 49)


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
    """Where an icon came into a bar. It pushed aside those before it, if any, and none after it: of
    all that changed it is the last part that has an icon's size."""
    mask = changes(before, after, bar)
    runs = []
    for x in range(mask.width):
        if mask.crop((x, 0, x + 1, mask.height)).getbbox():
            if runs and x - runs[-1][1] <= GREATEST_GAP:
                runs[-1][1] = x
            else:
                runs.append([x, x])
    for first, last in reversed(runs):
        if last - first + 1 in ICON_WIDTHS:
            _, top, _, bottom = mask.crop((first, 0, last + 1, mask.height)).getbbox()
            return Rect(bar.x + first, bar.y + top, last - first + 1, bottom - top)
    return None


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
