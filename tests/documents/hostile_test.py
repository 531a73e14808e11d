# SPDX-License-Identifier: MPL-2.0
"""Documents that are damaged or made to do harm, without an office: each is refused in one line,
and nothing is written; what looks odd and is not is read."""

import io
import json
import os
import resource
import shutil
import subprocess
import tempfile
import unittest
import warnings
import zipfile
from pathlib import Path

PROGRAM = os.environ["HUEBRUSH_PROGRAM"]
EXAMPLES = Path(os.environ["HUEBRUSH_EXAMPLES"])
LIMIT = 120
# Enough for the program and the largest part that it takes; the sanitizers ask for much more.
MEMORY = int(os.environ.get("HUEBRUSH_MEMORY_LIMIT", 2 << 30))
NAMESPACE = "urn:oasis:names:tc:opendocument:xmlns:"
SIGNED = "is signed: any change would make its signature invalid"


def limit_memory():
    if MEMORY:
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))


def huebrush(*arguments):
    return subprocess.run([PROGRAM, *map(str, arguments)], stdin=subprocess.DEVNULL, text=True,
                          capture_output=True, timeout=LIMIT, preexec_fn=limit_memory)


def entries_of(document):
    with zipfile.ZipFile(document) as package:
        return [(each.filename, package.read(each)) for each in package.infolist()]


def package_of(entries):
    """A package with these entries, of which several may have the same name."""
    out = io.BytesIO()
    with warnings.catch_warnings(), zipfile.ZipFile(out, "w", zipfile.ZIP_DEFLATED) as package:
        warnings.simplefilter("ignore")
        for name, content in entries:
            package.writestr(zipfile.ZipInfo(name), content, zipfile.ZIP_DEFLATED)
    return out.getvalue()


class Document:
    """A format by its example; the tests are those of the classes below."""

    example = None
    main = None  # the part with the shapes
    root = None  # the start tag of one
    signature = None
    body = None  # the end of the tags of its body
    prefixes = None  # and others to have instead
    namespaces = None  # that of the shapes, and one that nobody knows

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="huebrush-hostile-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.file = self.folder / f"document{Path(self.example).suffix}"
        self.bytes = (EXAMPLES / self.example).read_bytes()
        self.entries = entries_of(EXAMPLES / self.example)

    def content(self, name):
        return dict(self.entries)[name]

    def replaced(self, name, content):
        return package_of([(each, content if each == name else former)
                           for each, former in self.entries])

    def assert_refused(self, content, words):
        self.file.write_bytes(content)
        commands = (("fills", self.file, "--through", "documents"),
                    ("recolor", self.file, "-o", self.folder / f"new{self.file.suffix}",
                     "--row", "1=#123456", "--through", "documents"),
                    ("recolor", self.file, "--in-place", "--row", "1=#123456",
                     "--through", "documents"))
        for command in commands:
            done = huebrush(*command)
            self.assertEqual(done.returncode, 1, (command, done.stdout, done.stderr))
            self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
            self.assertIn(self.file.name, done.stderr)
            self.assertIn(words, done.stderr)
            self.assertEqual(done.stdout, "")
            self.assertEqual([each.name for each in self.folder.iterdir()], [self.file.name])
            self.assertEqual(self.file.read_bytes(), content)

    def rows(self, content):
        self.file.write_bytes(content)
        done = huebrush("fills", self.file, "--through", "documents")
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout.replace(str(self.file), "")


class Packages:
    def test_one_that_is_cut_off_anywhere(self):
        folder = self.folder / "cut"
        folder.mkdir()
        sizes = range(0, len(self.bytes), 64)
        for size in sizes:
            (folder / f"{size:06}{self.file.suffix}").write_bytes(self.bytes[:size])
        done = huebrush("fills", "--recursive", folder, "--json", "--jobs", 1,
                        "--through", "documents")
        self.assertEqual(done.returncode, 1, done.stderr)
        results = json.loads(done.stdout)["documents"]
        self.assertEqual(len(results), len(sizes))
        for result in results:
            self.assertEqual(result.keys(), {"document", "error"})
            self.assertEqual(len(result["error"].splitlines()), 1, result)
            self.assertIn(Path(result["document"]).name, result["error"])
        shutil.rmtree(folder)
        # The same by the command that writes.
        for size in (0, 1, 64, len(self.bytes) // 2, len(self.bytes) - 1):
            self.assert_refused(self.bytes[:size], self.file.name)

    def test_names_that_are_there_twice(self):
        for name in (self.main, self.entries[1][0]):
            self.assert_refused(package_of([*self.entries, (name, b"<a/>")]), "is damaged: ")

    def test_an_encrypted_entry(self):
        damaged = bytearray(self.bytes)
        damaged[damaged.index(b"PK\3\4") + 6] |= 1
        damaged[damaged.index(b"PK\1\2") + 8] |= 1
        self.assert_refused(bytes(damaged), "is protected by a password")

    def test_an_unknown_method(self):
        damaged = bytearray(self.bytes)
        damaged[damaged.index(b"PK\3\4") + 8] = 12
        damaged[damaged.index(b"PK\1\2") + 10] = 12
        self.assert_refused(bytes(damaged), "is compressed in an unknown way")

    def test_a_part_that_grows_beyond_reason(self):
        bomb = self.root + b" " * (200 << 20)
        self.assert_refused(self.replaced(self.main, bomb), "beyond reason")

    def test_a_part_that_is_too_large(self):
        bomb = self.root + b" " * (257 << 20)
        self.assert_refused(self.replaced(self.main, bomb), "more than 256 MB")

    def test_a_size_that_is_a_lie(self):
        damaged = bytearray(self.bytes)
        name = damaged.rindex(self.main.encode())
        record = damaged.rindex(b"PK\1\2", 0, name)
        for size, words in ((1, "is damaged: "), (500_000, "is damaged: "),
                            (100 << 20, "beyond reason"), (300 << 20, "more than 256 MB")):
            damaged[record + 24:record + 28] = size.to_bytes(4, "little")
            self.assert_refused(bytes(damaged), words)

    def test_names_that_lead_out_of_the_package_are_only_names(self):
        outside = self.folder.parent / "huebrush-outside.xml"
        odd = [*self.entries, (f"../{outside.name}", b"<a/>"), ("/etc/huebrush", b"<a/>")]
        self.assertEqual(self.rows(package_of(odd)), self.rows(self.bytes))
        self.assertFalse(outside.exists())


class Parts:
    def test_a_million_nested_elements(self):
        deep = self.root + b"<a>" * 10**6 + b"</a>" * 10**6
        # Stored, so that only the depth is unusual.
        out = io.BytesIO()
        with zipfile.ZipFile(out, "w") as package:
            for name, content in self.entries:
                package.writestr(zipfile.ZipInfo(name), deep if name == self.main else content)
        self.assert_refused(out.getvalue(), f"is damaged: {self.main} ")

    def test_a_document_type(self):
        tag = self.root.split()[0]
        with_entities = self.content(self.main).replace(
            tag, b"<!DOCTYPE a [<!ENTITY b 'bb'>]>" + tag, 1)
        self.assert_refused(self.replaced(self.main, with_entities), f"{self.main} ")

    def test_an_encoding_of_two_bytes_a_character(self):
        text = self.content(self.main).decode().replace('encoding="UTF-8"', 'encoding="UTF-16"', 1)
        for encoding in ("utf-16", "utf-16-le", "utf-16-be"):
            self.assert_refused(self.replaced(self.main, text.encode(encoding)), f"{self.main} ")

    def test_what_is_not_well_formed(self):
        good = self.content(self.main)
        body = self.body
        for content in (b"", b"no XML", good[:-20], good.replace(b"</" + body, b"</x" + body, 1),
                        good.replace(b"<" + body, b"<undeclared:body", 1), good + b"<a/>",
                        good.replace(b"<" + body, b"<" + body + b" \x00='1'", 1)):
            self.assert_refused(self.replaced(self.main, content), f"is damaged: {self.main} ")

    def test_prefixes_are_only_names(self):
        renamed = self.content(self.main).decode()
        for prefix, other in self.prefixes:
            self.assertIn(f" xmlns:{prefix}=", renamed)
            self.assertFalse(f" xmlns:{other}=" in renamed)
            renamed = (renamed.replace(f"xmlns:{prefix}=", f"xmlns:{other}=")
                       .replace(f"<{prefix}:", f"<{other}:").replace(f"</{prefix}:", f"</{other}:")
                       .replace(f' {prefix}:', f' {other}:')
                       .replace(f'Requires="{prefix}"', f'Requires="{other}"'))
        changed = self.replaced(self.main, renamed.encode())
        self.assertEqual(self.rows(changed), self.rows(self.bytes))

    def test_another_namespace_has_no_shapes(self):
        known, other = self.namespaces
        content = self.content(self.main)
        self.assertIn(known, content)
        expected = self.rows(self.bytes)
        self.file.write_bytes(self.replaced(self.main, content.replace(known, other)))
        done = huebrush("fills", self.file, "--through", "documents")
        self.assertNotEqual(done.stdout.replace(str(self.file), ""), expected)
        self.assertLessEqual(len(done.stderr.splitlines()), 1, done.stderr)

    def test_a_signed_document_is_listed_and_not_changed(self):
        signed = package_of([*self.entries, (self.signature, b"<a/>")])
        expected = self.rows(self.bytes)
        self.assertEqual(self.rows(signed), expected)
        for target in (("-o", self.folder / f"new{self.file.suffix}"), ("--in-place",)):
            done = huebrush("recolor", self.file, *target, "--row", "1=#123456",
                            "--through", "documents")
            self.assertEqual(done.returncode, 1, done.stderr)
            self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
            self.assertIn(SIGNED, done.stderr)
            self.assertEqual([each.name for each in self.folder.iterdir()], [self.file.name])
            self.assertEqual(self.file.read_bytes(), signed)

    def test_a_signature_is_dropped_on_request(self):
        signed = package_of([*self.entries, (self.signature, b"<a/>")])
        self.file.write_bytes(signed)
        results = []
        for content in (signed, self.bytes):
            self.file.write_bytes(content)
            output = self.folder / f"new{self.file.suffix}"
            done = huebrush("recolor", self.file, "-o", output, "--row", "1=#123456",
                            "--through", "documents", "--drop-signature")
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            results.append(dict(entries_of(output)))
        self.assertEqual(results[0], results[1])


class Word(Document):
    example = "town.docx"
    main = "word/document.xml"
    root = (b"<w:document "
            b"xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/main'>")
    body = b"w:body>"
    prefixes = (("w", "wps2"), ("a", "w3"), ("wps", "a4"))
    namespaces = (b"/word/2010/wordprocessingShape", b"/word/2007/wordprocessingShape")
    signature = "_xmlsignatures/sig1.xml"


class Odf(Document):
    example = "town.odt"
    main = "content.xml"
    root = (b"<office:document-content "
            b"xmlns:office='urn:oasis:names:tc:opendocument:xmlns:office:1.0'>")
    body = b"office:body>"
    prefixes = (("draw", "style2"), ("style", "draw3"), ("svg", "xlink2"))
    namespaces = (b"opendocument:xmlns:drawing:1.0", b"opendocument:xmlns:drawing:9.9")
    signature = "META-INF/documentsignatures.xml"


class PackagesOfWord(Packages, Word, unittest.TestCase):
    def test_a_main_part_outside_the_package(self):
        relations = self.content("_rels/.rels").replace(b"word/document.xml", b"../../etc/passwd")
        self.assert_refused(self.replaced("_rels/.rels", relations), "it has no main part")


class PartsOfWord(Parts, Word, unittest.TestCase):
    pass


class PackagesOfOdf(Packages, Odf, unittest.TestCase):
    def test_an_encrypted_document(self):
        manifest = self.content("META-INF/manifest.xml").replace(
            b"</manifest:manifest>",
            b"<manifest:file-entry manifest:full-path='x' manifest:media-type=''>"
            b"<manifest:encryption-data/></manifest:file-entry></manifest:manifest>")
        self.assertIn(b"encryption-data", manifest)
        self.assert_refused(self.replaced("META-INF/manifest.xml", manifest),
                            "is protected by a password")


class PartsOfOdf(Parts, Odf, unittest.TestCase):
    pass


class StylesOfOdf(Document, unittest.TestCase):
    example = "town.odt"

    def test_a_shape_without_a_style_has_none_that_lacks_a_name(self):
        flat = self.folder / "flat.fodt"
        flat.write_text(f"""<?xml version="1.0"?>
<o:document xmlns:o="{NAMESPACE}office:1.0" xmlns:draw="{NAMESPACE}drawing:1.0"
 xmlns:style="{NAMESPACE}style:1.0" o:mimetype="application/vnd.oasis.opendocument.text">
<o:styles/>
<o:automatic-styles><style:style style:family="graphic"><style:graphic-properties
 draw:fill="solid" draw:fill-color="#ff0000"/></style:style></o:automatic-styles>
<o:body><o:text><draw:rect/></o:text></o:body></o:document>
""")
        done = huebrush("recolor", flat, "--in-place", "--map", "#729FCF=#123456",
                        "--through", "documents")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("#123456", huebrush("fills", flat, "--through", "documents").stdout)


if __name__ == "__main__":
    unittest.main()
