"""Pixels as the X server keeps them, and where a window's own pixels and those on the screen are not the same.

A compositor shows a copy of each window. What is wrong on the screen and right in the window is then no fault of the
program that painted the window, and a picture of the screen would show what the program never painted."""

from dataclasses import dataclass

# Pixels are told apart by squares of so many: what moves has some room around it.
CELL = 8
# What stands still is what is compared: with more in motion than this part of the window, nothing is.
MOST_IN_MOTION = 0.1
# A blended colour is rounded once for the window and once for what lies under it.
ROUNDING = 2


@dataclass(frozen=True)
class Image:
    """Four bytes a pixel, row by row: blue, green, red and what covers what is below (premultiplied), which is all of
    it where `has_alpha` is False."""
    width: int
    height: int
    pixels: bytes
    has_alpha: bool = False

    def rows(self):
        """Each row as its bytes, the fourth of a pixel always telling how much that covers."""
        length = self.width * 4
        for start in range(0, length * self.height, length):
            row = self.pixels[start:start + length]
            yield row if self.has_alpha else opaque(row)

    def crop(self, x, y, width, height):
        rows = (self.pixels[4 * (row * self.width + x):4 * (row * self.width + x + width)]
                for row in range(y, y + height))
        return Image(width, height, b"".join(rows), self.has_alpha)


def opaque(row):
    """The row with every pixel covering what is below."""
    written = bytearray(row)
    written[3::4] = b"\xff" * (len(row) // 4)
    return bytes(written)


def cells_in_motion(looks):
    """The squares in which any two of these looks at one window differ, each as (column, row)."""
    return {cell for before, after in zip(looks, looks[1:])
            for cell in cells_apart(before, after, lambda one, other: one == other)}


def cells_apart(first, second, agree):
    """The squares with a pixel for which `agree(of the first, of the second)` does not hold."""
    if (first.width, first.height) != (second.width, second.height):
        raise ValueError(f"{first.width}x{first.height} held against {second.width}x{second.height}")
    cells = set()
    for y, (one, other) in enumerate(zip(first.rows(), second.rows())):
        if one != other:
            cells.update((x // CELL, y // CELL) for x in pixels_apart(one, other, agree))
    return cells


def pixels_apart(one, other, agree):
    """The columns of two rows whose pixels do not agree; none where the bytes are the same."""
    for x in range(len(one) // 4):
        first, second = one[4 * x:4 * x + 4], other[4 * x:4 * x + 4]
        if first != second and not agree(first, second):
            yield x


def could_show(window, screen):
    """Whether a screen with this pixel can be showing this pixel of a window: the colour itself where the window covers
    what is below. Else, as at its round corners and in a shadow, at least that colour and at most as much more as
    white below it would add."""
    room = 255 - window[3]
    slack = ROUNDING if room else 0
    return all(own - slack <= seen <= own + room + slack for own, seen in zip(window[:3], screen[:3]))


def cells_not_shown(looks, screen):
    """The squares in which the screen does not show what the window has; `looks` are at the window, in time around the
    one at the screen. None where too much is in motion for anything to be said."""
    moving = cells_in_motion(looks)
    columns, rows = -(-screen.width // CELL), -(-screen.height // CELL)
    if len(moving) > MOST_IN_MOTION * columns * rows:
        return None
    return cells_apart(looks[-1], screen, could_show) - moving


def first_shown(grab, tries, refresh):
    """Calls `grab()` for looks at a window and one at the screen until these show the same, `tries` times at most, and
    `refresh()` in between. Returns what the last one gave, how many times that were, and the squares that differ."""
    for tried in range(1, tries + 1):
        if tried > 1:
            refresh()
        grabbed = grab()
        cells = cells_not_shown(grabbed.looks, grabbed.screen)
        if cells == set():
            break
    return grabbed, tried, cells
