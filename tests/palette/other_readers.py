# SPDX-License-Identifier: MPL-2.0
"""What tests with other readers of palette files share: a file as mdbtools and the npm package
mdb-reader read it, compared with our own dump."""

import base64
import json
import os
import re

from mdbtools import NULL, export, output_of
from program import OnPaletteFiles

NODE_FOLDER = os.environ["HUEBRUSH_READERS"]
LONG, TEXT, OLE = "long", "text", "ole"
# Each column with its type, its size in characters, and whether a value is required.
COLUMNS = {
    "TFillGroup": [("ID", LONG, None, False), ("Name", TEXT, 30, True),
                   ("Description", TEXT, 255, False), ("Count", LONG, None, False)],
    "TFillElementParameter":
        [("ID", LONG, None, False)] +
        [(name, LONG, None, True) for name in
         ("GroupID", "OrderNumber", "Visible", "ForeColorRGB", "BackColorRGB", "Transparency",
          "GradientStyle", "GradientColorType", "GradientVariant", "GradientDegree",
          "PresetGradientType", "TextureType", "Type", "PresetTexture")] +
        [("TextureName", TEXT, 255, False), ("Pattern", LONG, None, True),
         ("PictureName", TEXT, 255, False), ("FillPreview", OLE, None, False)],
}
SCHEMA_TYPES = {LONG: "Long Integer", TEXT: "Text", OLE: "OLE"}


def exported_text(value, column):
    """How mdb-export prints a value: empty texts and bytes as null, and what takes two units of
    UTF-16 as two question marks."""
    if value is None or value == "":
        return {NULL, ""} if value == "" else {NULL}
    if column == "FillPreview":
        return {base64.b64decode(value).hex().upper()}
    return {re.sub("[\U00010000-\U0010FFFF]", "??", str(value))}


class OnOtherReaders(OnPaletteFiles):
    def tables(self):
        """All rows of both tables, by the order of the columns, from our own dump."""
        groups, elements = [], []
        for each in self.dump():
            fills = each.pop("elements")
            groups.append(list(each.values()))
            elements += [list(fill.values()) for fill in fills]
        return {"TFillGroup": sorted(groups, key=lambda row: row[0]),
                "TFillElementParameter": sorted(elements, key=lambda row: row[0])}

    def assert_read_alike(self, wasteful=False):
        """Sound, and the same to all readers. Other programs may have left unused space in it."""
        if wasteful:
            self.run_program("check", self.file)
        else:
            self.assert_clean()
        tables = self.tables()
        self.compare_with_mdbtools(tables)
        self.compare_with_mdb_reader(tables)
        return tables

    def compare_with_mdbtools(self, tables):
        self.assertEqual(set(output_of("mdb-tables", "-1", self.file).split()), set(tables))
        schema = output_of("mdb-schema", self.file, "access")
        for name, rows in tables.items():
            self.assertEqual(self.schema_columns(schema, name), COLUMNS[name])
            header, *printed = export(self.file, name)
            names = [column for column, *_ in COLUMNS[name]]
            self.assertEqual(header, names)
            self.assertEqual(len(printed), len(rows))
            printed.sort(key=lambda row: int(row[0]))
            for ours, theirs in zip(rows, printed):
                for column, value, text in zip(names, ours, theirs):
                    # A whole preview would make the message endless.
                    self.assertTrue(text in exported_text(value, column),
                                    f"{name}.{column}, ID {ours[0]}: {text[:200]}")
        self.assert_keys(output_of("mdb-schema", self.file, "postgres").lower())

    def schema_columns(self, schema, table):
        body = re.search(rf"CREATE TABLE \[{table}\]\s*\((.*?)\n\);", schema, re.DOTALL).group(1)
        found = []
        for line in body.strip().splitlines():
            match = re.fullmatch(
                r"\s*\[(\w+)\]\s+([A-Za-z ]+?)(?: \((\d+)\))?( NOT NULL)?,? *", line)
            name, type_name, size, required = match.groups()
            kind = next(key for key, value in SCHEMA_TYPES.items() if value == type_name)
            size = int(size) if size and kind == TEXT else None
            found.append((name, kind, size, required is not None))
        return found

    def assert_keys(self, schema):
        for table in map(str.lower, COLUMNS):
            self.assertRegex(schema, rf'alter table "{table}" add constraint "\w+" '
                                     r'primary key \("id"\)')
        relations = [line for line in schema.splitlines() if "foreign key" in line]
        self.assertEqual(len(relations), 1, relations)
        self.assertRegex(relations[0], r'alter table "tfillelementparameter" add constraint "\w+" '
                                       r'foreign key \("groupid"\) references "tfillgroup"\("id"\)')
        self.assertNotIn("cascade", relations[0])

    def compare_with_mdb_reader(self, tables):
        read = json.loads(output_of("node", os.path.join(NODE_FOLDER, "read.mjs"), self.file))
        self.assertEqual({table["name"] for table in read["tables"]}, set(tables))
        for table in read["tables"]:
            name, rows = table["name"], tables[table["name"]]
            columns = [(c["name"], c["type"], c["size"] // 2 if c["type"] == TEXT else None)
                       for c in table["columns"]]
            self.assertEqual(columns, [column[:3] for column in COLUMNS[name]])
            self.assertEqual([c["name"] for c in table["columns"] if c["autoLong"]], ["ID"])
            self.assertEqual(table["rowCount"], len(rows))
            theirs = sorted(table["rows"], key=lambda row: row[0])
            self.assertEqual(len(theirs), len(rows))
            for ours, other in zip(rows, theirs):
                for (column, *_), value, text in zip(COLUMNS[name], ours, other):
                    self.assertTrue(value == text, f"{name}.{column}, ID {ours[0]}: "
                                                   f"{str(value)[:100]} and {str(text)[:100]}")
        # Each object of the catalogue, as the other two readers have it.
        printed = export(self.file, "MSysObjects")
        places = [printed[0].index(name) for name in ("Id", "ParentId", "Name", "Type", "Flags")]
        self.assertEqual(
            sorted([str(value) for value in each.values()] for each in read["objects"]),
            sorted([row[place] for place in places] for row in printed[1:]))
