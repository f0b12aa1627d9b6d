"""A service that keeps a desktop's secrets, asked as any other program would."""

from gi.repository import GLib

from desktop.processes import wait_for

NAME, PATH = "org.freedesktop.secrets", "/org/freedesktop/secrets"
SERVICE, COLLECTION, ITEM, PROMPT = (
    f"org.freedesktop.Secret.{kind}" for kind in ("Service", "Collection", "Item", "Prompt"))
OWN = {"service": "me.kerno.glimmet"}
NONE = "/"


class SecretService:
    """The one that runs on a desktop's bus, with a collection of the user's."""

    def __init__(self, desktop):
        self._bus = desktop.bus
        self._connect()

    def _connect(self):
        _, self._session = self._ask(SERVICE, "OpenSession", "(sv)", "plain", GLib.Variant("s", ""))
        self._collection = self._default_collection()

    def _ask(self, interface, method, signature="()", *arguments, path=PATH):
        return self._bus.call(NAME, path, interface, method, GLib.Variant(signature, arguments))

    def _default_collection(self):
        return self._ask(SERVICE, "ReadAlias", "(s)", "default")[0]

    def _secret(self, text):
        return self._session, b"", text, "text/plain"

    def put(self, texts):
        """Stores a text for each account, in place of one that is there."""
        for account, text in texts.items():
            properties = {
                f"{ITEM}.Label": GLib.Variant("s", account),
                f"{ITEM}.Attributes": GLib.Variant("a{ss}", OWN | {"account": account}),
            }
            _, prompt = self._ask(COLLECTION, "CreateItem", "(a{sv}(oayays)b)", properties,
                                  self._secret(text.encode()), True, path=self._collection)
            self._see_through(prompt)

    def texts(self):
        """Each of the program's items as (account, text), in the order of the accounts. One that is replaced while it
        is looked at is left out."""
        unlocked, _ = self._items()
        secrets, = self._ask(SERVICE, "GetSecrets", "(aoo)", unlocked, self._session)
        found = ((self._account(item), bytes(secret[2]).decode()) for item, secret in secrets.items())
        return sorted((account, text) for account, text in found if account is not None)

    def _items(self):
        return self._ask(SERVICE, "SearchItems", "(a{ss})", OWN)

    def _account(self, item):
        """None for an item that has gone."""
        try:
            return self._bus.get(NAME, item, ITEM, "Attributes")["account"]
        except GLib.Error:
            return None

    def clear(self):
        for item in self._items()[0]:
            self._ask(ITEM, "Delete", path=item)

    def lock(self):
        _, prompt = self._ask(SERVICE, "Lock", "(ao)", [self._collection])
        self._see_through(prompt)
        wait_for(self.is_locked, 15, "the secrets to be locked")

    def unlock(self):
        """By the service's own dialog, which `answer` answers as the user does."""
        _, prompt = self._ask(SERVICE, "Unlock", "(ao)", [self._collection])
        self._see_through(prompt, self.answer)

    def has_collection(self):
        self._collection = self._default_collection()
        return self._collection != NONE

    def is_locked(self):
        return self._bus.get(NAME, self._collection, COLLECTION, "Locked")

    def _see_through(self, prompt, answer=lambda: None):
        """Has the service do what it wants to ask the user about, answers as the user does, and waits for the end."""
        if prompt == NONE:
            return
        ends = []
        stop = self._bus.follow(NAME, PROMPT, "Completed", lambda *end: ends.append(end), prompt)
        try:
            self._ask(PROMPT, "Prompt", "(s)", "", path=prompt)
            answer()
            wait_for(lambda: ends, 30, "the end of what was asked")
        finally:
            stop()
