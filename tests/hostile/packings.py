"""What servers do with a body that is packed."""

import gzip
import zlib

from hostile.answers import BODY, HEAD, answering, chunk
from hostile.bodies import HALF
from hostile.heads import endlessly

PACKED = HEAD + b"Content-Encoding: gzip\r\n"
EMPTY_MEMBER = gzip.compress(b"")


def packed(data):
    return PACKED + b"Content-Length: %d\r\n\r\n" % len(data) + data


# A megabyte of blanks, which stands for itself wherever it is in a packed part.
_packer = zlib.compressobj(9, zlib.DEFLATED, -zlib.MAX_WBITS)
MEGABYTE = _packer.compress(b" " * (1 << 20)) + _packer.flush(zlib.Z_FULL_FLUSH)
BEGINNING = b"\x1f\x8b\x08\0\0\0\0\0\0\x03"
# The end of a part with a wrong sum: nobody should ever get there.
END = _packer.flush() + bytes(8)
BOMB = packed(BEGINNING + MEGABYTE * 1024 + END)


@answering
def endless_bomb(wire):
    wire.send(PACKED + b"Transfer-Encoding: chunked\r\n\r\n" + chunk(BEGINNING))
    wire.flood(endlessly(chunk(MEGABYTE * 8)))


@answering
def endless_nothing(wire):
    """Packed parts of nothing, one after the other."""
    wire.send(PACKED + b"Transfer-Encoding: chunked\r\n\r\n")
    wire.flood(endlessly(chunk(EMPTY_MEMBER * 500)))


@answering
def endless_header_of_a_part(wire):
    """A packed part may begin with a name, of any length."""
    wire.send(PACKED + b"Transfer-Encoding: chunked\r\n\r\n" + chunk(b"\x1f\x8b\x08\x08\0\0\0\0\0\x03"))
    wire.flood(endlessly(chunk(b"n" * 8192)))


NOTHING = packed(b"")
PACKED_NOTHING = packed(EMPTY_MEMBER)
WHOLE_PACKED = gzip.compress(BODY)
NO_GZIP = packed(BODY)
CUT = packed(WHOLE_PACKED[:len(WHOLE_PACKED) // 2])
WITHOUT_TRAILER = packed(WHOLE_PACKED[:-8])
HALF_TRAILER = packed(WHOLE_PACKED[:-4])
WRONG_SUM = packed(WHOLE_PACKED[:-8] + bytes(4) + WHOLE_PACKED[-4:])
WRONG_SIZE = packed(WHOLE_PACKED[:-4] + bytes(4))
GARBAGE_BEHIND = packed(WHOLE_PACKED + b"garbage")
CUT_PART_BEHIND = packed(gzip.compress(HALF) + gzip.compress(BODY[len(HALF):])[:-12])
BROKEN_IN_THE_MIDDLE = packed(WHOLE_PACKED[:20] + b"\xff" * 10 + WHOLE_PACKED[30:])
ONLY_THE_HEADER = packed(WHOLE_PACKED[:10])
