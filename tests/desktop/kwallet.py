"""KWallet as a desktop's secret service: its daemon, with the wallet that it asks the user to make."""

import shutil

from desktop.accessibility import find_when_there
from desktop.processes import wait_for
from desktop.secret_service import COLLECTION, NAME, SERVICE, SecretService

from gi.repository import GLib

# Which there is depends on the release.
DAEMONS = ("kwalletd6", "kwalletd5")
# What the daemon itself calls the wallet that it takes for the user's own.
WALLET = "kdewallet"
PASSWORD = "password"
CLASSIC = "Classic, blowfish encrypted file"


class KWallet(SecretService):
    """Runs as long as the desktop does, and nothing starts it by itself. It writes to disk seconds after it answers."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._bus = desktop.bus
        self._daemon = next(filter(shutil.which, DAEMONS))
        self._process = None

    def start_without_collection(self):
        """Starts it anew, as on the first day."""
        if self._process:
            self._desktop.stop(self._process)
        shutil.rmtree(self._files, ignore_errors=True)
        self._process = self._desktop.start("kwallet", [self._daemon])
        wait_for(lambda: self._bus.owner(NAME), 30, self._daemon)
        self._connect()

    def clear(self):
        """Starts it anew, unlocked and with nothing in it."""
        self.start_without_collection()
        _, prompt = self._ask(SERVICE, "CreateCollection", "(a{sv}s)",
                              {f"{COLLECTION}.Label": GLib.Variant("s", WALLET)}, "default")
        self._see_through(prompt, self.answer_creation)
        self._collection = self._default_collection()

    @property
    def _files(self):
        return self._desktop.home / ".local" / "share" / "kwalletd"

    def has_dialog(self):
        """Whether it asks the user for something."""
        return bool(self.dialogs())

    def dialogs(self):
        # The windows' names are in their newer property alone, which xdotool does not look for.
        return self._desktop.screen.windows_of(self._daemon)

    def _take_dialog(self):
        """Returns once what is typed goes to the dialog, which a user would click on where it has not the keyboard."""
        screen = self._desktop.screen
        dialog = wait_for(self.dialogs, 30, "a dialog of the wallet's")[0]
        screen.activate(dialog)
        wait_for(lambda: screen.keyboard_owner() in self.dialogs(), 30, "a dialog of the wallet's with the keyboard")

    def answer(self):
        """Types the password that the dialog asks for."""
        self._take_dialog()
        self._desktop.screen.type(PASSWORD)
        self._desktop.screen.key("Return")
        self.wait_until_dialog_gone()

    def dismiss(self):
        self._take_dialog()
        self._desktop.screen.key("Escape")
        self.wait_until_dialog_gone()

    def wait_until_dialog_gone(self):
        wait_for(lambda: not self.has_dialog(), 30, "the dialog to go")

    def answer_creation(self):
        """Makes the wallet that the wizard proposes, with a password."""
        self._press(CLASSIC, "radio button")
        self._press("Finish", "push button", "button")
        verify = find_when_there(self._program, "Verify:", "text", "password text", seconds=30)
        self._take_dialog()
        self._desktop.screen.type(PASSWORD)
        self._desktop.screen.key("Tab")
        wait_for(lambda: verify.focused, 15, "the second field of the password")
        self._desktop.screen.type(PASSWORD)
        find_when_there(self._program, "Passwords match.", "label")
        self._desktop.screen.key("Return")
        self.wait_until_dialog_gone()

    @property
    def _program(self):
        return self._desktop.tree.program(self._daemon)

    def _press(self, name, *roles):
        control = find_when_there(self._program, name, *roles, seconds=30)
        wait_for(lambda: control.showing and control.enabled, 15, f"“{name}” to be in use")
        control.press()
