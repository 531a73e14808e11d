# SPDX-License-Identifier: MPL-2.0
"""The extension's package: the office's extension manager accepts it, and an office older than
the one that it was built with refuses it.

    package_test.py Package Updates         the package of this office, or of an older one
    package_test.py PackageOfANewerOffice   the package of a newer one
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile
from xml.etree import ElementTree

SOURCE = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(SOURCE / "tools"))

PACKAGE = pathlib.Path(os.environ["HUEBRUSH_PACKAGE"])
UNOPKG = os.environ["HUEBRUSH_UNOPKG"]
IDENTIFIER = "cz.huebrush.extension"
DESCRIPTION = "description.xml"
NAMES = {"d": "http://openoffice.org/extensions/description/2006"}
LINK = "{http://www.w3.org/1999/xlink}href"
NOBODY = 65534


class PackageCase(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="huebrush-package-"))
        self.addCleanup(shutil.rmtree, self.folder, True)
        self.package = self.folder / PACKAGE.name
        shutil.copy(PACKAGE, self.package)

    def unopkg(self, command, *arguments):
        # The extension manager refuses root, and its script wants a folder that its user can enter.
        user = {"user": NOBODY, "group": NOBODY, "extra_groups": []} if os.getuid() == 0 else {}
        if user:
            for path in (self.folder, *self.folder.rglob("*")):
                os.chown(path, NOBODY, NOBODY)
        return subprocess.run(
            [UNOPKG, command, f"-env:UserInstallation={(self.folder / 'profile').as_uri()}",
             *arguments], env=dict(os.environ, HOME=str(self.folder)), cwd=self.folder, text=True,
            timeout=120, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, **user)

    def is_installed(self):
        return IDENTIFIER in self.unopkg("list").stdout


class Package(PackageCase):
    def element(self, path):
        """An element of the description, of which there must be one."""
        with zipfile.ZipFile(PACKAGE) as package:
            found = ElementTree.fromstring(package.read(DESCRIPTION)).findall(path, NAMES)
        self.assertEqual(len(found), 1, path)
        return found[0]

    def changed(self, name, old, new):
        """The package with one thing changed in its description."""
        wanted = self.folder / name
        with zipfile.ZipFile(PACKAGE) as source, zipfile.ZipFile(wanted, "w") as target:
            for item in source.infolist():
                data = source.read(item)
                if item.filename == DESCRIPTION:
                    data, count = re.subn(old, new, data)
                    self.assertEqual(count, 1)
                target.writestr(item, data)
        return wanted

    def demand(self, version):
        """Has the package ask for that version of the office."""
        return self.changed("other.oxt", rb'(minimal-version value=)"[0-9.]+"',
                            rb'\1"' + version.encode() + b'"')

    def test_it_takes_the_place_of_an_older_version(self):
        older = self.changed(PACKAGE.name, rb'<version value="[0-9.]+"/>',
                             b'<version value="0.9"/>')
        self.assertEqual(self.unopkg("add", str(older)).returncode, 0)
        self.assertIn("Version: 0.9\n", self.unopkg("list").stdout)
        shutil.copy(PACKAGE, self.package)
        done = self.unopkg("add", "--force", str(self.package))
        self.assertEqual(done.returncode, 0, done.stdout)
        listed = self.unopkg("list").stdout
        self.assertEqual(listed.count(IDENTIFIER), 1, listed)
        version = self.element("d:version").get("value")
        self.assertIn(f"Version: {version}\n", listed)

    def test_the_extension_manager_installs_and_removes_it(self):
        done = self.unopkg("add", str(self.package))
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertTrue(self.is_installed())
        done = self.unopkg("remove", IDENTIFIER)
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertFalse(self.is_installed())

    def test_it_has_a_publisher_a_licence_and_an_icon(self):
        self.assertTrue(self.element("d:publisher/d:name[@lang='en']").text)
        self.assertTrue(self.element("d:publisher/d:name[@lang='cs']").text)
        icon = self.element("d:icon/d:default").get(LINK)
        with zipfile.ZipFile(PACKAGE) as package:
            self.assertIn(b"Mozilla Public License Version 2.0", package.read("LICENSE"))
            self.assertTrue(package.read(icon).startswith(b"\x89PNG"))

    def test_the_extension_manager_describes_it_in_czech_and_english(self):
        self.assertEqual(self.unopkg("add", str(self.package)).returncode, 0)
        texts = {}
        for language in ("cs", "en"):
            source = self.element(f"d:extension-description/d:src[@lang='{language}']").get(LINK)
            with zipfile.ZipFile(PACKAGE) as package:
                texts[language] = package.read(source).decode().splitlines()[0]
        self.assertIn("přebarvuje", texts["cs"])
        self.assertIn("recolours", texts["en"])
        self.assertIn(texts["en"], self.unopkg("list", "--verbose").stdout)

    def test_an_older_office_refuses_it(self):
        done = self.unopkg("add", str(self.demand("99.8")))
        self.assertNotEqual(done.returncode, 0)
        self.assertFalse(self.is_installed())


class Updates(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="huebrush-updates-"))
        self.addCleanup(shutil.rmtree, self.folder, True)
        self.place = self.folder.as_uri()
        # What is there when the build is configured is what will be packed.
        subprocess.run(["cmake", "-S", SOURCE, "-B", self.folder / "build", "-G", "Ninja",
                        "-D", "BUILD_TESTING=OFF", "-D", f"HUEBRUSH_UPDATE_URL={self.place}"],
                       check=True, stdout=subprocess.DEVNULL, timeout=300)
        shutil.copy(self.folder / "build/huebrush.update.xml", self.folder)

    def test_the_office_finds_them_where_the_package_says(self):
        from private_office import PrivateOffice
        description = ElementTree.parse(
            self.folder / "build/extension/huebrush" / DESCRIPTION).getroot()
        source = description.find("d:update-information/d:src", NAMES).get(LINK)
        self.assertEqual(source, f"{self.place}/huebrush.update.xml")
        with PrivateOffice() as office:
            provider = office.create("com.sun.star.deployment.UpdateInformationProvider")
            [found] = provider.getUpdateInformation((source,), IDENTIFIER)
            values = {each.getTagName(): each for each in elements_of(found)}
            version = values["version"].getAttribute("value")
            [download] = elements_of(values["update-download"])
            address = download.getAttributeNS("http://www.w3.org/1999/xlink", "href")
        self.assertEqual(version, description.find("d:version", NAMES).get("value"))
        self.assertEqual(address, f"{self.place}/huebrush.oxt")


def elements_of(node):
    children = node.getChildNodes()
    nodes = [children.item(i) for i in range(children.getLength())]
    return [node for node in nodes if hasattr(node, "getTagName")]


class PackageOfANewerOffice(PackageCase):
    def test_this_office_refuses_it(self):
        done = self.unopkg("add", str(self.package))
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("unsatisfied dependencies", done.stdout)
        self.assertFalse(self.is_installed())


if __name__ == "__main__":
    unittest.main(verbosity=2)
