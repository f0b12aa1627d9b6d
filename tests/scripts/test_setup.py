"""What scripts/setup asks of a machine, with tools that only note how they were called."""

import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

SETUP = Path(__file__).resolve().parents[2] / "scripts" / "setup"
# The tools of the machine that the script may use as they are.
REAL = ("basename", "bash", "cat", "comm", "cp", "env", "grep", "sed", "sh", "sort", "tr")
NOTING = """#!/bin/sh
echo "$(basename "$0") $*" >>"$CALLS"
"""
SUDO = NOTING + 'exec "$@"\n'
REFUSING_SUDO = NOTING + "echo 'sudo: 3 incorrect password attempts' >&2\nexit 1\n"
# Knows what is installed from the file INSTALLED, and which names the lists hold from KNOWN.
DPKG_QUERY = """#!/bin/sh
for name in $(cat "$INSTALLED"); do echo "ii :$name, "; done
"""
APT_GET = NOTING + """
case " $* " in
  *" update "*) cp "$NEWEST" "$KNOWN"; exit ;;
  *" install "*) ;;
esac
for word in "$@"; do
  case "$word" in -* | DPkg::* | Dpkg::* | install | --*) continue ;; esac
  grep -qx "$word" "$KNOWN" || { echo "E: Unable to locate package $word" >&2; exit 100; }
done
case " $* " in *" --simulate "*) exit ;; esac
if [ -s "$OUTDATED" ]; then : >"$OUTDATED"; echo "E: 404 Not Found" >&2; exit 100; fi
echo "Setting up"
"""


class Machine(unittest.TestCase):
    """A machine with nothing installed, an empty package list and sudo."""

    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.tools = self.folder / "bin"
        self.tools.mkdir()
        for name in REAL:
            self.tools.joinpath(name).symlink_to(shutil.which(name))
        self.files = {name: self.folder / name for name in ("CALLS", "INSTALLED", "KNOWN", "NEWEST", "OUTDATED")}
        for file in self.files.values():
            file.touch()
        self.files["NEWEST"].write_text("\n".join(self.packages_of("room")))
        self.is_user(1000)
        self.bring("sudo", SUDO)
        self.bring("dpkg-query", DPKG_QUERY)
        self.bring("apt-get", APT_GET)

    @staticmethod
    def packages_of(purpose):
        line = next(line for line in SETUP.read_text().splitlines() if line.startswith(f"{purpose}=("))
        return line[line.index("(") + 1:line.index(")")].split()

    def bring(self, name, text):
        tool = self.tools / name
        tool.write_text(text)
        tool.chmod(0o755)

    def is_user(self, number):
        self.bring("id", f"#!/bin/sh\necho {number}\n")

    def set_up(self, purpose="room"):
        environment = {"PATH": str(self.tools)} | {name: str(file) for name, file in self.files.items()}
        return subprocess.run(["bash", str(SETUP), purpose], env=environment,
                              capture_output=True, text=True, timeout=30)

    def calls(self):
        return self.files["CALLS"].read_text().splitlines()

    def runs(self, tool):
        return [call for call in self.calls() if call.startswith(f"{tool} ") and "--simulate" not in call]


class Setup(Machine):
    def test_asksForNothingWhereEverythingIsThere(self):
        self.files["INSTALLED"].write_text("\n".join(self.packages_of("room")))

        result = self.set_up()

        self.assertEqual((result.returncode, result.stdout + result.stderr, self.calls()), (0, "", []))

    def test_takesAHeldPackageForInstalled(self):
        self.files["INSTALLED"].write_text("\n".join(self.packages_of("room")))
        self.bring("dpkg-query", DPKG_QUERY.replace("ii ", "hi "))

        self.assertEqual((self.set_up().returncode, self.calls()), (0, []))

    def test_fetchesEmptyPackageListsBeforeItInstallsAndComplainsOfNothing(self):
        result = self.set_up()

        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertNotIn("E: ", result.stderr)
        self.assertEqual([call.split()[-1] for call in self.runs("apt-get")], ["update", "util-linux"])

    def test_leavesPackageListsAloneThatKnowEveryName(self):
        self.files["KNOWN"].write_text(self.files["NEWEST"].read_text())

        self.assertEqual(self.set_up().returncode, 0)

        self.assertEqual(len(self.runs("apt-get")), 1)

    def test_fetchesPackageListsThatTurnOutToBeOutOfDate(self):
        self.files["KNOWN"].write_text(self.files["NEWEST"].read_text())
        self.files["OUTDATED"].write_text("yes")

        result = self.set_up()

        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual([call.split()[-1] for call in self.runs("apt-get")], ["util-linux", "update", "util-linux"])

    def test_startsNoWebServer(self):
        self.bring("systemctl", NOTING)
        self.files["KNOWN"].write_text("nginx-light\n")

        self.assertEqual(self.set_up("web").returncode, 0)

        around = [call for call in self.calls() if call.startswith(("systemctl", "apt-get")) and "simulate" not in call]
        self.assertEqual(around[0], "systemctl -q mask nginx.service")
        self.assertEqual(around[-2:], ["systemctl -q unmask nginx.service", "systemctl -q disable nginx.service"])

    def test_leavesAWebServerAloneThatWasThere(self):
        self.bring("systemctl", NOTING)
        self.files["KNOWN"].write_text("nginx-light\n")
        self.files["INSTALLED"].write_text("nginx-common\n")

        self.assertEqual(self.set_up("web").returncode, 0)

        self.assertFalse([call for call in self.calls() if call.startswith("systemctl")])

    def test_asksForAPasswordOnce(self):
        self.set_up()

        self.assertEqual(len(self.runs("sudo")), 1)

    def test_endsAtOnceWhereThePasswordIsRefused(self):
        self.bring("sudo", REFUSING_SUDO)

        result = self.set_up()

        self.assertNotEqual(result.returncode, 0)
        self.assertEqual((len(self.runs("sudo")), self.runs("apt-get")), (1, []))

    def test_saysWhatToRunAsRootWhereThereIsNoSudo(self):
        self.tools.joinpath("sudo").unlink()

        result = self.set_up()

        self.assertEqual(result.returncode, 1)
        self.assertIn(f"apt-get install --no-install-recommends {' '.join(sorted(self.packages_of('room')))}",
                      result.stderr)
        self.assertNotIn("not found", result.stderr)

    def test_needsNoSudoAsRoot(self):
        self.is_user(0)
        self.tools.joinpath("sudo").unlink()

        self.assertEqual(self.set_up().returncode, 0)

    def test_saysWhatIsNeededWhereThereIsNoApt(self):
        self.tools.joinpath("apt-get").unlink()

        result = self.set_up()

        self.assertEqual(result.returncode, 1)
        self.assertIn("debootstrap", result.stderr)
        self.assertNotIn("command not found", result.stderr)

    def test_refusesAPurposeThatItDoesNotKnow(self):
        result = self.set_up("nonsense")

        self.assertEqual((result.returncode, self.calls()), (2, []))
