# SPDX-License-Identifier: MPL-2.0
"""Checks what a DLL needs of the system and what it offers, against a list of both.

    check_imports.py PREFIX DLL LIST

PREFIX is that of the binutils ("i686-w64-mingw32-"). An import that the list lacks is an error,
and so is the name of any other function of the system anywhere in the file: it may be looked up at
run time. The list has a line for each: a DLL, an exclamation mark, a function, and the first
Windows that has it. What is only looked up, or only named, has "lookup" for its DLL, and what the
file offers "export".
"""

import pathlib
import re
import subprocess
import sys
import tempfile

IMPORT_DLL = re.compile(r"^\s*DLL Name: (\S+)")
IMPORT = re.compile(r"^\t[0-9a-f]+\t *[0-9]+ +([A-Za-z_?@]\S*)")
# A name by itself: nothing of it before, a zero behind.
NAME = re.compile(rb"(?<![A-Za-z0-9_])[A-Za-z_][A-Za-z0-9_]{3,}(?=\0)")
# The libraries whose functions a name could be one of.
LIBRARIES = ("advapi32", "gdi32", "kernel32", "ntdll", "ole32", "oleacc", "oleaut32", "shell32",
             "user32")


def imports_of(prefix, dll):
    """What the file imports, as "dll!function"."""
    found = set()
    library = None
    listing = subprocess.run([prefix + "objdump", "-p", dll], capture_output=True, text=True,
                             check=True).stdout
    for line in listing.splitlines():
        if match := IMPORT_DLL.match(line):
            library = match[1].lower()
        elif library and (match := IMPORT.match(line)):
            found.add(f"{library}!{match[1]}")
    return found


def exports_of(prefix, dll):
    """What the file itself offers, by name."""
    listing = subprocess.run([prefix + "objdump", "-p", dll], capture_output=True, text=True,
                             check=True).stdout
    table = listing.partition("[Ordinal/Name Pointer] Table")[2].partition("\n\n")[0]
    return {line.split()[-1] for line in table.splitlines() if "[" in line and line.split()}


def functions_of_the_system(prefix):
    """The names of all functions that the system's libraries have, of whatever version."""
    names = set()
    for library in LIBRARIES:
        path = subprocess.run([prefix + "gcc-win32", f"-print-file-name=lib{library}.a"],
                              capture_output=True, text=True, check=True).stdout.strip()
        symbols = subprocess.run([prefix + "nm", "--defined-only", path], capture_output=True,
                                 text=True, check=False).stdout
        for match in re.finditer(r" T _?([A-Za-z]\w+)(?:@\d+)?$", symbols, re.MULTILINE):
            names.add(match[1])
    return names


def names_in(prefix, dll):
    """All names in the file, without those that are only there for debuggers."""
    with tempfile.TemporaryDirectory() as folder:
        stripped = pathlib.Path(folder) / "stripped.dll"
        subprocess.run([prefix + "strip", "-o", stripped, dll], check=True)
        return {name.decode() for name in NAME.findall(stripped.read_bytes())}


def allowed_by(text):
    """The list, as a dictionary from "dll!function" to the first Windows that has it."""
    allowed = {}
    for line in text.splitlines():
        if line and not line.startswith("#"):
            function, version = line.split(maxsplit=1)
            allowed[function] = version
    return allowed


def complaints(imports, lookups, allowed):
    """What the file needs and the list lacks, and what the list has for nothing."""
    known = {function.split("!")[1] for function in allowed}
    found = [f"{each} is not in the list" for each in sorted(imports - allowed.keys())]
    found += [f"{each} is named, and may be looked up" for each in sorted(lookups - known)]
    needed = imports | {f"lookup!{each}" for each in lookups}
    found += [f"{each} is in the list, but not needed" for each in sorted(allowed.keys() - needed)]
    return found


def main():
    prefix, dll, list_file = sys.argv[1:]
    allowed = allowed_by(pathlib.Path(list_file).read_text(encoding="utf-8"))
    imports = imports_of(prefix, dll)
    if not imports:
        sys.exit(f"{dll}: no imports were found")
    lookups = names_in(prefix, dll) & functions_of_the_system(prefix)
    exports = exports_of(prefix, dll)
    lookups -= {each.split("!")[1] for each in imports} | exports
    found = complaints(imports | {f"export!{each}" for each in exports}, lookups, allowed)
    for complaint in found:
        print(f"{dll}: {complaint}", file=sys.stderr)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
