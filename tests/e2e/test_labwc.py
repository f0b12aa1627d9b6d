"""labwc, another compositor of the wlroots kind, with the strip, and the item and the feed in Waybar."""

import shutil
import unittest

from wlroots_case import FeedCase, ItemCase, StripCase


def reason_to_skip():
    return None if shutil.which("labwc") else "labwc is not installed (Debian has it from 13 on)"


class Strip(StripCase):
    kind = "labwc"


class Item(ItemCase):
    kind = "labwc"


class Feed(FeedCase):
    kind = "labwc"


del StripCase, ItemCase, FeedCase

if __name__ == "__main__":
    unittest.main()
