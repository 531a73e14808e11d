# SPDX-License-Identifier: MPL-2.0
"""Documents in a form in which two of them can be compared.

An automatic style is a name for a set of properties, and which name is chance: here every
reference to one is replaced by the properties themselves.
"""

import re
import zipfile
import xml.etree.ElementTree as ET
from pathlib import Path

DRAW = "{urn:oasis:names:tc:opendocument:xmlns:drawing:1.0}"
STYLE = "{urn:oasis:names:tc:opendocument:xmlns:style:1.0}"
SVG = "{urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0}"
OFFICE = "{urn:oasis:names:tc:opendocument:xmlns:office:1.0}"
DRAWINGML = "{http://schemas.openxmlformats.org/drawingml/2006/main}"
WPS = "{http://schemas.microsoft.com/office/word/2010/wordprocessingShape}"

VML = "{urn:schemas-microsoft-com:vml}"

SHAPES = {DRAW + name for name in
          ("custom-shape", "rect", "circle", "ellipse", "polygon", "polyline", "path", "line",
           "regular-polygon", "connector", "caption", "measure", "g", "control", "frame")}
FILL_STYLES = {DRAW + "style-name", DRAW + "text-style-name"}
STYLE_REFERENCES = {DRAW + "style-name", DRAW + "text-style-name",
                    "{urn:oasis:names:tc:opendocument:xmlns:text:1.0}style-name",
                    "{urn:oasis:names:tc:opendocument:xmlns:table:1.0}style-name"}


def content_of(path):
    """The root element of an OpenDocument text's content, packed or flat."""
    path = Path(path)
    if path.suffix == ".fodt":
        return ET.parse(path).getroot()
    with zipfile.ZipFile(path) as package:
        return ET.fromstring(package.read("content.xml"))


def automatic_styles(root):
    section = root.find(OFFICE + "automatic-styles")
    return {} if section is None else {style.get(STYLE + "name"): style for style in section}


def canonical(element):
    attributes = sorted(element.items())
    return (element.tag, tuple(attributes), (element.text or "").strip(),
            tuple(canonical(child) for child in element))


class NormalForm:
    """A body in which style names stand for their properties. `recolour` is applied to the fill
    attributes of each shape's style: what one expects a recolour to have done."""

    def __init__(self, path, recolour=None):
        root = content_of(path)
        self._styles = automatic_styles(root)
        self._recolour = recolour
        self.body = self._element(root.find(OFFICE + "body"))
        self.shapes = [self._element(element) for element in root.find(OFFICE + "body").iter()
                       if element.tag in SHAPES]

    def _element(self, element):
        attributes = tuple(sorted((name, self._value(name, value, element))
                                  for name, value in element.items()))
        return (element.tag, attributes, (element.text or "").strip(),
                (element.tail or "").strip(), tuple(self._element(child) for child in element))

    def _value(self, name, value, owner):
        if name not in STYLE_REFERENCES or value not in self._styles:
            return value
        # Whatever is written of a shape, the office may write the alignment of its text as well.
        if name == DRAW + "text-style-name" and self._recolour is without_fills:
            return ""
        style = self._styles[value]
        # The office writes a shape's fill a second time, into the style of its text.
        is_fill = name in FILL_STYLES and owner.tag in SHAPES
        return self._style(style, is_fill)

    def _style(self, style, is_fill):
        properties = []
        for child in style:
            attributes = dict(child.items())
            if is_fill and self._recolour:
                attributes = self._recolour(attributes)
            if attributes or len(child):
                properties.append((child.tag, tuple(sorted(attributes.items())),
                                   tuple(canonical(inner) for inner in child)))
        attributes = tuple(sorted((name, value) for name, value in style.items()
                                  if name != STYLE + "name"))
        return (attributes, tuple(properties))


def solid_fills(mapping):
    """A recolour of the solid fills in a style's attributes. A style that names no kind of fill has
    the default, which is solid."""
    def recolour(attributes):
        color = attributes.get(DRAW + "fill-color", "").lower()
        if attributes.get(DRAW + "fill", "solid") == "solid" and color in mapping:
            attributes[DRAW + "fill-color"] = mapping[color]
        return attributes
    return recolour


LOEXT = "{urn:org:documentfoundation:names:experimental:office:xmlns:loext:1.0}"
THEME = {LOEXT + name for name in ("fill-theme-color", "fill-color-lum-mod", "fill-color-lum-off")}


def solid_fills_of_their_own(mapping):
    """The same, where what ties a mapped colour to the theme is removed with it."""
    recolour = solid_fills(mapping)

    def cut(attributes):
        before = attributes.get(DRAW + "fill-color")
        attributes = recolour(attributes)
        if attributes.get(DRAW + "fill-color") == before:
            return attributes
        return {name: value for name, value in attributes.items() if name not in THEME}
    return cut


def without_fills(attributes):
    """A recolour that takes all of the fills away, for documents in which they can come from styles
    and defaults as well."""
    return {name: value for name, value in attributes.items()
            if not re.match(r"(fill|opacity)", name.split("}")[1])}


def styles_of(path):
    """The styles, page layouts and master pages of a packed OpenDocument text."""
    with zipfile.ZipFile(path) as package:
        return canonical(ET.fromstring(package.read("styles.xml")))


LENGTH = re.compile(r"(-?[0-9.]+)(in|cm|mm|pt)$")
MILLIMETRES = {"in": 25.4, "cm": 10.0, "mm": 1.0, "pt": 25.4 / 72}
# Loading and storing moves shapes by the rounding between the office's two units of length.
ROUNDING = 0.03
# Attributes with places inside a shape, in 1/100 mm.
PLACES = {DRAW + "enhanced-path", DRAW + "points", SVG + "d", SVG + "viewBox"}
NUMBER = re.compile(r"-?[0-9.]+")


def has_places_alike(a, b):
    """Whether two paths have the same commands, and the same places but for rounding."""
    return NUMBER.sub("0", a) == NUMBER.sub("0", b) and all(
        abs(float(x) - float(y)) <= 100 * ROUNDING
        for x, y in zip(NUMBER.findall(a), NUMBER.findall(b)))


def alike(a, b):
    """Whether two parts of normal forms are equal but for the rounding of lengths."""
    if isinstance(a, tuple) and isinstance(b, tuple):
        if len(a) == 2 and a[0] in PLACES and a[0] == b[0]:
            return has_places_alike(a[1], b[1])
        return len(a) == len(b) and all(alike(x, y) for x, y in zip(a, b))
    if a == b:
        return True
    if not isinstance(a, str) or not isinstance(b, str):
        return False
    lengths = [LENGTH.match(a), LENGTH.match(b)]
    if None in lengths:
        return False
    first, second = (float(m.group(1)) * MILLIMETRES[m.group(2)] for m in lengths)
    return abs(first - second) <= ROUNDING


def complement(color):
    return f"#{0xFFFFFF - int(color[1:], 16):06x}"


# Random numbers that differ each time the office stores.
DRAWN = re.compile(rb'(<w:id w:val=|ObjectID=|<c:(?:axId|crossAx) val=)"[^"]*"')


def docx_part(package, name):
    return DRAWN.sub(rb'\1""', package.read(name))


def docx_body(path, mapping=None, theme=None):
    """The body of a .docx, with the solid fills of its shapes mapped; the count of those. `theme`
    has the colours of the theme by their names."""
    with zipfile.ZipFile(path) as package:
        root = ET.fromstring(docx_part(package, "word/document.xml"))
    mapped = 0
    for properties in root.iter(WPS + "spPr"):
        fill = properties.find(DRAWINGML + "solidFill")
        color = None if fill is None else fill.find(DRAWINGML + "srgbClr")
        key = "" if color is None else "#" + color.get("val").lower()
        scheme = None if fill is None else fill.find(DRAWINGML + "schemeClr")
        if scheme is not None and len(scheme) == 0:
            key = (theme or {}).get(scheme.get("val"), "")
        if mapping and key in mapping:
            if color is None:
                fill.remove(scheme)
                color = ET.SubElement(fill, DRAWINGML + "srgbClr")
            color.set("val", mapping[key][1:])
            mapped += 1
    for shape in root.iter():
        key = (shape.get("fillcolor") or "").lower()
        if mapping and key in mapping:
            shape.set("fillcolor", mapping[key])
            # The office writes the colour's complement as the second one of a solid fill.
            for fill in shape.findall(VML + "fill"):
                if fill.get("color2") == complement(key):
                    fill.set("color2", complement(mapping[key]))
    return canonical(root), mapped


FILLS = {DRAWINGML + kind + "Fill" for kind in ("no", "solid", "grad", "blip", "patt")}


def docx_body_without_fills(path):
    """The body of a .docx without what it says of the fills of shapes."""
    with zipfile.ZipFile(path) as package:
        root = ET.fromstring(docx_part(package, "word/document.xml"))
    for properties in root.iter(WPS + "spPr"):
        for fill in [child for child in properties if child.tag in FILLS]:
            properties.remove(fill)
    for shape in root.iter():
        for name in ("fillcolor", "filled"):
            shape.attrib.pop(name, None)
        for fill in shape.findall(VML + "fill"):
            shape.remove(fill)
    return canonical(root)


def docx_other_parts(path):
    """The other parts of a .docx, without what says when and by whom it was changed, and how
    often."""
    with zipfile.ZipFile(path) as package:
        parts = {name: docx_part(package, name) for name in package.namelist()
                 if name != "word/document.xml"}
    for name, data in parts.items():
        if name.startswith("docProps/"):
            # Newer offices leave the time out where nothing was changed.
            parts[name] = re.sub(rb"<(dcterms:modified|cp:revision|cp:lastModifiedBy|TotalTime)\b"
                                 rb"([^>]*/>|[^>]*>[^<]*</\1>)", b"", data)
    return parts
