# SPDX-License-Identifier: MPL-2.0
"""What `cmake --install` puts into a folder, and that it works from there."""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import zipfile
from xml.etree import ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests"))

from command_help import every_command, options_in  # noqa: E402

CMAKE = os.environ["HUEBRUSH_CMAKE"]
BUILD = os.environ["HUEBRUSH_BUILD"]
EXTENSION = f"{os.environ['HUEBRUSH_LIBDIR']}/huebrush/extension/huebrush"
DESCRIPTION = "{http://openoffice.org/extensions/description/2006}"


def output(*command, **options):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True, timeout=120,
                          **options).stdout


def has_debug_information(path):
    return ".debug_info" in output("readelf", "--section-headers", "--wide", str(path))


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="huebrush-install-")
        cls.addClassCleanup(folder.cleanup)
        cls.prefix = pathlib.Path(folder.name) / "usr"
        output(CMAKE, "--install", BUILD, "--prefix", str(cls.prefix))

    def program(self, *arguments):
        without_choice = {name: value for name, value in os.environ.items()
                          if name != "HUEBRUSH_EXTENSIONS"}
        return output(str(self.prefix / "bin/huebrush"), *arguments, env=without_choice)

    def files_in(self, folder):
        place = self.prefix / folder
        return {p.relative_to(place).as_posix() for p in place.rglob("*") if p.is_file()}

    def test_every_part_has_its_place(self):
        documents = "share/doc/huebrush"
        parts = {
            "bin": {"huebrush"},
            EXTENSION: {"huebrush.so", "huebrush.components", "description.xml", "LICENSE",
                        "icon.png", "icons/101_16.png", "META-INF/manifest.xml"},
            "share/huebrush": {"huebrush.oxt"},
            "share/man/man1": {"huebrush.1"},
            "share/bash-completion/completions": {"huebrush"},
            "share/zsh/site-functions": {"_huebrush"},
            "share/fish/vendor_completions.d": {"huebrush.fish"},
            documents: {"LICENSE", "CHANGELOG.md", "docs/manual.md", "docs/manual.cs.md",
                        "docs/huebrush.schema.json", "docs/images/about.png",
                        "docs/images/palette-load.png"},
        }
        for folder, files in parts.items():
            self.assertLessEqual(files, self.files_in(folder), folder)
        outside = [name for name in self.files_in(".")
                   if not name.startswith(tuple(f"{folder}/" for folder in parts))]
        self.assertEqual(outside, [])

    def test_the_program_finds_the_extension_that_was_installed_with_it(self):
        listing = json.loads(self.program("fills", str(ROOT / "examples/town.odt"), "--json",
                                          "--through", "office"))
        self.assertGreater(len(listing["rows"]), 5)

    def test_program_extension_manual_page_and_changelog_are_of_one_version(self):
        version = self.program("--version").strip()
        description = ElementTree.parse(self.prefix / EXTENSION / "description.xml")
        self.assertEqual(description.find(f"{DESCRIPTION}version").get("value"), version)
        page = (self.prefix / "share/man/man1/huebrush.1").read_text(encoding="utf-8")
        self.assertIn(f'"Huebrush {version}"', page)
        changes = (self.prefix / "share/doc/huebrush/CHANGELOG.md").read_text(encoding="utf-8")
        self.assertEqual(re.search(r"^## (\S+)", changes, re.MULTILINE)[1], version)

    def test_the_manual_page_has_every_command_and_option_and_no_other(self):
        page = (self.prefix / "share/man/man1/huebrush.1").read_text(encoding="utf-8")
        page = page.replace("\\-", "-")
        known = set()
        for path, text, _ in every_command(lambda path: self.program(*path, "--help")):
            known |= options_in(text)
            self.assertRegex(page, rf'{" ".join(path)}\b')
        self.assertIn("--map", known)
        self.assertEqual(options_in(page), known)

    def test_the_documents_link_only_to_what_is_installed(self):
        place = self.prefix / "share/doc/huebrush"
        links = [(page, link) for page in place.rglob("*.md")
                 for link in re.findall(r"\]\(([^)#:]+)(?:#[^)]*)?\)",
                                        page.read_text(encoding="utf-8"))]
        self.assertGreater(len(links), 10)
        self.assertEqual([link for page, link in links if not (page.parent / link).exists()], [])

    def test_debug_information_is_left_out_of_the_package_only(self):
        with zipfile.ZipFile(self.prefix / "share/huebrush/huebrush.oxt") as package:
            library = self.prefix / "packed.so"
            library.write_bytes(package.read("huebrush.so"))
        self.addCleanup(library.unlink)
        self.assertFalse(has_debug_information(library))
        self.assertTrue(has_debug_information(self.prefix / EXTENSION / "huebrush.so"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
