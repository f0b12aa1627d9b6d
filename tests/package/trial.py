"""The trial of the package in clean systems; scripts/package-test starts this."""

import argparse
import os
import signal
import subprocess
import sys
from contextlib import ExitStack
from pathlib import Path

from desktop.processes import wait_for
from package.login import (MENU_ENTRY, STRIP, Login, VirtualScreen, check, clean_system, end, look_at, look_at_windows,
                           tell)
from package.newcomer import try_as_newcomer
from package.user_data import ITEM, KEY, LOGIN_ENTRY, PREFERENCES, begin_session, check_key, remove, user_data

SETTINGS = '{"me.kerno.glimmet.quotes": ["kept from version to version"]}\n'
LOGIN_ENTRY_TEXT = "[Desktop Entry]\nType=Application\nName=glimmet\nExec=/usr/bin/glimmet\nTryExec=/usr/bin/glimmet\n"


def packages_of(room):
    return set(room.run("dpkg-query", "-W", "-f", "${Package}\\n").split())


def try_what_it_depends_on(options, virtual):
    tell("With nothing but what it depends on")
    with clean_system("dependent", options) as room, Login(room, virtual) as login:
        before = packages_of(room)
        room.bring(options.plain, "/tmp/glimmet.deb")
        room.apt("--no-install-recommends", "install", "/tmp/glimmet.deb")
        check(room.version_of("glimmet"), "apt installs it and all it depends on")
        qml = sorted(name for name in packages_of(room) - before if name.startswith("qml6"))
        tell(f"  {len(packages_of(room) - before)} packages came, of QML: {' '.join(qml)}")
        look_at(login, options.pictures / "dependent.png")


def try_a_life(options, virtual):
    tell("With what it recommends, from one version to the next")
    with clean_system("recommended", options) as room:
        install(room, options)
        with Login(room, virtual) as login:
            begin_session(login)
            store_user_data(login)
            look_at(login, options.pictures / "installed.png")
            upgrade_beneath(login, options)
        with Login(room, virtual) as login:
            begin_session(login)
            look_at(login, options.pictures / "upgraded.png", LOGIN_ENTRY)
            check_key(login)
        remove(room)
        with Login(room, virtual) as login:
            begin_session(login)
            check_key(login)


def install(room, options):
    room.bring(options.older, "/srv/glimmet")
    deb = next(options.older.glob("*.deb"))
    room.bring(deb, f"/tmp/{deb.name}")
    room.apt("install", f"/tmp/{deb.name}")
    check(room.version_of("glimmet"), "apt installs it")
    missing = [name for name in ("fonts-inter", "fonts-noto-color-emoji", "gnome-keyring") if not room.version_of(name)]
    check(not missing, "the fonts and a keyring come with it", " ".join(missing))
    room.apt("install", "libsecret-tools")


def store_user_data(login):
    login.room.write_as_user(PREFERENCES, SETTINGS)
    login.room.write_as_user(LOGIN_ENTRY, LOGIN_ENTRY_TEXT)
    login.run("secret-tool", "store", "--label=glimmet", *ITEM, input=KEY)


def upgrade_beneath(login, options):
    """Upgrades it while it runs and before its panel was ever opened, whose library then is the new one."""
    process, log = login.launch(MENU_ENTRY)
    strip = login.screen.wait_for_window(STRIP, 20)
    wait_for(login.label, 10, "the text on the bus")
    upgrade(login.room, options)
    login.screen.click(strip.right - 30, strip.middle[1])
    wait_for(lambda: log.read_text().count("shown as a strip") == 2, 15, "it to start again")
    look_at_windows(login, options.pictures / "upgraded-beneath.png")
    check(end(process) == 0, "it started again as the new version at the first click, with the second it has a panel")


def upgrade(room, options):
    before = room.version_of("glimmet")
    data = user_data(room)
    room.bring(options.newer, "/srv/glimmet")
    room.apt("update")
    room.apt("--only-upgrade", "install", "glimmet")
    after = room.version_of("glimmet")
    room.run("dpkg", "--compare-versions", after, "gt", before)
    tell(f"  ok: its own signed source upgrades it from {before} to {after}")
    check(user_data(room) == data, "the upgrade leaves the user's data as they are")


def end_from_outside(*_):
    # What is taken down then is not to be interrupted again.
    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, signal.SIG_IGN)
    sys.exit(143)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    for name in ("plain", "older", "newer", "apt-source", "apt-key", "cache", "pictures"):
        parser.add_argument(f"--{name}", type=Path, required=True)
    parser.add_argument("--release", required=True)
    parser.add_argument("--owner", required=True, help="whose the pictures are: user and group")
    options = parser.parse_args()
    options.cache = options.cache.resolve()
    os.umask(0o022)
    # Ended from outside, the clean systems are still taken down.
    signal.signal(signal.SIGTERM, end_from_outside)
    try:
        with ExitStack() as stack:
            virtual = VirtualScreen(stack)
            try_what_it_depends_on(options, virtual)
            try_a_life(options, virtual)
            try_as_newcomer(options, virtual)
    except (AssertionError, RuntimeError) as error:
        sys.exit(f"package-test: {error}")
    finally:
        subprocess.run(["chown", "-R", options.owner, str(options.pictures)], check=True)
    tell("The package holds.")


if __name__ == "__main__":
    main()
