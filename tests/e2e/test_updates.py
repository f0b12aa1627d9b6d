"""The updater against the real PackageKit, polkit and apt, with a signed source of the test's own."""

import http.server
import json
import os
import shutil
import subprocess
import tempfile
import threading
import unittest
from pathlib import Path

from desktop.processes import wait_for
from own_packages import PROGRAM, OwnPackages

reason_to_skip = OwnPackages.reason_to_skip
PROBE = Path(os.environ["GLIMMET_UPDATE_PROBE"]).resolve(strict=True)
BROKEN = "deb [trusted=yes] file:/nowhere/at/all ./"
BROKEN_SOURCE = "One of this computer's software sources could not be read, so newer versions may be missing."
STRANGER = ("One of this computer's software sources is not signed by someone this computer trusts, so newer versions "
            "may be missing.")
SPOILED = "The update arrived damaged or is not the one that was announced. Nothing was installed."
GONE = "The service that installs updates ended in the middle of its work."
MISSING = "This computer has no service that installs updates (PackageKit)."
NOT_ALLOWED = "You may not install software here, or the password was not given."


class Updater:
    """The updater of a program at `path`, run by a user."""

    def __init__(self, packages, probe, path=PROGRAM, user=()):
        self._process = packages.start([*user, str(probe), path], stdin=subprocess.PIPE,
                                       stdout=subprocess.PIPE, text=True, bufsize=1)
        self.states = []
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()

    def _read(self):
        for line in self._process.stdout:
            self.states.append(json.loads(line))

    def end(self):
        self._process.stdin.close()
        self._process.wait(10)
        self._reader.join()
        self._process.stdout.close()

    def say(self, command):
        self._process.stdin.write(command + "\n")
        self._process.stdin.flush()

    def wait_for(self, *phases):
        """The first state from now on, or the present one, that is in one of `phases`."""
        return wait_for(lambda: self.states and self.states[-1]["phase"] in phases and self.states[-1], 40,
                        f"{phases} after {self.states[-1:]}")

    def check(self):
        self.say("check")
        wait_for(lambda: self.states, 10, "the check to begin")
        return self.wait_for("UpToDate", "Found", "Failed", "NotPackaged")

    def install(self):
        self.say("install")
        return self.wait_for("Done", "Failed")


class Server:
    """A server of the source's files that keeps those waiting whose names end in `slow`."""

    def __init__(self, folder, slow):
        self.asked = threading.Event()
        source = self

        class Handler(http.server.SimpleHTTPRequestHandler):
            def __init__(self, *arguments):
                super().__init__(*arguments, directory=str(folder))

            def do_GET(self):
                if self.path.endswith(slow):
                    source.asked.set()
                    source._released.wait(60)
                else:
                    super().do_GET()

            def log_message(self, *_):
                pass

        self._released = threading.Event()
        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self._server.daemon_threads = True
        threading.Thread(target=self._server.serve_forever, daemon=True).start()
        self.address = f"http://127.0.0.1:{self._server.server_port}/"

    def close(self):
        self._released.set()
        self._server.shutdown()
        self._server.server_close()


class Updates(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # Where every user may look, which need not be so where the program was built.
        folder = Path(cls.enterClassContext(tempfile.TemporaryDirectory(prefix="glimmet-updater-")))
        folder.chmod(0o755)
        cls.probe = Path(shutil.copy(PROBE, folder))
        cls.probe.chmod(0o755)

    def setUp(self):
        self.packages = self.enterContext(OwnPackages())
        self.packages.publish("1.0")
        self.packages.install("1.0")

    def updater(self, *arguments, **options):
        updater = Updater(self.packages, self.probe, *arguments, **options)
        self.addCleanup(updater.end)
        return updater

    def serve(self, slow="\0"):
        source = Server(self.packages.source, slow)
        self.addCleanup(source.close)
        self.packages.set_sources(address=source.address)
        return source

    def test_finds_an_update_and_installs_it(self):
        self.packages.publish("1.0", "1.1")
        updater = self.updater()

        found = updater.check()
        self.assertEqual((found["phase"], found["installed"], found["new"], found["changes"]),
                         ("Found", "1.0", "1.1", ""))

        self.assertEqual((updater.install()["phase"], self.packages.installed()), ("Done", "1.1"))
        self.assertTrue(any(state["percentage"] > 0 for state in updater.states))

    def test_is_up_to_date(self):
        state = self.updater().check()

        self.assertEqual((state["phase"], state["installed"]), ("UpToDate", "1.0"))

    def test_belongs_to_no_package(self):
        self.assertEqual(self.updater("/opt/elsewhere/program").check()["phase"], "NotPackaged")

    def test_is_not_up_to_date_with_a_broken_source(self):
        self.packages.set_sources(BROKEN)

        state = self.updater().check()

        self.assertEqual((state["phase"], state["words"]), ("Failed", BROKEN_SOURCE))
        self.assertIn("/nowhere/at/all", state["details"])

    def test_finds_the_update_beside_a_broken_source(self):
        self.packages.publish("1.1")
        self.packages.fetch_lists()
        self.packages.set_sources(BROKEN)

        self.assertEqual(self.updater().check()["new"], "1.1")

    def test_does_not_take_a_source_with_a_strangers_signature(self):
        # Not from the folder itself: there, the list of before would change along.
        self.serve()
        self.packages.fetch_lists()
        self.packages.publish("1.1", signer="stranger")

        state = self.updater().check()

        self.assertEqual((state["phase"], state["words"]), ("Failed", STRANGER))
        self.assertEqual(self.packages.installed(), "1.0")

    def test_does_not_install_a_file_that_is_not_the_announced_one(self):
        self.packages.publish("1.1")
        self.packages.spoil("1.1")
        updater = self.updater()
        self.assertEqual(updater.check()["phase"], "Found")

        state = updater.install()

        self.assertEqual((state["phase"], state["words"]), ("Failed", SPOILED))
        self.assertEqual(self.packages.installed(), "1.0")

    def test_says_that_the_user_may_not(self):
        self.packages.publish("1.1")
        self.packages.fetch_lists()
        updater = self.updater(user=["setpriv", "--reuid=nobody", "--clear-groups"])
        # The old list tells of the update; fetching a new one is not allowed either.
        self.assertEqual(updater.check()["phase"], "Found")

        state = updater.install()

        self.assertEqual((state["phase"], state["words"]), ("Failed", NOT_ALLOWED))

    def test_says_that_the_user_may_not_even_look(self):
        self.packages.fetch_lists()

        state = self.updater(user=["setpriv", "--reuid=nobody", "--clear-groups"]).check()

        self.assertEqual((state["phase"], state["words"]), ("Failed", NOT_ALLOWED))

    def test_gives_a_check_up(self):
        source = self.serve("InRelease")
        updater = self.updater()
        updater.say("check")
        self.assertTrue(source.asked.wait(20))

        updater.say("cancel")

        updater.wait_for("Idle")
        # The service is free for others soon.
        self.packages.set_sources()
        self.assertEqual(updater.check()["phase"], "UpToDate")

    def test_gives_an_installation_up(self):
        source = self.serve(".deb")
        self.packages.publish("1.1")
        updater = self.updater()
        self.assertEqual(updater.check()["phase"], "Found")
        updater.say("install")
        self.assertTrue(source.asked.wait(20))

        updater.say("cancel")

        wait_for(lambda: updater.states[-1]["phase"] == "Found", 20, "the installation to end")
        self.assertEqual(self.packages.installed(), "1.0")

    def test_does_not_believe_that_a_version_was_installed_that_is_not_there(self):
        self.packages.publish("1.1")
        updater = self.updater()
        self.assertEqual(updater.check()["phase"], "Found")
        self.packages.publish("1.0")
        self.packages.fetch_lists()

        self.assertEqual((updater.install()["phase"], self.packages.installed()), ("Failed", "1.0"))

    def test_says_that_there_is_no_service(self):
        self.packages.kill_service()

        self.assertEqual(self.updater().check()["words"], MISSING)

    def test_says_that_the_service_died_at_the_check(self):
        source = self.serve("InRelease")
        updater = self.updater()
        updater.say("check")
        self.assertTrue(source.asked.wait(20))

        self.packages.kill_service()

        self.assertEqual(updater.wait_for("Failed")["words"], GONE)

    def test_says_that_the_service_died_at_the_installation(self):
        source = self.serve(".deb")
        self.packages.publish("1.1")
        updater = self.updater()
        self.assertEqual(updater.check()["phase"], "Found")
        updater.say("install")
        self.assertTrue(source.asked.wait(20))

        self.packages.kill_service()

        self.assertEqual(updater.wait_for("Failed")["words"], GONE)
        self.assertEqual(self.packages.installed(), "1.0")


if __name__ == "__main__":
    unittest.main()
