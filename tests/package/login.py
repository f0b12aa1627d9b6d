"""A user's session in a clean system, on a virtual screen of this machine, and what the program shows in it."""

import configparser
import os
import re
import select
import shlex
import subprocess
from contextlib import ExitStack, contextmanager

from desktop.accessibility import AccessibilityTree
from desktop.bus import Bus
from desktop.processes import DesktopError, wait_for
from desktop.screen import Area, Screen
from desktop.without_network import without_network
from rooms.clean_room import RUNTIME, USER, Room

NAME = "me.kerno.glimmet"
MENU_ENTRY = f"/usr/share/applications/{NAME}.desktop"
STRIP, PANEL = "glimmet strip", "glimmet"
SIZE = (1280, 800)
PASSWORD = b"password"
LOGIN_GENERATOR = "/usr/lib/systemd/user-generators/systemd-xdg-autostart-generator"
LOGIN_UNITS = f"{RUNTIME}/units"
COMPLAINTS = re.compile(r"qml|module|panel:|symbol|cannot|error|fail", re.IGNORECASE)


@contextmanager
def clean_system(name, options):
    """A room that shows its windows on this machine's virtual screen, and knows which packages there are."""
    with Room(name, options.cache, options.release, shared=["/tmp/.X11-unix"]) as room:
        room.apt("update")
        yield room


def tell(line):
    print(line, flush=True)


def check(holds, sentence, details=""):
    if not holds:
        raise AssertionError(f"not so: {sentence}\n{details}".rstrip())
    tell(f"  ok: {sentence}")


def end(process, seconds=10):
    process.terminate()
    try:
        return process.wait(seconds)
    except subprocess.TimeoutExpired:
        process.kill()
        return process.wait()


@contextmanager
def as_user():
    """To a bus of the user's, which takes nobody else, not even root."""
    user, group = map(int, USER.split(":"))
    os.setegid(group)
    os.seteuid(user)
    try:
        yield
    finally:
        os.seteuid(0)
        os.setegid(0)


class VirtualScreen:
    """An X server and a window manager of this machine; the clean system has neither."""

    def __init__(self, stack):
        read, write = os.pipe()
        server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", f"{SIZE[0]}x{SIZE[1]}x24",
                                   "-nolisten", "tcp", "-ac", "-noreset"], pass_fds=(write,),
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        stack.callback(end, server)
        os.close(write)
        with os.fdopen(read) as answer:
            ready, _, _ = select.select([answer], [], [], 20)
            number = answer.readline().strip() if ready else ""
        check(number, "a virtual screen is there")
        self.display = f":{number}"
        environment = os.environ | {"DISPLAY": self.display}
        self.screen = Screen(environment, SIZE)
        manager = subprocess.Popen(["openbox", "--sm-disable"], env=environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        stack.callback(end, manager)
        wait_for(lambda: "window id #" in self.screen.root_property("_NET_SUPPORTING_WM_CHECK"), 15,
                 "the window manager")


class Login:
    """The user's session in a clean system: the variables, and whatever runs in it, which ends with the block."""

    def __init__(self, room, virtual):
        self.room = room
        self.screen = virtual.screen
        self.environment = {"DISPLAY": virtual.display, "XDG_RUNTIME_DIR": RUNTIME}
        self._stack = ExitStack()
        self._bus = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._stack.close()

    def start(self, *command, before=(), **options):
        """Starts a command of the clean system; `before` is what to put before it, of this machine's."""
        line, environment = self.room.command(*command, user=USER, environment=self.environment)
        process = subprocess.Popen([*before, *line], env=environment, **options)
        self._stack.callback(end, process)
        return process

    def run(self, *command, **options):
        return self.room.run(*command, user=USER, environment=self.environment, **options)

    def start_bus(self):
        address = f"unix:path={RUNTIME}/bus"
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        with open(self.room.path("/tmp/session-bus.log"), "wb") as log:
            self._bus = self.start("dbus-daemon", "--session", "--nofork", "--nopidfile", f"--address={address}",
                                   stdout=log, stderr=log)
        wait_for(lambda: self._answers("org.freedesktop.DBus"), 15, "the session bus")

    def start_keyring(self):
        keyring = self.start("gnome-keyring-daemon", "--foreground", "--unlock", "--components=secrets",
                             stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        keyring.stdin.write(PASSWORD)
        keyring.stdin.close()
        wait_for(lambda: self._answers("org.freedesktop.secrets"), 15, "the keyring")

    def open_tree(self):
        """Connects from this machine to the session's bus and its accessibility tree, and returns both. What is started
        from then on is in the tree."""
        self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        bus = self._connect(self.environment["DBUS_SESSION_BUS_ADDRESS"])
        self._stack.callback(bus.close)
        tree = AccessibilityTree(bus, self._connect)
        self._stack.callback(tree.close)
        return bus, tree

    def _connect(self, address):
        # The way to the folder of the clean system may be longer than an address can be, and closed to its user.
        inside = f"/proc/{self._bus.pid}/root"
        with as_user():
            return Bus(address.replace("unix:path=", f"unix:path={inside}"))

    def _answers(self, name):
        try:
            answer = self.run("dbus-send", "--print-reply", "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
                              "org.freedesktop.DBus.NameHasOwner", f"string:{name}")
        except RuntimeError:
            return False
        return "boolean true" in answer

    def label(self):
        """The text on the bus, empty while there is none."""
        try:
            answer = self.run("dbus-send", "--print-reply", f"--dest={NAME}", "/StatusNotifierItem",
                              "org.freedesktop.DBus.Properties.Get", "string:org.kde.StatusNotifierItem",
                              "string:XAyatanaLabel")
        except RuntimeError:
            return ""
        found = re.search(r'string "([^"]+)"', answer)
        return found.group(1) if found else ""

    def launch(self, entry):
        """Starts what a desktop entry says, as a desktop does; returns the process and the log of its output."""
        reader = configparser.ConfigParser(interpolation=None)
        reader.read(self.room.path(entry))
        return self.launch_line(reader["Desktop Entry"]["Exec"])

    def launch_line(self, line):
        """Starts a program, without a network: nothing that is typed here is to reach anybody."""
        log = self.room.path("/tmp/glimmet.log")
        with open(log, "wb") as output:
            return self.start(*shlex.split(line), before=without_network(), stdout=output, stderr=output), log

    def line_at_login(self):
        """What systemd starts of the program at a login, by its own reading of the entries; None: nothing."""
        self.run("rm", "-rf", LOGIN_UNITS)
        self.run("mkdir", LOGIN_UNITS)
        self.run(LOGIN_GENERATOR, *[LOGIN_UNITS] * 3)
        unit = self.room.path(f"{LOGIN_UNITS}/app-{NAME}@autostart.service")
        return re.search(r"^ExecStart=:?(.+)$", unit.read_text(), re.MULTILINE)[1] if unit.exists() else None


def colours(screen, area):
    pixels = screen.pixels(area)
    return len({pixels[at:at + 3] for at in range(0, len(pixels), 3)})


def look_at(login, picture, entry=MENU_ENTRY):
    """Starts the program, looks at its text and its panel, takes a picture of them and ends it."""
    process, log = login.launch(entry)
    try:
        look_at_windows(login, picture)
    except DesktopError as error:
        raise AssertionError(f"{error}\n{log.read_text(errors='replace')}") from None
    status = end(process)
    said = log.read_text(errors="replace")
    check(status == 0, "it ends when it is asked to", f"status {status}\n{said}")
    check(not COMPLAINTS.search(said), "it misses nothing and complains of nothing", said)


def look_at_windows(login, picture):
    screen = login.screen
    strip = screen.wait_for_window(STRIP, 20)
    if "DBUS_SESSION_BUS_ADDRESS" in login.environment:
        label = wait_for(login.label, 10, "the text on the bus")
        check(label, f"its text is on the bus: “{label}”")
    wait_for(lambda: colours(screen, strip) > 5, 10, "the text in the strip")
    screen.click(strip.right - 30, strip.middle[1])
    panel = screen.wait_for_window(PANEL, 20)
    lower = Area(panel.x, panel.y + panel.height // 2, panel.width, panel.height // 2)
    wait_for(lambda: colours(screen, lower) > 50 and screen.pixels(lower) == screen.pixels(lower), 10,
             "the panel to be drawn")
    screen.screenshot(picture, Area(SIZE[0] // 2, 0, SIZE[0] // 2, SIZE[1]))
    tell(f"  ok: its strip is there and a click on it opens the panel ({picture})")
