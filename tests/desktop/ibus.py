"""IBus as a desktop's input method. With its Japanese engine, what is typed is composed in kana, and a list of
candidates turns it into words. With the plain one, emoji are chosen by their names."""

import subprocess

from desktop.bus import connect_when_there
from desktop.processes import wait_for

JAPANESE, PLAIN = "anthy", "xkb:us::eng"
EMOJI_KEY = "ctrl+period"
# What a program started beside it finds it by.
ENVIRONMENT = {"QT_IM_MODULE": "ibus"}
WINDOWS = "ibus-ui-gtk3"
PANEL = "org.freedesktop.IBus.Panel"
# The engine is a program of the system's Python, whichever other one comes first for the user.
OWN_ENVIRONMENT = {"PATH": "/usr/bin:/bin", "GSETTINGS_BACKEND": "keyfile"}
# The engine starts with plain letters otherwise. The panel would go back to the first of its own engines.
SETTINGS = """[desktop/ibus/general]
preload-engines=['{engine}']
engines-order=['{engine}']
use-system-keyboard-layout=true
[desktop/ibus/panel/emoji]
hotkey=['<Control>period']
[org/freedesktop/ibus/engine/anthy/common]
input-mode=0
"""


class Ibus:
    def __init__(self, desktop, engine=JAPANESE):
        self._desktop = desktop
        self._engine = engine
        self._environment = desktop.environment | OWN_ENVIRONMENT

    def start(self):
        """Returns once what is typed goes to the engine, and the program that shows its candidates is there."""
        settings = self._desktop.home / ".config" / "glib-2.0" / "settings" / "keyfile"
        settings.parent.mkdir(parents=True)
        settings.write_text(SETTINGS.format(engine=self._engine))
        # A socket with a path: its usual one has a name that only programs in the same network see.
        address = f"unix:path={self._desktop.runtime / 'ibus'}"
        self._desktop.start("ibus", [
            "ibus-daemon", "--address", address,
            "--panel", "/usr/libexec/ibus-ui-gtk3", "--config", "/usr/libexec/ibus-memconf",
            "--emoji-extension", self._emoji_extension()], OWN_ENVIRONMENT)
        wait_for(self._has_engine, 30, "the engine of the input method")
        bus = connect_when_there(address)
        wait_for(lambda: bus.owner(PANEL), 30, "the input method's panel")
        return self

    def _emoji_extension(self):
        # Beside the Japanese engine both take what is typed.
        return "/usr/libexec/ibus-extension-gtk3" if self._engine == PLAIN else "disable"

    def _has_engine(self):
        # The status of the change tells nothing: it fails also where the engine takes over.
        self._tell("engine", self._engine)
        return self._tell("engine").strip() == self._engine

    def _tell(self, *words):
        return subprocess.run(["ibus", *words], env=self._environment, capture_output=True, text=True,
                              timeout=20).stdout

    def candidates(self):
        """Where the list of candidates is, None while there is none."""
        screen = self._desktop.screen
        areas = filter(None, map(screen.window_area, screen.windows_of(WINDOWS)))
        return next((area for area in areas if area.width > 40 and area.height > 40), None)
