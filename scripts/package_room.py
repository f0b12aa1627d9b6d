"""A clean minimal system in a folder, in which packages are installed and run: a chroot with an ordinary user.

Needs root, a mount namespace and a process namespace of its own, with which everything in it ends."""

import hashlib
import os
import shutil
import signal
import subprocess
from pathlib import Path

USER = "1000:1000"
HOME = "/home/person"
RUNTIME = "/run/user/1000"
PATH = "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin"
SERVICES_STAY_OFF = "#!/bin/sh\nexit 101\n"


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def run_quietly(*command, **options):
    """Runs a command whose output matters only when it fails."""
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)
    if result.returncode != 0:
        raise RuntimeError(f"{' '.join(map(str, command))} ended with {result.returncode}:\n{result.stdout}")
    return result.stdout


def release_name():
    fields = dict(line.split("=", 1) for line in Path("/etc/os-release").read_text().splitlines() if "=" in line)
    return fields["VERSION_CODENAME"].strip('"')


def sources(release):
    """This machine's package sources of its own release, as lines of sources.list; other vendors' are left out."""
    listed = output_of("apt-get", "indextargets", "--format", "$(SITE) $(RELEASE) $(COMPONENT)",
                       "Created-By: Packages").splitlines()
    found = [line for line in dict.fromkeys(listed) if line.split()[1].split("-")[0] == release]
    if not any(line.split()[1] == release for line in found):
        raise RuntimeError(f"this machine has no package source for {release}")
    return found


def proxies():
    """apt's own settings of proxies, which hold in the clean system as well."""
    return "\n".join(line for line in output_of("apt-config", "dump").splitlines() if "::Proxy " in line)


def base_system(cache):
    """The folder of a pristine system, made on the first call; only ever copied."""
    release = release_name()
    folder = cache / release
    if folder.exists():
        return folder
    fresh = cache / f"{release}.part"
    shutil.rmtree(fresh, ignore_errors=True)
    lines = sources(release)
    mirror = next(line.split()[0] for line in lines if line.split()[1] == release)
    run_quietly("debootstrap", "--variant=minbase", release, str(fresh), mirror)
    (fresh / "etc/apt/sources.list").write_text("".join(f"deb {line}\n" for line in lines))
    (fresh / "etc/apt/apt.conf.d/90proxies").write_text(proxies())
    keeper = fresh / "usr/sbin/policy-rc.d"
    keeper.write_text(SERVICES_STAY_OFF)
    keeper.chmod(0o755)
    fresh.rename(folder)
    return folder


class Room:
    """One clean system, from its making to the end of the `with` block."""

    def __init__(self, name, cache):
        self.root = (cache / "rooms" / name).resolve()
        self._cache = cache
        self._mounts = []

    def __enter__(self):
        shutil.rmtree(self.root, ignore_errors=True)
        self.root.parent.mkdir(parents=True, exist_ok=True)
        base = base_system(self._cache)
        try:
            run_quietly("cp", "-a", "--reflink=auto", str(base), str(self.root))
            shutil.copy("/etc/resolv.conf", self.root / "etc/resolv.conf")
            self._mount_all()
            self._add_user()
            self.apt("update")
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        self._end_processes()
        for target in reversed(self._mounts):
            run_quietly("umount", "--lazy", str(target))
        self._mounts = []
        # Never across what is still mounted: the machine's own files would be deleted through it.
        if not any(str(self.root) in line for line in Path("/proc/self/mounts").read_text().splitlines()):
            shutil.rmtree(self.root, ignore_errors=True)

    def _end_processes(self):
        """Ends what was started in here by whatever: services that a bus starts have no other owner."""
        for process in Path("/proc").glob("[0-9]*"):
            try:
                if (process / "root").readlink() == self.root:
                    os.kill(int(process.name), signal.SIGKILL)
            except OSError:
                pass  # It ended meanwhile.

    def _mount_all(self):
        archives = self._cache / "archives"
        (archives / "partial").mkdir(parents=True, exist_ok=True)
        self._mount("proc", "proc", "-t", "proc")
        self._mount("tmpfs", "dev/shm", "-t", "tmpfs")
        self._mount("devpts", "dev/pts", "-t", "devpts")
        self._mount(str(archives.resolve()), "var/cache/apt/archives", "--bind")
        self._mount("/tmp/.X11-unix", "tmp/.X11-unix", "--bind")

    def _mount(self, source, place, *options):
        target = self.root / place
        target.mkdir(parents=True, exist_ok=True)
        run_quietly("mount", *options, source, str(target))
        self._mounts.append(target)

    def _add_user(self):
        self.run("useradd", "--create-home", "--shell", "/bin/sh", "--uid", "1000", "person")
        self.run("install", "-d", "-o", "person", "-g", "person", "-m", "700", RUNTIME)

    def path(self, inside):
        """Where a path of the clean system is on this machine."""
        return self.root / inside.lstrip("/")

    def command(self, *command, user=None, environment=None):
        """The command line and the environment with which a command runs inside, as root or as the user."""
        chosen = [f"--userspec={user}"] if user else []
        home = HOME if user else "/root"
        fresh = {"PATH": PATH, "HOME": home, "LC_ALL": "C.UTF-8", "DEBIAN_FRONTEND": "noninteractive"}
        return ["/usr/sbin/chroot", *chosen, str(self.root), *command], fresh | (environment or {})

    def run(self, *command, user=None, environment=None, **options):
        line, variables = self.command(*command, user=user, environment=environment)
        return run_quietly(*line, env=variables, **options)

    def apt(self, *arguments):
        return self.run("apt-get", "-y", "-o", "Dpkg::Use-Pty=0", *arguments)

    def version_of(self, package):
        """The installed version, None where it is not installed."""
        line, variables = self.command("dpkg-query", "-W", "-f", "${db:Status-Status} ${Version}", package)
        answer = subprocess.run(line, env=variables, capture_output=True, text=True).stdout.split()
        return answer[1] if answer[:1] == ["installed"] else None

    def bring(self, source, inside):
        """Copies a file or a folder into the clean system, readable for everybody."""
        target = self.path(inside)
        target.parent.mkdir(parents=True, exist_ok=True)
        if source.is_dir():
            shutil.rmtree(target, ignore_errors=True)
            shutil.copytree(source, target)
        else:
            shutil.copy(source, target)
        run_quietly("chmod", "-R", "a+rX", str(target))

    def write_as_user(self, inside, text):
        target = self.path(inside)
        self.run("mkdir", "-p", str(Path(inside).parent), user=USER)
        target.write_text(text)
        os.chown(target, *map(int, USER.split(":")))

    def fingerprint(self, *folders):
        """Every file below these folders of the user with what is in it."""
        files = [path for folder in folders for path in self.path(f"{HOME}/{folder}").rglob("*") if path.is_file()]
        return {str(path.relative_to(self.root)): hashlib.sha256(path.read_bytes()).hexdigest() for path in files}
