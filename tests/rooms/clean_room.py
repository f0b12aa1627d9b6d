"""A clean minimal system of a Debian release in a folder, with an ordinary user in it.

Its files, mounts and host name are its own, and so is its root: it is entered, not only changed into, so that programs
in it may make namespaces as on any machine. Needs root and namespaces of its own for mounts, processes and the host
name (scripts/clean-room), with which everything in it ends."""

import fcntl
import hashlib
import os
import shutil
import signal
import subprocess
from contextlib import ExitStack
from pathlib import Path

RELEASES = {"12": "bookworm", "13": "trixie"}
HOST = "room"
PERSON = "person"
USER = "1000:1000"
HOME = f"/home/{PERSON}"
RUNTIME = "/run/user/1000"
PATH = "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin"
# As the installer of Debian writes it, two addresses of "localhost" included.
HOSTS = f"""127.0.0.1\tlocalhost
127.0.1.1\t{HOST}

::1\tlocalhost ip6-localhost ip6-loopback
ff02::1\tip6-allnodes
ff02::2\tip6-allrouters
"""
SERVICES_STAY_OFF = "#!/bin/sh\nexit 101\n"
# Makes the folder $1 the root of this process, shows what is in $2 as its packages and in the rest what is bound there,
# and stays as long as the room does.
MOVE_IN = """
mount --bind "$1" "$1"
cd "$1"
mount -t proc proc proc
mount -t sysfs -o ro sysfs sys
mount -t tmpfs -o mode=1777 tmpfs dev/shm
mount -t devpts -o newinstance,ptmxmode=0666,mode=0620,gid=5 devpts dev/pts
mount --bind "$2" var/cache/apt/archives
shift 2
for folder; do
  mkdir -p ".$folder"
  mount --bind "$folder" ".$folder"
done
hostname -F etc/hostname
pivot_root . .
umount --lazy .
echo ready
exec sleep infinity
"""


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def run_quietly(*command, **options):
    """Runs a command whose output matters only when it fails."""
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)
    if result.returncode != 0:
        raise RuntimeError(f"{' '.join(map(str, command))} ended with {result.returncode}:\n{result.stdout}")
    return result.stdout


def own_release():
    """This machine's release as RELEASES counts it, None where it is another system."""
    fields = dict(line.split("=", 1) for line in Path("/etc/os-release").read_text().splitlines() if "=" in line)
    number = fields.get("VERSION_ID", "").strip('"')
    return number if fields.get("ID") == "debian" and number in RELEASES else None


def chosen_release():
    """The release of a clean system where none was asked for: this machine's own, else the newest."""
    return own_release() or max(RELEASES)


def sources(name):
    """This machine's Debian package sources as lines of sources.list, for the release called `name`; other vendors'
    are left out. The release's pristine source comes first."""
    listed = output_of("apt-get", "indextargets", "--format", "$(SITE) $(RELEASE) $(COMPONENT)",
                       "Created-By: Packages").splitlines()
    lines = [line.split() for line in dict.fromkeys(listed)]
    own = [(site, suite.partition("-")) for site, suite, component in lines
           if component == "main" and suite.partition("-")[0] in RELEASES.values()
           and suite.partition("-")[2] in ("", "updates", "security")]
    found = [f"{site} {name}{dash}{rest} main" for site, (_, dash, rest) in own]
    found.sort(key=lambda line: line.split()[1] != name)
    if not found or found[0].split()[1] != name:
        raise RuntimeError("this machine has no package source of a Debian release")
    return found


def proxies():
    """apt's own settings of proxies, which hold in the clean system as well."""
    return "\n".join(line for line in output_of("apt-config", "dump").splitlines() if "::Proxy " in line)


def base_system(cache, release):
    """The folder of a pristine system, made on the first call; only ever copied."""
    name = RELEASES[release]
    folder = cache / name
    cache.mkdir(parents=True, exist_ok=True)
    with locked(cache / f"{name}.lock"):
        if folder.exists():
            return folder
        fresh = cache / f"{name}.part"
        shutil.rmtree(fresh, ignore_errors=True)
        lines = sources(name)
        mirror = lines[0].split()[0]
        run_quietly("debootstrap", "--variant=minbase", "--include=sudo", name, str(fresh), mirror)
        furnish(fresh, lines)
        fresh.rename(folder)
    return folder


def furnish(root, lines):
    """What the installer would have set up: package sources without lists, the names of this host, the user."""
    shutil.rmtree(root / "var/lib/apt/lists")
    (root / "var/lib/apt/lists/partial").mkdir(parents=True)
    (root / "etc/apt/sources.list").write_text("".join(f"deb {line}\n" for line in lines))
    (root / "etc/apt/apt.conf.d/90proxies").write_text(proxies())
    (root / "etc/hostname").write_text(f"{HOST}\n")
    (root / "etc/hosts").write_text(HOSTS)
    keeper = root / "usr/sbin/policy-rc.d"
    keeper.write_text(SERVICES_STAY_OFF)
    keeper.chmod(0o755)
    run_quietly("chroot", str(root), "useradd", "--create-home", "--shell", "/bin/bash", "--uid", "1000", PERSON)
    rights = root / "etc/sudoers.d/person"
    rights.write_text(f"{PERSON} ALL=(ALL) NOPASSWD: ALL\n")
    rights.chmod(0o440)


def locked(path):
    """Holds a lock on the file at `path` for the `with` block, waiting for it."""
    stack = ExitStack()
    file = stack.enter_context(open(path, "w"))
    fcntl.flock(file, fcntl.LOCK_EX)
    return stack


class Room:
    """One clean system, from its making to the end of the `with` block.

    `shared` are folders of this machine that are seen at the same place in it."""

    def __init__(self, name, cache, release, shared=()):
        self.root = (cache / "rooms" / name).resolve()
        self._cache = cache
        self._release = release
        self._shared = shared
        self._holder = None
        self._lock = None

    def __enter__(self):
        self.root.parent.mkdir(parents=True, exist_ok=True)
        # The rooms of a release share the packages that apt has fetched, which one apt only may use at a time.
        self._lock = locked(self.root.parent / f"{self._release}.lock")
        shutil.rmtree(self.root, ignore_errors=True)
        try:
            base = base_system(self._cache, self._release)
            run_quietly("cp", "-a", "--reflink=auto", str(base), str(self.root))
            shutil.copy("/etc/resolv.conf", self.root / "etc/resolv.conf")
            self._move_in()
            self.run("install", "-d", "-o", PERSON, "-g", PERSON, "-m", "700", RUNTIME)
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        if self._holder:
            self._end_processes()
            self._holder.wait()
        # What is mounted in it is mounted for its own processes only, and went with them.
        shutil.rmtree(self.root, ignore_errors=True)
        self._lock.close()

    def _end_processes(self):
        """Ends what was started in here by whatever: services that a bus starts have no other owner."""
        mounts = os.readlink(f"/proc/{self._holder.pid}/ns/mnt")
        for process in Path("/proc").glob("[0-9]*"):
            try:
                if os.readlink(process / "ns/mnt") == mounts:
                    os.kill(int(process.name), signal.SIGKILL)
            except OSError:
                pass  # It ended meanwhile.

    def _move_in(self):
        archives = self._cache / "archives" / self._release
        (archives / "partial").mkdir(parents=True, exist_ok=True)
        self._holder = subprocess.Popen(
            ["unshare", "--mount", "--propagation", "private", "/bin/sh", "-ec", MOVE_IN, "room",
             str(self.root), str(archives.resolve()), *self._shared],
            env={"PATH": PATH}, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        if self._holder.stdout.readline() != "ready\n":
            raise RuntimeError(f"the clean system cannot be entered: {self._holder.stderr.read()}")

    def path(self, inside):
        """Where a path of the clean system is on this machine."""
        return self.root / inside.lstrip("/")

    def command(self, *command, user=None, environment=None, folder="/"):
        """The command line and the environment with which a command runs inside, as root or as the user."""
        chosen = []
        if user:
            number, group = user.split(":")
            chosen = ["setpriv", f"--reuid={number}", f"--regid={group}", "--init-groups"]
        home = HOME if user else "/root"
        fresh = {"PATH": PATH, "HOME": home, "LC_ALL": "C.UTF-8", "DEBIAN_FRONTEND": "noninteractive"}
        return ["nsenter", f"--mount=/proc/{self._holder.pid}/ns/mnt", "env", f"--chdir={folder}", *chosen,
                *command], fresh | (environment or {})

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


if __name__ == "__main__":
    print(chosen_release())
