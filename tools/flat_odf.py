# SPDX-License-Identifier: MPL-2.0
"""Writes Writer documents with drawing shapes as flat OpenDocument XML, without any office.

A `Document` keeps the styles and fills it meets once each; the functions of `Document` that end
in a shape return its XML, so that a tree of groups is simply a tree of calls. Lengths are
millimetres.
"""

import base64
import struct
import zlib
from xml.sax.saxutils import escape, quoteattr

NAMESPACES = {
    "office": "urn:oasis:names:tc:opendocument:xmlns:office:1.0",
    "style": "urn:oasis:names:tc:opendocument:xmlns:style:1.0",
    "text": "urn:oasis:names:tc:opendocument:xmlns:text:1.0",
    "draw": "urn:oasis:names:tc:opendocument:xmlns:drawing:1.0",
    "fo": "urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0",
    "svg": "urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0",
    "xlink": "http://www.w3.org/1999/xlink",
    "meta": "urn:oasis:names:tc:opendocument:xmlns:meta:1.0",
    "dc": "http://purl.org/dc/elements/1.1/",
}

# The office's own style of text frames; without it a frame would load as a drawing shape with text.
FRAME_STYLE = "Frame"
FRAME_TEXT_STYLE = "Frame_20_contents"
NO_FILL = {"draw:fill": "none"}
NO_LINE = {"draw:stroke": "none"}


def length(value):
    """A length with the office's own resolution of 1/100 mm."""
    return f"{value:.2f}mm"


def percent(value):
    return f"{value:g}%"


def tag(name, attributes, content=None):
    """One XML element; attributes that are None are left out."""
    written = "".join(
        f" {key}={quoteattr(str(value))}" for key, value in attributes.items() if value is not None
    )
    return f"<{name}{written}/>" if content is None else f"<{name}{written}>{content}</{name}>"


def png(width, height, pixel):
    """The bytes of a PNG picture; `pixel(x, y)` gives each point as (red, green, blue)."""

    def chunk(kind, data):
        check = zlib.crc32(kind + data)
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", check)

    rows = b"".join(
        b"\0" + b"".join(bytes(pixel(x, y)) for x in range(width)) for y in range(height)
    )
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return (
        b"\x89PNG\r\n\x1a\n"
        + chunk(b"IHDR", header)
        + chunk(b"IDAT", zlib.compress(rows, 9))
        + chunk(b"IEND", b"")
    )


def solid(color, transparency=0):
    fill = {"draw:fill": "solid", "draw:fill-color": color}
    if transparency:
        fill["draw:opacity"] = percent(100 - transparency)
    return fill


def line(color, width=0.2):
    return {"draw:stroke": "solid", "svg:stroke-color": color, "svg:stroke-width": length(width)}


class Anchor:
    """Where a top-level shape is tied to the text; members of groups have none."""

    def __init__(self, kind, page=None):
        self.kind = kind
        self.page = page

    def attributes(self):
        return {"text:anchor-type": self.kind, "text:anchor-page-number": self.page}

    def style(self):
        if self.kind == "as-char":
            return {"style:vertical-pos": "middle", "style:vertical-rel": "text"}
        # A group loads behind the text whatever its style says, and what lies behind the text lies
        # behind all that does not: only with one layer for everything the drawing order holds.
        return {
            "style:wrap": "run-through",
            "style:run-through": "background",
            "style:vertical-pos": "from-top",
            "style:vertical-rel": "page",
            "style:horizontal-pos": "from-left",
            "style:horizontal-rel": "page",
        }


TO_PAGE = Anchor("page", 1)
TO_PARAGRAPH = Anchor("paragraph")
AS_CHARACTER = Anchor("as-char")


class Document:
    """Collects styles, fills and the body; `xml()` gives the finished document."""

    def __init__(self, page_width, page_height, margins, title, date):
        self.page_width, self.page_height, self.margins = page_width, page_height, margins
        self.title, self.date = title, date
        self.styles = {}
        self.definitions = {}
        self.paragraph_styles = {}
        self.body = []
        self.z_index = 0
        self.shape_count = 0

    # Fills that the document holds under a name.

    def gradient(self, name, kind, start, end, angle=0, border=0, center=(50, 50)):
        self._define(
            tag(
                "draw:gradient",
                {
                    "draw:name": name,
                    "draw:style": kind,
                    "draw:cx": percent(center[0]),
                    "draw:cy": percent(center[1]),
                    "draw:start-color": start,
                    "draw:end-color": end,
                    "draw:start-intensity": "100%",
                    "draw:end-intensity": "100%",
                    "draw:angle": f"{angle}deg",
                    "draw:border": percent(border),
                },
            )
        )
        return {"draw:fill": "gradient", "draw:fill-gradient-name": name}

    def hatch(self, name, kind, color, distance, rotation, background=None):
        self._define(
            tag(
                "draw:hatch",
                {
                    "draw:name": name,
                    "draw:style": kind,
                    "draw:color": color,
                    "draw:distance": length(distance),
                    "draw:rotation": str(rotation * 10),
                },
            )
        )
        fill = {"draw:fill": "hatch", "draw:fill-hatch-name": name}
        if background:
            fill["draw:fill-hatch-solid"] = "true"
            fill["draw:fill-color"] = background
        else:
            fill["draw:fill-hatch-solid"] = "false"
        return fill

    def bitmap(self, name, picture, repeat="repeat", size=None):
        """A picture fill: `picture` is a PNG's bytes, `size` one tile's width and height."""
        data = base64.b64encode(picture).decode("ascii")
        content = tag("office:binary-data", {}, data)
        self._define(tag("draw:fill-image", {"draw:name": name}, content))
        fill = {
            "draw:fill": "bitmap",
            "draw:fill-image-name": name,
            "style:repeat": repeat,
            "draw:fill-image-ref-point": "top-left",
        }
        if size:
            fill["draw:fill-image-width"], fill["draw:fill-image-height"] = map(length, size)
        return fill

    def fading(self, fill, name, kind, start, end, angle=0, border=0):
        """The fill with an opacity that runs from `start` to `end` percent."""
        self._define(
            tag(
                "draw:opacity",
                {
                    "draw:name": name,
                    "draw:style": kind,
                    "draw:cx": "50%",
                    "draw:cy": "50%",
                    "draw:start": percent(start),
                    "draw:end": percent(end),
                    "draw:angle": f"{angle}deg",
                    "draw:border": percent(border),
                },
            )
        )
        return {**fill, "draw:opacity-name": name}

    # Shapes. `anchor` is given for those that stand in no group.

    def rectangle(self, box, fill, stroke=NO_LINE, name="", anchor=None, text=None):
        return self._boxed("draw:rect", box, fill, stroke, name, anchor, text=text)

    def ellipse(self, box, fill, stroke=NO_LINE, name="", anchor=None):
        return self._boxed("draw:ellipse", box, fill, stroke, name, anchor)

    def custom(self, kind, box, fill, stroke=NO_LINE, name="", anchor=None, modifiers=None):
        """A custom shape of one of the office's own types, such as `isosceles-triangle`."""
        geometry = tag("draw:enhanced-geometry", {"draw:type": kind, "draw:modifiers": modifiers})
        return self._boxed("draw:custom-shape", box, fill, stroke, name, anchor, inner=geometry)

    def polygon(self, points, fill, stroke=NO_LINE, name="", anchor=None):
        return self._pointed("draw:polygon", points, fill, stroke, name, anchor)

    def polyline(self, points, stroke, name="", anchor=None):
        return self._pointed("draw:polyline", points, NO_FILL, stroke, name, anchor)

    def curve(self, start, segments, fill, stroke=NO_LINE, name="", anchor=None, closed=True):
        """A path of cubic Bézier segments, each given as its two control points and its end."""
        points = [start] + [point for segment in segments for point in segment]
        box, relative = self._view(points)
        pairs = [f"{x} {y}" for x, y in relative]
        path = "M" + pairs[0]
        for i in range(1, len(pairs), 3):
            path += "C" + " ".join(pairs[i:i + 3])
        extra = {"svg:viewBox": self._view_box(box), "svg:d": path + ("Z" if closed else "")}
        return self._boxed("draw:path", box, fill, stroke, name, anchor, extra)

    def line(self, start, end, stroke, name="", anchor=None):
        return self._ended("draw:line", start, end, stroke, name, anchor, {})

    def connector(self, start, end, stroke, name="", anchor=None):
        straight = {"draw:type": "line"}
        return self._ended("draw:connector", start, end, stroke, name, anchor, straight)

    def group(self, members, name="", anchor=None):
        attributes = {"draw:name": name or None}
        if anchor:
            attributes |= {**anchor.attributes(), "draw:z-index": self._next_z()}
            attributes["draw:style-name"] = self._style(anchor.style())
        return tag("draw:g", attributes, "".join(members))

    def text_frame(self, box, paragraphs, name, anchor):
        style = {**anchor.style(), "style:wrap": "none", "fo:border": "none", "fo:padding": "0mm"}
        x, y, width, height = box
        text = tag("draw:text-box", {"fo:min-height": length(height)}, "".join(paragraphs))
        attributes = {
            "draw:name": name,
            "draw:style-name": self._style(style, FRAME_STYLE),
            **anchor.attributes(),
            "svg:x": length(x),
            "svg:y": length(y),
            "svg:width": length(width),
            "draw:z-index": self._next_z(),
        }
        return tag("draw:frame", attributes, text)

    # Text.

    def frame_text(self, content, text_properties):
        """A paragraph of a text frame. How the text of frames looks is defined once for
        all of them: the office forgets the direct formatting of such paragraphs when it stores."""
        style = {"style:name": FRAME_TEXT_STYLE, "style:family": "paragraph"}
        self._define(tag("style:style", style, tag("style:text-properties", text_properties)))
        return tag("text:p", {"text:style-name": FRAME_TEXT_STYLE}, content)

    def paragraph(self, content, properties=None, text_properties=None):
        """One paragraph of ready XML; plain text goes through `escape` first."""
        key = (
            tuple(sorted((properties or {}).items())),
            tuple(sorted((text_properties or {}).items())),
        )
        style = self.paragraph_styles.setdefault(key, f"P{len(self.paragraph_styles) + 1}")
        return tag("text:p", {"text:style-name": style}, content)

    def append(self, xml):
        self.body.append(xml)

    def xml(self):
        names = "".join(f' xmlns:{key}="{value}"' for key, value in NAMESPACES.items())
        return (
            '<?xml version="1.0" encoding="UTF-8"?>\n'
            f'<office:document{names} office:version="1.3"'
            ' office:mimetype="application/vnd.oasis.opendocument.text">\n'
            + "\n".join(
                (
                    self._meta(),
                    tag("office:styles", {}, "\n".join([*self.definitions, self._frame_style()])),
                    tag("office:automatic-styles", {}, "\n".join(self._automatic_styles())),
                    self._master_styles(),
                    tag("office:body", {}, tag("office:text", {}, "\n".join(self.body))),
                )
            )
            + "\n</office:document>\n"
        )

    # The parts of the above.

    def _define(self, xml):
        self.definitions.setdefault(xml)

    def _style(self, properties, parent=None):
        key = (tuple(sorted(properties.items())), parent)
        return self.styles.setdefault(key, f"gr{len(self.styles) + 1}")

    def _next_z(self):
        self.z_index += 1
        return str(self.z_index - 1)

    def _shape(self, kind, fill, stroke, name, anchor, extra, content):
        self.shape_count += 1
        attributes = {"draw:name": name or None}
        style = {**fill, **stroke}
        if anchor:
            attributes |= {**anchor.attributes(), "draw:z-index": self._next_z()}
            style |= anchor.style()
        attributes["draw:style-name"] = self._style(style)
        return tag(kind, attributes | extra, content)

    def _boxed(self, kind, box, fill, stroke, name, anchor, extra=None, text=None, inner=""):
        x, y, width, height = box
        place = {
            "svg:x": None if anchor is AS_CHARACTER else length(x),
            "svg:y": length(y),
            "svg:width": length(width),
            "svg:height": length(height),
        }
        content = (text or "") + inner
        return self._shape(kind, fill, stroke, name, anchor, place | (extra or {}), content or None)

    def _pointed(self, kind, points, fill, stroke, name, anchor):
        box, relative = self._view(points)
        extra = {
            "svg:viewBox": self._view_box(box),
            "draw:points": " ".join(f"{x},{y}" for x, y in relative),
        }
        return self._boxed(kind, box, fill, stroke, name, anchor, extra)

    def _ended(self, kind, start, end, stroke, name, anchor, extra):
        place = {
            "svg:x1": length(start[0]),
            "svg:y1": length(start[1]),
            "svg:x2": length(end[0]),
            "svg:y2": length(end[1]),
        }
        return self._shape(kind, {}, stroke, name, anchor, place | extra, None)

    @staticmethod
    def _view(points):
        left = min(x for x, _ in points)
        top = min(y for _, y in points)
        width = max(x for x, _ in points) - left
        height = max(y for _, y in points) - top
        relative = [(round((x - left) * 100), round((y - top) * 100)) for x, y in points]
        return (left, top, width, height), relative

    @staticmethod
    def _view_box(box):
        return f"0 0 {max(1, round(box[2] * 100))} {max(1, round(box[3] * 100))}"

    def _meta(self):
        return tag(
            "office:meta",
            {},
            tag("dc:title", {}, escape(self.title))
            + tag("meta:creation-date", {}, self.date)
            + tag("dc:date", {}, self.date),
        )

    def _automatic_styles(self):
        for (properties, parent), name in self.styles.items():
            attributes = {"style:name": name, "style:family": "graphic"}
            attributes["style:parent-style-name"] = parent
            yield tag("style:style", attributes, tag("style:graphic-properties", dict(properties)))
        for (properties, text_properties), name in self.paragraph_styles.items():
            content = tag("style:paragraph-properties", dict(properties))
            content += tag("style:text-properties", dict(text_properties))
            attributes = {"style:name": name, "style:family": "paragraph"}
            yield tag("style:style", attributes, content)
        layout = {
            "fo:page-width": length(self.page_width),
            "fo:page-height": length(self.page_height),
            "style:print-orientation": (
                "landscape" if self.page_width > self.page_height else "portrait"
            ),
        }
        for side, value in zip(("top", "right", "bottom", "left"), self.margins):
            layout["fo:margin-" + side] = length(value)
        properties = tag("style:page-layout-properties", layout)
        yield tag("style:page-layout", {"style:name": "page"}, properties)

    @staticmethod
    def _frame_style():
        return tag("style:style", {"style:name": FRAME_STYLE, "style:family": "graphic"})

    @staticmethod
    def _master_styles():
        page = {"style:name": "Standard", "style:page-layout-name": "page"}
        return tag("office:master-styles", {}, tag("style:master-page", page))
