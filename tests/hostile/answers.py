"""What the servers of the table have in common: a true answer, and a good server that gives one."""

import json

PRICES = "query1.finance.yahoo.com"
# The true answer's revenue in cents, and how the program shows it.
CENTS, FIGURE = 1700, "💰 $17.00"
HEAD = b"HTTP/1.1 200 OK\r\nContent-Type: application/json\r\n"


def metrics(cents):
    """A body with that revenue, for each platform that is asked here. The first bytes are those that are logged."""
    sale = {"id": "ch_1", "status": "succeeded", "currency": "usd", "amount": cents, "created": 1735689600}
    return json.dumps({"periods": [{"revenue": cents, "succeeded_checkouts": 1}], "data": [sale],
                       "has_more": False}).encode()


BODY = metrics(CENTS)


def with_length(body, head=HEAD):
    return head + b"Content-Length: %d\r\n\r\n" % len(body) + body


def chunk(data):
    return b"%x\r\n%s\r\n" % (len(data), data)


def chunked(body, *, pieces=4, end=b"0\r\n\r\n", head=HEAD):
    size = -(-len(body) // pieces)
    chunks = b"".join(chunk(body[start:start + size]) for start in range(0, len(body), size))
    return head + b"Transfer-Encoding: chunked\r\n\r\n" + chunks + end


def status(line, headers=b"", body=b"{}"):
    return b"HTTP/1.1 %s\r\n%sContent-Length: %d\r\n\r\n%s" % (line, headers, len(body), body)


NOT_FOUND = status(b"404 Not Found")
WHOLE = with_length(BODY)


def host_of(request):
    return next((line[5:].strip() for line in request.split("\r\n") if line.lower().startswith("host:")), "")


def answering(give):
    """A server that is good up to its answers, which `give(wire)` writes. Prices are not what it is asked about."""
    def serve(wire):
        wire.secure()
        while True:
            if host_of(wire.read_request()) == PRICES:
                wire.send(NOT_FOUND)
            else:
                give(wire)

    return serve


def sending(answer):
    """A server that gives the same bytes to each request and waits for the next one."""
    return answering(lambda wire: wire.send(answer))


def sending_then(answer, end):
    """The same, with an end of the connection after the bytes: an operation of Wire."""
    def give(wire):
        wire.send(answer)
        end(wire)

    return answering(give)


def good(cents=CENTS):
    return sending(with_length(metrics(cents)))
