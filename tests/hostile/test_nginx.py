"""No page is lost where a real server ends its connections all the while."""

import os
import unittest
from pathlib import Path

from desktop import own_namespaces
from hostile import histories

reason_to_skip = own_namespaces.reason_to_skip
BINARY = Path(os.environ["GLIMMET_BINARY"]).resolve(strict=True)
PAGES = 150
# Enough for many reloads.
PAGES_MEANWHILE = 600


class RealServer(unittest.TestCase):
    def assert_whole(self, result, pages):
        self.assertEqual((result.whole, result.text), (result.chains, histories.figure(pages)))

    def test_loses_no_page_where_every_connection_ends_after_seven_requests(self):
        self.assert_whole(histories.fetch(BINARY, chains=1, pages=PAGES, reloads=False), PAGES)

    def test_loses_no_page_where_the_server_loads_its_settings_again_all_the_while(self):
        result = histories.fetch(BINARY, chains=2, pages=PAGES_MEANWHILE, reloads=True)

        self.assert_whole(result, PAGES_MEANWHILE)
        self.assertGreater(result.reloads, 2)


if __name__ == "__main__":
    unittest.main()
