# SPDX-License-Identifier: MPL-2.0
"""Checks the tree itself: who includes whom, and that every test is built.

The table of src/README.md is the architecture (docs/architecture.md explains it), and the build
links by it: a folder of src/ includes only itself, base/, and the folders that its row names. A
test file may also include ports/memory and what that stands on.
"""

import collections
import pathlib
import re
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]

ROW = re.compile(r"^\| ([0-9]+)(?:\.([0-9]+))? \| `([^`]+)` \|.*\| ([^|]+) \|$", re.MULTILINE)
Level = collections.namedtuple("Level", "height uses")


def levels_in(text):
    """The levels of a table, by folder. A folder stands above all of its numbered parts."""
    levels = {}
    for level, part, folder, uses in ROW.findall(text):
        height = (int(level), int(part) if part else float("inf"))
        levels[folder] = Level(height, set() if uses == "–" else set(uses.split(", ")))
    return levels


LEVELS = levels_in((ROOT / "src/README.md").read_text(encoding="utf-8"))

# Libraries stay where they belong: an include of one of these is allowed below these folders only.
LIBRARIES = {
    "nlohmann/": {"protocol", "ports/libreoffice", "cli"},
    "CLI/": {"cli"},
    "expat": {"documents/xml", "cli"},
    "zlib": {"documents/package"},
    "com/sun/star/": {"ports/libreoffice"},
    "cppuhelper/": {"ports/libreoffice"},
    "rtl/": {"ports/libreoffice"},
    "osl/": {"ports/libreoffice"},
    "sal/": {"ports/libreoffice"},
    "windows.h": {"files", "ports/word"},
}

INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]', re.MULTILINE)
# A standard library that does not happen to include <algorithm> elsewhere must do, too.
ALGORITHM = re.compile(
    r"\bstd::(?:ranges::)?((?:stable_|partial_|is_)?sort|find(?:_if|_if_not|_end|_first_of)?"
    r"|search|mismatch|(?:any|all|none)_of|count(?:_if)?|for_each|(?:min|max|minmax)(?:_element)?"
    r"|clamp|equal|reverse|rotate|shuffle|unique|remove_if|replace(?:_if)?"
    r"|copy(?:_if|_n|_backward)?|fill(?:_n)?|generate(?:_n)?|transform|(?:lower|upper)_bound"
    r"|equal_range|binary_search|adjacent_find|swap_ranges|nth_element|lexicographical_compare"
    r"|is_permutation|next_permutation)\s*[(<]")
# A test's fixture may stand in a header beside it.
TEST_FILE = re.compile(r"(_test\.cpp|Contract\.(h|cpp)|TestHost\.h|_test_support\.(h|cpp))$")


def not_below(levels):
    """Every use of a folder that does not stand lower, as 'folder: use': without one there is no
    circle."""
    return [f"{folder}: {use}" for folder, level in levels.items() for use in sorted(level.uses)
            if use not in levels or levels[use].height >= level.height]


def folder_of(path):
    """The architecture's folder that a path below src/ belongs to."""
    for folder in sorted(LEVELS, key=len, reverse=True):
        if path.startswith(folder + "/"):
            return folder
    return None


def forbidden_includes(source_root):
    """Every include that the table does not allow, as 'file: include'."""
    found = []
    for file in sorted(source_root.rglob("*")):
        if file.suffix not in (".h", ".cpp"):
            continue
        name = file.relative_to(source_root).as_posix()
        folder = folder_of(name)
        if folder is None:
            found.append(f"{name}: stands in no folder of the architecture")
            continue
        allowed = {folder, "base"} | LEVELS[folder].uses
        if TEST_FILE.search(name):
            allowed.add("ports/memory")
            allowed |= {"host", "forms"}
        for quote, include in INCLUDE.findall(file.read_text(encoding="utf-8")):
            if quote == '"':
                if TEST_FILE.search(name) and include.endswith("_test_support.h"):
                    continue
                if folder_of(include) not in allowed:
                    found.append(f'{name}: "{include}"')
            else:
                for prefix, folders in LIBRARIES.items():
                    if include.startswith(prefix) and not is_in(folder, folders):
                        found.append(f"{name}: <{include}>")
    return found


def is_in(folder, folders):
    """Whether a folder is one of these or a part of one."""
    return any((folder + "/").startswith(f + "/") for f in folders)


def missing_algorithm(folders):
    """Every file that uses what <algorithm> has and does not include it."""
    files = (p for folder in folders for p in folder.rglob("*") if p.suffix in (".h", ".cpp"))
    texts = ((p, p.read_text(encoding="utf-8")) for p in sorted(files))
    return [p.as_posix() for p, text in texts
            if ALGORITHM.search(text) and ("<", "algorithm") not in INCLUDE.findall(text)]


def unbuilt_tests(root):
    """Every *_test.cpp that no CMake file names."""
    lists = [p for p in root.rglob("*") if p.name == "CMakeLists.txt" or p.suffix == ".cmake"]
    build = root / "build"
    named = set()
    for cmake in lists:
        if build in cmake.parents:
            continue
        text = re.sub(r"#.*", "", cmake.read_text(encoding="utf-8"))
        for word in re.findall(r"[\w./-]+_test\.cpp", text):
            named.add((cmake.parent / word).resolve())
    tests = [p for p in root.rglob("*_test.cpp") if build not in p.parents]
    return [p.relative_to(root).as_posix() for p in sorted(tests) if p.resolve() not in named]


class Structure(unittest.TestCase):
    def test_every_include_is_allowed_by_the_architecture(self):
        self.assertEqual(forbidden_includes(ROOT / "src"), [])

    def test_every_test_file_is_built(self):
        self.assertEqual(unbuilt_tests(ROOT), [])

    def test_algorithms_are_included_where_they_are_used(self):
        self.assertEqual(missing_algorithm([ROOT / "src", ROOT / "tests", ROOT / "bench"]), [])

    def test_every_folder_of_the_architecture_exists(self):
        for folder in LEVELS:
            self.assertTrue((ROOT / "src" / folder).is_dir(), folder)

    def test_every_folder_uses_only_what_stands_lower(self):
        self.assertGreater(len(LEVELS), 20)
        self.assertEqual(not_below(LEVELS), [])


class TheChecksThemselves(unittest.TestCase):
    """A check that cannot fail is worthless: each is shown a tree that it must refuse."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def test_an_include_from_a_higher_level_is_found(self):
        self.write("fill/CFill.cpp", '#include "recolor/frmEditGraphic.h"\n')
        self.assertEqual(forbidden_includes(self.root),
                         ['fill/CFill.cpp: "recolor/frmEditGraphic.h"'])

    def test_an_include_from_a_higher_part_of_a_port_is_found(self):
        self.write("ports/libreoffice/document/OpenDocument.cpp",
                   '#include "ports/libreoffice/tools/HostTools.h"\n')
        self.write("ports/libreoffice/tools/HostTools.cpp",
                   '#include "ports/libreoffice/document/OpenDocument.h"\n')
        self.assertEqual(forbidden_includes(self.root), [
            "ports/libreoffice/document/OpenDocument.cpp: "
            '"ports/libreoffice/tools/HostTools.h"'])

    def test_a_circle_in_the_table_is_found(self):
        levels = levels_in("| 3.1 | `port/a` | one | port/b |\n| 3.2 | `port/b` | two | port/a |\n")
        self.assertEqual(not_below(levels), ["port/a: port/b"])

    def test_a_library_outside_its_folders_is_found(self):
        self.write("fill/CFill.cpp", "#include <nlohmann/json.hpp>\n")
        self.assertEqual(forbidden_includes(self.root), ["fill/CFill.cpp: <nlohmann/json.hpp>"])

    def test_an_include_that_names_no_folder_is_found(self):
        self.write("fill/CFill.cpp", '#include "CFill.h"\n')
        self.assertEqual(len(forbidden_includes(self.root)), 1)

    def test_production_code_may_not_include_the_memory_port(self):
        self.write("fill/CFill.cpp", '#include "ports/memory/MemoryHost.h"\n')
        self.assertEqual(len(forbidden_includes(self.root)), 1)

    def test_an_algorithm_without_its_header_is_found(self):
        self.write("a.cpp", "#include <algorithm>\nint a = std::max(1, 2);\n")
        self.write("b.cpp", "#include <vector>\nint b = std::max<int>(1, 2);\n")
        self.assertEqual(missing_algorithm([self.root]), [(self.root / "b.cpp").as_posix()])

    def test_a_test_that_no_target_builds_is_found(self):
        self.write("CMakeLists.txt", "huebrush_test(a SOURCES a_test.cpp)\n# b_test.cpp\n")
        self.write("a_test.cpp", "")
        self.write("b_test.cpp", "")
        self.assertEqual(unbuilt_tests(self.root), ["b_test.cpp"])


if __name__ == "__main__":
    unittest.main()
