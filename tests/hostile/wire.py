"""One connection of a hostile server, and the listener that hands connections to what a case does with them.

A behaviour is a function of a Wire. It runs on a thread of the connection's own and ends with the client's leaving,
with the listener's closing, or by itself; whatever it sends without end is bounded."""

import select
import socket
import ssl
import struct
import threading
import time

# Bytes that a flood sends at most, and seconds that it lasts at most: who takes them all has failed by then.
FLOOD = 96 << 20
FLOOD_SECONDS = 30
PIECE = 16 << 10


class Gone(Exception):
    """The client went, or the listener closed."""


class Wire:
    def __init__(self, server, connection):
        self.server = server
        self.asked = []
        self.sent = 0
        self._socket = connection
        self._socket.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self._incoming, self._outgoing = ssl.MemoryBIO(), ssl.MemoryBIO()
        self._tls = None
        self._interrupted = threading.Event()
        self._leaving = select.poll()
        self._leaving.register(connection, select.POLLRDHUP)

    # Bytes as TCP has them.

    def send_raw(self, data):
        try:
            self._socket.sendall(data)
        except OSError:
            raise Gone from None
        if self._interrupted.is_set():
            raise Gone
        self.sent += len(data)

    def read_raw(self):
        try:
            data = self._socket.recv(65536)
        except OSError:
            raise Gone from None
        if not data:
            raise Gone
        return data

    def pause(self, seconds):
        """Does nothing for so long; ends early with the client's leaving."""
        end = time.monotonic() + seconds
        while (left := end - time.monotonic()) > 0:
            if self._interrupted.wait(min(left, 0.05)) or self._leaving.poll(0):
                raise Gone

    def stay_silent(self):
        """Says nothing more, and stays until the client leaves."""
        self.pause(3600)

    def interrupt(self):
        """Ends what the connection's own thread is doing; from any thread."""
        self._interrupted.set()
        try:
            self._socket.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass  # The client went first.

    def end(self):
        """Ends the connection without a word of TLS."""
        self.interrupt()
        self._socket.close()

    def reset(self):
        """Breaks the connection as a crash would."""
        self._socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        self._socket.close()

    # The same through TLS.

    def secure(self, context=None, send=None):
        """Shakes hands; `send` is how the server's part of that goes out."""
        context = context or self.server.context
        self._tls = context.wrap_bio(self._incoming, self._outgoing, server_side=True)
        while True:
            try:
                self._tls.do_handshake()
                return self._flush(send)
            except ssl.SSLWantReadError:
                self._flush(send)
                self._incoming.write(self.read_raw())
            except ssl.SSLError:
                self._flush(send)
                raise Gone from None

    def _flush(self, send=None):
        if self._outgoing.pending:
            (send or self.send_raw)(self._outgoing.read())

    def send(self, data):
        self._tls.write(data)
        self._flush()

    def read(self):
        while True:
            try:
                data = self._tls.read(65536)
            except ssl.SSLWantReadError:
                self._incoming.write(self.read_raw())
                continue
            except ssl.SSLError:
                raise Gone from None
            if not data:
                raise Gone
            return data

    def read_request(self):
        """The head of the next request, as text; noted by the listener."""
        head = b""
        while b"\r\n\r\n" not in head:
            head += self.read()
        request = head.decode("latin-1")
        self.asked.append(request)
        self.server.requests.append(request)
        return request

    def send_alert(self):
        """Says that this was all, as TLS has it."""
        try:
            self._tls.unwrap()
        except ssl.SSLError:
            pass  # The client has not said so too; that is not waited for.
        self._flush()

    def end_politely(self):
        self.send_alert()
        self.end()

    def drip(self, data, seconds=5.0):
        """Sends byte after byte with a pause before each."""
        for byte in data:
            self.pause(seconds)
            self.send(bytes([byte]))

    def flood(self, pieces):
        """Sends the pieces until the client leaves, or the bounds of a flood are reached."""
        end = time.monotonic() + FLOOD_SECONDS
        start = self.sent
        for piece in pieces:
            self.send(piece)
            if self.sent - start > FLOOD or time.monotonic() > end:
                break
        self.stay_silent()


class Listener:
    """Takes connections until close() and has `behaviour` deal with each; that may be changed at any moment."""

    def __init__(self, listening, context, behaviour):
        self.context = context
        self.behaviour = behaviour
        self.requests = []
        self.connections = 0
        self.closing = threading.Event()
        self._listening = listening
        self._wires = set()
        self._lock = threading.Lock()
        threading.Thread(target=self._take, daemon=True).start()

    def _take(self):
        while not self.closing.is_set():
            try:
                connection, _ = self._listening.accept()
            except OSError:
                return
            wire = Wire(self, connection)
            with self._lock:
                self._wires.add(wire)
                self.connections += 1
            threading.Thread(target=self._deal_with, args=(wire,), daemon=True).start()

    def _deal_with(self, wire):
        try:
            self.behaviour(wire)
        except Gone:
            pass
        finally:
            wire.end()
            with self._lock:
                self._wires.discard(wire)

    def become(self, behaviour, context):
        """Deals with connections in another way from now on. Those that are open end, and nothing is remembered."""
        self.behaviour, self.context = behaviour, context
        with self._lock:
            open_wires = list(self._wires)
        for wire in open_wires:
            wire.interrupt()
        self.requests, self.connections = [], 0

    def close(self):
        self.closing.set()
        try:
            self._listening.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass  # Nothing to end.
        self._listening.close()
        self.become(lambda wire: None, self.context)
