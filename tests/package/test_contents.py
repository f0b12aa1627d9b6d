"""What is installed, and what the package says about it."""

import ast
import json
import os
import re
import shlex
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as xml
from configparser import ConfigParser
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
BUILD = Path(os.environ["GLIMMET_BUILD"])
VERSION = os.environ["GLIMMET_VERSION"]
ID = "me.kerno.glimmet"
EXTENSION = "share/gnome-shell/extensions/glimmet@kerno.me"
WIDGET = f"share/plasma/plasmoids/{ID}"
SVG = "{http://www.w3.org/2000/svg}"
FILES = {
    "bin/glimmet",
    "bin/glimmet-feed",
    "lib/glimmet/libglimmet_ui.so",
    f"share/applications/{ID}.desktop",
    "share/doc/glimmet/changelog.Debian.gz",
    "share/doc/glimmet/changelog.gz",
    "share/doc/glimmet/copyright",
    f"{EXTENSION}/extension.js",
    f"{EXTENSION}/metadata.json",
    f"share/icons/hicolor/scalable/apps/{ID}.svg",
    f"share/icons/hicolor/symbolic/apps/{ID}-symbolic.svg",
    "share/lintian/overrides/glimmet",
    "share/man/man1/glimmet-feed.1.gz",
    "share/man/man1/glimmet.1.gz",
    f"share/metainfo/{ID}.metainfo.xml",
    f"{WIDGET}/contents/ui/main.qml",
    f"{WIDGET}/metadata.json",
}

# What the projects call themselves, by how their libraries' names begin.
NAMES = {
    "libQt6": "Qt 6",
    "libicu": "ICU",
    "libsimdjson": "simdjson",
    "libgio": "GLib",
    "libglib": "GLib",
    "libgobject": "GLib",
    "libxcb": "libxcb",
    "libz": "zlib",
    "libcurl": "curl",
    "libproxy": "libproxy",
    "libssl": "OpenSSL",
    "libcrypto": "OpenSSL",
    "libstdc": "the GNU C++ library",
    "libgcc_s": "the GNU C++ library",
    "libc": "the GNU C library",
    "libm": "the GNU C library",
    "ld": "the GNU C library",
}


def run(*command, **options):
    return subprocess.run(command, capture_output=True, text=True, timeout=50, **options)


class Installed(unittest.TestCase):
    """Installs the build into a folder of its own."""

    @classmethod
    def setUpClass(cls):
        cls.prefix = Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        result = run("cmake", "--install", BUILD, "--prefix", cls.prefix, umask=0o022)
        if result.returncode != 0:
            raise AssertionError(result.stderr)

    def passes(self, *command, **options):
        result = run(*command, **options)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        return result


class InstalledFiles(Installed):
    def test_theyAreExactlyThese(self):
        found = {str(path.relative_to(self.prefix)) for path in self.prefix.rglob("*") if not path.is_dir()}

        self.assertEqual(found, FILES)

    def test_everybodyMayReadThemAndNobodyElseMayWriteThem(self):
        for path in self.prefix.rglob("*"):
            wanted = 0o755 if path.is_dir() or path.parent.name == "bin" else 0o644
            with self.subTest(path=path.relative_to(self.prefix)):
                self.assertEqual(oct(path.stat().st_mode & 0o7777), oct(wanted))

    def test_theProgramStartsWithoutALibraryOfItsOwn(self):
        listed = self.passes("ldd", self.prefix / "bin/glimmet").stdout

        self.assertIn("libQt6Core", listed)
        self.assertNotIn("glimmet", listed)

    def test_theFeedNeedsNoQt(self):
        listed = self.passes("ldd", self.prefix / "bin/glimmet-feed").stdout

        self.assertIn("libgio", listed)
        self.assertNotIn("Qt", listed)

    def test_theExtensionIsForTheReleasesShell(self):
        about = json.loads((self.prefix / EXTENSION / "metadata.json").read_text())
        shell = re.search(r"\d+", self.passes("gnome-shell", "--version").stdout)[0]

        self.assertEqual(about["uuid"], Path(EXTENSION).name)
        self.assertIn(shell, about["shell-version"])

    def test_theWidgetIsOneThatPlasmaFindsAndCanRead(self):
        about = json.loads((self.prefix / WIDGET / "metadata.json").read_text())
        # Plasma's own modules are not needed for what is asked here; whatever is missing is a warning.
        drawn = self.prefix / WIDGET / "contents/ui/main.qml"
        file, = json.loads(run(os.environ["GLIMMET_QMLLINT"], "--bare", "--json", "-", drawn).stdout)["files"]

        self.assertEqual(about["KPackageStructure"], "Plasma/Applet")
        self.assertEqual(about["KPlugin"]["Id"], Path(WIDGET).name)
        self.assertEqual([each for each in file["warnings"] if each["type"] not in ("info", "warning")], [])

    def symbols(self, path, which):
        listed = self.passes("nm", "--dynamic", "--format=just-symbols", which, self.prefix / path).stdout
        return {line.split("@")[0] for line in listed.splitlines()}

    def test_theProgramShowsThePanelWhatItTakesAndNothingElse(self):
        own = re.compile(r"_Z\w*7glimmet").match
        shown = set(filter(own, self.symbols("bin/glimmet", "--defined-only")))
        taken = set(filter(own, self.symbols("lib/glimmet/libglimmet_ui.so", "--undefined-only")))

        self.assertGreater(len(taken), 10)
        self.assertEqual(shown, taken)

    def test_thePanelShowsTheProgramOnlyWhatQtLoads(self):
        self.assertEqual(self.symbols("lib/glimmet/libglimmet_ui.so", "--defined-only"),
                         {"qt_plugin_instance", "qt_plugin_query_metadata_v2"})


class DesktopFiles(Installed):
    def entry(self):
        reader = ConfigParser(interpolation=None)
        reader.optionxform = str
        reader.read(self.prefix / f"share/applications/{ID}.desktop")
        return reader["Desktop Entry"]

    def metainfo(self):
        return xml.parse(self.prefix / f"share/metainfo/{ID}.metainfo.xml").getroot()

    def icon(self, kind):
        name = f"{ID}-symbolic.svg" if kind == "symbolic" else f"{ID}.svg"
        return self.prefix / "share/icons/hicolor" / kind / "apps" / name

    def drawn(self, kind, size):
        """The opacity of each pixel of an icon, row by row."""
        png = self.prefix / "icon.png"
        self.addCleanup(png.unlink, missing_ok=True)
        self.passes("rsvg-convert", "-w", str(size), "-h", str(size), "-o", png, self.icon(kind))
        picture = subprocess.run(["convert", png, "-alpha", "extract", "-depth", "8", "gray:-"],
                                 capture_output=True, check=True, timeout=50)
        return picture.stdout

    def test_theMenuEntryIsValidAndStartsWhatIsInstalled(self):
        result = self.passes("desktop-file-validate", self.prefix / f"share/applications/{ID}.desktop")

        self.assertEqual(result.stdout + result.stderr, "")
        self.assertTrue((self.prefix / "bin" / shlex.split(self.entry()["Exec"])[0]).exists())
        self.assertEqual(self.entry()["Icon"], ID)

    def test_theMetainfoIsValidAndDescribesTheMenuEntry(self):
        result = run("appstreamcli", "validate", "--no-net", self.prefix / f"share/metainfo/{ID}.metainfo.xml")

        # The project has no home page. Newer validators warn of that, older ones do not know an override for it.
        complaints = set(re.findall(r"^[EW]: \S+ (\S+)$", result.stdout, re.MULTILINE))
        self.assertLessEqual(complaints, {"url-homepage-missing"}, result.stdout)
        if not complaints:
            self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertEqual(self.metainfo().findtext("id"), ID)
        self.assertEqual(self.metainfo().findtext("launchable"), f"{ID}.desktop")
        self.assertEqual(self.metainfo().findtext("name"), self.entry()["Name"])

    def test_theMetainfoNamesNoLicenceOfTheProgram(self):
        self.assertIsNone(self.metainfo().find("project_license"))

    def test_theIconsCanBeDrawnAtEverySize(self):
        for kind in ("scalable", "symbolic"):
            for size in (16, 22, 48, 128, 512):
                with self.subTest(kind=kind, size=size):
                    pixels = self.drawn(kind, size)

                    opaque = sum(1 for opacity in pixels if opacity > 200)
                    self.assertEqual(len(pixels), size * size)
                    self.assertGreater(opaque, size * size * 0.25)

    def test_theSymbolicIconHasOneColourAndNothingAround(self):
        drawing = xml.parse(self.icon("symbolic")).getroot()

        self.assertEqual({element.tag for element in drawing}, {f"{SVG}path"})
        self.assertEqual(len({element.get("fill") for element in drawing}), 1)
        self.assertEqual(drawing.get("viewBox"), "0 0 16 16")


class Documents(Installed):
    def test_theManualPagesHaveNoWarnings(self):
        for page in (self.prefix / "share/man/man1").iterdir():
            with self.subTest(page=page.name):
                result = self.passes("man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page,
                                     env=os.environ | {"LC_ALL": "C.UTF-8", "MANROFFSEQ": "", "MANWIDTH": "80"})

                self.assertEqual(result.stderr, "")

    def test_theFeedsManualPageNamesItsOptionsAndNoOthers(self):
        page = (ROOT / "packaging" / "glimmet-feed.1").read_text().replace("\\-", "-")
        told = self.passes(self.prefix / "bin/glimmet-feed", "--help").stdout

        self.assertEqual(set(re.findall(r"--\w+", page)), set(re.findall(r"--\w+", told)))

    def test_theReadmeUsesTheFeedsOptionsAsTheyAre(self):
        used = set(re.findall(r"glimmet-feed (--\w+)", (ROOT / "README.md").read_text()))
        told = self.passes(self.prefix / "bin/glimmet-feed", "--help").stdout

        self.assertIn("--waybar", used)
        self.assertLessEqual(used, set(re.findall(r"--\w+", told)))

    def test_theManualPageNamesEveryVariableThatTheProgramReads(self):
        words = set(re.findall(r"\w+", (ROOT / "packaging" / "glimmet.1").read_text()))
        sources = [path.read_text() for folder in ("app", "platform") for path in (ROOT / folder).rglob("*.cpp")]
        # What Qt itself is told by, and what the desktop calls itself, is nothing that a user would set for glimmet.
        read = set(re.findall(r'"((?:XDG|LC|DBUS_SESSION)_[A-Z_]+|DISPLAY|LANG|TZ)"', "".join(sources)))

        self.assertIn("DISPLAY", read)
        self.assertEqual(read - words, {"XDG_CURRENT_DESKTOP"})

    def test_theChangelogIsOfThisVersion(self):
        packed = self.prefix / "share/doc/glimmet/changelog.Debian.gz"
        text = subprocess.run(["gzip", "-dc", packed], capture_output=True, check=True).stdout
        changelog = self.prefix / "changelog"
        self.addCleanup(changelog.unlink)
        changelog.write_bytes(text)

        parsed = self.passes("dpkg-parsechangelog", "-l", changelog)

        self.assertEqual(parsed.stderr, "")
        self.assertIn(f"\nVersion: {VERSION}-", parsed.stdout)

    def test_whatIsNewIsToldOfThisVersionFirst(self):
        packed = self.prefix / "share/doc/glimmet/changelog.gz"

        text = subprocess.run(["gzip", "-dc", packed], capture_output=True, check=True, text=True).stdout

        self.assertEqual(re.findall(r"^## (\S+)$", text, re.MULTILINE)[:1], [VERSION])

    def test_theCopyrightFileChoosesNoLicence(self):
        text = (self.prefix / "share/doc/glimmet/copyright").read_text()
        stanzas = dict(re.findall(r"^Files: (\S+)\n.*\nLicense: (\S+)$", text, re.MULTILINE))

        self.assertTrue(text.startswith("Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/\n"))
        self.assertEqual(stanzas, {"*": "none-chosen", f"{ID}.metainfo.xml": "FSFAP"})

    def test_theCopyrightFileNamesEveryLibraryThatIsLinked(self):
        files = [*(self.prefix / "bin").iterdir(), *(self.prefix / "lib/glimmet").iterdir()]
        listed = "".join(self.passes("objdump", "-p", path).stdout for path in files)
        linked = set(re.findall(r"NEEDED +(\w+?)[\d.-]*\.so", listed)) - {path.stem for path in files}
        words = (self.prefix / "share/doc/glimmet/copyright").read_text()

        self.assertIn("libz", linked)
        for library in linked:
            with self.subTest(library=library):
                name = next((name for start, name in NAMES.items() if library.startswith(start)), library)
                self.assertIn(f"{name} (", " ".join(words.split()))


class Dependencies(unittest.TestCase):
    def depends(self):
        """The packages that the package names, apart from those of linked libraries."""
        configuration = (BUILD / "CPackConfig.cmake").read_text()
        value = re.search(r'set\(CPACK_DEBIAN_PACKAGE_DEPENDS (".*?")\)', configuration).group(1)
        return set(ast.literal_eval(value).split(", "))

    def test_everyModuleThatThePanelImportsIsNamed(self):
        files = list((ROOT / "ui").glob("**/*.qml"))
        imports = {name for path in files for name in re.findall(r"^import ([\w.]+)", path.read_text(), re.MULTILINE)}
        packages = {"qml6-module-" + name.lower().replace(".", "-") for name in imports - {"Glimmet"}}

        self.assertIn("qml6-module-qtquick", packages)
        self.assertLessEqual(packages, self.depends())
