"""Namespaces of a test's own: what a program sees of the system there is the test's to say.

Root makes them as it likes. A plain user may do so only in a user namespace, which some systems refuse, or grant
without any rights in it; what needs one says so by `reason_to_skip`."""

import os
import socket
import subprocess

IS_ROOT = os.geteuid() == 0
# The user must stay the same one there for the bus.
USER = [] if IS_ROOT else ["--user", "--map-current-user", "--keep-caps"]
NETWORK_AND_MOUNTS = ["--net", "--mount"]


def inside_own(kinds):
    """What to put before a command to start it in namespaces of its own."""
    return ["unshare", *USER, *kinds, "--"]


def reason_of_failure(trial):
    """The reason for which a command that makes namespaces does not work here; None where it does."""
    result = subprocess.run(trial, capture_output=True, text=True)
    said = " ".join(result.stderr.split())
    return f"it takes root, or a system that lets every user make namespaces ({said})" if result.returncode else None


def reason_to_skip():
    """Why this user can have no network and no mounts of its own here, in one line; None where it can. Root has no such
    reason: where root cannot, that is a failure."""
    trial = [*inside_own(NETWORK_AND_MOUNTS), "mount", "-t", "tmpfs", "none", "/tmp"]
    return None if IS_ROOT else reason_of_failure(trial)


def reason_to_skip_ipv6():
    """The same for what needs IPv6 there, which a system may have been started without."""
    try:
        socket.socket(socket.AF_INET6).close()
    except OSError as error:
        return f"this system has no IPv6 ({error.strerror})"
    return reason_to_skip()
