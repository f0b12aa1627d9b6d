"""What somebody does who has just heard of the program: from its source and its menu entry to its removal.

The session is a plain user's in a clean system. The controls are found and pressed through the accessibility tree, and
every step leaves a picture."""

from gi.repository import GLib

from desktop.accessibility import find_when_there
from desktop.processes import DesktopError, wait_for
from desktop.screen import Area
from package.login import COMPLAINTS, MENU_ENTRY, NAME, PANEL, STRIP, Login, check, clean_system, colours, end, tell
from package.system_services import SystemServices
from package.user_data import KEY, KEYRING, LOGIN_ENTRY, PREFERENCES, SOURCE, begin_session, check_key, remove

BUTTON, CHOICE, HEADING = "push button", "radio button", "heading"
SWITCH = ("check box", "toggle button", "switch")
FIELD = ("text", "entry", "password text")
UPDATE_WINDOW = "glimmet – Software Update"
QUOTE, DEADLINE = "measure twice", "Math Exam"
HEADER = 75  # pixels
KEY_FIELD = "POLAR PERSONAL ACCESS TOKEN"


def try_as_newcomer(options, virtual):
    tell("As a new user, from the menu entry to the removal")
    with clean_system("newcomer", options) as room:
        install(room, options)
        with SystemServices(room):
            first_login(room, options, virtual)
            second_login(room, options, virtual)
        entry = room.path(LOGIN_ENTRY).read_bytes()
        remove(room)
        last_login(room, options, virtual, entry)


def install(room, options):
    room.bring(options.older, "/srv/glimmet")
    room.bring(options.apt_key, KEYRING)
    room.bring(options.apt_source, SOURCE)
    room.apt("update")
    room.apt("install", "glimmet")
    check(room.version_of("glimmet"), f"apt installs {room.version_of('glimmet')} from its signed source")
    check(room.version_of("packagekit"), "what updates it comes with it")
    # What the trial looks through; a desktop has it.
    room.apt("install", "--no-install-recommends", "at-spi2-core", "libsecret-tools")


class Person:
    """The hands and the eyes at one login."""

    def __init__(self, login, pictures):
        self.screen = login.screen
        self.login = login
        self._pictures = pictures
        self.bus, self._tree = login.open_tree()

    def control(self, name, *roles, seconds=15):
        return find_when_there(self._tree.program("glimmet"), name, *roles, seconds=seconds)

    def press(self, name, *roles):
        self.control(name, *(roles or (BUTTON,))).press()

    def write(self, field, text):
        self.control(field, *FIELD).write(text)

    def choose(self, mode):
        card = self.control(mode, CHOICE)
        card.press()
        wait_for(lambda: card.checked, 5, f"the card “{mode}” to be chosen")

    def open_panel(self):
        strip = self.screen.wait_for_window(STRIP, 20)
        wait_for(lambda: colours(self.screen, strip) > 5, 10, "the text in the strip")
        self.screen.click(strip.right - 30, strip.middle[1])
        self.screen.wait_for_window(PANEL, 20)
        self.control("Quit", BUTTON)

    def close_panel(self):
        self.screen.key("Escape")
        self.screen.wait_until_gone(PANEL)

    def wait_for_label(self, start):
        wait_for(lambda: self.login.label().startswith(start), 15, f"“{start}…” in the menu bar")

    def wait_until_gone(self, name):
        wait_for(lambda: self._tree.program("glimmet").find(name) is None, 5, f"“{name}” to go")

    def wait_until_still(self):
        """Returns once nothing moves in the panel below its header, whose dot always does."""
        panel = self.screen.area_of(PANEL)
        below = Area(panel.x, panel.y + HEADER, panel.width, panel.height - HEADER)

        def is_still():
            first, *others = [self.screen.pixels(below) for _ in range(4)]
            return all(other == first for other in others)

        wait_for(is_still, 20, "the panel to come to rest")

    def picture(self, name):
        if self.screen.windows(PANEL):
            self.wait_until_still()
        path = self._pictures / f"newcomer-{name}.png"
        self.screen.screenshot(path)
        return path


def at_login(steps):
    """`steps(person, ...)` at a login of its own, with a picture and the log where it fails."""
    def run(room, options, virtual, *rest):
        with Login(room, virtual) as login:
            begin_session(login)
            person = Person(login, options.pictures)
            try:
                steps(person, options, *rest)
            except (DesktopError, AssertionError, GLib.Error) as error:
                picture = options.pictures / "newcomer-failed.png"
                login.screen.screenshot(picture)
                said = "".join(log.read_text(errors="replace") for log in sorted(room.path("/tmp").glob("*.log")))
                raise AssertionError(f"{error}\n{said}seen: {picture}") from None
    return run


def check_end(process, log):
    status = end(process)
    said = log.read_text(errors="replace")
    check(status == 0, "it ends with the session", f"status {status}\n{said}")
    check(not COMPLAINTS.search(said), "it complains of nothing", said)


@at_login
def first_login(person, _options):
    process, log = person.login.launch(MENU_ENTRY)
    person.open_panel()
    person.picture("01-started")
    tell("  ok: its menu entry starts it, and a click on its text opens the panel")
    add_quote(person)
    add_deadline(person)
    enter_key(person)
    switch_on_at_login(person)
    check_end(process, log)


def add_quote(person):
    person.choose("Quote")
    person.write("New quote", QUOTE)
    person.press("Add")
    person.control(f"Remove {QUOTE}")
    person.wait_for_label(QUOTE)
    person.picture("02-quote")
    tell("  ok: a quote is added and stands in the menu bar")


def add_deadline(person):
    person.choose("Deadline")
    person.write("Deadline name", DEADLINE)
    wait_for(lambda: person.control("Add Deadline", BUTTON).enabled, 5, "“Add Deadline” to be in use")
    person.press("Add Deadline")
    person.control(f"Remove {DEADLINE}")
    person.wait_for_label(f"{DEADLINE}: ")
    person.picture("03-deadline")
    tell("  ok: a deadline is added and stands in the menu bar")


def enter_key(person):
    person.choose("Revenue")
    person.press("API Keys")
    person.write(KEY_FIELD, KEY)
    person.control("Key saved in Keychain")
    person.picture("04-key")
    person.press("Close")
    person.wait_until_gone(KEY_FIELD)
    check_key(person.login)
    person.choose("Deadline")
    person.wait_for_label(f"{DEADLINE}: ")


def switch_on_at_login(person):
    entry = person.login.room.path(LOGIN_ENTRY)
    check(person.login.line_at_login() is None, "nobody starts it at login unasked")
    switch = open_settings(person)
    check(not switch.checked, "and the switch says so")
    switch.press()
    wait_for(entry.exists, 5, "the login entry")
    wait_for(lambda: person.control("Launch on startup", *SWITCH).checked, 5, "the switch to be on")
    person.picture("05-settings")
    tell("  ok: “Launch on startup” is switched on")


def open_settings(person):
    person.press("Settings")
    return person.control("Launch on startup", *SWITCH)


@at_login
def second_login(person, options):
    line = person.login.line_at_login()
    check(line, f"the next login starts it: {line}")
    process, log = person.login.launch_line(line)
    person.open_panel()
    check_settings(person)
    person.picture("06-next-login")
    update(person, options)
    restart(person, options)
    check_end(process, log)


def check_settings(person):
    """In the panel, which begins with the clock each time."""
    person.choose("Quote")
    person.control(f"Remove {QUOTE}")
    person.wait_for_label(QUOTE)
    person.choose("Deadline")
    person.control(f"Remove {DEADLINE}")
    person.wait_for_label(f"{DEADLINE}: ")
    tell("  ok: quote and deadline are still there")
    check_key(person.login)
    check(open_settings(person).checked, "and so is the choice to start at login")
    person.press("Close")
    person.wait_until_gone("Launch on startup")


def update(person, options):
    room = person.login.room
    before, after = room.version_of("glimmet"), version_in(options.newer)
    room.bring(options.newer, "/srv/glimmet")
    open_settings(person)
    person.press("Check for Updates")
    person.screen.wait_for_window(UPDATE_WINDOW)
    person.control("Checking for updates…", HEADING)
    person.picture("07-checking")
    person.control(f"glimmet {after} is available", HEADING, seconds=120)
    person.control(f"You have {before}. Would you like to install the newer version now?")
    person.picture("08-found")
    tell(f"  ok: “Check for Updates” finds {after} and says that {before} is there")
    person.press("Install")
    person.control(f"Installing glimmet {after}…", HEADING)
    person.picture("09-installing")
    person.control(f"glimmet {after} is installed", HEADING, seconds=120)
    person.picture("10-done")
    check(room.version_of("glimmet") == after, f"Install installs it: dpkg has {after}")


def version_in(folder):
    """The version of the one package there, as its file is named."""
    return next(folder.glob("*.deb")).name.split("_")[1]


def restart(person, options):
    before = person.bus.owner(NAME)
    person.press("Restart")
    wait_for(lambda: person.bus.owner(NAME) not in (None, before), 15, "the next run")
    person.screen.wait_until_gone(UPDATE_WINDOW)
    person.open_panel()
    version = version_in(options.newer).rsplit("-", 1)[0]
    person.control(f"v{version} ·")
    tell(f"  ok: Restart brings the new version, whose panel says {version}")
    check_settings(person)
    person.picture("11-restarted")


@at_login
def last_login(person, _options, entry):
    room = person.login.room
    check(room.path(LOGIN_ENTRY).read_bytes() == entry, "the login entry is left as the user's own")
    check(person.login.line_at_login() is None, "but starts nothing, for its TryExec is gone")
    check(not room.path(MENU_ENTRY).exists() and not person.screen.windows(STRIP), "nothing of it is on the screen")
    check(QUOTE in room.path(PREFERENCES).read_text(), "the user's quote is in the settings")
    check_key(person.login)
    person.picture("12-removed")
