"""The item in LXQt's panel."""

import unittest

from icon_panel_case import IconPanelCase


class Lxqt(IconPanelCase):
    panel = "lxqt"


del IconPanelCase

if __name__ == "__main__":
    unittest.main()
