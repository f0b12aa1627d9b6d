"""Holds a test's own network open: started inside, it puts the files in their places and does what it is asked.

Its standard input is a socket. A request there is a list: ["run", COMMAND...], ["listen", PORT, ADDRESS], which answers
with a listening socket, or ["swallow", PORT, ADDRESS], with one that takes nobody any more and the connection that it
took. It ends with the test, and at a request that fails."""

import json
import os
import socket
import subprocess
import sys

PLACES = ("/etc/hosts", "/etc/resolv.conf", "/etc/ssl/certs")


def run(*command):
    subprocess.run(command, check=True, stdin=subprocess.DEVNULL)


def listen(port, address, **options):
    family = socket.AF_INET6 if ":" in address else socket.AF_INET
    return socket.create_server((address, port), family=family, **options)


def answer(channel, action, *arguments):
    if action == "run":
        run(*arguments)
        channel.send(b"done")
    elif action == "listen":
        with listen(*arguments) as listening:
            socket.send_fds(channel, [b"done"], [listening.fileno()])
    elif action == "swallow":
        port, address = arguments
        # The one connection that there is room for is there: the system drops every further request for one.
        with listen(port, address, backlog=0) as full, socket.create_connection((address, port)) as only:
            socket.send_fds(channel, [b"done"], [full.fileno(), only.fileno()])


def hold(*files):
    for own, place in zip(files, PLACES, strict=True):
        run("mount", "--bind", own, place)
    with socket.socket(fileno=os.dup(0)) as channel:
        while request := channel.recv(4096):
            answer(channel, *json.loads(request))


if __name__ == "__main__":
    hold(*sys.argv[1:])
