"""The keyring of a test's desktop: gnome-keyring, which the desktop starts unlocked."""

import os
import signal

from desktop.processes import wait_for
from desktop.secret_service import COLLECTION, NAME, SecretService

# Without it, gnome-keyring can be unlocked only by somebody who types the password into its dialog.
UNLOCKING = "org.gnome.keyring.InternalUnsupportedGuiltRiddenInterface"
PASSWORD = b"password"


class Keyring(SecretService):
    def delete(self):
        """Leaves the user without a keyring to put things into."""
        self._ask(COLLECTION, "Delete", path=self._collection)

    def unlock(self):
        self._ask(UNLOCKING, "UnlockWithMasterPassword", "(o(oayays))", self._collection, self._secret(PASSWORD))
        wait_for(lambda: not self.is_locked(), 15, "the keyring to be unlocked")

    def freeze(self):
        """Has the keyring answer nobody, until `thaw`; it keeps its name and takes every message."""
        os.kill(self._bus.process_of(NAME), signal.SIGSTOP)

    def thaw(self):
        os.kill(self._bus.process_of(NAME), signal.SIGCONT)
