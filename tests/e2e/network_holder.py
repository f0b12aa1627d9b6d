"""Holds a test's own network open: started inside, it puts the files in their places and does what it is asked.

Its standard input is a socket. A request there is a list: ["run", COMMAND...], or ["listen", PORT], which answers with
a listening socket. It ends with the test, and at a request that fails."""

import json
import os
import socket
import subprocess
import sys

PLACES = ("/etc/hosts", "/etc/resolv.conf", "/etc/ssl/certs")


def run(*command):
    subprocess.run(command, check=True, stdin=subprocess.DEVNULL)


def answer(channel, action, *arguments):
    if action == "run":
        run(*arguments)
        channel.send(b"done")
    elif action == "listen":
        with socket.create_server(("", *arguments)) as listening:
            socket.send_fds(channel, [b"done"], [listening.fileno()])


def hold(*files):
    for own, place in zip(files, PLACES, strict=True):
        run("mount", "--bind", own, place)
    with socket.socket(fileno=os.dup(0)) as channel:
        while request := channel.recv(4096):
            answer(channel, *json.loads(request))


if __name__ == "__main__":
    hold(*sys.argv[1:])
