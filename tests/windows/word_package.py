# SPDX-License-Identifier: MPL-2.0
"""Makes the package of the Word add-in and its setup, installs each as a user does, and removes it.

    word_package.py WINE FOLDER BUILD_X86 BUILD_X64 KIND

WINE is wine.sh, FOLDER where its prefix is, KIND the kind of Windows in it: x86 or x64. Before and
after, nothing of the add-in is in the prefix.
"""

import csv
import io
import os
import pathlib
import subprocess
import sys
import time
import zipfile

SOURCE = pathlib.Path(__file__).resolve().parents[2]
SETUP = SOURCE / "packaging" / "windows" / "huebrush.nsi"
REMOVAL = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Huebrush"
LIMIT = 60
MAKER = SOURCE / "src" / "ports" / "word" / "package" / "make_package.py"
CLASS = "{32522A19-356A-449B-9663-455D4CA94F36}"
LEFT_BY_OTHERS = (REMOVAL,
                  r"HKCU\Software\VB and VBA Program Settings\Huebrush",
                  r"HKCU\Software\Classes\Huebrush.ConnectW2000",
                  r"HKCU\Software\Classes\CLSID\%s" % CLASS,
                  r"HKCU\Software\Microsoft\Office\Word\Addins\Huebrush.ConnectW2000")


class Prefix:
    def __init__(self, wine, folder):
        self.wine = [wine, folder]
        self.folder = pathlib.Path(folder)

    def run(self, *command):
        result = subprocess.run([*self.wine, "run", *command], capture_output=True, check=False)
        return result.returncode, result.stdout.decode("utf-8", "replace")

    def registry(self):
        """The user's part of the registry, as text."""
        target = self.folder / "registry.reg"
        code, said = self.run("reg", "export", r"HKCU\Software", windows_path(target), "/y")
        assert code == 0, said
        text = target.read_text(encoding="utf-16")
        target.unlink()
        return text

    def application_data(self):
        """The folder %APPDATA%, as a path of this system."""
        _, said = self.run("cmd", "/c", "echo %APPDATA%")
        path = said.strip().replace("\\", "/")
        assert path.startswith("C:/"), path
        return self.folder / "prefix" / "drive_c" / path[3:]


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def table_of(database, name):
    """The rows of a table, as another program reads them."""
    text = subprocess.run(["mdb-export", "-b", "strip", database, name], capture_output=True,
                          check=True, text=True).stdout
    return list(csv.DictReader(io.StringIO(text)))


def check_palettes(database):
    palettes = table_of(database, "TFillGroup")
    assert len(palettes) == 5 and palettes[0]["Name"] == "Okabe a Ito", palettes
    assert palettes[2]["Name"] == "Paul Tol – tlumené", palettes
    fills = [each["GroupID"] for each in table_of(database, "TFillElementParameter")]
    for each in palettes:
        assert fills.count(each["ID"]) == int(each["Count"]) > 0, each


def make(prefix, builds, kind, target):
    programs = builds[kind] / "bin"
    data = programs / "Data" / "fill.mdb"
    data.unlink(missing_ok=True)
    code, said = prefix.run(str(programs / "huebrush_word_data.exe"))
    assert code == 0, said
    check_palettes(data)
    listing = subprocess.run([sys.executable, MAKER, *builds.values(), data, SOURCE / "LICENSE",
                              target], check=True, capture_output=True, text=True).stdout
    for each in ("x86/huebrush.dll: ", "x64/huebrush.dll: ", "  exports: DllCanUnloadNow, ",
                 "  kernel32.dll: "):
        assert each in listing, listing
    return listing


def unpacked(package, folder):
    with zipfile.ZipFile(package) as archive:
        names = {name.removeprefix("Huebrush/") for name in archive.namelist()}
        archive.extractall(folder)
    assert names == {"x86/huebrush.dll", "x64/huebrush.dll", "Data/fill.mdb", "install.cmd",
                     "uninstall.cmd", "README.txt", "PRECTI.txt", "LICENSE.txt"}, names
    for name in ("install.cmd", "uninstall.cmd"):
        text = (folder / "Huebrush" / name).read_bytes()
        assert text.count(b"\r\n") == text.count(b"\n") > 10 and text.isascii(), name
    assert "doplněk" in (folder / "Huebrush" / "PRECTI.txt").read_text(encoding="utf-8-sig")
    return folder / "Huebrush"


def check_use(prefix, folder, package, kind, host):
    """Installs the package, loads the add-in by a program that plays Word, and removes it."""
    # What another test has left that was ended in the middle is not ours to find.
    for key in LEFT_BY_OTHERS:
        prefix.run("reg", "delete", key, "/f")
    before = prefix.registry()
    assert CLASS not in before and "Huebrush" not in before
    installed = prefix.application_data() / "Huebrush"
    assert not installed.exists()

    code, said = prefix.run("cmd", "/c", windows_path(folder / "install.cmd"))
    assert code == 0, said
    after = prefix.registry()
    assert CLASS in after and '"LoadBehavior"=dword:00000003' in after
    assert "TestedVersion" not in after
    dll = installed / kind / "huebrush.dll"
    palettes = installed / kind / "Data" / "fill.mdb"
    with zipfile.ZipFile(package) as archive:
        assert dll.read_bytes() == archive.read(f"Huebrush/{kind}/huebrush.dll")
        assert palettes.read_bytes() == archive.read("Huebrush/Data/fill.mdb")

    code, said = prefix.run(host, "version=16.0", "connect", "click=SellFill", "disconnect")
    assert code == 0, said
    assert "CommandBars.Add(Huebrush)" in said and said.strip().endswith("can be unloaded"), said
    assert "CommandBarButton.Enabled = False" in said

    # Once more, as an update: the user's palettes stay, and all commands are wanted.
    palettes.write_bytes(b"the user's own")
    code, said = prefix.run("cmd", "/c", windows_path(folder / "install.cmd"), "/newer")
    assert code == 0, said
    assert palettes.read_bytes() == b"the user's own"
    code, said = prefix.run(host, "version=16.0", "connect", "disconnect")
    assert code == 0 and "CommandBarButton.Enabled" not in said and "box" not in said, said

    code, said = prefix.run("cmd", "/c", windows_path(folder / "uninstall.cmd"))
    assert code == 0, said
    assert not dll.exists() and palettes.exists()
    assert CLASS not in prefix.registry()
    code, said = prefix.run(host, "connect")
    assert "0 add-ins" in said, said

    code, said = prefix.run("cmd", "/c", windows_path(folder / "uninstall.cmd"), "/all")
    assert code == 0 and not installed.exists(), said
    left = prefix.registry()
    assert "Huebrush" not in left


def make_setup(files, kind, version, target):
    """The setup as a program that this Wine runs."""
    processor = {"x86": "x86", "x64": "amd64"}[kind]
    subprocess.run(["makensis", "-V2", "-WX", f"-DVERSION={version}", f"-DFILES={files}",
                    f"-DTARGET={target}", f"-DPROCESSOR={processor}", SETUP], check=True,
                   timeout=LIMIT, env=dict(os.environ, SOURCE_DATE_EPOCH="1700000000"))
    return target


def value_of(prefix, name):
    code, said = prefix.run("reg", "query", REMOVAL, "/v", name)
    assert code == 0, said
    return said.split(name)[1].split(None, 1)[1].strip()


def remove(prefix, installed, *options):
    """Runs what removes the add-in. It goes on in a copy of itself: gone is what it has removed."""
    program = installed / "uninstall.exe"
    code, said = prefix.run(windows_path(program), "/S", *options)
    assert code == 0, said
    end = time.monotonic() + LIMIT
    while program.exists() or "Uninstall\\Huebrush" in prefix.registry():
        assert time.monotonic() < end, "the add-in is still there"
        time.sleep(0.1)


def check_setup(prefix, place, files, kind, host):
    """Installs an older version by its setup, then this one, uses it, and removes it."""
    installed = prefix.application_data() / "Huebrush"
    dll = installed / kind / "huebrush.dll"
    palettes = installed / kind / "Data" / "fill.mdb"
    older = make_setup(files, kind, "0.9.0", place / "older.exe")
    newer = make_setup(files, kind, "1.0.0", place / "newer.exe")
    again = make_setup(files, kind, "1.0.0", place / "again.exe")
    assert newer.read_bytes() == again.read_bytes(), "two setups of the same files differ"

    code, said = prefix.run(windows_path(older), "/S")
    assert code == 0, said
    assert value_of(prefix, "DisplayVersion") == "0.9.0"
    assert dll.exists() and CLASS in prefix.registry()
    palettes.write_bytes(b"the user's own")
    dll.write_bytes(b"another version")
    code, said = prefix.run(windows_path(newer), "/S", "/NEWER")
    assert code == 0, said
    assert value_of(prefix, "DisplayVersion") == "1.0.0"
    assert dll.read_bytes() == (files / kind / "huebrush.dll").read_bytes()
    assert palettes.read_bytes() == b"the user's own"
    code, said = prefix.run(host, "version=16.0", "connect", "disconnect")
    assert code == 0 and "CommandBarButton.Enabled" not in said and "box" not in said, said
    assert "CommandBars.Add(Huebrush)" in said, said

    remove(prefix, installed)
    left = sorted(path.relative_to(installed).as_posix()
                  for path in installed.rglob("*") if path.is_file())
    assert left and all(name.endswith("Data/fill.mdb") for name in left), left
    assert CLASS not in prefix.registry()
    code, said = prefix.run(host, "connect")
    assert "0 add-ins" in said, said

    code, said = prefix.run(windows_path(newer), "/S")
    assert code == 0, said
    assert palettes.read_bytes() == b"the user's own"
    remove(prefix, installed, "/ALL")
    assert not installed.exists()
    assert "Huebrush" not in prefix.registry()


def main():
    wine, folder, x86, x64, kind = sys.argv[1:]
    prefix = Prefix(wine, folder)
    builds = {"x86": pathlib.Path(x86), "x64": pathlib.Path(x64)}
    place = builds[kind] / "package_test"
    subprocess.run(["rm", "-rf", place], check=True)
    os.makedirs(place)
    package = place / "huebrush-word.zip"
    print(make(prefix, builds, kind, package))
    host = str(builds[kind] / "bin" / "word_testhost.exe")
    files = unpacked(package, place)
    check_use(prefix, files, package, kind, host)
    check_setup(prefix, place, files, kind, host)


if __name__ == "__main__":
    main()
