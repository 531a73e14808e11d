# SPDX-License-Identifier: MPL-2.0
"""Makes the add-in's package for Windows, and lists what its files are.

    make_package.py BUILD_X86 BUILD_X64 PALETTES LICENCE PACKAGE

The first two are the folders of the builds for 32 and 64 bits. Of each DLL its size, exports and
imports are printed. Texts get the line breaks of Windows.
"""

import pathlib
import subprocess
import sys
import zipfile

import check_imports

FOLDER = pathlib.Path(__file__).parent
MACHINES = {"x86": "i686-w64-mingw32-", "x64": "x86_64-w64-mingw32-"}
EXPORTS = {"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"}
# What is part of every Windows.
LIBRARIES = {"advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "kernel32.dll",
             "msimg32.dll", "msvcrt.dll", "ole32.dll", "oleacc.dll", "oleaut32.dll", "shell32.dll",
             "user32.dll"}


def stripped(prefix, dll):
    """The bytes of a DLL without what is only for debuggers."""
    target = dll.with_suffix(".stripped")
    subprocess.run([prefix + "strip", "-o", target, dll], check=True)
    content = target.read_bytes()
    target.unlink()
    return content


def describe(machine, dll, size):
    """Prints what a DLL is; ends with an error where it is not what Word loads everywhere."""
    prefix = MACHINES[machine]
    exports = check_imports.exports_of(prefix, dll)
    imports = {}
    for each in check_imports.imports_of(prefix, dll):
        library, _, function = each.partition("!")
        imports.setdefault(library, []).append(function)
    print(f"{machine}/huebrush.dll: {size} bytes")
    print(f"  exports: {', '.join(sorted(exports))}")
    for library, functions in sorted(imports.items()):
        print(f"  {library}: {', '.join(sorted(functions))}")
    if exports != EXPORTS:
        sys.exit(f"{dll}: these are not its four functions")
    if foreign := imports.keys() - LIBRARIES:
        sys.exit(f"{dll}: it needs {', '.join(sorted(foreign))}, which not every Windows has")


def text_of(path, mark=""):
    """A text with the line breaks of Windows, and what marks its encoding in front."""
    text = path.read_text(encoding="utf-8").replace("\n", "\r\n")
    return (mark + text).encode("utf-8")


def main():
    build_x86, build_x64, palettes, licence, package = (
        pathlib.Path(each) for each in sys.argv[1:])
    files = {}
    for machine, build in (("x86", build_x86), ("x64", build_x64)):
        dll = build / "bin" / "huebrush.dll"
        files[f"{machine}/huebrush.dll"] = stripped(MACHINES[machine], dll)
        describe(machine, dll, len(files[f"{machine}/huebrush.dll"]))
    files["Data/fill.mdb"] = palettes.read_bytes()
    for name in ("install.cmd", "uninstall.cmd"):
        files[name] = text_of(FOLDER / name)
    for name in ("README.txt", "PRECTI.txt"):
        files[name] = text_of(FOLDER / name, "\ufeff")
    files["LICENSE.txt"] = text_of(licence)
    with zipfile.ZipFile(package, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in sorted(files.items()):
            archive.writestr(zipfile.ZipInfo(f"Huebrush/{name}", (1980, 1, 1, 0, 0, 0)), content,
                             zipfile.ZIP_DEFLATED)
    print(f"{package}: {package.stat().st_size} bytes, {len(files)} files")


if __name__ == "__main__":
    main()
