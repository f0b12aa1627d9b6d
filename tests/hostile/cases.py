"""The table: each hostile server with what the program must make of it."""

from typing import Callable, NamedTuple

from desktop.own_network import LOOPBACK, TWO_ADDRESSES
from hostile import answers, bodies, handshakes, heads, packings
from hostile.answers import BODY, FIGURE, HEAD, chunk, chunked, sending, sending_then
from hostile.bodies import CHUNKED, HALF, REST, chunk_size, length
from hostile.wire import Wire

LOST, FAILED = "⚠ the connection was lost", "⚠ the request failed"
TIMED_OUT, UNREACHABLE = "⚠ the request timed out", "⚠ the server cannot be reached"
NOT_SECURE, NOT_TRUSTED = "⚠ a secure connection cannot be made", "⚠ the server's identity cannot be verified"
EMPTY = "⚠ empty response"
NO_ANSWER = {LOST, FAILED}
NO_HANDSHAKE = {LOST, FAILED, NOT_SECURE, UNREACHABLE}
# Seconds: what comes must be dealt with soon, also on a busy machine; silence is given up, and an answer without end.
SOON, SILENCE, WHOLE_TIME = 10, 15, 300


class Case(NamedTuple):
    name: str
    serve: Callable
    texts: frozenset
    platform: str = "Polar"
    least_seconds: float = 0
    most_seconds: float = SOON
    # The certificate's name, and what makes a server's settings of its file.
    certificate: str = "good"
    context: Callable = None
    addresses: tuple = LOOPBACK
    ipv6: str = ""
    # How often it may be asked, all in all.
    most_requests: int = 2

    @property
    def is_for_soak(self):
        return self.most_seconds > WHOLE_TIME


def case(name, serve, *texts, **more):
    return Case(name, serve, frozenset(texts), **more)


def silent(name, serve, **more):
    return case(name, serve, TIMED_OUT, least_seconds=SILENCE - 1, most_seconds=SILENCE + 10, **more)


def dripping(name, serve, **more):
    return case(name, serve, TIMED_OUT, least_seconds=SILENCE - 1, most_seconds=WHOLE_TIME + 15, **more)


def cuts(where, before, *texts):
    """The three ends of a connection at one place of an answer."""
    for how, end in (("closed", Wire.end), ("closed with an alert", Wire.end_politely), ("reset", Wire.reset)):
        yield case(f"{how} {where}", heads.cut_after(before, end), *texts)


HANDSHAKES = [
    case("closed at once", handshakes.close_at_once, *NO_HANDSHAKE),
    case("reset at once", handshakes.reset_at_once, *NO_HANDSHAKE),
    case("closed after the greeting", handshakes.hear_the_greeting_and_close, *NO_HANDSHAKE),
    case("reset after the greeting", handshakes.hear_the_greeting_and_reset, *NO_HANDSHAKE),
    case("closed within the handshake", handshakes.cut_the_handshake_in_the_middle, *NO_HANDSHAKE),
    case("closed after the handshake", handshakes.close_after_the_handshake, *NO_ANSWER),
    case("reset after the handshake", handshakes.reset_after_the_handshake, *NO_ANSWER),
    case("closed with an alert after the handshake", handshakes.say_goodbye_after_the_handshake, *NO_ANSWER),
    case("no TLS at all", handshakes.answer_without_tls, *NO_HANDSHAKE),
    case("zeros for a handshake", handshakes.answer_the_greeting_with_zeros, *NO_HANDSHAKE),
    case("a flood of zeros for a handshake", handshakes.flood_the_greeting_with_zeros, *NO_HANDSHAKE),
    case("TLS 1.1 and older only", answers.good(), NOT_SECURE, context=handshakes.old_tls),
    case("no encryption in common", answers.good(), NOT_SECURE, context=handshakes.no_common_cipher),
    case("HTTP/2 frames, then silence", handshakes.speak_frames_though_asked_for_lines, *NO_ANSWER, TIMED_OUT,
         most_seconds=SILENCE + 10),
    case("HTTP/2 frames, then the end", handshakes.speak_frames_and_close, *NO_ANSWER),
    silent("accepted, then silence", handshakes.accept_and_say_nothing),
    silent("silence after the greeting", handshakes.hear_the_greeting_and_say_nothing),
    silent("silence after the request", handshakes.hear_the_request_and_say_nothing),
    dripping("a handshake in drips", handshakes.drip_the_handshake),
]

CERTIFICATES = [
    *(case(f"certificate: {text}", answers.good(), NOT_TRUSTED, certificate=name, most_requests=0) for name, text in [
        ("unknown-authority", "of an unknown authority"), ("self-signed", "signed by itself"),
        ("other-host", "for another name"), ("no-names", "without a name"), ("expired", "valid no longer"),
        ("not-yet-valid", "not valid yet"), ("for-clients", "not for servers"), ("forged", "with a forged signature")]),
    case("certificate: with a key too short", answers.good(), NOT_TRUSTED, NOT_SECURE, certificate="weak-key",
         context=handshakes.plain_context, most_requests=0)]


def length_and_body():
    return b"\r\nContent-Length: %d\r\n\r\n" % len(BODY) + BODY


HEADS = [
    case("endless status line", heads.endless_status_line, *NO_ANSWER),
    case("endless headers", heads.endless_headers, *NO_ANSWER),
    case("one endless header", heads.one_endless_header, *NO_ANSWER),
    case("endless folds of a header", heads.endless_folding, *NO_ANSWER),
    case("headers of a megabyte", heads.headers_of_a_megabyte, *NO_ANSWER),
    case("endless 100", heads.endless_continue, *NO_ANSWER),
    case("endless 103", heads.endless_hints, *NO_ANSWER),
    case("one 100", heads.after_one(heads.CONTINUE), FIGURE),
    case("one 103", heads.after_one(heads.HINTS), FIGURE),
    case("nothing after a 100", heads.only_one(heads.CONTINUE), *NO_ANSWER),
    case("nothing after a 103", heads.only_one(heads.HINTS), *NO_ANSWER),
    case("HTTP/0.9", heads.body_alone, *NO_ANSWER),
    *(case(f"status line: {text}", sending_then(line + length_and_body(), Wire.end_politely), *NO_ANSWER)
      for text, line in [("no number", b"HTTP/1.1 two OK"), ("a negative number", b"HTTP/1.1 -200 OK"),
                         ("a number of 23 digits", b"HTTP/1.1 " + b"2" * 23 + b" OK"), ("HTTP/7.3", b"HTTP/7.3 200 OK"),
                         ("no HTTP", b"220 mail.example.com ESMTP")]),
    *cuts("in the status line", b"HTTP/1.1 2", *NO_ANSWER),
    *cuts("in the headers", HEAD + b"Content-Le", *NO_ANSWER),
    silent("silence in the status line", heads.silent_after(b"HTTP/1.1 2")),
    silent("silence in the headers", heads.silent_after(HEAD)),
    dripping("a status line in drips", heads.dripped(b"", b"HTTP/1.1 200 " + b"O" * 100)),
    dripping("headers in drips", heads.dripped(HEAD, b"X-Filler: " + b"f" * 100)),
]

REDIRECTS = [
    case("redirected to itself", heads.redirect(b"/v1/metrics/"), "⚠ http 302", most_requests=11),
    case("redirected to ever new addresses", heads.endless_new_addresses, "⚠ http 307", most_requests=11),
    *(case(f"redirected {text}", heads.redirect(where), "⚠ http 302", most_requests=1) for text, where in [
        ("to another server", b"https://api.stripe.com/v1/metrics/"),
        ("out of TLS", b"http://api.polar.sh/v1/metrics/"),
        ("to another port", b"https://api.polar.sh:8443/v1/metrics/"), ("to a file", b"file:///etc/passwd"),
        ("to another protocol", b"ftp://api.polar.sh/"), ("with a name and password", b"https://a:b@api.polar.sh/"),
        ("to an address of 20 kB", b"/" + b"a" * 20_000)]),
]

STATUSES = [case(f"status {number}", heads.odd_status(number),
                 {401: "⚠ invalid key", 403: "⚠ forbidden", 422: "⚠ bad request"}.get(number, f"⚠ http {number}"))
            for number in heads.STATUSES]

CHALLENGES = [case(f"challenge: {name}, {number}", heads.challenge(name, number), text, most_requests=1)
              for name in heads.CHALLENGES for number, text in ((401, "⚠ invalid key"), (407, "⚠ http 407"))]

BODIES = [
    case("endless body", bodies.endless_body, LOST),
    case("endless body without a length", bodies.endless_body_without_length, LOST),
    *cuts("in the body", HEAD + b"Content-Length: %d\r\n\r\n" % len(BODY) + HALF, LOST),
    *cuts("before the body", HEAD + b"Content-Length: %d\r\n\r\n" % len(BODY), LOST),
    case("body without a length, ended by an alert", heads.cut_after(HEAD + b"\r\n" + BODY, Wire.end_politely), FIGURE),
    case("body without a length, ended by a bare close", heads.cut_after(HEAD + b"\r\n" + BODY, Wire.end), LOST),
    case("half a body without a length, ended by a bare close", heads.cut_after(HEAD + b"\r\n" + HALF, Wire.end), LOST),
    case("half a body without a length, reset", heads.cut_after(HEAD + b"\r\n" + HALF, Wire.reset), LOST),
    *(case(f"length: {text}", sending_then(length(value), Wire.end_politely), LOST, FAILED) for text, value in [
        ("no number", b"many"), ("negative", b"-5"), ("with a sign", b"+%d" % len(BODY)), ("in hexadecimal", b"0x35"),
        ("with garbage behind", b"%d harm" % len(BODY)), ("nothing", b""), ("one too large", b"%d" % (len(BODY) + 1)),
        ("beyond 63 bits", b"9223372036854775808"), ("beyond 64 bits", b"18446744073709551616"),
        ("of 23 digits", b"9" * 23),
        ("beyond 64 bits, and the body's in the lower ones", b"%d" % ((1 << 64) + len(BODY)))]),
    case("two lengths", sending_then(bodies.TWO_LENGTHS, Wire.end_politely), *NO_ANSWER),
    case("two lengths in one header", sending_then(bodies.TWO_LENGTHS_IN_ONE, Wire.end_politely), *NO_ANSWER),
    case("a length and chunks", sending_then(bodies.LENGTH_AND_CHUNKS, Wire.end_politely), FIGURE, *NO_ANSWER),
    case("another answer behind the body", sending(bodies.WITH_ANOTHER_BEHIND), FIGURE, *NO_ANSWER),
    silent("silence in the body", heads.silent_after(HEAD + b"Content-Length: %d\r\n\r\n" % len(BODY) + HALF)),
    dripping("a body in drips", heads.dripped(HEAD + b"Content-Length: 1000\r\n\r\n", b" " * 1000),
             # The timers of revenue and of two prices come round meanwhile.
             most_requests=4),
]

CHUNKS = [
    case("endless chunks", bodies.endless_chunks, LOST),
    case("chunks of one byte", bodies.chunks_of_one_byte, LOST, most_seconds=30),
    case("endless chunk size", bodies.endless_chunk_size, *NO_ANSWER),
    case("endless chunk extension", bodies.endless_chunk_extension, *NO_ANSWER),
    case("an extension at every chunk", bodies.an_extension_at_every_chunk, *NO_ANSWER),
    case("endless trailers", bodies.endless_trailers, *NO_ANSWER),
    case("one endless trailer", bodies.one_endless_trailer, *NO_ANSWER),
    *cuts("in a chunk size", CHUNKED + chunk(HALF) + b"1", LOST),
    *cuts("in a chunk", CHUNKED + b"%x\r\n" % len(BODY) + HALF, LOST),
    *cuts("between chunks", CHUNKED + chunk(HALF), LOST),
    *cuts("before the last chunk", CHUNKED + chunk(HALF) + chunk(REST), LOST),
    *cuts("in the last chunk", chunked(BODY, end=b"0\r\n"), LOST),
    *(case(f"chunk size: {text}", sending_then(chunk_size(size), Wire.end_politely), *NO_ANSWER) for text, size in [
        ("no number", b"many"), ("nothing", b""), ("negative", b"-5"), ("with a sign", b"+%x" % len(REST)),
        ("too large", b"fffff"), ("one too small", b"%x" % (len(REST) - 1)), ("beyond 63 bits", b"8000000000000000"),
        ("beyond 64 bits", b"1%016x" % len(REST)), ("of 23 digits", b"f" * 23)]),
    # A line feed may end its line by itself: then the chunk has all that is there, and a blank.
    case("chunk size: one too large", sending_then(chunk_size(b"%x" % (len(REST) + 1)), Wire.end_politely), FIGURE,
         *NO_ANSWER),
    case("chunked, and not chunked at last", sending_then(bodies.TWO_CODINGS, Wire.end), *NO_ANSWER),
    case("another answer behind the chunks", sending(bodies.CHUNKED_WITH_ANOTHER_BEHIND), FIGURE, *NO_ANSWER),
    silent("silence in a chunk", heads.silent_after(CHUNKED + b"ff\r\n" + HALF)),
    silent("silence before the last chunk", heads.silent_after(CHUNKED + chunk(HALF) + chunk(REST))),
    silent("silence in the trailers", heads.silent_after(chunked(BODY, end=b"0\r\nX-Trailer: "))),
    dripping("chunks in drips", heads.dripped(CHUNKED, chunk(b" ") * 100)),
    dripping("trailers in drips", heads.dripped(chunked(BODY, end=b"0\r\n"), b"X-Trailer: " + b"t" * 100)),
]

PACKINGS = [
    case("packed: a whole answer", sending(packings.packed(packings.WHOLE_PACKED)), FIGURE),
    case("packed: a gigabyte", sending(packings.BOMB), LOST),
    case("packed: endless", packings.endless_bomb, LOST),
    case("packed: endless parts of nothing", packings.endless_nothing, LOST, most_seconds=20),
    case("packed: endless name of a part", packings.endless_header_of_a_part, LOST),
    case("packed: nothing, packed", sending(packings.PACKED_NOTHING), EMPTY),
    case("packed: nothing, not packed", sending(packings.NOTHING), EMPTY, LOST),
    *(case(f"packed: {text}", sending(answer), LOST) for text, answer in [
        ("not at all", packings.NO_GZIP), ("cut", packings.CUT), ("without its trailer", packings.WITHOUT_TRAILER),
        ("with half of its trailer", packings.HALF_TRAILER), ("with a wrong sum", packings.WRONG_SUM),
        ("with a wrong size", packings.WRONG_SIZE), ("with garbage behind", packings.GARBAGE_BEHIND),
        ("with a cut part behind", packings.CUT_PART_BEHIND),
        ("broken in the middle", packings.BROKEN_IN_THE_MIDDLE),
        ("only the header", packings.ONLY_THE_HEADER)]),
]

PAGES = [
    case("pages: each the connection's last", bodies.end_after_every_page, FIGURE, platform="Stripe", most_requests=4),
    *(case(f"pages: {how} once in place of the second", bodies.once_then_good(end), FIGURE, platform="Stripe",
           most_requests=3)
      for how, end in (("closed", Wire.end), ("closed with an alert", Wire.end_politely), ("reset", Wire.reset))),
    *(case(f"pages: {how} for ever in place of the second", bodies.first_page_then(end), *NO_ANSWER, platform="Stripe",
           most_requests=3)
      for how, end in (("closed", Wire.end), ("reset", Wire.reset))),
    silent("pages: silence in place of the second", bodies.first_page_then(Wire.stay_silent), platform="Stripe",
           most_requests=2),
    case("pages: there is always another one", bodies.endless_pages, "⚠ parse error", platform="Stripe",
         least_seconds=10, most_seconds=3700, most_requests=100_001),
]

ADDRESSES = [
    case(f"two addresses, the first {ipv6}", answers.good(), FIGURE, addresses=TWO_ADDRESSES, ipv6=ipv6)
    for ipv6 in ("refused", "dead", "slow")]

GROUPS = {
    "Handshake": HANDSHAKES, "Certificates": CERTIFICATES, "Head": HEADS, "Statuses": STATUSES, "Redirects": REDIRECTS,
    "Challenges": CHALLENGES, "Body": BODIES, "Chunks": CHUNKS, "Packed bodies": PACKINGS, "Pages": PAGES,
    "Addresses": ADDRESSES,
}
CASES = {each.name: each for group in GROUPS.values() for each in group}
# Those that never end by themselves, in the midst of which the program is asked to quit.
ENDLESS = ["endless headers", "accepted, then silence", "silence in a chunk", "packed: endless", "endless chunk size"]
