# SPDX-License-Identifier: MPL-2.0
"""The program on real documents: what it changes, what it leaves, and how it refuses bad input."""

import contextlib
import hashlib
import json
import os
import random
import re
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest
import zipfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
sys.path.insert(0, str(ROOT / "tests" / "libreoffice"))

import uno  # noqa: E402
from com.sun.star.beans import NamedValue  # noqa: E402
from office import store_anew  # noqa: E402
from private_office import FILTERS, PrivateOffice, file_url, properties  # noqa: E402
import normal_form  # noqa: E402

PROGRAM = os.environ["HUEBRUSH_PROGRAM"]
EXAMPLES = ROOT / "examples"
LIMIT = 240
ROOFS, BLUE = "#c00000", "#0070c0"
MAP = {ROOFS: BLUE}


def huebrush(command, *arguments, **options):
    """Runs the program; what works on a document is an office."""
    if command in ("fills", "recolor"):
        command = (command, "--through", "office")
    else:
        command = (command,)
    arguments = (*command, *arguments)
    return subprocess.run([PROGRAM, *map(str, arguments)], stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                          timeout=LIMIT, **options)


def processes_mentioning(*texts):
    """The processes that have all these texts in their command lines."""
    found = []
    for folder in Path("/proc").glob("[0-9]*"):
        try:
            line = (folder / "cmdline").read_bytes()
            if all(text.encode() in line for text in texts):
                found.append(int(folder.name))
        except OSError:
            continue
    return found


def socket_of(folder):
    """Where an office whose profile is in a folder of the program's listens."""
    profile = (folder / "profile").as_uri().encode("utf-16-le")
    digits = "".join(f"{byte:x}" for byte in hashlib.md5(profile).digest())
    return Path(f"/tmp/OSL_PIPE_{os.getuid()}_SingleOfficeIPC_{digits}")


def wait_until(condition, limit=60):
    end = time.monotonic() + limit
    while not condition():
        if time.monotonic() > end:
            raise AssertionError("the condition did not come true")
        time.sleep(0.02)


class OnDocuments(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp(prefix="huebrush-documents-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder, True)
        cls.temporary = cls.folder / "tmp"
        cls.temporary.mkdir()
        cls.environment = dict(os.environ, TMPDIR=str(cls.temporary))
        cls.town = cls.folder / "town.odt"
        shutil.copy(EXAMPLES / "town.odt", cls.town)

    def run_program(self, *arguments):
        return huebrush(*arguments, env=self.environment)

    def assert_nothing_left(self):
        """No process, no temporary file of the program's, no half-written output."""
        self.assertEqual(list(self.temporary.glob("huebrush-*")), [])
        self.assertEqual(processes_mentioning(str(self.temporary)), [])
        self.assertEqual([p.name for p in self.folder.rglob(".huebrush-*")], [])
        self.assertEqual(list(self.folder.glob(".~lock*")), [])

    def assert_refused(self, words, *arguments, code=1):
        done = self.run_program(*arguments)
        self.assertEqual(done.returncode, code, done.stderr)
        self.assertEqual(len(done.stderr.strip().splitlines()), 1, done.stderr)
        self.assertIn(words, done.stderr)
        self.assertEqual(done.stdout, "")
        self.assert_nothing_left()


class Recolouring(OnDocuments):
    """Exactly the mapped shapes change; all else is what the office itself writes."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.inputs = {".odt": cls.town, ".docx": EXAMPLES / "town.docx",
                      ".doc": cls.folder / "town.doc", ".fodt": cls.folder / "town.fodt"}
        with PrivateOffice() as office:
            office.convert(cls.town, cls.inputs[".doc"], cls.inputs[".fodt"])
        for suffix, source in cls.inputs.items():
            cls.load_and_store(source, FILTERS[suffix])
        # Not the example itself: each version of the office writes more properties than the last.
        cls.plain = cls.folder / "plain.odt"

    @classmethod
    def load_and_store(cls, source, filter_name):
        """What the office without our extension makes of a document, in one go as the program does
        it: whether the office finds time to lay a document out in between decides how it rounds."""
        work = cls.folder / f"plain{source.suffix}-work"
        store_anew([source], filter_name, work)
        shutil.move(work / source.name, cls.folder / f"plain{source.suffix}")

    def recolour(self, suffix):
        output = self.folder / f"recoloured{suffix}"
        done = self.run_program("recolor", self.inputs[suffix], "-o", output, "--json",
                                "--map", f"{ROOFS}={BLUE}")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assert_nothing_left()
        return output, json.loads(done.stdout)

    def assert_alike(self, shapes, expected):
        self.assertEqual(len(shapes), len(expected))
        for shape, other in zip(shapes, expected):
            self.assertTrue(normal_form.alike(shape, other), f"{shape}\n{other}")

    def assert_only_fills_differ(self, plain, recoloured):
        expected = normal_form.NormalForm(plain, normal_form.solid_fills(MAP))
        self.assertEqual(normal_form.NormalForm(recoloured).body, expected.body)
        self.assertNotEqual(normal_form.NormalForm(plain).body, expected.body)

    def test_odt(self):
        output, result = self.recolour(".odt")
        self.assert_only_fills_differ(self.plain, output)
        before = normal_form.NormalForm(self.plain).shapes
        after = normal_form.NormalForm(output).shapes
        changed = sum(not normal_form.alike(a, b) for a, b in zip(before, after)
                      if a[0] != normal_form.DRAW + "g")
        self.assertEqual(result["changed"], changed)
        self.assertGreater(changed, 10)

    def test_fodt(self):
        output, result = self.recolour(".fodt")
        self.assert_only_fills_differ(self.folder / "plain.fodt", output)
        self.assertGreater(result["changed"], 10)

    def test_docx(self):
        output, result = self.recolour(".docx")
        expected, mapped = normal_form.docx_body(self.folder / "plain.docx", MAP)
        self.assertEqual(normal_form.docx_body(output)[0], expected)
        self.assertEqual(normal_form.docx_other_parts(output),
                         normal_form.docx_other_parts(self.folder / "plain.docx"))
        self.assertEqual(result["changed"], mapped)
        self.assertGreater(mapped, 10)

    def test_doc(self):
        output, result = self.recolour(".doc")
        self.assertEqual(output.read_bytes()[:4], b"\xd0\xcf\x11\xe0")
        with PrivateOffice() as office:
            office.convert(output, self.folder / "recoloured-doc.fodt")
            office.convert(self.folder / "plain.doc", self.folder / "plain-doc.fodt")
        # Both were loaded and stored once more than the program did it, and so rounded differently.
        expected = normal_form.NormalForm(self.folder / "plain-doc.fodt",
                                          normal_form.solid_fills(MAP))
        recoloured = normal_form.NormalForm(self.folder / "recoloured-doc.fodt")
        self.assertTrue(normal_form.alike(recoloured.body, expected.body))
        plain = normal_form.NormalForm(self.folder / "plain-doc.fodt")
        self.assertFalse(normal_form.alike(plain.body, expected.body))
        self.assertGreater(result["changed"], 10)

    def test_the_output_takes_the_format_of_its_name(self):
        output = self.folder / "other.docx"
        done = self.run_program("recolor", self.town, "-o", output, "--map", f"{ROOFS}={BLUE}")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(output.read_bytes()[:2], b"PK")
        self.assertGreater(normal_form.docx_body(output, {BLUE: BLUE})[1], 10)

    def test_the_outputs_ending_in_any_case_or_else_the_document_chooses_the_format(self):
        beginnings = {"other.DOCX": b"PK", "other.Doc": b"\xd0\xcf", "bare": b"PK"}
        for name, beginning in beginnings.items():
            output = self.folder / name
            self.recolour_to(EXAMPLES / "town.docx", output)
            self.assertEqual(output.read_bytes()[:2], beginning, name)
            if beginning == b"PK":
                self.assertGreater(normal_form.docx_body(output, {BLUE: BLUE})[1], 10, name)

    def recolour_to(self, document, output):
        done = self.run_program("recolor", document, "-o", output, "--json", "--map",
                                f"{ROOFS}={BLUE}")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assert_nothing_left()
        return json.loads(done.stdout)["changed"]

    def test_every_format_that_is_stored_is_read_back_with_its_fills(self):
        stored = [self.folder / f"stored{ending}" for ending in (".ott", ".docm", ".dotx", ".dot")]
        changed = [self.recolour_to(self.town, output) for output in stored]
        self.assertEqual(self.shapes_filled(stored, BLUE), changed)
        back = self.folder / "back"
        done = self.run_program("recolor", *stored, "--output-dir", back, "--json", "--map",
                                f"{BLUE}={ROOFS}")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual([each["changed"] for each in json.loads(done.stdout)["documents"]],
                         changed)
        self.assertEqual(self.shapes_filled([back / each.name for each in stored], ROOFS), changed)

    def shapes_filled(self, documents, color):
        """How many shapes of each document have that colour; one office reads them all."""
        done = self.run_program("fills", *documents, "--json")
        self.assertEqual(done.returncode, 0, done.stderr)
        rgb = int(color[5:7] + color[3:5] + color[1:3], 16)
        return [sum(row["shapes"] for row in document["rows"]
                    if (row["fill"]["Visible"], row["fill"]["Type"],
                        row["fill"]["ForeColorRGB"]) == (-1, 1, rgb))
                for document in json.loads(done.stdout)["documents"]]

    def test_names_that_the_locale_cannot_express(self):
        names = ["Město s červenými střechami.odt".encode(), b"Caf\xe9 \xff.odt", b"100%25 #1?.odt"]
        documents = [os.fsencode(self.folder) + b"/" + name for name in names]
        for document in documents:
            shutil.copy(self.town, document)
        for locale in ("C", "C.UTF-8"):
            with self.subTest(locale):
                results = os.fsencode(self.folder / f"out {locale}")
                done = subprocess.run(
                    [PROGRAM, "recolor", "--through", "office", *documents, "--output-dir", results,
                     "--json", "--map", f"{ROOFS}={BLUE}"],
                    stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                    timeout=LIMIT, env=dict(self.environment, LC_ALL=locale))
                self.assertEqual((done.returncode, done.stderr), (0, b""))
                for each in json.loads(done.stdout)["documents"]:
                    self.assertGreater(each["changed"], 10)
                for name in names:
                    self.assert_alike(
                        normal_form.NormalForm(Path(os.fsdecode(results + b"/" + name))).shapes,
                        normal_form.NormalForm(self.plain, normal_form.solid_fills(MAP)).shapes)

    def test_relative_links_lead_to_the_same_file_from_wherever_the_result_lies(self):
        folder = self.folder / "links"
        (folder / "pictures").mkdir(parents=True)
        (folder / "else" / "where").mkdir(parents=True)
        target = folder / "pictures" / "a.png"
        link = ('<text:p><text:a xlink:type="simple" '
                f'xlink:href="{target.as_uri()}">a</text:a></text:p>')
        absolute = self.folder / "absolute.fodt"
        absolute.write_text(self.flat_town().replace("</office:text>", link + "</office:text>"),
                            encoding="utf-8")
        documents = {suffix: folder / f"linked{suffix}" for suffix in (".fodt", ".odt", ".docx")}
        with PrivateOffice() as office:
            office.convert(absolute, *documents.values())
        for suffix, document in documents.items():
            for output, expected in ((document.with_name(f"result{suffix}"), "pictures/a.png"),
                                     (folder / "else" / "where" / f"result{suffix}",
                                      "../../pictures/a.png")):
                with self.subTest(output.relative_to(folder)):
                    self.recolour_to(document, output)
                    # A package is one step deeper than its file.
                    step = "../" if suffix == ".odt" else ""
                    self.assertEqual(self.links_of(output), [step + expected])
                    self.assertEqual([name for name in os.listdir(output.parent)
                                      if name.startswith(".")], [])

    @staticmethod
    def links_of(path):
        if path.suffix == ".docx":
            with zipfile.ZipFile(path) as package:
                text = package.read("word/_rels/document.xml.rels").decode()
            return re.findall(r'Target="([^"]*a\.png)"', text)
        if path.suffix == ".fodt":
            text = path.read_text(encoding="utf-8")
        else:
            with zipfile.ZipFile(path) as package:
                text = package.read("content.xml").decode()
        return re.findall(r'xlink:href="([^"]*a\.png)"', text)

    def flat_town(self):
        return self.inputs[".fodt"].read_text(encoding="utf-8")

    def test_a_document_that_is_open_elsewhere_is_still_read(self):
        document = self.folder / "open.odt"
        shutil.copy(self.town, document)
        with PrivateOffice() as office:
            opened = office.desktop.loadComponentFromURL(file_url(document), "_blank", 0,
                                                         properties(Hidden=True))
            self.assertTrue(list(self.folder.glob(".~lock.open.odt*")))
            output = self.folder / "open-out.odt"
            done = self.run_program("recolor", document, "-o", output, "--map", f"{ROOFS}={BLUE}")
            opened.close(True)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assert_alike(normal_form.NormalForm(output).shapes,
                          normal_form.NormalForm(self.plain, normal_form.solid_fills(MAP)).shapes)

    def test_in_place_replaces_the_document_at_once(self):
        document = self.folder / "mine.odt"
        shutil.copy(self.town, document)
        os.chmod(document, 0o640)
        done = self.run_program("recolor", document, "--in-place", "--map", f"{ROOFS}={BLUE}")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(document.stat().st_mode & 0o777, 0o640)
        self.assert_alike(normal_form.NormalForm(document).shapes,
                          normal_form.NormalForm(self.plain, normal_form.solid_fills(MAP)).shapes)


class ListingAndPlans(OnDocuments):
    def listing(self, document):
        done = self.run_program("fills", document, "--json")
        self.assertEqual(done.returncode, 0, done.stderr)
        return json.loads(done.stdout)

    def test_the_listing_counts_what_the_document_holds(self):
        rows = self.listing(self.town)["rows"]
        self.assertEqual([row["row"] for row in rows], list(range(1, len(rows) + 1)))
        roofs = [row for row in rows if row["fill"]["Visible"] == -1 and row["fill"]["Type"] == 1
                 and row["fill"]["ForeColorRGB"] == 0x0000C0]
        styles = normal_form.NormalForm(self.town)
        blue = normal_form.NormalForm(self.town, normal_form.solid_fills(MAP))
        expected = sum(a != b for a, b in zip(styles.shapes, blue.shapes)
                       if a[0] != normal_form.DRAW + "g")
        self.assertEqual(sum(row["shapes"] for row in roofs), expected)
        self.assertEqual(len(roofs), 1)
        self.assertIsNone(roofs[0]["new"])
        self.assertEqual(list(rows[0]["fill"])[:3], ["Visible", "ForeColorRGB", "BackColorRGB"])

    def test_the_readable_table_has_one_line_per_row(self):
        done = self.run_program("fills", self.town)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(len(done.stdout.splitlines()), 1 + len(self.listing(self.town)["rows"]))
        self.assertIn("#C00000", done.stdout)

    def test_an_edited_listing_is_a_plan(self):
        plan = self.listing(self.town)
        row = next(row for row in plan["rows"] if row["fill"]["ForeColorRGB"] == 0x0000C0)
        row["new"] = dict(row["fill"], ForeColorRGB=0xC07000)
        bare = next(row for row in plan["rows"] if row["fill"]["Type"] == 3)
        bare["new"] = "none"
        path = self.folder / "plan.json"
        path.write_text(json.dumps(plan), encoding="utf-8")
        output = self.folder / "planned.odt"
        done = self.run_program("recolor", self.town, "-o", output, "--plan", path, "--json")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(json.loads(done.stdout)["changed"], row["shapes"] + bare["shapes"])
        after = {json.dumps(r["fill"]): r["shapes"] for r in self.listing(output)["rows"]}
        self.assertEqual(after[json.dumps(row["new"])], row["shapes"])
        self.assertNotIn(json.dumps(row["fill"]), after)
        self.assertNotIn(json.dumps(bare["fill"]), after)

    def test_each_kind_of_fill_is_read_back_from_the_stored_document(self):
        kinds = [
            {"Visible": -1, "Type": 2, "Pattern": 14, "ForeColorRGB": 255, "BackColorRGB": 65535},
            {"Visible": -1, "Type": 3, "GradientColorType": 1, "GradientStyle": 1,
             "GradientVariant": 2, "GradientDegree": 0.25, "ForeColorRGB": 0x336699},
            {"Visible": -1, "Type": 3, "GradientColorType": 2, "GradientStyle": 4,
             "GradientVariant": 3, "ForeColorRGB": 0x336699, "BackColorRGB": 0x99CC},
            {"Visible": -1, "Type": 3, "GradientColorType": 3, "GradientStyle": 2,
             "GradientVariant": 1, "PresetGradientType": 7},
            {"Visible": -1, "Type": 4, "TextureType": 1, "PresetTexture": 12},
            {"Visible": -1, "Type": 1, "ForeColorRGB": 0x010203, "Transparency": 0.375},
        ]
        rows = [row for row in self.listing(self.town)["rows"] if row["fill"]["Visible"] == -1]
        arguments = []
        for row, kind in zip(rows, kinds):
            arguments += ["--row", f"{row['row']}={json.dumps(kind)}"]
        output = self.folder / "kinds.odt"
        done = self.run_program("recolor", self.town, "-o", output, *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        after = self.listing(output)["rows"]
        for row, kind in zip(rows, kinds):
            matching = [r for r in after if kind.items() <= r["fill"].items()]
            self.assertEqual([r["shapes"] for r in matching], [row["shapes"]], kind)


class Passwords(OnDocuments):
    """Encrypted documents are opened with their password, and what is written has it, too."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.odt, cls.docx = cls.folder / "secret.odt", cls.folder / "secret.docx"
        with PrivateOffice() as office:
            document = office.load(cls.town)
            document.storeToURL(file_url(cls.odt),
                                properties(FilterName="writer8", Password="heslo"))
            encryption = tuple(NamedValue(*each) for each in (("CryptoType", "Standard"),
                                                              ("OOXPassword", "heslo")))
            document.storeToURL(file_url(cls.docx), properties(
                FilterName=FILTERS[".docx"],
                EncryptionData=uno.Any("[]com.sun.star.beans.NamedValue", encryption)))
            document.close(True)
        cls.password = cls.folder / "password"
        cls.password.write_text("heslo\n")
        cls.wrong = cls.folder / "wrong"
        cls.wrong.write_text("jiné")

    def run_without_an_office(self, *arguments):
        return subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True,
                              env=dict(self.environment, HUEBRUSH_OFFICE="/nowhere"))

    def test_without_it_nothing_is_opened(self):
        self.assert_refused("is protected by a password", "fills", self.odt)
        for document in (self.odt, self.docx):
            done = self.run_without_an_office("fills", document)
            self.assertEqual((done.returncode, done.stderr),
                             (1, f"huebrush: {document} is protected by a password\n"))

    def test_another_one_is_refused(self):
        done = self.run_program("fills", self.odt, self.docx, "--password-file", self.wrong)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr.splitlines(),
                         [f"huebrush: {document} is protected by another password"
                          for document in (self.odt, self.docx)])

    def test_a_file_without_one(self):
        empty = self.folder / "empty"
        empty.write_text("\n")
        self.assert_refused("holds no password", "fills", self.odt, "--password-file", empty)
        self.assert_refused("does not exist", "fills", self.odt, "--password-file",
                            self.folder / "none")

    def test_what_is_written_has_it(self):
        results = self.folder / "results"
        done = self.run_program("recolor", self.odt, self.docx, "--output-dir", results, "--map",
                                f"{ROOFS}={BLUE}", "--password-file", self.password)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        written = (results / self.odt.name, results / self.docx.name)
        for document in written:
            done = self.run_without_an_office("fills", document)
            self.assertIn("is protected by a password", done.stderr)
        listed = self.run_program("fills", *written, "--password-file", self.password, "--json")
        for document in json.loads(listed.stdout)["documents"]:
            self.assertIn(0xC07000, [row["fill"]["ForeColorRGB"] for row in document["rows"]])

    def test_a_format_that_cannot_have_one(self):
        output = self.folder / "new.doc"
        self.assert_refused("cannot store a .doc file with a password", "recolor", self.odt, "-o",
                            output, "--map", f"{ROOFS}={BLUE}", "--password-file", self.password)
        self.assertFalse(output.exists())

    def test_documents_without_one_are_not_given_one(self):
        output = self.folder / "open.odt"
        done = subprocess.run([PROGRAM, "recolor", self.town, "-o", output, "--map",
                               f"{ROOFS}={BLUE}", "--password-file", self.password],
                              capture_output=True, text=True, env=self.environment)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(huebrush("fills", output, env=self.environment).returncode, 0)


class ManyDocuments(OnDocuments):
    """A call over many documents has one office for those that need one."""

    def test_one_office_does_all(self):
        documents = self.folder / "documents"
        documents.mkdir()
        with PrivateOffice() as office:
            office.convert(self.town, documents / "a.doc")
        shutil.copy(documents / "a.doc", documents / "c.doc")
        shutil.copy(self.town, documents / "d.odt")
        (documents / "b.doc").write_bytes(b"PK\x03\x04 and nothing else")
        starts = self.folder / "starts"
        office = self.folder / "office"
        office.write_text(f"#!/bin/sh\necho started >>'{starts}'\nexec "
                          f"'{shutil.which('soffice')}' \"$@\"\n")
        office.chmod(0o755)
        results = self.folder / "results"
        done = subprocess.run(
            [PROGRAM, "recolor", "-r", documents, "--output-dir", results, "--map",
             f"{ROOFS}={BLUE}"], capture_output=True, text=True, timeout=LIMIT,
            env=dict(self.environment, HUEBRUSH_OFFICE=str(office)))
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr.splitlines(),
                         [f"huebrush: LibreOffice cannot open the document {documents}/b.doc"])
        self.assertEqual(done.stdout.splitlines(), [
            *(f"{documents}/{name}: 14 of 428 shapes recoloured; wrote {results}/{name}"
              for name in ("a.doc", "c.doc", "d.odt")), "3 documents done, 1 failed"])
        self.assertEqual(starts.read_text(), "started\n")
        self.assert_nothing_left()
        self.assertEqual(sorted(each.name for each in results.iterdir()),
                         ["a.doc", "c.doc", "d.odt"])
        for name in ("a.doc", "c.doc"):
            self.assertIn(BLUE.upper(), self.run_program("fills", results / name).stdout)

    def test_a_dry_run_through_the_office_writes_nothing(self):
        before = sorted(each.name for each in self.folder.iterdir())
        done = self.run_program("recolor", self.town, "--dry-run", "--map", f"{ROOFS}={BLUE}")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("14 of 428 shapes would be recoloured", done.stdout)
        self.assertEqual(sorted(each.name for each in self.folder.iterdir()), before)
        self.assert_nothing_left()

    def test_what_the_maps_change_is_the_same_as_without_an_office(self):
        more = ("--map", "#C10101=#0070C0", "--tolerance", "1", "--map", "#4C7A3A=#112233",
                "--map", "#F0C75E=#445566", "--also", "gradients,patterns,lines",
                "--map", "#5A4636=#0000C0", "--map", "#010203=#445566", "--ignore-missing")
        by_office = self.run_program("recolor", self.town, "--dry-run", "--json", *more)
        self.assertEqual(by_office.returncode, 0, by_office.stderr)
        alone = subprocess.run([PROGRAM, "recolor", self.town, "--dry-run", "--json", *more],
                               capture_output=True, text=True)
        by_office, alone = json.loads(by_office.stdout), json.loads(alone.stdout)
        for what in ("changed", "lines"):
            self.assertEqual(by_office[what], alone[what])
        self.assertGreater(alone["changed"], 14)
        self.assertEqual(alone["lines"], 108)
        for each in (by_office, alone):
            self.assertEqual(each["stored"]["linesConfirmed"], 108)


class BadInput(OnDocuments):
    def test_a_missing_file(self):
        self.assert_refused("does not exist", "fills", self.folder / "none.odt")

    def test_a_folder(self):
        self.assert_refused("is a folder", "fills", self.folder)

    def test_what_is_not_a_document(self):
        for name, data in {"noise.docx": bytes(range(256)) * 20, "words.odt": b"hello\n",
                           "empty.odt": b"", "cut.odt": self.town.read_bytes()[:20000]}.items():
            path = self.folder / name
            path.write_bytes(data)
            with self.subTest(name):
                self.assert_refused("document", "fills", path)

    def test_an_encrypted_package_of_word(self):
        path = self.folder / "secret.docx"
        # A compound file: its header says that the list of parts is its first sector.
        header = bytearray(512)
        header[:8] = b"\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1"
        header[30] = 9
        parts = b"".join(name.encode("utf-16-le").ljust(128, b"\0")
                         for name in ("Root Entry", "EncryptionInfo", "EncryptedPackage", ""))
        path.write_bytes(header + parts + bytes(4096))
        self.assert_refused_without_an_office("password", "fills", path)

    def assert_refused_without_an_office(self, words, *arguments):
        """As with an office, which is not looked for before."""
        done = huebrush(*arguments, env=dict(self.environment, HUEBRUSH_OFFICE="/nowhere/soffice"))
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn(words, done.stderr)
        self.assert_refused(words, *arguments)

    def test_what_does_not_begin_like_a_document(self):
        for data in (b"hello\n", b"", bytes(range(256)), b"%PDF-1.4", b"\x89PNG"):
            path = self.folder / "unlike.odt"
            path.write_bytes(data)
            self.assert_refused_without_an_office("is not a document", "fills", path)

    def test_an_output_of_an_unknown_format(self):
        for name in ("x.pdf", "x.txt", "x.rtf", "x.odt~", "x."):
            output = self.folder / name
            self.assert_refused_without_an_office("the name must end in one of .odt", "recolor",
                                                  self.town, "-o", output, "--map",
                                                  f"{ROOFS}={BLUE}")
            self.assertFalse(output.exists())

    def test_a_document_without_shapes(self):
        path = self.folder / "bare.odt"
        with PrivateOffice() as office:
            document = office.desktop.loadComponentFromURL(
                "private:factory/swriter", "_blank", 0, properties(Hidden=True))
            document.Text.String = "Bez tvarů"
            office.store(document, path)
            document.close(True)
        done = self.run_program("fills", path)
        self.assertEqual((done.returncode, done.stdout, done.stderr),
                         (0, "no drawing shapes\n", ""))
        output = self.folder / "bare-out.odt"
        self.assert_refused("no solid fill in the document has the colour", "recolor", path, "-o",
                            output, "--map", f"{ROOFS}={BLUE}")
        self.assertFalse(output.exists())

    def test_an_output_that_cannot_be_written(self):
        mapping = ("--map", f"{ROOFS}={BLUE}")
        self.assert_refused("cannot write", "recolor", self.town, "-o",
                            self.folder / "no" / "x.odt", *mapping)
        output = self.folder / "open-for-writing.odt"
        output.write_text("mine")
        with output.open("r+"):
            self.assert_refused("another program", "recolor", self.town, "-o", output, *mapping)
        self.assertEqual(output.read_text(), "mine")

    def test_an_output_that_is_not_a_regular_file(self):
        pipe = self.folder / "pipe.odt"
        os.mkfifo(pipe)
        listener = socket.socket(socket.AF_UNIX)
        self.addCleanup(listener.close)
        listener.bind(str(self.folder / "socket.odt"))
        device = self.folder / "device.odt"
        device.symlink_to("/dev/null")
        for output in (self.folder, pipe, self.folder / "socket.odt", device):
            before = output.stat()
            self.assert_refused("is not a regular file", "recolor", self.town, "-o", output,
                                "--map", f"{ROOFS}={BLUE}")
            self.assertEqual((output.stat().st_mode, output.stat().st_ino),
                             (before.st_mode, before.st_ino))

    def test_an_output_that_is_the_document(self):
        self.assert_refused("--in-place", "recolor", self.town, "-o", self.town,
                            "--map", f"{ROOFS}={BLUE}")

    def test_unknown_rows_and_colours(self):
        output = self.folder / "unknown.odt"
        output.write_text("mine")
        self.assert_refused("no row 999", "recolor", self.town, "-o", output, "--row", "999=none")
        self.assert_refused("#010203", "recolor", self.town, "-o", output,
                            "--map", "#010203=#000000")
        self.assertEqual(output.read_text(), "mine")

    def test_malformed_requests(self):
        output = self.folder / "malformed.odt"
        plan = self.folder / "bad.json"
        for text, words in {"{": "JSON", "[]": "no rows", '{"rows":[1]}': "not an object"}.items():
            plan.write_text(text)
            self.assert_refused(words, "recolor", self.town, "-o", output, "--plan", plan)
        self.assert_refused("colour", "recolor", self.town, "-o", output, "--map", "red=blue")
        self.assertFalse(output.exists())

    def test_a_plan_for_another_document(self):
        done = self.run_program("fills", self.town, "--json")
        plan = json.loads(done.stdout)
        plan["rows"][0]["fill"]["ForeColorRGB"] ^= 1
        plan["rows"][0]["new"] = "#123456"
        path = self.folder / "foreign.json"
        path.write_text(json.dumps(plan))
        output = self.folder / "foreign.odt"
        self.assert_refused("another document", "recolor", self.town, "-o", output, "--plan", path)
        self.assertFalse(output.exists())

    def test_a_missing_office(self):
        environment = dict(self.environment, HUEBRUSH_OFFICE="/nowhere/soffice")
        done = huebrush("fills", self.town, env=environment)
        self.assertEqual(done.returncode, 1)
        self.assertIn("/nowhere/soffice", done.stderr)
        environment = dict(self.environment, PATH=str(self.folder))
        environment["HUEBRUSH_OFFICE"] = str(self.folder)
        self.assertEqual(huebrush("fills", self.town, env=environment).returncode, 1)
        self.assert_nothing_left()

    def test_one_shape_too_many(self):
        path = self.folder / "many.fodt"
        subprocess.run([sys.executable, str(ROOT / "bench" / "make_document.py"), str(path),
                        "--shapes", "32768", "--fills", "8"], check=True)
        output = self.folder / "many-out.odt"
        self.assert_refused("32767", "recolor", path, "-o", output, "--row", "1=none")
        self.assertFalse(output.exists())


class Interruption(OnDocuments):
    """Whatever ends the work early, nothing is left behind and nothing is lost."""

    def start(self, output):
        return subprocess.Popen(
            [PROGRAM, "recolor", "--through", "office", str(self.town), "-o", str(output),
             "--map", f"{ROOFS}={BLUE}"],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
            env=self.environment)

    def office_processes(self):
        return processes_mentioning(str(self.temporary), "soffice.bin")

    def test_control_c(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            output = self.folder / "interrupted.odt"
            output.write_text("mine")
            program = self.start(output)
            wait_until(self.office_processes)
            program.send_signal(number)
            _, errors = program.communicate(timeout=LIMIT)
            self.assertEqual(program.returncode, 130)
            self.assertEqual(len(errors.strip().splitlines()), 1)
            self.assertEqual(output.read_text(), "mine")
            self.assert_nothing_left()
            self.assertEqual(list(self.temporary.iterdir()), [])

    def test_killed_at_any_instant(self):
        """None of its processes and files are left, and that within five seconds when nothing else
        keeps the machine busy."""
        instants = random.Random(20)
        is_long = "HUEBRUSH_LONG" in os.environ
        output = self.folder / "killed.odt"
        output.write_text("mine")
        names = {path.name for path in self.folder.iterdir()}
        every_day = 8
        seen = {"folder": 0, "office": 0}
        for number in range(50 if is_long else every_day):
            program = self.start(output)
            # Nothing is waited for: the sleep is the instant.
            time.sleep(instants.uniform(0, 2.5) if number else 2)
            seen["folder"] += bool(list(self.temporary.iterdir()))
            seen["office"] += bool(self.office_processes())
            sockets = [socket_of(folder) for folder in self.temporary.iterdir()]
            program.kill()
            program.communicate(timeout=LIMIT)
            wait_until(lambda: not processes_mentioning(str(self.folder)), 5 if is_long else LIMIT)
            self.assert_nothing_left()
            self.assertEqual(list(self.temporary.iterdir()), [])
            self.assertEqual([path for path in sockets if path.exists()], [])
            self.assertEqual({path.name for path in self.folder.iterdir()}, names)
            if output.read_bytes()[:2] == b"PK":
                output.write_text("mine")
            self.assertEqual(output.read_text(), "mine")
        # The instants are spread over the program's work.
        self.assertGreater(seen["folder"], 0)
        self.assertGreater(seen["office"], 0)

    def test_the_office_dies(self):
        output = self.folder / "died.odt"
        # On a busy machine its work may be done before it is killed: then once more.
        for _ in range(10):
            program = self.start(output)
            wait_until(self.office_processes)
            for pid in self.office_processes():
                with contextlib.suppress(ProcessLookupError):
                    os.kill(pid, signal.SIGKILL)
            _, errors = program.communicate(timeout=LIMIT)
            self.assert_nothing_left()
            if program.returncode != 0:
                break
            output.unlink()
        self.assertEqual(program.returncode, 1)
        self.assertIn("LibreOffice exited before the work was done", errors)
        self.assertFalse(output.exists())


if __name__ == "__main__":
    unittest.main(verbosity=2)
