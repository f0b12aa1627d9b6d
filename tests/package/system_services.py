"""The system's side of a clean system: its own system bus, which starts PackageKit and polkit when they are asked."""

import subprocess

from desktop.processes import wait_for
from package.login import end

SOCKET = "/run/dbus/system_bus_socket"
# Nobody sits there to be asked for a password.
RULE = """polkit.addRule(function(action, subject) {
    if (action.id.startsWith("org.freedesktop.packagekit.") && subject.user == "person")
        return polkit.Result.YES;
});
"""


class SystemServices:
    """Runs until the end of the `with` block. What the bus has started ends with the clean system."""

    def __init__(self, room):
        self._room = room

    def __enter__(self):
        rule = self._room.path("/etc/polkit-1/rules.d/10-trial.rules")
        rule.write_text(RULE)
        rule.chmod(0o644)
        self._room.path(SOCKET).parent.mkdir(exist_ok=True)
        line, environment = self._room.command("dbus-daemon", "--system", "--nofork", "--nopidfile")
        with open(self._room.path("/tmp/system-bus.log"), "wb") as log:
            self._bus = subprocess.Popen(line, env=environment, stdout=log, stderr=log)
        try:
            wait_for(self._room.path(SOCKET).exists, 15, "the system bus")
        except BaseException:
            end(self._bus)
            raise
        return self

    def __exit__(self, *_):
        end(self._bus)
