"""An HTTPS server in the test's own process: it notes what it is asked, and fails as it is told to."""

import enum
import http.server
import socket
import ssl
import threading
import time
from typing import Mapping, NamedTuple


class Ending(enum.Enum):
    COMPLETE = "the whole answer"
    CUT_BEFORE_ANSWER = "the connection ends without a byte"
    CUT_IN_BODY = "the connection ends after half of the promised body"
    SILENCE = "nothing comes, the connection stays"


class Request(NamedTuple):
    at: float
    method: str
    target: str
    headers: Mapping[str, str]


class Answer(NamedTuple):
    status: int
    body: bytes
    ending: Ending = Ending.COMPLETE
    delay: float = 0  # seconds, after the request was noted


class HttpsServer(http.server.ThreadingHTTPServer):
    """Serves on a socket that listens already, until close(). Subclasses say by `answer(request)` what to answer;
    it is called on a thread of the connection's own."""

    daemon_threads = True

    def __init__(self, listening, certificate):
        super().__init__(listening.getsockname(), Connection, bind_and_activate=False)
        self.socket.close()
        self.socket = listening
        self.requests = []
        self.ended_connections = 0
        self.greeting_delay = 0  # seconds, before a connection's encryption begins
        self.closing = threading.Event()
        self._connections = set()
        self._context = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
        self._context.load_cert_chain(certificate, certificate.with_suffix(".key"))
        threading.Thread(target=self.serve_forever, args=(0.05,), daemon=True).start()

    def get_request(self):
        connection, client = super().get_request()
        # The handshake is left to the connection's thread: one that hangs must not keep the others out.
        secured = self._context.wrap_socket(connection, server_side=True, do_handshake_on_connect=False)
        self._connections.add(secured)
        return secured, client

    def shutdown_request(self, request):
        self._connections.discard(request)
        super().shutdown_request(request)
        self.ended_connections += 1

    def handle_error(self, request, client_address):
        """A client that leaves or refuses the certificate is no error of the server's."""

    def close(self):
        """Ends every connection and listens no more."""
        self.closing.set()
        self.shutdown()
        self.server_close()
        for connection in list(self._connections):
            try:
                connection.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass  # The client went first.


class Connection(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    wbufsize = -1
    disable_nagle_algorithm = True

    def setup(self):
        super().setup()
        self.server.closing.wait(self.server.greeting_delay)

    def do_GET(self):
        request = Request(time.monotonic(), self.command, self.path, self.headers)
        answer = self.server.answer(request)
        # Noted only now: a test that changes the answers once it sees the request changes the next one.
        self.server.requests.append(request)
        self._send(answer)

    def _send(self, answer):
        self.server.closing.wait(answer.delay)
        self.close_connection = answer.ending is not Ending.COMPLETE
        if answer.ending is Ending.SILENCE:
            self.server.closing.wait()
        if answer.ending in (Ending.SILENCE, Ending.CUT_BEFORE_ANSWER):
            return
        self.send_response(answer.status)
        self.send_header("Content-Type", "application/json;charset=utf-8")
        self.send_header("Content-Length", str(len(answer.body)))
        self.end_headers()
        cut = answer.ending is Ending.CUT_IN_BODY
        self.wfile.write(answer.body[:len(answer.body) // 2] if cut else answer.body)

    def log_message(self, *_):
        """Says nothing; the test reads the requests."""
