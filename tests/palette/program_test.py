# SPDX-License-Identifier: MPL-2.0
"""The commands on palette files: what they write and print, and how they refuse bad input."""

import json
import os
import pty
import random
import resource
import signal
import stat
import subprocess
import time
import unittest

from program import (LIMIT, MANY_PALETTES, PREVIEW_SIZES, PROGRAM, OnPaletteFiles, as_stored,
                     element, huebrush, palette, various_palettes)


class Refusals(OnPaletteFiles):
    """Bad input produces one line on standard error, the right exit code, and no change."""

    def assert_refused(self, words, *arguments, code=1):
        before = self.file.read_bytes()
        names = sorted(path.name for path in self.folder.iterdir())
        done = huebrush("palette", *arguments)
        self.assertEqual(done.returncode, code, done.stderr)
        self.assertEqual(len(done.stderr.strip().splitlines()), 1, done.stderr)
        self.assertIn(words, done.stderr)
        self.assertEqual(done.stdout, "")
        self.assertEqual(self.file.read_bytes(), before)
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), names)

    def test_files_that_are_not_palette_files(self):
        other = self.folder / "other.mdb"
        other.write_text("This is no database." * 1000)
        missing = self.folder / "missing.mdb"
        for command in (("list",), ("dump",), ("import", self.file), ("erase", "x"), ("check",)):
            name, *rest = command
            self.assert_refused("does not exist", name, missing, *rest)
            self.assert_refused("is a folder", name, self.folder, *rest)
            self.assert_refused("other.mdb", name, other, *rest)

    def test_a_truncated_file(self):
        cut = self.folder / "cut.mdb"
        cut.write_bytes(self.file.read_bytes()[:40000])
        for command in ("list", "dump", "check"):
            self.assert_refused("rule F1", command, cut)

    def test_a_file_whose_free_map_names_a_page_in_use(self):
        source = self.write_json([palette("Podzim", [])])
        content = bytearray(self.file.read_bytes())
        # The free map is the row at the end of page 1; its last 64 bytes are the bits.
        content[2 * 4096 - 64] |= 1 << 2
        self.file.write_bytes(content)
        self.assert_refused("the database file is damaged: page 2, byte 0: "
                            "the page is in use but marked as free (rule M3)",
                            "import", self.file, source)
        self.assertIn("page 2, byte 0, table MSysObjects: the page is in use but marked as free",
                      huebrush("palette", "check", self.file).stdout)

    def test_new_where_a_file_is(self):
        self.assert_refused("already exists; use --force", "new", self.file)
        self.assert_refused("is not a regular file", "new", self.folder, "--force")

    def test_new_where_none_can_be(self):
        self.assert_refused("No such file or directory", "new", self.folder / "no" / "fill.mdb")
        self.assert_refused("Not a directory", "new", self.file / "fill.mdb")

    def test_import_of_what_is_not_a_palette(self):
        source = self.folder / "palettes.json"
        fill = element(0, b"")
        lacking = {name: value for name, value in fill.items() if name != "Pattern"}
        cases = {
            "palettes.json is not valid JSON: error at byte 2": "{",
            "not in the format of": "[]",
            "palettes must be an array": {"palettes": 3},
            "palette 2 is not an object": {"palettes": [palette("a", []), 3]},
            "the table TFillGroup has no column Colour": {"palettes": [{"Colour": 3}]},
            "palette 2, element 1: the column Pattern of the table TFillElementParameter must "
            "have a value":
                {"palettes": [palette("a", [fill]), palette("b", [lacking])]},
            "palette 1, element 2: the table TFillElementParameter has no column Red":
                {"palettes": [palette("a", [fill, {"Red": 1}])]},
            "Visible must be a 32-bit whole number":
                {"palettes": [palette("a", [{**fill, "Visible": 1.5}])]},
            "FillPreview must be a string in base64":
                {"palettes": [palette("a", [{**fill, "FillPreview": "?"}])]},
            "palette 1: the column Name of the table TFillGroup must have a value":
                {"palettes": [{"elements": [fill]}]},
            "the column Name of the table TFillGroup must not be empty":
                {"palettes": [palette("", [])]},
            "the value of the column Name is too long (at most 30 characters)":
                {"palettes": [palette("x" * 31, [])]},
            "is too long (at most 255 characters)":
                {"palettes": [palette("x", [element(0, b"", "t" * 256)])]},
        }
        for words, content in cases.items():
            with self.subTest(words):
                source.write_text(content if isinstance(content, str) else json.dumps(content))
                self.assert_refused(words, "import", self.file, source)
        self.assert_refused("does not exist", "import", self.file, self.folder / "none.json")
        self.assertEqual(self.dump(), [])

    def test_import_of_deeply_nested_json(self):
        source = self.folder / "palettes.json"
        for start in ("[", '{"palettes":[{"elements":[{"Type":[', '{"a":'):
            source.write_text(start * 150_000)
            self.assert_refused("", "import", self.file, source)

    def test_import_with_an_error_far_into_the_file(self):
        self.add([palette("Podzim", [element(0, b"x")])])
        fills = [element(order, b"") for order in range(20)]
        many = [palette(f"Paleta {number}", fills) for number in range(MANY_PALETTES)]
        lacking = {name: value for name, value in fills[0].items() if name != "Pattern"}
        whole = json.dumps({"palettes": many})
        source = self.folder / "palettes.json"
        source.write_text(whole[:-1])
        self.assert_refused("is not valid JSON: error at byte ", "import", self.file, source)
        many[-1]["elements"] = fills + [lacking]
        source = self.write_json(many)
        self.assert_refused(f"palette {MANY_PALETTES}, element 21: the column Pattern",
                            "import", self.file, source)
        self.assertEqual([each["Name"] for each in self.dump()], ["Podzim"])
        self.assert_clean()

    def test_erase_of_a_palette_that_does_not_exist(self):
        self.add([palette("Podzim", [element(0, b"")])])
        for name in ("podzim", "Podzi", "Podzim ", ""):
            self.assert_refused("has no palette", "erase", self.file, name)

    def test_a_file_that_another_program_has_open_for_writing(self):
        self.add([palette("Podzim", [])])
        source = self.write_json([palette("Zima", [])])
        with self.file.open("r+b"):
            self.assertEqual([each["Name"] for each in self.dump()], ["Podzim"])
            self.assert_refused("another program has", "import", self.file, source)
            self.assert_refused("another program has", "erase", self.file, "Podzim")
            self.assert_refused("another program has", "new", self.file, "--force")
        self.run_program("erase", self.file, "Podzim")

    def test_incomplete_command_lines(self):
        for arguments in ([], ["new"], ["erase", self.file], ["import", self.file], ["paint"],
                          ["list", self.file, "--force"]):
            done = huebrush("palette", *arguments)
            self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)

    def test_output_that_cannot_be_written(self):
        self.add([palette("Podzim", [])])
        with open("/dev/full", "w", encoding="utf-8") as full:
            done = huebrush("palette", "dump", self.file, stdout=full)
        self.assertEqual((done.returncode, done.stderr),
                         (1, "huebrush: cannot write the output\n"))


class New(OnPaletteFiles):
    def only_files(self, *names):
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), sorted(names))

    def test_creates_an_empty_file_that_satisfies_all_rules(self):
        self.assert_clean()
        self.assertEqual(self.dump(), [])
        self.only_files("fill.mdb")

    def test_reports_what_it_did(self):
        other = self.folder / "other.mdb"
        self.assertEqual(self.run_program("new", other), f"created {other}\n")
        self.assertEqual(json.loads(self.run_program("new", other, "--force", "--json")),
                         {"file": str(other), "replaced": True})

    def test_may_have_names_that_are_not_text(self):
        file = self.folder / os.fsdecode(b"p\xf8\xedklad.mdb")
        shown = str(self.folder / "p\ufffd\ufffdklad.mdb")
        self.assertEqual(json.loads(self.run_program("new", file, "--json")),
                         {"file": shown, "replaced": False})
        source = self.write_json([palette("Podzim", [])])
        self.assertEqual(json.loads(self.run_program("import", file, source, "--json"))["file"],
                         shown)
        self.assertEqual(json.loads(self.run_program("check", file, "--json"))["file"], shown)
        self.assertEqual(json.loads(self.run_program("erase", file, "Podzim", "--json"))["file"],
                         shown)

    def test_by_force_replaces_the_file_that_a_link_leads_to_and_keeps_its_rights(self):
        self.add([palette("Podzim", [])])
        self.file.chmod(0o640)
        link = self.folder / "link.mdb"
        link.symlink_to("fill.mdb")
        self.run_program("new", link, "--force")
        self.assertTrue(link.is_symlink())
        self.assertEqual(stat.S_IMODE(self.file.stat().st_mode), 0o640)
        self.assertEqual(self.dump(), [])
        self.only_files("fill.mdb", "link.mdb", "palettes.json")

    def test_names_may_be_as_long_as_the_system_allows(self):
        long = self.folder / ("x" * 251 + ".mdb")
        self.run_program("new", long)
        self.run_program("import", long, self.write_json([palette("Podzim", [])]))
        self.assertEqual(len(self.dump(long)), 1)
        self.run_program("new", long, "--force")
        self.assertEqual(self.dump(long), [])
        self.only_files("fill.mdb", "palettes.json", long.name)

    def test_by_force_and_by_a_change_a_file_keeps_its_attributes(self):
        os.setxattr(self.file, "user.origin", b"scanner")
        self.run_program("new", self.file, "--force")
        self.assertEqual(os.getxattr(self.file, "user.origin"), b"scanner")
        self.add([palette("Podzim", [])])
        self.assertEqual(os.getxattr(self.file, "user.origin"), b"scanner")

    def test_killed_at_any_instant_it_leaves_nothing_or_the_whole_file(self):
        instants = random.Random(7)
        for _ in range(40):
            made = self.folder / "made.mdb"
            program = subprocess.Popen([PROGRAM, "palette", "new", made], stdin=subprocess.DEVNULL,
                                       stdout=subprocess.DEVNULL)
            # Nothing is waited for: the sleep is the instant.
            time.sleep(instants.uniform(0, 0.03))
            program.kill()
            program.wait()
            if made.exists():
                self.assert_clean(made)
                made.unlink()
            self.only_files("fill.mdb")

    def test_only_a_regular_file_is_replaced(self):
        pipe = self.folder / "pipe.mdb"
        os.mkfifo(pipe)
        for name in (pipe, "/dev/null"):
            done = huebrush("palette", "new", name, "--force")
            self.assertEqual((done.returncode, done.stderr),
                             (1, f"huebrush: {name} is not a regular file\n"))
        self.assertTrue(stat.S_ISFIFO(pipe.stat().st_mode))
        self.assertTrue(stat.S_ISCHR(os.stat("/dev/null").st_mode))

    def asked(self):
        """The program, creating a file in a folder that does not exist, as it asks a user at a
        terminal what to do; the terminal; and what it has printed."""
        terminal, theirs = pty.openpty()
        self.addCleanup(os.close, terminal)
        program = subprocess.Popen([PROGRAM, "palette", "new", self.folder / "no" / "fill.mdb"],
                                   stdin=theirs, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        os.close(theirs)
        self.addCleanup(program.kill)
        said = b""
        while not said.endswith(b"[a/r/i] "):
            piece = os.read(program.stderr.fileno(), 1000)
            self.assertTrue(piece, said)
            said += piece
        return program, terminal, said

    def answer(self, answers, before_answering=lambda: None):
        program, terminal, said = self.asked()
        before_answering()
        os.write(terminal, answers)
        out, rest = program.communicate(timeout=LIMIT)
        return program.returncode, out, (said + rest).decode()

    def test_asks_whether_to_retry(self):
        code, _, asked = self.answer(b"what?\nr\n", (self.folder / "no").mkdir)
        self.assertEqual(code, 0)
        self.assertIn("Při vytváření databáze vznikla chyba", asked)
        self.assertEqual(asked.count("[a/r/i]"), 2)
        self.assert_clean(self.folder / "no" / "fill.mdb")

    def test_ends_when_the_user_aborts(self):
        code, out, _ = self.answer(b"a\n")
        self.assertEqual((code, out), (1, b""))
        self.only_files("fill.mdb")

    def test_ends_when_the_user_interrupts_the_question(self):
        program, _, _ = self.asked()
        program.send_signal(signal.SIGINT)
        out, rest = program.communicate(timeout=LIMIT)
        self.assertEqual((program.returncode, out), (130, b""))
        self.assertEqual(rest, b"huebrush: interrupted, nothing was written\n")
        self.only_files("fill.mdb")


class Palettes(OnPaletteFiles):
    def test_come_out_as_they_went_in(self):
        palettes = various_palettes(list(PREVIEW_SIZES) + [100] * 44)
        self.add(palettes)
        self.assertEqual(self.dump(), as_stored(palettes))
        self.assert_clean()

    def test_come_in_whatever_the_order_of_their_keys(self):
        palettes = various_palettes([10, None, 5000])
        self.add([dict(reversed(each.items())) for each in palettes])
        self.assertEqual(self.dump(), as_stored(palettes))
        self.assert_clean()

    def test_come_in_through_a_pipe(self):
        palettes = various_palettes([10, None, 5000])
        done = huebrush("palette", "import", self.file, "/dev/stdin",
                        input=json.dumps({"palettes": palettes}))
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(self.dump(), as_stored(palettes))

    def test_are_dumped_as_json_that_is_indented(self):
        self.add(various_palettes([10, None, 5000]))
        dumped = self.run_program("dump", self.file)
        printed_anew = json.dumps(json.loads(dumped), indent=2, ensure_ascii=False) + "\n"
        self.assertEqual(dumped, printed_anew)

    def test_go_from_file_to_file(self):
        self.add(various_palettes([10, None, 5000]))
        copied = self.folder / "copy.json"
        copied.write_text(self.run_program("dump", self.file), encoding="utf-8")
        other = self.folder / "other.mdb"
        self.run_program("new", other)
        self.run_program("import", other, copied)
        self.assertEqual(self.dump(other), self.dump())

    def test_have_every_column_under_its_own_name_in_order(self):
        self.add([palette("Podzim", [element(0, b"\x00\xff")])])
        dumped = self.run_program("dump", self.file, "--json")
        self.assertEqual(list(json.loads(dumped)["palettes"][0]),
                         ["ID", "Name", "Description", "Count", "elements"])
        self.assertEqual(list(json.loads(dumped)["palettes"][0]["elements"][0]),
                         ["ID", "GroupID", "OrderNumber", "Visible", "ForeColorRGB",
                          "BackColorRGB", "Transparency", "GradientStyle", "GradientColorType",
                          "GradientVariant", "GradientDegree", "PresetGradientType", "TextureType",
                          "Type", "PresetTexture", "TextureName", "Pattern", "PictureName",
                          "FillPreview"])

    def test_have_their_elements_by_order_number(self):
        self.add([palette("Podzim", [element(order, b"") for order in (7, 2, 5)])])
        elements = self.dump()[0]["elements"]
        self.assertEqual([(each["OrderNumber"], each["ID"]) for each in elements],
                         [(2, 2), (5, 3), (7, 1)])

    def test_are_listed(self):
        self.add([palette("Žluť", [element(0, b"")], "Teplé\nbarvy"), palette("Zima", [])])
        self.assertEqual(self.run_program("list", self.file),
                         "   ID  fills  name\n"
                         "    1      1  Žluť – Teplé barvy\n"
                         "    2      0  Zima\n")
        self.assertEqual(json.loads(self.run_program("list", self.file, "--json")), {"palettes": [
            {"ID": 1, "Name": "Žluť", "Description": "Teplé\nbarvy", "Count": 1},
            {"ID": 2, "Name": "Zima", "Description": None, "Count": 0}]})

    def test_are_reported_when_they_are_added_and_erased(self):
        source = self.write_json([palette("Podzim", [element(0, b"")]), palette("Podzim", [])])
        self.assertEqual(self.run_program("import", self.file, source),
                         f"2 palettes added to {self.file}\n")
        self.assertEqual(json.loads(self.run_program("import", self.file, source, "--json")), {
            "file": str(self.file),
            "palettes": [{"ID": 3, "Name": "Podzim", "Description": None, "Count": 1},
                         {"ID": 4, "Name": "Podzim", "Description": None, "Count": 0}]})
        self.assertEqual(json.loads(self.run_program("erase", self.file, "Podzim", "--json")),
                         {"file": str(self.file), "name": "Podzim", "erased": 4})
        self.assertEqual(self.dump(), [])
        self.add([palette("Zima", [])])
        self.assertEqual(self.run_program("erase", self.file, "Zima"),
                         f"1 palette erased from {self.file}\n")
        self.assert_clean()

    def test_do_not_make_a_file_grow_when_added_and_erased_again(self):
        def half(name):
            return [palette(name, [element(order, bytes(300)) for order in range(20)])
                    for _ in range(MANY_PALETTES // 2)]
        self.add(half("stays") + half("goes"))
        source = self.write_json(half("goes"))
        sizes = []
        for _ in range(10):
            self.run_program("erase", self.file, "goes")
            self.run_program("import", self.file, source)
            sizes.append(self.file.stat().st_size)
        self.assert_clean()
        self.assertEqual(len(set(sizes[1:])), 1, sizes)
        listed = json.loads(self.run_program("list", self.file, "--json"))["palettes"]
        self.assertEqual(len(listed), MANY_PALETTES)


@unittest.skipIf("HUEBRUSH_MANY_PALETTES" in os.environ, "the sanitizers take memory themselves")
class Memory(OnPaletteFiles):
    """However many rows there are, import and dump take no more memory than this."""
    MOST_BYTES = 64 * 1024 * 1024

    def run_bounded(self, *arguments):
        """Runs a palette command that must succeed with that much memory."""
        done = huebrush("palette", *arguments, stdout=subprocess.DEVNULL,
                        preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_DATA,
                                                              (self.MOST_BYTES, self.MOST_BYTES)))
        self.assertEqual((done.returncode, done.stderr), (0, ""), arguments)

    def test_has_a_bound_for_large_palettes_and_for_many(self):
        # Texts of which few fit on a page, so that the pages are more than the memory.
        fill = json.dumps(element(0, b"", "ž" * 250, "ž" * 250))
        source = self.folder / "large.json"
        with source.open("w", encoding="utf-8") as text:
            text.write('{"palettes": [{"Name": "x", "elements": [')
            text.write(", ".join([fill] * 70_000) + "]}")
            text.writelines([', {"Name": "x", "elements": [' + fill + "]}"] * 10_000)
            text.write("]}")
        self.run_bounded("import", self.file, source)
        self.assertGreater(self.file.stat().st_size, 1.3 * self.MOST_BYTES)
        self.run_bounded("dump", self.file)
        self.assert_clean()

    def test_has_a_bound_for_what_an_import_prints(self):
        source = self.folder / "many.json"
        source.write_text('{"palettes": [' + ", ".join(['{"Name": "x"}'] * 150_000) + "]}")
        self.run_bounded("import", self.file, source, "--json")
        self.run_bounded("dump", self.file)


class Check(OnPaletteFiles):
    def test_reports_each_broken_rule(self):
        self.add([palette("Podzim", [element(order, bytes(100)) for order in range(30)])])
        content = bytearray(self.file.read_bytes())
        # The number of rows of a data page that is owned by a table: rows are lost by it.
        broken = 0
        for page in range(0, len(content), 4096):
            if content[page] == 1 and content[page + 12] > 5:
                content[page + 12] -= 1
                broken += 1
        self.assertGreater(broken, 0)
        self.file.write_bytes(content)
        done = huebrush("palette", "check", self.file)
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        lines = done.stdout.splitlines()
        result = huebrush("palette", "check", self.file, "--json")
        self.assertEqual(result.returncode, 1)
        violations = json.loads(result.stdout)["violations"]
        self.assertGreaterEqual(len(violations), broken)
        self.assertEqual([each["text"] for each in violations], lines[:len(violations)])
        self.assertLess({"severity", "page", "offset", "rule", "object", "found"},
                        set(violations[0]))
        self.assertEqual({each["severity"] for each in violations}, {"damage"})
        self.assertRegex(lines[0], r"^damage: page \d+, byte \d+, table \w+: .* \(rule [A-Z]\d\)$")
        self.assertEqual(lines[-1], f"{self.file} is damaged")

    def test_calls_a_good_file_sound(self):
        self.assertEqual(self.run_program("check", self.file), f"{self.file} is sound\n")


if __name__ == "__main__":
    unittest.main()
