"""A package manager of a test's own: the real PackageKit, polkit and apt, over packages and a source of the test's.

In a mount namespace the folders in which apt, dpkg, PackageKit and polkit keep what they know are empty ones of the
test's, and so is the place of the system bus. Nothing of the machine's own packages is read or written. It takes root.

    with OwnPackages() as packages:
        packages.publish("1.1")
        packages.start(["some-program"])
"""

import email.utils
import hashlib
import os
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

from desktop.own_namespaces import IS_ROOT
from desktop.processes import Processes, wait_for

NAME = "glimmet-test"
PROGRAM = "/opt/glimmet-test/bin/program"
OWN_FOLDERS = ["/var/lib/dpkg", "/var/lib/apt", "/var/cache/apt", "/var/lib/PackageKit", "/var/log", "/etc/apt",
               "/opt", "/run/dbus"]
BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>unix:path=/run/dbus/system_bus_socket</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow user="*"/>
    <allow own="*"/>
    <allow send_destination="*"/>
    <allow send_type="signal"/>
    <allow receive_sender="*"/>
  </policy>
</busconfig>
"""


class OwnPackages:
    """`program`: the file that is packaged as PROGRAM, none: a script; `libraries`: what is to be beside it."""

    @staticmethod
    def reason_to_skip():
        """A user namespace is not enough: polkit and the tests themselves turn into other users."""
        return None if IS_ROOT else "a package manager of its own takes root"

    def __init__(self, program=None, libraries=None):
        self._program = program
        self._libraries = libraries

    def __enter__(self):
        if reason := self.reason_to_skip():
            raise RuntimeError(reason)
        self.folder = Path(tempfile.mkdtemp(prefix="glimmet-packages-"))
        self.folder.chmod(0o755)
        self._processes = Processes(self.folder.name, self.folder)
        self._service = None
        self._publications = 0
        self.source = self.folder / "source"
        self._keyrings = []
        try:
            self._make_folders()
            self._make_key("owner")
            self._enter_namespace()
            self.set_sources()
            self._start_buses()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self._processes.stop_all()
        for keyring in self._keyrings:
            subprocess.run(["gpgconf", "--homedir", str(keyring), "--kill", "all"], capture_output=True)
        shutil.rmtree(self.folder, ignore_errors=True)

    def _inside(self, path):
        """Where a folder of the namespace is outside of it."""
        return self.folder / "root" / path.lstrip("/")

    def _make_folders(self):
        self.source.mkdir()
        for folder in OWN_FOLDERS:
            self._inside(folder).mkdir(parents=True)
        for folder in ("info", "updates", "triggers", "parts"):
            (self._inside("/var/lib/dpkg") / folder).mkdir()
        for file in ("status", "available"):
            (self._inside("/var/lib/dpkg") / file).touch()
        for folder in ("sources.list.d", "apt.conf.d", "preferences.d", "trusted.gpg.d"):
            (self._inside("/etc/apt") / folder).mkdir()
        (self._inside("/var/lib/apt") / "lists/partial").mkdir(parents=True)
        (self._inside("/var/cache/apt") / "archives/partial").mkdir(parents=True)
        # apt fetches as a user of its own, which must not be in the way of a source in a test's folder.
        (self._inside("/etc/apt") / "apt.conf.d/test").write_text(
            'APT::Sandbox::User "root";\nAcquire::Retries "0";\nAcquire::Languages "none";\n')

    def _make_key(self, name):
        home = self.folder / name
        home.mkdir(mode=0o700)
        self._keyrings.append(home)
        gpg = ["gpg", "--homedir", str(home), "--batch", "--quiet", "--passphrase", ""]
        subprocess.run([*gpg, "--quick-gen-key", f"{name} <{name}@example.org>", "ed25519", "sign", "never"],
                       check=True, capture_output=True)
        key = subprocess.run([*gpg, "--export"], check=True, capture_output=True).stdout
        if name == "owner":
            (self._inside("/etc/apt") / "owner.gpg").write_bytes(key)

    def _enter_namespace(self):
        # The folders may be missing on the machine, and then are made on it, empty.
        mounts = "".join(f"mkdir -p {path} && mount --bind {self._inside(path)} {path} && " for path in OWN_FOLDERS)
        hold = mounts + "echo ready && exec sleep infinity"
        self._holder = self._processes.start(
            "holder", ["unshare", "--mount", "--propagation", "private", "sh", "-c", hold], os.environ,
            stdout=subprocess.PIPE, text=True)
        with self._holder.stdout as answer:
            is_ready = answer.readline() == "ready\n"
        if not is_ready:
            raise RuntimeError("no mounts of its own: it takes root, also over the mounts")

    def _start_buses(self):
        configuration = self.folder / "bus.conf"
        configuration.write_text(BUS)
        self.start(["dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile"])
        socket = self._inside("/run/dbus") / "system_bus_socket"
        wait_for(socket.exists, 10, "the bus")
        self.start(["/usr/lib/polkit-1/polkitd", "--no-debug"])
        self._wait_for_name("org.freedesktop.PolicyKit1")
        self.start_service()

    def start_service(self):
        self._service = self.start(["/usr/libexec/packagekitd"])
        self._wait_for_name("org.freedesktop.PackageKit")

    def kill_service(self):
        self._service.kill()
        self._service.wait()

    def _wait_for_name(self, name):
        question = ["dbus-send", "--system", "--print-reply", "--dest=org.freedesktop.DBus", "/",
                    "org.freedesktop.DBus.GetNameOwner", f"string:{name}"]
        wait_for(lambda: self.run(question, check=False).returncode == 0, 10, name)

    @property
    def wrapper(self):
        """What to put before a program's command to have it see these packages and no others."""
        return ["nsenter", f"--target={self._holder.pid}", "--mount", "--"]

    def start(self, command, **options):
        """Starts a program among these packages."""
        name = Path(command[0]).name
        return self._processes.start(name, [*self.wrapper, *command], os.environ, **options)

    def run(self, command, check=True):
        return subprocess.run([*self.wrapper, *command], check=check, capture_output=True, text=True)

    def install(self, version):
        """As if it had always been there."""
        self.run(["dpkg", "--install", str(self._build(version))])

    def installed(self):
        return self.run(["dpkg-query", "-W", "-f", "${Version}", NAME]).stdout

    def set_sources(self, *further, address=None):
        """apt's sources: the test's at `address` (none: its folder), and further lines."""
        own = f"deb [signed-by=/etc/apt/owner.gpg] {address or f'file:{self.source}'} ./"
        (self._inside("/etc/apt") / "sources.list").write_text("\n".join([own, *further, ""]))

    def fetch_lists(self):
        self.run(["apt-get", "update"])

    def publish(self, *versions, signer="owner"):
        """From now on the source offers these."""
        for package in self.source.glob("*.deb"):
            package.unlink()
        for version in versions:
            shutil.copy(self._build(version), self.source)
        if signer != "owner":
            self._make_key(signer)
        self._write_index()
        self._sign(signer)
        # What is as old as the one before, to the second, is not fetched again.
        self._publications += 1
        age = time.time() - 3600 + 60 * self._publications
        for file in self.source.iterdir():
            os.utime(file, (age, age))

    def spoil(self, version):
        """Has the source serve another file than the one in its index, of the same length."""
        file = self.source / f"{NAME}_{version}.deb"
        file.write_bytes(file.read_bytes()[:-4] + b"evil")

    def _build(self, version):
        package = self.folder / f"{NAME}_{version}.deb"
        tree = self.folder / "tree"
        shutil.rmtree(tree, ignore_errors=True)
        (tree / "DEBIAN").mkdir(parents=True)
        (tree / "DEBIAN/control").write_text(
            f"Package: {NAME}\nVersion: {version}\nArchitecture: {self._architecture()}\n"
            "Maintainer: Test <test@example.org>\nDescription: for a test\n")
        program = tree / PROGRAM.lstrip("/")
        program.parent.mkdir(parents=True)
        if self._program:
            shutil.copy(self._program, program)
        else:
            program.write_text(f"#!/bin/sh\necho {version}\n")
        program.chmod(0o755)
        if self._libraries:
            (program.parent.parent / "lib").mkdir()
            (program.parent.parent / "lib/glimmet").symlink_to(self._libraries)
        subprocess.run(["dpkg-deb", "--root-owner-group", "-Zgzip", "-z1", "--build", str(tree), str(package)],
                       check=True, capture_output=True)
        return package

    @staticmethod
    def _architecture():
        return subprocess.run(["dpkg", "--print-architecture"], check=True, capture_output=True,
                              text=True).stdout.strip()

    def _write_index(self):
        entries = []
        for package in sorted(self.source.glob("*.deb")):
            control = subprocess.run(["dpkg-deb", "--field", str(package)], check=True, capture_output=True,
                                     text=True).stdout
            data = package.read_bytes()
            entries.append(f"{control}Filename: ./{package.name}\nSize: {len(data)}\n"
                           f"SHA256: {hashlib.sha256(data).hexdigest()}\n")
        index = "\n".join(entries).encode()
        (self.source / "Packages").write_bytes(index)
        (self.source / "Release").write_text(
            f"Origin: Test\nLabel: Test\nSuite: test\nCodename: test\nDate: {email.utils.formatdate()}\n"
            f"SHA256:\n {hashlib.sha256(index).hexdigest()} {len(index)} Packages\n")

    def _sign(self, signer):
        subprocess.run(["gpg", "--homedir", str(self.folder / signer), "--batch", "--yes", "--clearsign", "--output",
                        str(self.source / "InRelease"), str(self.source / "Release")], check=True, capture_output=True)
