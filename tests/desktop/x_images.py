"""What the X server has at one moment: a window's own pixels, or those of the screen."""

import ctypes
from contextlib import contextmanager

from desktop.image import Image

ALL_PLANES, Z_PIXMAP = ctypes.c_ulong(-1), 2


class _XImage(ctypes.Structure):
    """XImage of X11/Xlib.h, as far as it is read here."""
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int),
                ("bitmap_unit", ctypes.c_int), ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int),
                ("depth", ctypes.c_int), ("bytes_per_line", ctypes.c_int), ("bits_per_pixel", ctypes.c_int)]


class _Rectangle(ctypes.Structure):
    """XRectangle of X11/Xlib.h."""
    _fields_ = [("x", ctypes.c_short), ("y", ctypes.c_short), ("width", ctypes.c_ushort), ("height", ctypes.c_ushort)]


_Handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
# A window may go while it is looked at. Xlib would end the process; so it gives no image instead.
_ignore = _Handler(lambda _display, _error: 0)


def _library():
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XDefaultRootWindow.restype = ctypes.c_ulong
    x11.XGetImage.restype = ctypes.POINTER(_XImage)
    x11.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint,
                              ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]
    for function in (x11.XDefaultRootWindow, x11.XCloseDisplay):
        function.argtypes = [ctypes.c_void_p]
    x11.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
    x11.XSetErrorHandler(_ignore)
    return x11


def _damage_libraries():
    fixes, damage = ctypes.CDLL("libXfixes.so.3"), ctypes.CDLL("libXdamage.so.1")
    fixes.XFixesCreateRegion.restype = ctypes.c_ulong
    fixes.XFixesCreateRegion.argtypes = [ctypes.c_void_p, ctypes.POINTER(_Rectangle), ctypes.c_int]
    damage.XDamageAdd.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_ulong]
    for library, ask in ((fixes, "XFixesQueryExtension"), (damage, "XDamageQueryExtension")):
        getattr(library, ask).argtypes = [ctypes.c_void_p, *2 * [ctypes.POINTER(ctypes.c_int)]]
    return fixes, damage


class XImages:
    """One connection to a display, over which the next image follows within a few milliseconds."""

    def __init__(self, x11, connection):
        self._x11, self._connection = x11, connection

    def of_screen(self, area):
        return self._image(self._x11.XDefaultRootWindow(self._connection), area.x, area.y, area)

    def of_window(self, window, area):
        """A window's own pixels, also where something covers it as long as a compositor runs; `area` tells its size."""
        return self._image(int(window), 0, 0, area)

    def tell_of_damage(self, window, area):
        """Has a compositor fetch a window of this size anew. Nothing is painted, and its program learns nothing."""
        fixes, damage = _damage_libraries()
        unused = ctypes.c_int(), ctypes.c_int()
        for ask in (fixes.XFixesQueryExtension, damage.XDamageQueryExtension):
            ask(self._connection, *map(ctypes.byref, unused))
        whole = _Rectangle(0, 0, area.width, area.height)
        damage.XDamageAdd(self._connection, int(window), fixes.XFixesCreateRegion(self._connection, whole, 1))
        self._x11.XSync(self._connection, 0)

    def _image(self, drawable, x, y, area):
        found = self._x11.XGetImage(self._connection, drawable, x, y, area.width, area.height, ALL_PLANES, Z_PIXMAP)
        if not found:
            raise RuntimeError(f"the X server has no image of {area}")
        try:
            image = found.contents
            if image.bits_per_pixel != 32 or image.bytes_per_line != 4 * image.width or image.byte_order != 0:
                raise RuntimeError("the X server keeps its pixels in another way than is read here")
            pixels = ctypes.string_at(image.data, image.bytes_per_line * image.height)
            return Image(image.width, image.height, pixels, image.depth == 32)
        finally:
            self._x11.XDestroyImage(found)


@contextmanager
def x_images(display):
    """The images of a display such as ":7"."""
    x11 = _library()
    connection = x11.XOpenDisplay(display.encode())
    if not connection:
        raise RuntimeError(f"no display {display}")
    try:
        yield XImages(x11, connection)
    finally:
        x11.XCloseDisplay(connection)
