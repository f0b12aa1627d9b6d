"""What the program leaves in the system's journal, where a login starts it, and what in a terminal."""

import subprocess
import sys
import unittest
from pathlib import Path

from desktop import at_login, own_namespaces
from desktop.processes import wait_for
from desktop.revenue_server import POLAR
from desktop.world_server import WorldServer
from revenue_case import FIGURE, RevenueCase

# What it says of the answers and of the prices, which are the user's own affairs, and what it says besides.
HEAD, PRICE = '{"came": "Bearer •••", "periods": [', "[glimmet] DOGE-USD: $0.1234"
OTHERS = ("[glimmet] menu bar: ", "[glimmet] Polar HTTP 200\n", "[glimmet] Polar: revenue=1700, ")
AT_LOGIN = ["unshare", "--mount", "--", sys.executable, "-B", at_login.__file__]


def reason_to_skip():
    return None if own_namespaces.IS_ROOT else "a service manager and a journal of its own take root"


class Journal(RevenueCase):
    server_class = WorldServer

    def serve(self, certificate):
        super().serve(certificate)
        self.server.set_price("DOGE-USD", 0.1234, 0.12)

    def begin_with_all(self, **options):
        """Returns once the program has had prices and a figure."""
        self.seed({"glimmet.cryptoSymbols": ["DOGE-USD"]})
        self.keyring.put({POLAR.account: POLAR.key})
        self.launch(environment={"PYTHONPATH": str(Path(at_login.__file__).parents[1])}, **options)
        self.show_revenue()
        self.wait_for_text(FIGURE)
        wait_for(self.server.asked_symbols, 15, "a question for prices")

    def journal(self):
        """What the program's own lines in the journal are."""
        return subprocess.run(["journalctl", f"--directory={self.desktop.runtime / 'journal'}", "--output=cat",
                               f"--identifier={Path(self.glimmet.binary).name}", "--all"],
                              check=True, capture_output=True, text=True).stdout

    def wait_for_lines(self, said, lines):
        for line in lines:
            wait_for(lambda: line in said(), 15, f"“{line.strip()}”")

    def test_started_by_a_login_it_keeps_answers_and_prices_out_of_the_journal(self):
        self.begin_with_all(wrapper=AT_LOGIN)

        self.wait_for_lines(self.journal, OTHERS)
        # The lines of an answer are written at once; those of the ones that were on their way then come before the end.
        self.assertEqual(self.glimmet.stop(), 0)
        said = self.journal()
        self.assertNotIn("response:", said)
        self.assertNotIn("periods", said)
        self.assertNotIn("0.1234", said)
        self.assertTrue(all(line.startswith("[glimmet] ") for line in said.splitlines()), said)

    def test_started_by_hand_it_tells_all_of_them(self):
        self.begin_with_all()

        self.wait_for_lines(self.glimmet.output, (*OTHERS, HEAD, PRICE))


if __name__ == "__main__":
    unittest.main()
