"""Orca in a virtual desktop, and a speech server that keeps what Orca would have it say.

The server stands in for speech-dispatcher and speaks its protocol, SSIP. A real one drops what a key interrupts before
it is said, so what is heard there depends on how fast the machine is; this one keeps every line that Orca sends."""

import html
import re
import socketserver
import threading
from pathlib import Path

from desktop.processes import wait_for

GREETING = "Screen reader on."


class SpeechServer(socketserver.ThreadingUnixStreamServer):
    """Listens on a socket, and keeps each line as plain text."""

    daemon_threads = True

    def __init__(self, socket):
        self.lines = []
        super().__init__(str(socket), SpeechConnection)
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def close(self):
        self.shutdown()
        self.server_close()
        Path(self.server_address).unlink()


class SpeechConnection(socketserver.StreamRequestHandler):
    """One client. Each command is answered with a code; what asks for a value gets one that hurts nobody."""

    VALUES = {"HISTORY": ("245", "1"), "LIST": ("250", "recorder"), "GET": ("251", "0")}
    TAKEN, SPOKEN, LISTENING, FAREWELL = ("200",), ("225", "1"), ("230",), ("231",)

    def handle(self):
        for line in self._lines():
            command, _, rest = line.partition(" ")
            if command == "SPEAK":
                self._answer(*self.LISTENING)
                self._say(plain(self._data()))
            elif command in ("CHAR", "KEY"):
                self._say(rest)
            elif command == "QUIT":
                return self._answer(*self.FAREWELL)
            else:
                self._answer(*self.VALUES.get(command, self.TAKEN))

    def _lines(self):
        return (line.decode().rstrip("\r\n") for line in self.rfile)

    def _data(self):
        """The lines up to that of a single dot; any other that begins with one has it doubled."""
        found = []
        for line in self._lines():
            if line == ".":
                break
            found.append(line.removeprefix(".") if line.startswith("..") else line)
        return "\n".join(found)

    def _say(self, text):
        self.server.lines.append(text)
        self._answer(*self.SPOKEN)

    def _answer(self, code, *values):
        lines = [f"{code}-{value}" for value in values] + [f"{code} OK"]
        self.wfile.write("".join(f"{line}\r\n" for line in lines).encode())


def plain(ssml):
    return " ".join(html.unescape(re.sub("<[^>]*>", "", ssml)).split())


class Orca:
    """Running from the beginning of the `with` block to its end."""

    def __init__(self, desktop):
        self._desktop = desktop

    def __enter__(self):
        folder = self._desktop.runtime / "speech-dispatcher"
        folder.mkdir(exist_ok=True)
        self._server = SpeechServer(folder / "speechd.sock")
        self._process = self._desktop.start("orca", ["/usr/bin/orca"], {"PATH": self._path_without_others()})
        wait_for(lambda: GREETING in self.lines, 30, "Orca to say that it is there")
        return self

    def __exit__(self, *_):
        self._desktop.stop(self._process)
        self._server.close()

    def _path_without_others(self):
        """Orca gives way to another one of the same user, which it looks for on the whole machine. The one that the
        tests' user may need is on another desktop: let it not be found."""
        folder = self._desktop.folder / "tools"
        folder.mkdir(exist_ok=True)
        if not (folder / "pgrep").is_symlink():
            (folder / "pgrep").symlink_to("/bin/false")
        return f"{folder}:{self._desktop.environment['PATH']}"

    @property
    def lines(self):
        """All that has been said so far."""
        return list(self._server.lines)
