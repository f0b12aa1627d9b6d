"""What servers do with the head of an answer: status line, headers, interim answers, redirects, challenges."""

from hostile.answers import BODY, HEAD, WHOLE, answering, status
from hostile.wire import PIECE

CONTINUE = b"HTTP/1.1 100 Continue\r\n\r\n"
HINTS = b"HTTP/1.1 103 Early Hints\r\nLink: </style.css>; rel=preload\r\n\r\n"
LINE = b"X-Filler: " + b"f" * 80 + b"\r\n"
# All that a server may answer with besides 200, and some that no list has.
STATUSES = [
    201, 202, 203, 204, 205, 206, 226, 299, 300, 301, 304, 305, 306, 307, 308, 400, 401, 402, 403, 404, 405, 406, 407,
    408, 409, 410, 418, 421, 422, 425, 426, 429, 431, 451, 499, 500, 503, 511, 999]
CHALLENGES = {
    "Basic": b'Basic realm="harm"',
    "Digest": b'Digest realm="harm", qop="auth", algorithm=MD5, nonce="00", opaque="00"',
    "Negotiate": b"Negotiate",
    "NTLM": b"NTLM",
}


@answering
def endless_status_line(wire):
    wire.send(b"HTTP/1.1 200 ")
    wire.flood(endlessly(b"O" * PIECE))


@answering
def endless_headers(wire):
    wire.send(HEAD)
    wire.flood(endlessly(LINE * (PIECE // len(LINE))))


@answering
def one_endless_header(wire):
    wire.send(HEAD + b"X-Filler: ")
    wire.flood(endlessly(b"f" * PIECE))


@answering
def headers_of_a_megabyte(wire):
    """More than any answer needs, but an end, and a true body."""
    wire.send(HEAD + LINE * ((1 << 20) // len(LINE)) + b"Content-Length: %d\r\n\r\n" % len(BODY) + BODY)


@answering
def endless_folding(wire):
    wire.send(HEAD + b"X-Filler: f\r\n")
    wire.flood(endlessly(b" f\r\n" * (PIECE // 4)))


def endlessly(piece):
    while True:
        yield piece


@answering
def endless_continue(wire):
    wire.flood(endlessly(CONTINUE * (PIECE // len(CONTINUE))))


@answering
def endless_hints(wire):
    wire.flood(endlessly(HINTS * (PIECE // len(HINTS))))


def after_one(interim):
    return answering(lambda wire: wire.send(interim + WHOLE))


def only_one(interim):
    """An interim answer with nothing after it but the end."""
    @answering
    def serve(wire):
        wire.send(interim)
        wire.end_politely()

    return serve


def dripped(before, data):
    @answering
    def serve(wire):
        wire.send(before)
        wire.drip(data)

    return serve


def silent_after(before):
    @answering
    def serve(wire):
        wire.send(before)
        wire.stay_silent()

    return serve


def cut_after(before, end):
    @answering
    def serve(wire):
        wire.send(before)
        end(wire)

    return serve


def odd_status(number):
    if number in (204, 304):
        return answering(lambda wire: wire.send(b"HTTP/1.1 %d Odd\r\n\r\n" % number))
    if number == 205:
        return answering(lambda wire: wire.send(status(b"205 Odd", body=b"")))
    return answering(lambda wire: wire.send(status(b"%d Odd" % number)))


def challenge(name, number=401):
    header = b"Proxy-Authenticate" if number == 407 else b"WWW-Authenticate"
    answer = status(b"%d No" % number, header + b": " + CHALLENGES[name] + b"\r\n")
    return answering(lambda wire: wire.send(answer))


def redirect(where, number=302):
    answer = status(b"%d Found" % number, b"Location: " + where + b"\r\n")
    return answering(lambda wire: wire.send(answer))


@answering
def endless_new_addresses(wire):
    """Every address leads to another one of the same server."""
    number = len(wire.server.requests)
    wire.send(status(b"307 Go on", b"Location: /v1/metrics/%d\r\n" % number))


@answering
def body_alone(wire):
    """What HTTP was before it had versions."""
    wire.send(BODY)
    wire.end_politely()
