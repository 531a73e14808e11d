# SPDX-License-Identifier: MPL-2.0
"""Writes .docx files by hand, with no office involved: shapes as Word keeps them, in DrawingML, in
VML, or in both, and filled in every way that Word knows."""

import struct
import zipfile
import zlib

NAMESPACES = {
    "w": "http://schemas.openxmlformats.org/wordprocessingml/2006/main",
    "a": "http://schemas.openxmlformats.org/drawingml/2006/main",
    "r": "http://schemas.openxmlformats.org/officeDocument/2006/relationships",
    "v": "urn:schemas-microsoft-com:vml",
    "o": "urn:schemas-microsoft-com:office:office",
    "mc": "http://schemas.openxmlformats.org/markup-compatibility/2006",
    "wp": "http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing",
    "wp14": "http://schemas.microsoft.com/office/word/2010/wordprocessingDrawing",
    "wps": "http://schemas.microsoft.com/office/word/2010/wordprocessingShape",
    "wpg": "http://schemas.microsoft.com/office/word/2010/wordprocessingGroup",
    "wpc": "http://schemas.microsoft.com/office/word/2010/wordprocessingCanvas",
}
DECLARATIONS = " ".join(f'xmlns:{prefix}="{uri}"' for prefix, uri in NAMESPACES.items())
HEADER = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>'
OFFICE_RELATIONS = NAMESPACES["r"]
PACKAGE_RELATIONS = "http://schemas.openxmlformats.org/package/2006/relationships"
WORD = "application/vnd.openxmlformats-officedocument.wordprocessingml"

MILLIMETRE = 36000  # in EMU
THEME_COLORS = {"dk1": "000000", "lt1": "FFFFFF", "dk2": "44546A", "lt2": "E7E6E6",
                "accent1": "C00000", "accent2": "ED7D31", "accent3": "A5A5A5",
                "accent4": "FFC000", "accent5": "4472C4", "accent6": "70AD47",
                "hlink": "0563C1", "folHlink": "954F72"}


# Fills in DrawingML.

def solid(color, alpha=None):
    inner = "" if alpha is None else f'<a:alpha val="{alpha * 1000}"/>'
    return f'<a:solidFill><a:srgbClr val="{color}">{inner}</a:srgbClr></a:solidFill>'


def theme(color, **transforms):
    """A theme colour; a transform's value is in per cent: lumMod=75."""
    inner = "".join(f'<a:{name} val="{value * 1000}"/>' for name, value in transforms.items())
    return f'<a:solidFill><a:schemeClr val="{color}">{inner}</a:schemeClr></a:solidFill>'


def gradient(*stops, angle=0, path=None):
    """Stops are (position in per cent, colour); a colour of the theme by its name."""
    def color(value):
        kind = "schemeClr" if value in THEME_COLORS else "srgbClr"
        return f'<a:{kind} val="{value}"/>'
    inner = "".join(f'<a:gs pos="{at * 1000}">{color(value)}</a:gs>' for at, value in stops)
    way = (f'<a:lin ang="{angle * 60000}" scaled="0"/>' if path is None else
           f'<a:path path="{path}"><a:fillToRect l="50000" t="50000" r="50000" b="50000"/>'
           '</a:path>')
    return f'<a:gradFill rotWithShape="1"><a:gsLst>{inner}</a:gsLst>{way}</a:gradFill>'


def pattern(preset, fore, back):
    return (f'<a:pattFill prst="{preset}"><a:fgClr><a:srgbClr val="{fore}"/></a:fgClr>'
            f'<a:bgClr><a:srgbClr val="{back}"/></a:bgClr></a:pattFill>')


def picture(tiled):
    way = ('<a:tile tx="0" ty="0" sx="100000" sy="100000" flip="none" algn="tl"/>' if tiled else
           "<a:stretch><a:fillRect/></a:stretch>")
    return f'<a:blipFill><a:blip r:embed="rIdPicture"/>{way}</a:blipFill>'


NO_FILL = "<a:noFill/>"


def width_of_margin(per_cent):
    """A shape's width relative to the text area, in an element of newer versions."""
    return (f'<wp14:sizeRelH relativeFrom="margin"><wp14:pctWidth>{per_cent * 1000}</wp14:pctWidth>'
            '</wp14:sizeRelH>')


def style_reference(color="accent1", index=1, **transforms):
    """The style of a shape, whose fill is `index` of the theme's fills in this colour."""
    inner = "".join(f'<a:{name} val="{value * 1000}"/>' for name, value in transforms.items())
    return (f'<wps:style><a:lnRef idx="2"><a:schemeClr val="{color}"/></a:lnRef>'
            f'<a:fillRef idx="{index}"><a:schemeClr val="{color}">{inner}</a:schemeClr></a:fillRef>'
            '<a:effectRef idx="0"><a:schemeClr val="accent1"/></a:effectRef>'
            '<a:fontRef idx="minor"><a:schemeClr val="lt1"/></a:fontRef></wps:style>')


def png(width=4, height=4, color=(0, 128, 0)):
    def chunk(name, data):
        checked = name + data
        return struct.pack(">I", len(data)) + checked + struct.pack(">I", zlib.crc32(checked))
    rows = (b"\0" + bytes(color) * width) * height
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows))
            + chunk(b"IEND", b""))


class Docx:
    """A document in the making: each shape is tied to a paragraph of its own."""

    def __init__(self):
        self.paragraphs = []
        self.header = None
        self.footer = None
        self._numbers = 0

    # Shapes

    def wps(self, fill="", style="", text=None, prst="rect", size=(20, 10), name=None):
        """A shape's DrawingML, for a drawing of its own, a group or a canvas."""
        box = "" if text is None else (
            f"<wps:txbx><w:txbxContent>{paragraph(run(text))}</w:txbxContent></wps:txbx>")
        about = '<wps:cNvSpPr/>' if name is None else (
            f'<wps:cNvPr id="{self._number()}" name="{name}"/><wps:cNvSpPr/>')
        return (f"<wps:wsp>{about}<wps:spPr>"
                f'<a:xfrm><a:off x="0" y="0"/><a:ext cx="{size[0] * MILLIMETRE}" '
                f'cy="{size[1] * MILLIMETRE}"/></a:xfrm>'
                f'<a:prstGeom prst="{prst}"><a:avLst/></a:prstGeom>{fill}'
                f'<a:ln w="12700"><a:solidFill><a:srgbClr val="2F528F"/></a:solidFill></a:ln>'
                f"</wps:spPr>{style}{box}<wps:bodyPr/></wps:wsp>")

    def drawing(self, inner, uri="wps", size=(20, 10), extra=""):
        """A drawing that floats beside its paragraph; `extra` are elements behind its own."""
        number = self._number()
        width, height = (side * MILLIMETRE for side in size)
        top = number % 20 * 12 * MILLIMETRE
        return (
            '<w:drawing><wp:anchor distT="0" distB="0" distL="0" distR="0" simplePos="0" '
            f'relativeHeight="{number}" behindDoc="0" locked="0" layoutInCell="1" allowOverlap="1">'
            '<wp:simplePos x="0" y="0"/><wp:positionH relativeFrom="column"><wp:posOffset>0'
            '</wp:posOffset></wp:positionH><wp:positionV relativeFrom="paragraph"><wp:posOffset>'
            f'{top}</wp:posOffset></wp:positionV><wp:extent cx="{width}" cy="{height}"/>'
            '<wp:effectExtent l="0" t="0" r="0" b="0"/><wp:wrapNone/>'
            f'<wp:docPr id="{number}" name="Tvar {number}"/><wp:cNvGraphicFramePr/>'
            f'<a:graphic><a:graphicData uri="{NAMESPACES[uri]}">{inner}</a:graphicData></a:graphic>'
            f'{extra}</wp:anchor></w:drawing>')

    def vml(self, attributes="", fill="", element="rect", text=None):
        number = self._number()
        box = "" if text is None else (
            f"<v:textbox><w:txbxContent>{paragraph(run(text))}</w:txbxContent></v:textbox>")
        return (f'<w:pict><v:{element} id="_x0000_s{1000 + number}" style="position:absolute;'
                f'margin-left:200pt;margin-top:{number % 20 * 34}pt;width:57pt;height:28pt;'
                f'z-index:{number}" {attributes}>{fill}{box}</v:{element}></w:pict>')

    def shape(self, fill="", style="", twin="", extra="", **options):
        """Adds a shape; `twin` is its VML, from vml()."""
        self.add(alternatives(self.drawing(self.wps(fill, style, **options), extra=extra), twin))

    def group(self, *members, twin=""):
        inner = (f'<wpg:wgp><wpg:cNvGrpSpPr/><wpg:grpSpPr><a:xfrm><a:off x="0" y="0"/>'
                 f'<a:ext cx="{60 * MILLIMETRE}" cy="{10 * MILLIMETRE}"/><a:chOff x="0" y="0"/>'
                 f'<a:chExt cx="{60 * MILLIMETRE}" cy="{10 * MILLIMETRE}"/></a:xfrm></wpg:grpSpPr>'
                 f'{"".join(members)}</wpg:wgp>')
        self.add(alternatives(self.drawing(inner, "wpg", (60, 10)), twin, "wpg"))

    def canvas(self, *members, twin=""):
        inner = f'<wpc:wpc><wpc:bg/><wpc:whole/>{"".join(members)}</wpc:wpc>'
        self.add(alternatives(self.drawing(inner, "wpc", (60, 10)), twin, "wpc"))

    def add(self, content):
        self.paragraphs.append(paragraph(f"<w:r>{content}</w:r>"))

    def text(self, text):
        self.paragraphs.append(paragraph(run(text)))

    def _number(self):
        self._numbers += 1
        return self._numbers

    # The file

    def write(self, path):
        references = ""
        if self.header is not None:
            references += '<w:headerReference w:type="default" r:id="rIdHeader"/>'
        if self.footer is not None:
            references += '<w:footerReference w:type="default" r:id="rIdFooter"/>'
        section = (f'<w:sectPr>{references}<w:pgSz w:w="11906" w:h="16838"/><w:pgMar w:top="1440" '
                   'w:right="1440" w:bottom="1440" w:left="1440" w:header="708" w:footer="708" '
                   'w:gutter="0"/></w:sectPr>')
        body = element_only("w:body", "".join(self.paragraphs) + section)
        parts = {
            "word/document.xml": element("w:document", body),
            "word/theme/theme1.xml": theme_part(),
            "word/media/image1.png": png(),
        }
        overrides = {"/word/document.xml": WORD + ".document.main+xml",
                     "/word/theme/theme1.xml":
                         "application/vnd.openxmlformats-officedocument.theme+xml"}
        relations = [("rIdTheme", "theme", "theme/theme1.xml"),
                     ("rIdPicture", "image", "media/image1.png")]
        for kind, content in (("header", self.header), ("footer", self.footer)):
            if content is None:
                continue
            tag = "w:hdr" if kind == "header" else "w:ftr"
            parts[f"word/{kind}1.xml"] = element(tag, paragraph(f"<w:r>{content}</w:r>"))
            overrides[f"/word/{kind}1.xml"] = f"{WORD}.{kind}+xml"
            relations.append((f"rId{kind.capitalize()}", kind, f"{kind}1.xml"))
        parts["word/_rels/document.xml.rels"] = relationships(relations)
        parts["_rels/.rels"] = relationships([("rId1", "officeDocument", "word/document.xml")])
        types = "".join(f'<Override PartName="{name}" ContentType="{kind}"/>'
                        for name, kind in overrides.items())
        parts["[Content_Types].xml"] = (
            f'{HEADER}<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
            '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.'
            'relationships+xml"/><Default Extension="xml" ContentType="application/xml"/>'
            f'<Default Extension="png" ContentType="image/png"/>{types}</Types>')
        with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as package:
            for name in sorted(parts):
                package.writestr(name, parts[name])


def alternatives(choice, fallback, requires="wps"):
    """What new programs read, and what old ones read instead."""
    return (f'<mc:AlternateContent><mc:Choice Requires="{requires}">{choice}</mc:Choice>'
            f"<mc:Fallback>{fallback}</mc:Fallback></mc:AlternateContent>")


def run(text):
    return f"<w:r><w:t>{text}</w:t></w:r>"


def paragraph(runs):
    return f"<w:p>{runs}</w:p>"


def element_only(tag, content):
    return f"<{tag}>{content}</{tag}>"


def element(tag, content):
    return f"{HEADER}<{tag} {DECLARATIONS}>{content}</{tag}>"


def relationships(entries):
    inner = "".join(
        f'<Relationship Id="{name}" Type="{OFFICE_RELATIONS}/{kind}" Target="{target}"/>'
        for name, kind, target in entries)
    return f'{HEADER}<Relationships xmlns="{PACKAGE_RELATIONS}">{inner}</Relationships>'


def theme_part():
    colors = "".join(f'<a:{name}><a:srgbClr val="{value}"/></a:{name}>'
                     for name, value in THEME_COLORS.items())
    placeholder = '<a:solidFill><a:schemeClr val="phClr"/></a:solidFill>'
    blend = ('<a:gradFill rotWithShape="1"><a:gsLst><a:gs pos="0"><a:schemeClr val="phClr">'
             '<a:lumMod val="110000"/></a:schemeClr></a:gs><a:gs pos="100000"><a:schemeClr '
             'val="phClr"><a:lumMod val="60000"/></a:schemeClr></a:gs></a:gsLst>'
             '<a:lin ang="5400000" scaled="0"/></a:gradFill>')
    line = f'<a:ln w="6350">{placeholder}</a:ln>'
    effect = "<a:effectStyle><a:effectLst/></a:effectStyle>"
    fonts = "".join(f'<a:{kind}Font><a:latin typeface="Liberation Sans"/><a:ea typeface=""/>'
                    f'<a:cs typeface=""/></a:{kind}Font>' for kind in ("major", "minor"))
    return (f'{HEADER}<a:theme xmlns:a="{NAMESPACES["a"]}" name="Huebrush"><a:themeElements>'
            f'<a:clrScheme name="Huebrush">{colors}</a:clrScheme>'
            f'<a:fontScheme name="Huebrush">{fonts}</a:fontScheme><a:fmtScheme name="Huebrush">'
            f"<a:fillStyleLst>{placeholder}{blend}{blend}</a:fillStyleLst>"
            f"<a:lnStyleLst>{line * 3}</a:lnStyleLst>"
            f"<a:effectStyleLst>{effect * 3}</a:effectStyleLst>"
            f"<a:bgFillStyleLst>{placeholder}{blend}{blend}</a:bgFillStyleLst>"
            "</a:fmtScheme></a:themeElements></a:theme>")
