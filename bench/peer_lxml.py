#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""What a careful script does with lxml: lists the solid fills of the shapes in a .docx or .odt, or
gives all shapes of one colour another.

    bench/peer_lxml.py fills DOCUMENT
    bench/peer_lxml.py recolor DOCUMENT OUTPUT RRGGBB RRGGBB

Each part is parsed as a whole tree and written as one; the package is written anew. It knows
nothing of themes, gradients, patterns, pictures, transparency, groups or page styles.
"""

import sys
import zipfile
from collections import Counter

from lxml import etree

A = "{http://schemas.openxmlformats.org/drawingml/2006/main}"
WPS = "{http://schemas.microsoft.com/office/word/2010/wordprocessingShape}"
V = "{urn:schemas-microsoft-com:vml}"
DRAW = "{urn:oasis:names:tc:opendocument:xmlns:drawing:1.0}"
STYLE = "{urn:oasis:names:tc:opendocument:xmlns:style:1.0}"
KINDS = ("rect", "custom-shape", "ellipse", "path", "polygon", "circle", "frame")


def word_colors(tree):
    """The elements that hold a shape's colour, and the attribute."""
    for shape in tree.iter(WPS + "spPr"):
        color = shape.find(f"{A}solidFill/{A}srgbClr")
        if color is not None:
            yield color, "val"


def word_twins(tree):
    for shape in tree.iter(V + "rect", V + "shape", V + "oval"):
        if shape.get("fillcolor"):
            yield shape


def odf_styles(tree):
    """The graphic properties of each automatic style, by its name."""
    return {style.get(STYLE + "name"): style.find(STYLE + "graphic-properties")
            for style in tree.iter(STYLE + "style") if style.get(STYLE + "family") == "graphic"}


def odf_fills(tree):
    styles = odf_styles(tree)
    count = Counter()
    for shape in tree.iter(*(DRAW + kind for kind in KINDS)):
        properties = styles.get(shape.get(DRAW + "style-name"))
        if properties is not None and properties.get(DRAW + "fill") == "solid":
            count[properties.get(DRAW + "fill-color", "").lstrip("#").upper()] += 1
    return count


def recolor_word(tree, old, new):
    for element, attribute in word_colors(tree):
        if element.get(attribute).upper() == old:
            element.set(attribute, new)
    for shape in word_twins(tree):
        if shape.get("fillcolor").lstrip("#").upper() == old:
            shape.set("fillcolor", "#" + new)


def recolor_odf(tree, old, new):
    for properties in odf_styles(tree).values():
        if properties is not None and properties.get(DRAW + "fill-color", "").upper() == "#" + old:
            properties.set(DRAW + "fill-color", "#" + new)


def main():
    command, source, *more = sys.argv[1:]
    is_word = source.endswith(".docx")
    part = "word/document.xml" if is_word else "content.xml"
    with zipfile.ZipFile(source) as package:
        tree = etree.fromstring(package.read(part), etree.XMLParser(huge_tree=True))
        if command == "fills":
            count = (Counter(element.get(name).upper() for element, name in word_colors(tree))
                     if is_word else odf_fills(tree))
            for color, shapes in count.most_common():
                print(f"#{color} {shapes}")
            return
        output, old, new = more
        (recolor_word if is_word else recolor_odf)(tree, old, new)
        with zipfile.ZipFile(output, "w", zipfile.ZIP_DEFLATED, compresslevel=6) as written:
            for entry in package.infolist():
                content = (etree.tostring(tree, xml_declaration=True, encoding="UTF-8",
                                          standalone=True)
                           if entry.filename == part else package.read(entry))
                written.writestr(entry, content, entry.compress_type, 6)


if __name__ == "__main__":
    main()
