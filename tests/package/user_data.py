"""What a user keeps of the program in a clean system, and that nothing but the user ever touches it."""

from package.login import NAME, check
from rooms.clean_room import HOME

KEY = "pat_trial_of_the_package"
ITEM = ("service", NAME, "account", "polar_api_key")
LOGIN_ENTRY = f"{HOME}/.config/autostart/{NAME}.desktop"
PREFERENCES = f"{HOME}/.config/{NAME}/preferences.json"
USER_DATA = (f".config/{NAME}", ".config/autostart", ".local/share/keyrings")
SOURCE = "/etc/apt/sources.list.d/glimmet.sources"
KEYRING = "/etc/apt/keyrings/glimmet.gpg"


def begin_session(login):
    login.start_bus()
    login.start_keyring()


def check_key(login):
    check(login.run("secret-tool", "lookup", *ITEM) == KEY, "the user's key is in the keyring")


def user_data(room):
    data = room.fingerprint(*USER_DATA)
    check(len(data) >= 3, f"the user has settings, a login entry and a keyring ({len(data)} files)")
    return data


def remove(room):
    data = user_data(room)
    owned = [line for line in room.run("dpkg", "-L", "glimmet").splitlines() if "glimmet" in line]
    room.apt("remove", "glimmet")
    left = [path for path in owned if room.path(path).exists() and path not in (SOURCE, KEYRING)]
    check(not left, "removing it leaves none of its files but its source with the key", " ".join(left))
    check("NO_PUBKEY" not in room.apt("update"), "apt can still read that source")
    check(user_data(room) == data, "removing it leaves the user's data as they are")
    room.apt("purge", "glimmet")
    check(not room.path(SOURCE).exists() and not room.path(KEYRING).exists(), "purging it takes its source away too")
    check(user_data(room) == data, "purging it leaves the user's data as they are")
    room.apt("update")
