# SPDX-License-Identifier: MPL-2.0
"""Makes the package for Debian of what a build installs.

    make_deb.py BUILD TARGET [--version VERSION]

BUILD is a folder that is configured and built, TARGET the folder that gets the package. The same
build always makes the same bytes: the times in it are $SOURCE_DATE_EPOCH, or that of the last
commit of the sources. Another VERSION than the build's is there to try updates.
"""

import argparse
import email.utils
import gzip
import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
SOURCE = HERE.parents[1]
MAINTAINER = "The Huebrush developers <developers@huebrush.example>"
# Of a package that is not from Debian itself.
REVISION = "0huebrush1"
EXTENSION = "usr/lib/huebrush/extension/huebrush"
ALL_USERS = "usr/lib/libreoffice/share/extensions"
PROGRAM = "usr/bin/huebrush"
DOCUMENTS = "usr/share/doc/huebrush"


def output(*command, **options):
    return subprocess.run([str(each) for each in command], check=True, text=True,
                          stdout=subprocess.PIPE, **options).stdout


def time_of_sources():
    given = os.environ.get("SOURCE_DATE_EPOCH")
    if given:
        return int(given)
    return int(output("git", "-C", SOURCE, "log", "-1", "--format=%ct").strip())


def cached(build, name):
    text = (build / "CMakeCache.txt").read_text(encoding="utf-8")
    return re.search(rf"^{name}:\w+=(.*)$", text, re.MULTILINE)[1]


def filled(template, values):
    text = (HERE / template).read_text(encoding="utf-8")
    for name, value in values.items():
        text = text.replace(f"@{name}@", str(value))
    return text


def pack(path, target):
    """Compresses a file, without its name and time, and drops it."""
    target.write_bytes(gzip.compress(path.read_bytes(), compresslevel=9, mtime=0))
    path.unlink()


def stage(build, root):
    output("cmake", "--install", build, "--strip", "--prefix", root / "usr")
    (root / "DEBIAN").mkdir()
    # The library folder is that of the prefix for which the build was configured.
    library = root / "usr" / cached(build, "CMAKE_INSTALL_LIBDIR") / "huebrush/extension/huebrush"
    if library != root / EXTENSION:
        raise SystemExit("make_deb: configure the build with CMAKE_INSTALL_LIBDIR=lib")
    # The unpacked extension is there; licences are in the file "copyright".
    shutil.rmtree(root / "usr/share/huebrush")
    (root / EXTENSION / "LICENSE").unlink()
    (root / DOCUMENTS / "LICENSE").unlink()
    (root / ALL_USERS).mkdir(parents=True)
    (root / ALL_USERS / "huebrush").symlink_to(
        os.path.relpath(root / EXTENSION, root / ALL_USERS))
    # Where Debian's zsh looks for what packages bring.
    zsh = root / "usr/share/zsh"
    (zsh / "site-functions").rename(zsh / "vendor-completions")


def document(root, values):
    page = root / "usr/share/man/man1/huebrush.1"
    pack(page, page.with_name("huebrush.1.gz"))
    folder = root / DOCUMENTS
    pack(folder / "CHANGELOG.md", folder / "changelog.gz")
    shutil.copyfile(HERE / "copyright", folder / "copyright")
    changes = folder / "changelog.Debian"
    changes.write_text(filled("changelog.in", values), encoding="utf-8")
    pack(changes, folder / "changelog.Debian.gz")


def needed_by(root):
    """The packages with the libraries that the program and the extension are linked with."""
    (root.parent / "control").write_text(
        "Source: huebrush\n\nPackage: huebrush\nArchitecture: any\n", encoding="utf-8")
    found = output("dpkg-shlibdeps", "-O", "-l/usr/lib/libreoffice/program",
                   root / PROGRAM, root / EXTENSION / "huebrush.so", cwd=root.parents[1])
    return found.strip().removeprefix("shlibs:Depends=")


def version_of_office(build):
    description = build / "extension/huebrush/description.xml"
    return re.search(r'LibreOffice-minimal-version value="([\d.]+)"',
                     description.read_text(encoding="utf-8"))[1]


def settle(root):
    """Gives everything the rights that it has in a package."""
    for path in [root, *root.rglob("*")]:
        if not path.is_symlink():
            path.chmod(0o755 if path.is_dir() or path == root / PROGRAM else 0o644)


def write_control(root, values):
    files = sorted(path for path in root.rglob("*") if path.is_file() and not path.is_symlink())
    size = sum(-(-path.stat().st_size // 1024) for path in files)
    folder = root / "DEBIAN"
    values = dict(values, installed_size=size)
    (folder / "control").write_text(filled("control.in", values), encoding="utf-8")
    sums = "".join(f"{hashlib.md5(path.read_bytes()).hexdigest()}  {path.relative_to(root)}\n"
                   for path in files)
    (folder / "md5sums").write_text(sums, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("target", type=pathlib.Path)
    parser.add_argument("--version")
    chosen = parser.parse_args()
    build = chosen.build.resolve()
    upstream = chosen.version or cached(build, "CMAKE_PROJECT_VERSION")
    time = time_of_sources()
    values = {
        "version": f"{upstream}-{REVISION}",
        "upstream": upstream,
        "architecture": output("dpkg", "--print-architecture").strip(),
        "maintainer": MAINTAINER,
        "date": email.utils.formatdate(time),
        # Its packages have an epoch.
        "libreoffice": f"4:{version_of_office(build)}",
    }
    with tempfile.TemporaryDirectory(prefix="huebrush-deb-") as folder:
        # Where dpkg's tools expect it.
        root = pathlib.Path(folder) / "debian/huebrush"
        stage(build, root)
        document(root, values)
        values["depends"] = needed_by(root)
        write_control(root, values)
        settle(root)
        chosen.target.mkdir(parents=True, exist_ok=True)
        name = "huebrush_{version}_{architecture}.deb".format(**values)
        output("dpkg-deb", "--root-owner-group", "-Zxz", "--build", root, chosen.target / name,
               env=dict(os.environ, SOURCE_DATE_EPOCH=str(time)))
    print(chosen.target / name)


if __name__ == "__main__":
    main()
