"""The keyring of a test's desktop, asked through the Secret Service as any other program would."""

import os
import signal

from gi.repository import GLib

from desktop.processes import wait_for

NAME, PATH = "org.freedesktop.secrets", "/org/freedesktop/secrets"
SERVICE, COLLECTION, ITEM = (f"org.freedesktop.Secret.{kind}" for kind in ("Service", "Collection", "Item"))
# Without it, gnome-keyring can be unlocked only by somebody who types the password into its dialog.
UNLOCKING = "org.gnome.keyring.InternalUnsupportedGuiltRiddenInterface"
PASSWORD = b"password"
OWN = {"service": "me.kerno.glimmet"}


class Keyring:
    def __init__(self, desktop):
        self._bus = desktop.bus
        _, self._session = self._ask(SERVICE, "OpenSession", "(sv)", "plain", GLib.Variant("s", ""))
        self._collection, = self._ask(SERVICE, "ReadAlias", "(s)", "default")

    def _ask(self, interface, method, signature="()", *arguments, path=PATH):
        return self._bus.call(NAME, path, interface, method, GLib.Variant(signature, arguments))

    def _secret(self, text):
        return self._session, b"", text, "text/plain"

    def put(self, texts):
        """Stores a text for each account, in place of one that is there."""
        for account, text in texts.items():
            properties = {
                f"{ITEM}.Label": GLib.Variant("s", account),
                f"{ITEM}.Attributes": GLib.Variant("a{ss}", OWN | {"account": account}),
            }
            self._ask(COLLECTION, "CreateItem", "(a{sv}(oayays)b)", properties, self._secret(text.encode()), True,
                      path=self._collection)

    def texts(self):
        """Each of the program's items as (account, text), in the order of the accounts."""
        unlocked, _ = self._items()
        secrets, = self._ask(SERVICE, "GetSecrets", "(aoo)", unlocked, self._session)
        return sorted((self._account(item), bytes(secret[2]).decode()) for item, secret in secrets.items())

    def _items(self):
        return self._ask(SERVICE, "SearchItems", "(a{ss})", OWN)

    def _account(self, item):
        return self._bus.get(NAME, item, ITEM, "Attributes")["account"]

    def clear(self):
        for item in self._items()[0]:
            self._ask(ITEM, "Delete", path=item)

    def lock(self):
        self._ask(SERVICE, "Lock", "(ao)", [self._collection])
        wait_for(self.is_locked, 15, "the keyring to be locked")

    def unlock(self):
        self._ask(UNLOCKING, "UnlockWithMasterPassword", "(o(oayays))", self._collection, self._secret(PASSWORD))
        wait_for(lambda: not self.is_locked(), 15, "the keyring to be unlocked")

    def is_locked(self):
        return self._bus.get(NAME, self._collection, COLLECTION, "Locked")

    def freeze(self):
        """Has the keyring answer nobody, until `thaw`; it keeps its name and takes every message."""
        os.kill(self._bus.process_of(NAME), signal.SIGSTOP)

    def thaw(self):
        os.kill(self._bus.process_of(NAME), signal.SIGCONT)
