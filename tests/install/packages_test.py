# SPDX-License-Identifier: MPL-2.0
"""The package for Debian: made, judged, installed over an older one in a system of its own, used,
and removed without a trace."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
MAKER = ROOT / "packaging/debian/make_deb.py"
BUILD = os.environ["HUEBRUSH_BUILD"]
LIMIT = 300
OLDER = "0.9.0"
ALL_USERS = "usr/lib/libreoffice/share/extensions"


def output(*command, **options):
    return subprocess.run([str(each) for each in command], check=True, stdout=subprocess.PIPE,
                          text=True, timeout=LIMIT, **options).stdout


def made(folder, *options):
    said = output(sys.executable, MAKER, BUILD, folder, *options,
                  env=dict(os.environ, SOURCE_DATE_EPOCH="1700000000"))
    return pathlib.Path(said.strip())


class DebianPackage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="huebrush-packages-")
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.package = made(cls.folder)

    def test_the_same_build_makes_the_same_bytes(self):
        again = made(self.folder / "again")
        self.assertEqual(again.name, self.package.name)
        self.assertEqual(again.read_bytes(), self.package.read_bytes())

    def test_lintian_finds_no_error_and_warns_of_nothing(self):
        judged = subprocess.run(["lintian", "--allow-root", "--fail-on", "error,warning",
                                 self.package],
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                timeout=LIMIT, check=False)
        self.assertEqual((judged.returncode, judged.stdout.strip()), (0, ""))

    def test_it_has_the_version_of_the_program(self):
        version = output("dpkg-deb", "--field", self.package, "Version").strip()
        program = output(pathlib.Path(BUILD) / "bin/huebrush", "--version").strip()
        self.assertEqual(version.rpartition("-")[0], program)

    def dpkg(self, *arguments):
        # Files of a package belong to root.
        as_root = [] if os.getuid() == 0 else ["fakeroot"]
        return output(*as_root, "dpkg", f"--root={self.system}", "--force-not-root",
                      "--force-depends", "--force-script-chrootless", *arguments,
                      stderr=subprocess.STDOUT)

    def installed_version(self):
        known = subprocess.run(
            ["dpkg-query", f"--admindir={self.system}/var/lib/dpkg", "--show",
             "--showformat=${db:Status-Status} ${Version}", "huebrush"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False).stdout
        return known.removeprefix("installed ") if known.startswith("installed ") else None

    def program(self, *arguments, extensions=None):
        environment = {name: value for name, value in os.environ.items()
                       if name != "HUEBRUSH_EXTENSIONS"}
        if extensions:
            environment["HUEBRUSH_EXTENSIONS"] = str(extensions)
        return output(self.system / "usr/bin/huebrush", *arguments, env=environment)

    def files(self):
        return {path.relative_to(self.system).as_posix() for path in self.system.rglob("*")
                if not path.relative_to(self.system).parts[:3] == ("var", "lib", "dpkg")}

    def test_it_is_installed_updated_used_and_removed(self):
        self.system = self.folder / "system"
        for name in ("info", "updates", "triggers"):
            (self.system / "var/lib/dpkg" / name).mkdir(parents=True)
        (self.system / "var/lib/dpkg/status").touch()
        before = self.files()
        self.dpkg("--install", made(self.folder / "older", "--version", OLDER))
        self.assertTrue(self.installed_version().startswith(f"{OLDER}-"))
        self.dpkg("--install", self.package)
        self.assertFalse(self.installed_version().startswith(OLDER))
        self.assertIn("usr/share/man/man1/huebrush.1.gz", self.files())

        town = self.folder / "town.odt"
        town.write_bytes((ROOT / "examples/town.odt").read_bytes())
        said = self.program("recolor", town, "--in-place", "--map", "#C00000=#0070C0")
        self.assertIn("14 of 428 shapes recoloured", said)
        # As the folder of an office's own extensions: for all users.
        listed = self.program("fills", town, "--through", "office",
                              extensions=self.system / ALL_USERS)
        self.assertRegex(listed, r"(?m)^ *\d+ +14 +#0070C0$")
        # And where the program looks by itself.
        listed = self.program("fills", town, "--through", "office")
        self.assertRegex(listed, r"(?m)^ *\d+ +14 +#0070C0$")

        self.dpkg("--remove", "huebrush")
        self.assertIsNone(self.installed_version())
        left = self.files() - before
        self.assertEqual({name for name in left if not name.startswith("var")}, set())


if __name__ == "__main__":
    unittest.main(verbosity=2)
