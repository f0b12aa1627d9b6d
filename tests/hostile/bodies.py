"""What servers do with a body: its length, its chunks, its trailers and its end."""

from hostile.answers import BODY, CENTS, HEAD, WHOLE, answering, chunk, chunked, metrics, with_length
from hostile.heads import endlessly
from hostile.wire import PIECE

CHUNKED = HEAD + b"Transfer-Encoding: chunked\r\n\r\n"
HALF, REST = BODY[:len(BODY) // 2], BODY[len(BODY) // 2:]
# What may not be added to the figure: the answer to a question that was not asked.
FORGED = with_length(metrics(66600))


@answering
def endless_body(wire):
    wire.send(HEAD + b"Content-Length: %d\r\n\r\n" % (1 << 40))
    wire.flood(endlessly(b" " * PIECE))


@answering
def endless_body_without_length(wire):
    wire.send(HEAD + b"Connection: close\r\n\r\n")
    wire.flood(endlessly(b" " * PIECE))


@answering
def endless_chunks(wire):
    wire.send(CHUNKED)
    wire.flood(endlessly(chunk(b" " * PIECE)))


@answering
def chunks_of_one_byte(wire):
    wire.send(CHUNKED)
    wire.flood(endlessly(chunk(b" ") * (PIECE // 6)))


@answering
def endless_chunk_size(wire):
    wire.send(CHUNKED)
    wire.flood(endlessly(b"0" * PIECE))


@answering
def endless_chunk_extension(wire):
    wire.send(CHUNKED + b"5;harm=")
    wire.flood(endlessly(b"e" * PIECE))


@answering
def an_extension_at_every_chunk(wire):
    wire.send(CHUNKED)
    wire.flood(endlessly(b"1;harm=" + b"e" * (PIECE // 2) + b"\r\n \r\n"))


@answering
def endless_trailers(wire):
    wire.send(chunked(BODY, end=b"0\r\n"))
    wire.flood(endlessly((b"X-Trailer: " + b"t" * 80 + b"\r\n") * (PIECE // 93)))


@answering
def one_endless_trailer(wire):
    wire.send(chunked(BODY, end=b"0\r\nX-Trailer: "))
    wire.flood(endlessly(b"t" * PIECE))


def chunk_size(size):
    """A true first half, then a chunk with this size, then whatever else it takes to look whole."""
    return CHUNKED + chunk(HALF) + size + b"\r\n" + REST + b"\r\n0\r\n\r\n"


def length(value, body=BODY):
    return HEAD + b"Content-Length: " + value + b"\r\n\r\n" + body


TWO_LENGTHS = HEAD + b"Content-Length: %d\r\nContent-Length: 10\r\n\r\n" % len(BODY) + BODY
TWO_LENGTHS_IN_ONE = HEAD + b"Content-Length: %d, 10\r\n\r\n" % len(BODY) + BODY
LENGTH_AND_CHUNKS = chunked(BODY, head=HEAD + b"Content-Length: 10\r\n")
TWO_CODINGS = HEAD + b"Transfer-Encoding: chunked, identity\r\n\r\n" + chunk(HALF)
WITH_ANOTHER_BEHIND = WHOLE + FORGED
CHUNKED_WITH_ANOTHER_BEHIND = chunked(BODY) + FORGED


@answering
def endless_pages(wire):
    """Every page of the list says that there is another one."""
    wire.send(with_length(b'{"data": [{"id": "ch_%d", "status": "succeeded", "currency": "usd", "amount": %d, '
                          b'"created": 1735689600}], "has_more": true}' % (len(wire.server.requests), CENTS)))


def first_page_then(go_on):
    """A good first page of a list, then what `go_on(wire)` does with the question for the second one."""
    @answering
    def serve(wire):
        if "starting_after" in wire.asked[-1]:
            go_on(wire)
        else:
            wire.send(FIRST_PAGE)

    return serve


FIRST_PAGE = with_length(b'{"data": [{"id": "ch_1", "status": "succeeded", "currency": "usd", "amount": 1200, '
                         b'"created": 1735689600}], "has_more": true}')
LAST_PAGE = with_length(b'{"data": [{"id": "ch_2", "status": "succeeded", "currency": "usd", "amount": 500, '
                        b'"created": 1735689500}], "has_more": false}')


def once_then_good(end):
    """The connection ends in place of the second page, and only once: who asks again gets it."""
    def go_on(wire):
        asked = [request for request in wire.server.requests if "starting_after" in request]
        if len(asked) > 1:
            wire.send(LAST_PAGE)
        else:
            end(wire)

    return first_page_then(go_on)


@answering
def end_after_every_page(wire):
    """Each answer is the connection's last, though nothing said so before."""
    wire.send(LAST_PAGE if "starting_after" in wire.asked[-1] else FIRST_PAGE)
    wire.end_politely()
