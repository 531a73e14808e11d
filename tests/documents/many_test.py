# SPDX-License-Identifier: MPL-2.0
"""Calls of the program over many documents, without an office: what they print, in text and as
JSON, what they write, and what is left of them when they are interrupted."""

import fcntl
import json
import os
import pty
import random
import re
import shutil
import signal
import struct
import subprocess
import tempfile
import termios
import time
import unittest
import zipfile
from pathlib import Path

import jsonschema

PROGRAM = os.environ["HUEBRUSH_PROGRAM"]
EXAMPLES = Path(os.environ["HUEBRUSH_EXAMPLES"])
SCHEMA = Path(os.environ["HUEBRUSH_SCHEMA"])
INTERRUPTIONS = int(os.environ.get("HUEBRUSH_INTERRUPTIONS", "10"))
LIMIT = 300
ROOFS, BLUE = "#C00000", "#0070C0"
MAP = ("--map", f"{ROOFS}={BLUE}")


def command(*arguments):
    return [PROGRAM, *map(str, arguments)]


def huebrush(*arguments):
    # No office can be found.
    return subprocess.run(command(*arguments), stdin=subprocess.DEVNULL, text=True,
                          capture_output=True, timeout=LIMIT,
                          env=dict(os.environ, HUEBRUSH_OFFICE="/nowhere/soffice"))


def strict(schema):
    """The schema without room for anything that it does not name."""
    if isinstance(schema, list):
        return [strict(each) for each in schema]
    if not isinstance(schema, dict):
        return schema
    closed = {"additionalProperties": False} if "properties" in schema else {}
    return {**{key: strict(value) for key, value in schema.items()}, **closed}


def validated(text):
    value = json.loads(text)
    jsonschema.Draft202012Validator(strict(json.loads(SCHEMA.read_text()))).validate(value)
    return value


def without_shapes(source, target):
    """A copy of an .odt document in which there is no shape."""
    with zipfile.ZipFile(source) as package, zipfile.ZipFile(target, "w") as copy:
        for entry in package.infolist():
            content = package.read(entry)
            if entry.filename == "content.xml":
                start = content.index(b"<office:text")
                end = content.index(b"</office:text>")
                content = content[:content.index(b">", start) + 1] + content[end:]
            copy.writestr(entry, content)


class Case(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="huebrush-many-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.documents = self.folder / "in"
        self.results = self.folder / "out"
        (self.documents / "sub").mkdir(parents=True)
        shutil.copy(EXAMPLES / "town.odt", self.documents / "a.odt")
        shutil.copy(EXAMPLES / "town.docx", self.documents / "sub" / "b.docx")

    def files(self, folder):
        return {str(each.relative_to(folder)): each.read_bytes()
                for each in sorted(folder.rglob("*")) if each.is_file()}

    def assert_done(self, done, code=0, errors=""):
        self.assertEqual((done.returncode, done.stderr), (code, errors), done.stdout)

    def colours(self, document):
        rows = json.loads(huebrush("fills", document, "--json").stdout)["rows"]
        return [row["fill"]["ForeColorRGB"] for row in rows]


class Listing(Case):
    def test_one_line_each_and_a_summary(self):
        done = huebrush("fills", "--recursive", self.documents)
        self.assert_done(done)
        lines = done.stdout.splitlines()
        self.assertEqual(lines[0], f"{self.documents}/a.odt: 428 shapes, 41 distinct fills")
        self.assertRegex(lines[1], rf"^{self.documents}/sub/b\.docx: \d+ shapes, \d+ distinct")
        self.assertEqual(lines[2:], ["2 documents listed"])

    def test_names_cannot_command_a_terminal(self):
        odd = self.documents / "a\x1b[31m.odt"
        shutil.copy(EXAMPLES / "town.odt", odd)
        done = huebrush("fills", odd, self.documents / "no\x1b]0;x.odt")
        self.assertEqual(done.returncode, 1)
        self.assertIn("a\ufffd[31m.odt: 428 shapes", done.stdout)
        self.assertIn("no\ufffd]0;x.odt does not exist", done.stderr)
        self.assertNotIn("\x1b", done.stdout + done.stderr)

    def test_one_that_fails_does_not_stop_the_others(self):
        bad = self.documents / "bad.odt"
        bad.write_bytes(b"no document")
        done = huebrush("fills", bad, self.documents / "a.odt", self.documents / "none.odt",
                        self.documents)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout.splitlines()[-1], "1 document listed, 3 failed")
        self.assertEqual(done.stderr.splitlines(), [
            f"huebrush: {bad} is not a document that LibreOffice can open",
            f"huebrush: {self.documents}/none.odt does not exist",
            f"huebrush: {self.documents} is a folder; --recursive takes the documents in it"])

    def test_a_document_without_shapes(self):
        plain = self.folder / "plain.odt"
        without_shapes(EXAMPLES / "town.odt", plain)
        done = huebrush("fills", plain)
        self.assert_done(done)
        self.assertEqual(done.stdout, "no drawing shapes\n")
        done = huebrush("fills", plain, "--json")
        self.assert_done(done)
        self.assertEqual(validated(done.stdout), {"version": 1, "rows": []})
        done = huebrush("fills", plain, self.documents / "a.odt")
        self.assert_done(done)
        self.assertEqual(done.stdout.splitlines()[0], f"{plain}: no drawing shapes")
        done = huebrush("recolor", plain, "--dry-run", *MAP)
        self.assert_done(done, 1, "huebrush: no solid fill in the document has the colour "
                                  "#C00000\n")
        done = huebrush("recolor", plain, "--dry-run", "--row", "1=none")
        self.assert_done(done, 1, "huebrush: there is no row 1; the document has no shapes\n")
        done = huebrush("recolor", plain, "-o", self.folder / "x.odt", *MAP, "--ignore-missing")
        self.assert_done(done)
        self.assertEqual((self.folder / "x.odt").read_bytes(), plain.read_bytes())

    def test_a_folder_without_documents(self):
        empty = self.folder / "empty"
        empty.mkdir()
        self.assert_done(huebrush("fills", "-r", empty), 1,
                         f"huebrush: there are no documents in the folder {empty}\n")

    def test_json_is_what_the_schema_says(self):
        (self.documents / "bad.odt").write_bytes(b"no document")
        validated(huebrush("fills", self.documents / "a.odt", "--json").stdout)
        found = validated(huebrush("fills", "-r", self.documents, "--json").stdout)["documents"]
        self.assertEqual([Path(each["document"]).name for each in found],
                         ["a.odt", "bad.odt", "b.docx"])
        self.assertIn("error", found[1])
        self.assertEqual(len(found[0]["rows"]), 41)
        validated(huebrush("recolor", self.documents / "a.odt", "--dry-run", "--json", *MAP).stdout)
        done = validated(huebrush("recolor", "-r", self.documents, "--output-dir", self.results,
                                  "--json", "--row", "1=#00FF00@25%").stdout)["documents"]
        self.assertEqual([each.get("written") for each in done], [True, None, True])

    def test_the_schema_refuses_what_it_does_not_know(self):
        found = json.loads(huebrush("fills", self.documents / "a.odt", "--json").stdout)
        for change in ({"version": 2}, {"rows": [{}]}, {"more": 1}):
            with self.assertRaises(jsonschema.ValidationError):
                validated(json.dumps({**found, **change}))

    def test_jobs_change_nothing_but_the_time(self):
        for number in range(7):
            shutil.copy(EXAMPLES / "town.odt", self.documents / f"{number}.odt")
        one, many = (huebrush("fills", "-r", self.documents, "--json", "--jobs", jobs)
                     for jobs in (1, 8))
        self.assert_done(one)
        self.assertEqual(one.stdout, many.stdout)


class Recolouring(Case):
    def test_results_are_in_the_same_folders(self):
        before = self.files(self.documents)
        done = huebrush("recolor", "-r", self.documents, "--output-dir", self.results, *MAP)
        self.assert_done(done)
        self.assertEqual(done.stdout.splitlines()[0],
                         f"{self.documents}/a.odt: 14 of 428 shapes recoloured; "
                         f"wrote {self.results}/a.odt")
        self.assertEqual(done.stdout.splitlines()[-1], "2 documents done")
        self.assertEqual(self.files(self.documents), before)
        self.assertEqual(list(self.files(self.results)), ["a.odt", "sub/b.docx"])
        alone = self.folder / "alone.odt"
        huebrush("recolor", self.documents / "a.odt", "-o", alone, *MAP)
        self.assertEqual((self.results / "a.odt").read_bytes(), alone.read_bytes())

    def test_results_in_a_folder_inside_are_no_documents_of_the_next_call(self):
        inside = self.documents / "new"
        for _ in range(2):
            done = huebrush("recolor", "-r", self.documents, "--output-dir", inside, *MAP)
            self.assert_done(done)
            self.assertEqual(list(self.files(inside)), ["a.odt", "sub/b.docx"])

    def test_a_dry_run_writes_nothing(self):
        before = self.files(self.folder)
        for how in (("--in-place",), ("--output-dir", self.results), ()):
            done = huebrush("recolor", "-r", self.documents, *MAP, "--dry-run", *how)
            self.assert_done(done)
            self.assertIn("14 of 428 shapes would be recoloured; nothing written", done.stdout)
            self.assertEqual(done.stdout.splitlines()[-1], "2 documents tried")
            self.assertEqual(self.files(self.folder), before)
            self.assertFalse(self.results.exists())
        done = huebrush("recolor", self.documents / "a.odt", *MAP, "--dry-run")
        self.assert_done(done)
        self.assertIn("14 of 428 shapes would be recoloured, 41 distinct fills before; "
                      "nothing written", done.stdout)
        self.assertEqual(self.files(self.folder), before)

    def test_a_missing_colour_fails_only_its_document(self):
        huebrush("recolor", self.documents / "a.odt", "--in-place", *MAP)
        done = huebrush("recolor", "-r", self.documents, "--output-dir", self.results, *MAP)
        self.assert_done(done, 1, f"huebrush: {self.documents}/a.odt: no solid fill in the "
                                  "document has the colour #C00000\n")
        self.assertEqual(done.stdout.splitlines()[-1], "1 document done, 1 failed")
        self.assertEqual(list(self.files(self.results)), ["sub/b.docx"])
        self.assert_done(huebrush("recolor", "-r", self.documents, "--output-dir", self.results,
                                  *MAP, "--ignore-missing"))
        self.assertEqual((self.results / "a.odt").read_bytes(),
                         (self.documents / "a.odt").read_bytes())

    def test_what_does_not_change_is_not_replaced_in_its_place(self):
        huebrush("recolor", self.documents / "a.odt", "--in-place", *MAP)
        before = (self.documents / "a.odt").stat()
        done = huebrush("recolor", "-r", self.documents, "--in-place", *MAP, "--ignore-missing")
        self.assert_done(done)
        self.assertIn("a.odt: 0 of 428 shapes recoloured; nothing written", done.stdout)
        after = (self.documents / "a.odt").stat()
        self.assertEqual((after.st_ino, after.st_mtime_ns), (before.st_ino, before.st_mtime_ns))

    def test_two_results_in_one_place_are_refused(self):
        shutil.copy(EXAMPLES / "town.odt", self.documents / "sub" / "a.odt")
        done = huebrush("recolor", self.documents / "a.odt", self.documents / "sub" / "a.odt",
                        "--output-dir", self.results, *MAP)
        self.assert_done(done, 1, f"huebrush: {self.documents}/a.odt and {self.documents}/sub/a.odt"
                                  f" would both be written to {self.results}/a.odt\n")
        self.assertFalse(self.results.exists())

    def test_a_result_in_place_of_a_document_is_refused(self):
        done = huebrush("recolor", self.documents / "a.odt", "--output-dir", self.documents, *MAP)
        self.assertEqual(done.returncode, 1)
        self.assertIn("would replace the document", done.stderr)

    def test_invalid_command_lines(self):
        one, two = self.documents / "a.odt", self.documents / "sub" / "b.docx"
        for arguments in ((one, two, "-o", "x.odt", *MAP), (one, two, *MAP), ("-r", one, *MAP),
                          (one, "-o", "x.odt", "--output-dir", "x", *MAP),
                          (one, "--in-place", "--output-dir", "x", *MAP),
                          (one, "--in-place", "--tolerance", "3", "--row", "1=none"),
                          (one, "--in-place", "--tolerance", "-1", *MAP),
                          (one, "--in-place", "--also", "lines,shadows", *MAP),
                          (one, "--in-place", "--jobs", "0", *MAP), (one, "--in-place"), ()):
            done = huebrush("recolor", *arguments)
            self.assertEqual(done.returncode, 2, arguments)
            self.assertEqual(done.stdout, "")
            self.assertNotEqual(done.stderr, "")
        self.assertEqual((self.documents / "a.odt").read_bytes(),
                         (EXAMPLES / "town.odt").read_bytes())

    def test_a_folder_that_cannot_be_created(self):
        self.results.write_text("a file")
        done = huebrush("recolor", "-r", self.documents, "--output-dir", self.results, *MAP)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout, "0 documents done, 2 failed\n")
        self.assertEqual(len(done.stderr.splitlines()), 2)
        self.assertIn("cannot create the folder", done.stderr)

    def test_a_document_that_only_an_office_can_read_fails_alone(self):
        (self.documents / "c.doc").write_bytes(b"\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1" + bytes(5000))
        done = huebrush("recolor", "-r", self.documents, "--output-dir", self.results, *MAP)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout.splitlines()[-1], "2 documents done, 1 failed")
        self.assertEqual(len(done.stderr.splitlines()), 1)

    def test_the_names_of_css(self):
        document = self.documents / "a.odt"
        self.assert_done(huebrush("recolor", document, "--in-place", "--map",
                                  f"{ROOFS}=RebeccaPurple"))
        self.assertIn(0x993366, self.colours(document))

    def test_near_colours(self):
        document = self.documents / "a.odt"
        near = ("recolor", document, "--dry-run", "--map", "#C10101=#0070C0")
        self.assertEqual(huebrush(*near).returncode, 1)
        done = huebrush(*near, "--tolerance", "1")
        self.assert_done(done)
        self.assertIn("14 of 428 shapes", done.stdout)

    def test_the_colours_of_patterns_and_gradients(self):
        document = self.documents / "a.odt"
        pattern, gradient = ("--map", "#4C7A3A=#112233"), ("--map", "#F0C75E=#445566")
        for also, what, of in (("patterns", pattern, "1 of 428"), ("gradients", gradient, "1 of"),
                               ("gradients,patterns", (*pattern, *gradient), "2 of 428")):
            self.assertEqual(huebrush("recolor", document, "--dry-run", *what).returncode, 1)
            done = huebrush("recolor", document, "-o", self.folder / "x.odt", *what, "--also", also)
            self.assert_done(done)
            self.assertIn(f"{of} ", done.stdout)
        listed = huebrush("fills", self.folder / "x.odt").stdout
        self.assertIn("pattern 20 #112233 on #FFFFFF", listed)
        self.assertIn("two-colour gradient #445566 to #FFFBEC", listed)

    def test_the_colours_of_lines(self):
        for name in ("a.odt", "sub/b.docx"):
            document, result = self.documents / name, self.folder / f"lines{name[-5:]}"
            line = ("--map", "#5A4636=#0070C0")
            self.assertEqual(huebrush("recolor", document, "--dry-run", *line).returncode, 1)
            done = huebrush("recolor", document, "-o", result, *line, "--also", "lines")
            self.assert_done(done)
            self.assertIn(" shapes and 108 lines recoloured", done.stdout)
            self.assertEqual(huebrush("fills", result).stdout, huebrush("fills", document).stdout)
            again = huebrush("recolor", result, "--in-place", "--json",
                             "--map", "#0070C0=#5A4636", "--also", "lines")
            self.assert_done(again)
            self.assertEqual(json.loads(again.stdout)["lines"], 108)
            self.assertEqual(json.loads(again.stdout)["stored"]["linesConfirmed"], 108)


class OnATerminal(Case):
    def run_in_terminal(self, columns, *arguments):
        """What the program writes to a terminal of that width as its standard error."""
        ours, theirs = pty.openpty()
        self.addCleanup(os.close, ours)
        fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        with subprocess.Popen(command(*arguments), stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=theirs) as program:
            os.close(theirs)
            written = b""
            while True:
                try:
                    piece = os.read(ours, 65536)
                except OSError:  # the other side is closed
                    break
                written += piece
            program.communicate(timeout=LIMIT)
        return written.decode()

    def test_the_bar_is_no_wider_than_the_terminal(self):
        for number in range(20):
            shutil.copy(EXAMPLES / "town.odt", self.documents / f"{number}.odt")
        for columns in (80, 30, 10):
            written = self.run_in_terminal(columns, "fills", "-r", self.documents)
            shown = [part for part in re.split(r"\r|\x1b\[K", written) if part]
            self.assertTrue(any("22" in part for part in shown), written)
            self.assertLess(max(map(len, shown)), columns)
            self.assertTrue(written.endswith("\r\x1b[K"), repr(written[-20:]))
        self.assertTrue(any(part.startswith("[") for part in re.split(
            r"\r|\x1b\[K", self.run_in_terminal(80, "fills", "-r", self.documents))))


class Interruption(Case):
    DOCUMENTS = 50

    def setUp(self):
        super().setUp()
        shutil.rmtree(self.documents)
        self.documents.mkdir()
        for number in range(self.DOCUMENTS):
            shutil.copy(EXAMPLES / ("town.odt" if number % 2 else "town.docx"),
                        self.documents / f"{number:02}.{'odt' if number % 2 else 'docx'}")
        self.arguments = ("recolor", "-r", self.documents, *MAP)
        wanted = self.folder / "wanted"
        self.assert_done(huebrush(*self.arguments, "--output-dir", wanted))
        self.wanted = self.files(wanted)
        shutil.rmtree(wanted)

    def interrupt_after(self, results, interruption):
        """Starts the call, and interrupts it when there are that many results, and after a moment
        of its work on the next ones."""
        with subprocess.Popen(command(*self.arguments, "--output-dir", self.results),
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True) as program:
            while program.poll() is None and self.count_results() < results:
                time.sleep(0.001)
            time.sleep(random.random() * 0.01)
            program.send_signal(interruption)
            out, errors = program.communicate(timeout=LIMIT)
        return program.returncode, out, errors

    def count_results(self):
        return len(os.listdir(self.results)) if self.results.exists() else 0

    def assert_whole(self):
        """Each result is complete or absent, and there is nothing else."""
        found = self.files(self.results) if self.results.exists() else {}
        for name, content in found.items():
            self.assertIn(name, self.wanted)
            self.assertEqual(content, self.wanted[name], name)
        return found

    def instants(self):
        return [self.DOCUMENTS * number // INTERRUPTIONS for number in range(INTERRUPTIONS)]

    def test_from_the_keyboard(self):
        interrupted = 0
        for instant in self.instants():
            code, out, errors = self.interrupt_after(instant, signal.SIGINT)
            found = self.assert_whole()
            if code == 130:
                interrupted += 1
                done = re.search(r"interrupted; (\d+) documents? done, (\d+) not done", errors)
                # What one was at when it came may be written, and not counted.
                self.assertIsNotNone(done, errors)
                self.assertLessEqual(int(done[1]), len(found))
                self.assertEqual(int(done[1]) + int(done[2]), self.DOCUMENTS)
                self.assertEqual(len(out.splitlines()), int(done[1]))
            elif code == 0:
                self.assertEqual(found, self.wanted)
            else:
                # Before it could be caught.
                self.assertEqual((code, found), (-signal.SIGINT, {}))
            shutil.rmtree(self.results, ignore_errors=True)
        self.assertGreater(interrupted, 0)

    def test_by_a_kill(self):
        killed = 0
        for instant in self.instants():
            code, _, _ = self.interrupt_after(instant, signal.SIGKILL)
            killed += code == -signal.SIGKILL
            self.wait_for_workers()
            self.assert_whole()
            shutil.rmtree(self.results, ignore_errors=True)
        self.assertGreater(killed, 0)

    def wait_for_workers(self):
        """Until the processes that the call had started have ended, too."""
        end = time.monotonic() + LIMIT
        while subprocess.run(["pgrep", "-f", f"^{PROGRAM} recolor .*{self.results}"],
                             stdout=subprocess.DEVNULL).returncode == 0:
            self.assertLess(time.monotonic(), end, "a worker goes on")
            time.sleep(0.01)


if __name__ == "__main__":
    unittest.main(verbosity=2)
