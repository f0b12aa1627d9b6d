"""A private desktop on a virtual screen: its own X server, buses, secret service and home.

    with VirtualDesktop("gnome") as desktop:
        desktop.start("program", ["some-program"])
        desktop.screen.screenshot("picture.png")

The kinds: "strip" has a window manager and no host for menu-bar items, "bare" neither, for whoever brings both,
"gnome" a GNOME Shell with one, "sway", "labwc" and "kwin" Wayland compositors without one; "sway-in-windows" has
outputs that can be unplugged. Nothing of it outlives the `with` block, and nothing of the user's own session reaches
into it."""

import os
import select
import shutil
import signal
import subprocess
import sys
import tempfile
from pathlib import Path

import gi

gi.require_version("Gio", "2.0")

from desktop import gnome, kwin, labwc, settings_portal, sway
from desktop.accessibility import AccessibilityTree
from desktop.bus import connect_when_there
from desktop.processes import REQUESTS_TO_END, DesktopError, Processes, wait_for
from desktop.screen import Screen

from gi.repository import GLib

KINDS = ("strip", "bare", "gnome", "sway", "sway-in-windows", "labwc", "kwin")
PASSED_ON = ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")

KEYRING = "org.freedesktop.secrets"
# Of the machine's services the one that asks for a keyring's password: the keyring has the bus bring it.
SERVICES = Path("/usr/share/dbus-1/services")
PROMPTER = "org.gnome.keyring.SystemPrompter.service"
SESSION_BUS = """<busconfig>
  <type>session</type>
  <listen>{address}</listen>
  <servicedir>{services}</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


class VirtualDesktop:
    """`has_keyring` is False where a test brings another service for secrets; `shell_extensions` is a folder with
    further extensions of the shell, which `is_wayland` says to run under Wayland, where it can have several
    `monitors`."""

    def __init__(self, kind="strip", size=(1280, 800), compositor=False, has_keyring=True, shell_extensions=None,
                 is_wayland=False, monitors=1):
        if kind not in KINDS:
            raise ValueError(f"no desktop “{kind}”: one of {', '.join(KINDS)}")
        self.kind = kind
        self._size = size
        self._compositor = compositor
        self._has_keyring = has_keyring
        self._shell_extensions = shell_extensions
        self._is_wayland = is_wayland
        self._monitors = monitors
        self._keyring = None
        self.bus = None
        self.screen = None
        self._tree = None
        self._session_bus = None

    def __enter__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="glimmet-desktop-"))
        self.home, self.runtime, logs = (self.folder / name for name in ("home", "run", "log"))
        self._processes = Processes(self.folder, logs)
        try:
            for folder in (self.home, self.runtime, logs):
                folder.mkdir(mode=0o700)
            self.environment = self._fresh_environment()
            self._start_parts()
        except BaseException as error:
            self._close_after(error)
            raise
        return self

    def __exit__(self, _kind, error, _traceback):
        self._close_after(error)

    def _close_after(self, error):
        """Closes, and tells what the parts said where one of them failed; an interrupt needs no explanation."""
        try:
            if isinstance(error, Exception):
                self._print_logs()
        finally:
            self.close()

    def _fresh_environment(self):
        kept = {name: os.environ[name] for name in PASSED_ON if name in os.environ}
        return kept | {
            "HOME": str(self.home),
            "XDG_RUNTIME_DIR": str(self.runtime),
            "XDG_CONFIG_HOME": str(self.home / ".config"),
            "LANG": "C.UTF-8",
            "QT_QUICK_BACKEND": "software",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        } | self._environment_of_kind()

    def _environment_of_kind(self):
        if self.kind == "gnome":
            return gnome.WAYLAND_ENVIRONMENT if self._is_wayland else gnome.ENVIRONMENT
        return {"sway": sway.ENVIRONMENT, "sway-in-windows": sway.ENVIRONMENT_IN_WINDOWS,
                "labwc": labwc.ENVIRONMENT, "kwin": kwin.ENVIRONMENT}.get(self.kind, {})

    def _start_parts(self):
        if self.kind not in ("sway", "labwc", "kwin") and not self._is_wayland:
            self.environment["DISPLAY"] = self.start_screen("screen", "-noreset")
            self.screen = Screen(self.environment, self._size)
        self.start_session_bus()
        if self.kind == "gnome":
            gnome.start_system_bus(self)
            self._start_shell()
        elif self.kind == "sway":
            sway.start(self, self._size)
        elif self.kind == "kwin":
            kwin.start(self, self._size)
        elif self.kind == "sway-in-windows":
            self._start_window_manager()
            sway.start(self, self._size, Screen(self.environment.copy(), self._size))
        elif self.kind == "labwc":
            labwc.start(self, self._size)
        elif self.kind == "strip":
            self._start_window_manager()
        # Away from whatever reacts to a pointer over it.
        self.screen.move(self._size[0] // 2, self._size[1] - 20)

    def _start_shell(self):
        if self._is_wayland:
            gnome.start_wayland_shell(self, self._size, self._shell_extensions, self._monitors)
        else:
            gnome.start_shell(self, self._shell_extensions)

    def start_screen(self, name, *options):
        """Starts an X server and returns its display."""
        read, write = os.pipe()
        geometry = f"{self._size[0]}x{self._size[1]}x24"
        self.start(name, ["Xvfb", "-displayfd", str(write), "-screen", "0", geometry, "-nolisten", "tcp",
                          "+extension", "RANDR", "+extension", "XTEST", *options], pass_fds=(write,))
        os.close(write)
        with os.fdopen(read) as answer:
            ready, _, _ = select.select([answer], [], [], 20)
            number = answer.readline().strip() if ready else ""
        if not number:
            raise DesktopError("the virtual screen did not start")
        return f":{number}"

    def start_session_bus(self):
        """Starts the session bus and its services, or after stop_session_bus again, under the same address."""
        socket = self.runtime / "bus"
        address = self.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={socket}"
        self._session_bus = self.start("session-bus", [
            "dbus-daemon", self._session_configuration(address), "--nofork", "--nopidfile", f"--address={address}"])
        self.bus = connect_when_there(address)
        self._start_services()

    def _session_configuration(self, address):
        """A shell has the machine's services started that belong to it. Without one they would bring whatever other
        desktop the machine has; all that is needed then is started here."""
        if self.kind == "gnome":
            return "--session"
        configuration = self.folder / "session-bus.conf"
        services = self.folder / "services"
        services.mkdir(exist_ok=True)
        shutil.copy(SERVICES / PROMPTER, services)
        configuration.write_text(SESSION_BUS.format(address=address, services=services))
        return f"--config-file={configuration}"

    def stop_session_bus(self):
        """Kills the session bus, as a crash of it would; its services end with it."""
        self._session_bus.kill()
        self._session_bus.wait()
        (self.runtime / "bus").unlink(missing_ok=True)
        self.bus.close()
        self._tree = None

    def has_session_bus(self):
        return self._session_bus.poll() is None

    def start_keyring(self):
        """Starts the keyring, unlocked."""
        self._keyring = self.start("keyring", [
            "gnome-keyring-daemon", "--foreground", "--unlock", "--components=secrets"], stdin=subprocess.PIPE)
        self._keyring.stdin.write(b"password")
        self._keyring.stdin.close()
        wait_for(lambda: self.bus.owner(KEYRING), 15, KEYRING)

    def kill_keyring(self):
        self._keyring.kill()
        self._keyring.wait()

    def has_keyring_failed(self):
        """Whether the keyring found fault with itself, at which it stops itself as a debugger would."""
        return self._keyring is not None and self._keyring.poll() == -signal.SIGTRAP

    def _start_services(self):
        if self._has_keyring:
            self.start_keyring()
        self.start("accessibility", ["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"])
        self.start("portal", [sys.executable, settings_portal.__file__])
        for name in ("org.a11y.Bus", settings_portal.NAME):
            wait_for(lambda: self.bus.owner(name), 15, name)

    def _start_window_manager(self):
        self.start("openbox", ["openbox", "--sm-disable"])
        self.wait_for_window_manager()
        if self._compositor:
            self.start("picom", ["picom", "--backend", "xrender", "--config", "/dev/null"])
            wait_for(lambda: self.screen.windows("picom") or self._is_composited(), 15, "the compositor")

    def wait_for_window_manager(self, seconds=15):
        wait_for(self._follows_wishes, seconds, "the window manager")

    def _follows_wishes(self):
        """Whether the window manager does what it is asked. It announces itself long before it handles events, and
        a window that appears in between may never be shown."""
        self.screen.run("xdotool", "set_num_desktops", "1", check=False)
        return self.screen.run("xdotool", "get_num_desktops", check=False).strip() == "1"

    def _is_composited(self):
        return "picom" in self.screen.run("xwininfo", "-root", "-tree")

    def start(self, name, command, environment=None, **options):
        """Starts a program inside the desktop; `environment` adds to the desktop's own."""
        return self._processes.start(name, command, self.environment | (environment or {}), **options)

    def stop(self, process, seconds=5):
        return self._processes.stop(process, seconds)

    def running(self):
        """The ids of all its processes."""
        return self._processes.running()

    def run(self, *command):
        """Runs a tool inside the desktop to its end and returns what it printed."""
        result = subprocess.run(command, env=self.environment, capture_output=True, text=True, timeout=30)
        if result.returncode != 0:
            raise DesktopError(f"{' '.join(command)} failed: {result.stderr}")
        return result.stdout

    def log(self, name):
        """What the program started under this name has printed."""
        return self._processes.log(name).read_text(errors="replace")

    @property
    def tree(self):
        """The desktop's accessibility tree."""
        if self._tree is None:
            self._tree = AccessibilityTree(self.bus)
        return self._tree

    def prefer(self, scheme):
        """Sets the appearance for all programs: "light" or "dark"."""
        value = GLib.Variant("u", {"light": 2, "dark": 1}[scheme])
        self.bus.call(settings_portal.NAME, settings_portal.PATH, settings_portal.CONTROL, "Change",
                      GLib.Variant("(ssv)", ("org.freedesktop.appearance", "color-scheme", value)))
        if self.kind == "gnome":
            choice = "prefer-dark" if scheme == "dark" else "prefer-light"
            self.run("gsettings", "set", "org.gnome.desktop.interface", "color-scheme", choice)

    def close(self):
        """Ends everything; an interruption meanwhile waits until that is done."""
        before = {number: signal.signal(number, signal.SIG_IGN) for number in REQUESTS_TO_END}
        try:
            for connection in (self.screen, self._tree, self.bus):
                if connection:
                    connection.close()
            self._processes.stop_all()
            shutil.rmtree(self.folder, ignore_errors=True)
        finally:
            for number, handler in before.items():
                signal.signal(number, handler)

    def _print_logs(self):
        for log in sorted((self.folder / "log").glob("*.log")):
            lines = log.read_text(errors="replace").splitlines()[-15:]
            print(f"--- {log.name}", *lines, sep="\n", file=sys.stderr)
