# SPDX-License-Identifier: MIT
"""What a display showed, frame by frame."""

import struct
import threading
import time

FRAMES_A_SECOND = 60
HEADER = struct.Struct(">25I")  # of X's window dumps


class Frame:
    """The whole screen at one moment; pixels are four bytes each."""

    def __init__(self, data, bytes_a_line):
        self._data = data
        self._line = bytes_a_line

    def __eq__(self, other):
        return self._data == other._data

    def crop(self, rect):
        """The pixels of a part, row by row."""
        pixels = bytearray().join(
            self._data[y * self._line + 4 * rect.x:y * self._line + 4 * rect.right]
            for y in range(rect.y, rect.bottom))
        pixels[3::4] = bytes(len(pixels) // 4)  # no colour
        return bytes(pixels)


class Film:
    """Records a virtual display while its block runs: `frames` has each frame that differs from the
    one before. Reads the display's memory, since asking the X server takes longer than a frame."""

    def __init__(self, desktop):
        self._path = desktop.directory / "Xvfb_screen0"
        self._is_running = True
        self._camera = threading.Thread(target=self._record)
        self.frames = [self.frame()]

    def __enter__(self):
        self._camera.start()
        return self

    def __exit__(self, *_):
        self._is_running = False
        self._camera.join()

    def frame(self):
        data = None
        while data != (again := self._path.read_bytes()):
            data = again  # it may have been read while it was drawn
        fields = HEADER.unpack_from(data)
        header_size, bytes_a_line, colors = fields[0], fields[12], fields[19]
        return Frame(data[header_size + 12 * colors:], bytes_a_line)

    def _record(self):
        while self._is_running:
            began = time.monotonic()
            frame = self.frame()
            if frame != self.frames[-1]:
                self.frames.append(frame)
            time.sleep(max(0.0, began + 1 / FRAMES_A_SECOND - time.monotonic()))
