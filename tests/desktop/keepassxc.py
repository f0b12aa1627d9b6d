"""KeePassXC as a desktop's secret service: a password database whose first group it offers to other programs."""

import subprocess
import xml.etree.ElementTree as ElementTree

from desktop.accessibility import find_when_there
from desktop.processes import DesktopError, wait_for
from desktop.secret_service import NAME, OWN, SecretService

# A weak one would have it ask whether that is meant.
PASSWORD = "correct horse battery staple 27"
# Its window stays hidden: with its own form for the password beside the dialog's, each with a thread that listens for
# USB keys, version 2.7.10 has no thread left on two cores to open a database with.
SETTINGS = """[General]
ConfigVersion=2
UpdateCheckMessageShown=true
[GUI]
CheckForUpdates=false
ShowTrayIcon=true
MinimizeToTray=true
MinimizeOnStartup=true
[FdoSecrets]
Enabled=true
ConfirmAccessItem={asks}
ConfirmDeleteItem={asks}
"""
# What is offered is the group whose number stands in the settings of the database.
DATABASE = """<?xml version="1.0" encoding="UTF-8"?>
<KeePassFile>
  <Meta>
    <CustomData>
      <Item>
        <Key>FDO_SECRETS_EXPOSED_GROUP</Key>
        <Value>{00010203-0405-0607-0809-0a0b0c0d0e0f}</Value>
      </Item>
    </CustomData>
  </Meta>
  <Root><Group><UUID>AAECAwQFBgcICQoLDA0ODw==</UUID><Name>Root</Name></Group></Root>
</KeePassFile>
"""
UNLOCKING = "Unlock Database - KeePassXC"
ACCESS = "KeePassXC -  Access Request"
CREATING = "Create a new KeePassXC database…"
SAVING = "Save database as"
# The pages of the dialog for a new database.
PAGES = ("General Database Information", "Encryption Settings")
LAST_PAGE = "Database Credentials"
ALL_DIALOGS = (UNLOCKING, ACCESS, CREATING, SAVING)


class KeePassXC(SecretService):
    """Runs as long as the desktop does, which has a host for its icon; nothing starts it by itself. It has the user
    agree to each access of a program to an entry where `asks`, as it does unless it is told otherwise."""

    def __init__(self, desktop, asks):
        self._desktop = desktop
        self._bus = desktop.bus
        self._asks = asks
        self._process = None

    def start_without_collection(self):
        """Starts it anew, without a database."""
        self._end()
        self._start()
        self._file = self._desktop.home / "Passwords.kdbx"

    def clear(self):
        """Starts it anew, with an empty database, unlocked."""
        self._end()
        self._file = self._desktop.home / "secrets.kdbx"
        self._make_database()
        self._start(str(self._file))
        wait_for(self.has_collection, 30, "the database")
        self.unlock()

    def _end(self):
        if self._process:
            self._desktop.stop(self._process)
        for file in self._desktop.home.glob("*.kdbx"):
            file.unlink()

    def _start(self, *arguments):
        settings = self._desktop.folder / "keepassxc.ini"
        settings.write_text(SETTINGS.format(asks=str(self._asks).lower()))
        memory = self._desktop.folder / "keepassxc-local.ini"
        memory.unlink(missing_ok=True)
        own = ["--config", str(settings), "--localconfig", str(memory)]
        self._process = self._desktop.start("keepassxc", ["keepassxc", *own, *arguments])
        wait_for(lambda: self._bus.owner(NAME), 60, "KeePassXC on the session bus")
        self._connect()

    def _make_database(self):
        source = self._desktop.folder / "database.xml"
        source.write_text(DATABASE)
        self._on_database("import", "--set-password", "--decryption-time", "100", str(source),
                          typed=f"{PASSWORD}\n{PASSWORD}\n")

    def _on_database(self, *command, typed=f"{PASSWORD}\n"):
        result = subprocess.run(["keepassxc-cli", *command, str(self._file)], input=typed, capture_output=True,
                                text=True, timeout=30, env=self._desktop.environment)
        if result.returncode != 0:
            raise DesktopError(f"keepassxc-cli {command[0]} failed: {result.stderr}")
        return result.stdout

    def put(self, texts):
        super().put(texts)
        wait_for(lambda: dict(self.texts()).items() >= texts.items(), 30, "the file to be written")

    def texts(self):
        """Each of the program's entries as (account, text), as they are in the file. It is written behind the answers
        on the bus."""
        if not self._file.exists():
            return []
        database = ElementTree.fromstring(self._on_database("export", "--format", "xml"))
        entries = [fields_of(entry) for entry in database.findall("./Root/Group/Entry")]
        return sorted((entry["account"], entry["Password"]) for entry in entries if entry.items() >= OWN.items())

    def has_dialog(self):
        """Whether it asks the user for something."""
        return any(map(self._desktop.screen.windows, ALL_DIALOGS))

    def _take_dialog(self, *dialogs):
        """Returns which of them is there once what is typed goes to it."""
        screen = self._desktop.screen
        dialog = wait_for(lambda: next(filter(screen.windows, dialogs), None), 30, " or ".join(dialogs))
        for window in screen.windows(dialog):
            screen.activate(window)
        screen.wait_until_typed_into(dialog, 30)
        return dialog

    def answer(self):
        """Types the password that the dialog asks for, or agrees to the access."""
        if self._take_dialog(UNLOCKING, ACCESS) == UNLOCKING:
            self._desktop.screen.type(PASSWORD)
        self._desktop.screen.key("Return")
        self.wait_until_dialog_gone()

    def dismiss(self):
        self._take_dialog(UNLOCKING, ACCESS)
        self._desktop.screen.key("Escape")
        self.wait_until_dialog_gone()

    def wait_until_dialog_gone(self):
        wait_for(lambda: not self.has_dialog(), 30, "the dialog to go")

    def answer_creation(self):
        """Makes the database that the wizard proposes, with a password, where it proposes to save it."""
        screen = self._desktop.screen
        for page in PAGES:
            self._wait_for_page(page)
            screen.key("Return")
        self._wait_for_page(LAST_PAGE)
        screen.type(PASSWORD)
        screen.key("Tab")
        screen.type(PASSWORD)
        screen.key("Return")
        # An entry that comes while it still asks for the file has it ask for that once more, on top.
        wait_for(lambda: self._press_in_saving("Return") and list(self._desktop.home.glob("*.kdbx")), 30,
                 "the file of the new database")
        wait_for(lambda: self._press_in_saving("Escape") and not self.has_dialog(), 30, "the dialogs to go")

    def _press_in_saving(self, key):
        for window in self._desktop.screen.windows(SAVING)[-1:]:
            self._desktop.screen.activate(window)
            self._desktop.screen.key(key)
        return True

    def _wait_for_page(self, title):
        self._take_dialog(CREATING)
        page = find_when_there(self._desktop.tree.program("KeePassXC"), title, "label", seconds=30)
        wait_for(lambda: page.showing, 30, f"the page “{title}”")


def fields_of(entry):
    """What an entry of the exported database says, by name."""
    return {field.findtext("Key"): field.findtext("Value") or "" for field in entry.findall("String")}
