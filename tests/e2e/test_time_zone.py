"""The system's time zone changes under the running program."""

import datetime
import os
import shutil
import unittest
import zoneinfo

from desktop import own_namespaces
from desktop_case import DesktopCase

reason_to_skip = own_namespaces.reason_to_skip
# Binds a copy of /etc over the real one, for the program alone, and starts it there.
IN_OWN_ETC = 'mount --bind "$1" /etc && shift && exec "$@"'


def unreadable(folder, names):
    """What a user may not read, and so no program of the user's either: that is left out of the copy."""
    paths = {name: os.path.join(folder, name) for name in names}
    return [name for name, path in paths.items() if not os.path.islink(path) and not os.access(path, os.R_OK)]


class TimeZone(DesktopCase):
    def setUp(self):
        super().setUp()
        self.etc = self.desktop.folder / "etc"
        shutil.copytree("/etc", self.etc, symlinks=True, ignore=unreadable)
        self.addCleanup(shutil.rmtree, self.etc)

    def set_zone(self, zone):
        """Changes the zone as the system does: a new link takes the old one's place in one step."""
        link = self.etc / "localtime.new"
        link.symlink_to(f"/usr/share/zoneinfo/{zone}")
        os.replace(link, self.etc / "localtime")
        (self.etc / "timezone").write_text(f"{zone}\n")

    def is_time_in(self, zone):
        """Whether a label is the time of day in that zone, a second more or less."""
        def is_now(label):
            now = datetime.datetime.now(zoneinfo.ZoneInfo(zone))
            near = (now + datetime.timedelta(seconds=offset) for offset in (-1, 0))
            return label in [time.strftime("%H:%M:%S") for time in near]

        return is_now

    def test_the_next_second_shows_the_new_zone(self):
        self.set_zone("Etc/UTC")
        own_etc = [*own_namespaces.inside_own(own_namespaces.NETWORK_AND_MOUNTS), "sh", "-c", IN_OWN_ETC, "sh",
                   str(self.etc)]
        self.launch(network=own_etc).wait_for_label(self.is_time_in("Etc/UTC"))

        for zone in ("Asia/Kathmandu", "America/St_Johns"):
            self.set_zone(zone)

            self.glimmet.wait_for_label(self.is_time_in(zone))


if __name__ == "__main__":
    unittest.main()
