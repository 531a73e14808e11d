# SPDX-License-Identifier: MPL-2.0
"""The parts of documents as bytes, for tests of what has changed in them."""

import re
import zipfile
from xml.etree import ElementTree

# What may stand in other bytes of a part: what a fill is made of, and names of styles.
FILL_WORDS = re.compile(rb"(?i:fill|opacity|style|pict|gradient|clr|pattern|blip|bmp|color)|"
                        rb"a:(gs|lin|tile|srcRect|stretch|alpha|lum|tint|shade|sat|hue)|"
                        rb"Relationship|gfxdata|Default")


def parts_of(document):
    if document.suffix == ".fodt":
        return {"": document.read_bytes()}
    with zipfile.ZipFile(document) as package:
        return {name: package.read(name) for name in package.namelist()}


def tags(part):
    """The start tags and texts of a part, without blanks between them."""
    found = re.findall(rb"<[^>]*>|[^<]+", part)
    return [re.sub(rb"\s*/>$", b">", each) for each in found
            if each.strip() and not each.startswith(b"</")]


def rest_without(part, pattern):
    """The tags that say nothing of fills."""
    return [tag for tag in tags(part) if not pattern.search(tag)]


# The children of what a fill is in, and of what it is made of, in the order that the schemas of
# DrawingML want; what stands together is a choice.
FILLS = "noFill solidFill gradFill blipFill pattFill grpFill"
ORDER = {
    **dict.fromkeys(("spPr", "grpSpPr", "bgPr"), (
        "xfrm", "custGeom prstGeom", FILLS, "ln", "effectLst effectDag", "scene3d", "sp3d",
        "extLst")),
    "ln": ("noFill solidFill gradFill pattFill", "prstDash custDash", "round bevel miter",
           "headEnd", "tailEnd", "extLst"),
    "gradFill": ("gsLst", "lin path", "tileRect"),
    "blipFill": ("blip", "srcRect", "tile stretch"),
    "pattFill": ("fgClr", "bgClr"),
    "graphic-properties": ("list-style", "background-image", "columns"),
    "style": ("chart-properties", "drawing-page-properties graphic-properties",
              "paragraph-properties", "text-properties"),
}
# The attributes that the schemas know of what is written anew.
ATTRIBUTES = {"gradFill": {"flip", "rotWithShape"}, "gs": {"pos"}, "lin": {"ang", "scaled"},
              "path": {"path"}, "pattFill": {"prst"}, "srgbClr": {"val"}, "alpha": {"val"},
              "tile": {"tx", "ty", "sx", "sy", "flip", "algn"}, "blipFill": {"dpi", "rotWithShape"}}


def local(name):
    return name.rpartition("}")[2]


def out_of_order(part):
    """What stands in a part where the schema does not want it."""
    found = set()
    for element in ElementTree.fromstring(part).iter():
        name = local(element.tag)
        order = {word: place for place, words in enumerate(ORDER.get(name, ()))
                 for word in words.split()}
        places = [order[local(child.tag)] for child in element if local(child.tag) in order]
        if places != sorted(places) or (name in ("spPr", "pattFill", "gradFill") and
                                        len(places) != len(set(places))):
            found.add((name, *(local(child.tag) for child in element)))
        unknown = {local(each) for each in element.attrib} - ATTRIBUTES.get(
            name, {local(each) for each in element.attrib})
        found |= {(name, each) for each in unknown}
    return found
