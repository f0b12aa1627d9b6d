"""A network of a program's own, in which the servers that it asks are the test's.

The shipped program cannot be told to ask another server. So it runs where the names of its servers stand for this
machine and where only the test's authority is trusted: the network, the names in it and the trusted certificates are
its own, everything else it shares with the desktop.

    network = OwnNetwork(desktop, ["api.example.com"], "authority.pem")
    server = HttpsServer(network.listen(443), ...)
    desktop.start("program", [*network.wrapper, "some-program"])

The servers live in the test's process all the same: a listening socket belongs to the network it was made in, so the
process that holds the network open (network_holder.py) makes it there and hands it out."""

import json
import shutil
import socket
import subprocess
import sys
from pathlib import Path

from desktop.own_namespaces import IS_ROOT, NETWORK_AND_MOUNTS, inside_own
from desktop.processes import DesktopError

HOLDER = Path(__file__).with_name("network_holder.py")
LOOPBACK = ("127.0.0.1",)
TWO_ADDRESSES = ("::1", "127.0.0.1")


class OwnNetwork:
    """Lives as long as the desktop; plugged in at first. Each name has all of `addresses`."""

    def __init__(self, desktop, hosts, authority, addresses=LOOPBACK):
        self._desktop = desktop
        self._folder = desktop.folder / "network"
        self._hosts = self._folder / "hosts"
        self._resolver = self._folder / "resolv.conf"
        self._trusted = self._folder / "trusted"
        self._known_names = "".join(
            f"{address} {name}\n" for name in ("localhost", *hosts) for address in addresses)
        self._write_files(authority)
        self._channel, theirs = socket.socketpair(socket.AF_UNIX, socket.SOCK_SEQPACKET)
        with theirs:
            self._holder = desktop.start("network", [
                *inside_own(NETWORK_AND_MOUNTS), sys.executable, "-B", str(HOLDER),
                str(self._hosts), str(self._resolver), str(self._trusted)], stdin=theirs)
        self._ask("run", "ip", "link", "set", "lo", "up")

    def _write_files(self, authority):
        self._trusted.mkdir(parents=True)
        self._hosts.write_text(self._known_names)
        # Nobody listens there: any other name is unknown at once, or a question that is never answered.
        self._resolver.write_text("nameserver 127.0.0.1\n")
        # Readers of the trust store look for one bundle, for each certificate, or for names made of hashes.
        for name in ("ca-certificates.crt", "authority.pem"):
            shutil.copy(authority, self._trusted / name)
        subprocess.run(["openssl", "rehash", str(self._trusted)], check=True, capture_output=True)

    @property
    def wrapper(self):
        """What to put before a program's command to start it inside."""
        user = [] if IS_ROOT else ["--user", "--preserve-credentials"]
        return ["nsenter", f"--target={self._holder.pid}", *user, *NETWORK_AND_MOUNTS, "--"]

    def listen(self, port, address=""):
        """A socket that listens inside, at one address, or at all that are IPv4."""
        number, = self._ask("listen", port, address)
        return socket.socket(fileno=number)

    def let_programs_listen_everywhere(self):
        """Also those that are not root's at the ports below 1024."""
        self._ask("run", "sh", "-c", "echo 0 >/proc/sys/net/ipv4/ip_unprivileged_port_start")

    def swallow(self, port, address):
        """Has what is sent there come to nothing, as on a network that leads nowhere: no answer, and no refusal.
        Returns the socket that listens there, and the connection that takes all the room that it has."""
        return [socket.socket(fileno=number) for number in self._ask("swallow", port, address)]

    def unplug(self):
        """Takes the network away as far as the program can see: no address, no way out, no names."""
        self._hosts.write_text("")
        self._ask("run", "ip", "link", "set", "lo", "down")
        self._ask("run", "ip", "address", "flush", "dev", "lo")

    def lose_everything_sent(self):
        """Leaves the program its address and the way out, and nothing arrives, nor does a question for a name."""
        self._hosts.write_text("")
        self._ask("run", "ip", "link", "set", "lo", "down")

    def plug_in(self):
        self._hosts.write_text(self._known_names)
        self._ask("run", "ip", "link", "set", "lo", "up")

    def _ask(self, *request):
        """Has the holder do something inside and returns the descriptors that it answers with."""
        try:
            self._channel.send(json.dumps(request).encode())
            answer, descriptors, _, _ = socket.recv_fds(self._channel, 16, 2)
        except OSError:
            answer, descriptors = b"", []
        if not answer:
            raise DesktopError(f"no network of its own (it takes root, or a system that lets every user make "
                               f"namespaces): {self._desktop.log('network')}")
        return descriptors
