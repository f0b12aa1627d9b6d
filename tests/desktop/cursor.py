"""The pointer's picture, as the X server shows it."""

import ctypes


class _Image(ctypes.Structure):
    """XFixesCursorImage of X11/extensions/Xfixes.h; a pixel takes a long each."""
    _fields_ = [("x", ctypes.c_short), ("y", ctypes.c_short), ("width", ctypes.c_ushort), ("height", ctypes.c_ushort),
                ("hot_x", ctypes.c_ushort), ("hot_y", ctypes.c_ushort), ("serial", ctypes.c_ulong),
                ("pixels", ctypes.POINTER(ctypes.c_ulong)), ("atom", ctypes.c_ulong), ("name", ctypes.c_char_p)]


def cursor_picture(display):
    """The pixels of the pointer on a display such as ":7", row by row, with its size first."""
    x11, fixes = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXfixes.so.3")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    fixes.XFixesGetCursorImage.restype = ctypes.POINTER(_Image)
    connection = ctypes.c_void_p(x11.XOpenDisplay(display.encode()))
    try:
        found = fixes.XFixesGetCursorImage(connection)
        image = found.contents
        picture = image.width, image.height, tuple(image.pixels[:image.width * image.height])
        x11.XFree(found)
        return picture
    finally:
        x11.XCloseDisplay(connection)
