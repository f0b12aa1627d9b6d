"""The item in XFCE's panel."""

import unittest

from icon_panel_case import IconPanelCase


class Xfce(IconPanelCase):
    panel = "xfce"


del IconPanelCase

if __name__ == "__main__":
    unittest.main()
