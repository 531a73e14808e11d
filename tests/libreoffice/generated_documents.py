# SPDX-License-Identifier: MPL-2.0
"""Documents with drawing shapes as programs other than an office write them: by hand, by
python-docx, by odfpy and by pandoc. Each has shapes of the colour ROOFS, and others."""

import subprocess

import docx
from docx.enum.section import WD_ORIENT, WD_SECTION
from docx.oxml import parse_xml
from odf import draw, style, table, text
from odf.opendocument import OpenDocumentText

import handmade_docx as handmade

ROOFS, WALLS = "C00000", "A5A5A5"

SHAPES = "\n".join(f"Odstavec {n} s trochou textu." for n in range(3))


# By hand.

def with_theme(document):
    document.shape(handmade.theme("accent1"), twin=document.vml('fillcolor="#c00000"'))
    document.shape(handmade.theme("accent3"), twin=document.vml('fillcolor="#a5a5a5"'))


def with_transforms(document):
    document.shape(handmade.theme("accent5", lumMod=75))
    document.shape(handmade.theme("accent5", lumMod=40, lumOff=60))
    document.shape(handmade.solid(ROOFS))


def with_style(document):
    document.shape("", handmade.style_reference("accent1"))
    document.shape("", handmade.style_reference("accent3"))
    document.shape(handmade.solid(ROOFS), handmade.style_reference("accent5", 2))


def with_vml(document):
    document.add(document.vml('fillcolor="#c00000"'))
    document.add(document.vml('fillcolor="#c00000"', element="oval"))
    document.add(document.vml('fillcolor="#a5a5a5"', '<v:fill opacity=".5"/>'))


def with_group(document):
    document.group(document.wps(handmade.theme("accent1")), document.wps(handmade.solid(ROOFS)),
                   document.wps(handmade.solid(WALLS)))
    document.shape(handmade.solid(WALLS))


def with_canvas(document):
    document.canvas(document.wps(handmade.solid(ROOFS)), document.wps(handmade.theme("accent1")),
                    twin=document.vml('fillcolor="#c00000"'))
    document.shape(handmade.solid(ROOFS))


def with_header(document):
    with_theme(document)
    document.header = handmade.alternatives(
        document.drawing(document.wps(handmade.solid(ROOFS))), "")


def with_footer(document):
    with_vml(document)
    document.footer = handmade.alternatives(
        document.drawing(document.wps(handmade.theme("accent1"), text="Pata")), "")


def with_text_box(document):
    document.shape(handmade.theme("accent1"), text="Polovina", extra=handmade.width_of_margin(50))
    document.shape(handmade.solid(WALLS), text="Pevná")


def with_other_fills(document):
    document.shape(handmade.gradient((0, "C00000"), (100, "accent5"), angle=90))
    document.shape(handmade.pattern("dkUpDiag", "C00000", "FFFFFF"))
    document.shape(handmade.picture(True))
    document.shape(handmade.NO_FILL)
    document.shape(handmade.solid(ROOFS))


BY_HAND = [with_theme, with_transforms, with_style, with_vml, with_group, with_canvas, with_header,
           with_footer, with_text_box, with_other_fills]


def write_by_hand(folder):
    for build in BY_HAND:
        document = handmade.Docx()
        document.text("Vyrobeno ručně")
        build(document)
        path = folder / f"hand-{build.__name__}.docx"
        document.write(path)
        yield path


# By python-docx, whose own template has styles, a theme and numbering.

def shape_run(paragraph, fills, **options):
    """Puts shapes behind the text of one of python-docx's paragraphs."""
    maker = shape_run.maker
    for fill in fills:
        inner = handmade.alternatives(maker.drawing(maker.wps(fill, **options)), "")
        paragraph._p.append(parse_xml(
            f"<w:r {handmade.DECLARATIONS}>{inner}</w:r>"))


shape_run.maker = handmade.Docx()
BOTH = (handmade.solid(ROOFS), handmade.solid(WALLS))


def in_paragraphs(document):
    document.add_heading("Nadpis", 1)
    shape_run(document.add_paragraph(SHAPES), BOTH)


def in_a_table(document):
    cells = document.add_table(rows=2, cols=2).rows[1].cells
    shape_run(cells[0].paragraphs[0], BOTH)
    cells[1].text = "Buňka"


def in_a_list(document):
    for style_name in ("List Bullet", "List Number"):
        shape_run(document.add_paragraph("Položka", style=style_name), BOTH)


def on_landscape_pages(document):
    shape_run(document.add_paragraph(SHAPES), BOTH)
    section = document.add_section(WD_SECTION.NEW_PAGE)
    section.orientation = WD_ORIENT.LANDSCAPE
    section.page_width, section.page_height = section.page_height, section.page_width
    shape_run(document.add_paragraph("Na šířku"), BOTH)


def under_headers(document):
    section = document.sections[0]
    section.different_first_page_header_footer = True
    section.header.paragraphs[0].text = "Záhlaví"
    section.first_page_header.paragraphs[0].text = "První"
    shape_run(section.footer.paragraphs[0], BOTH)
    shape_run(document.add_paragraph(SHAPES), BOTH)
    document.add_page_break()
    shape_run(document.add_paragraph("Druhá strana"), BOTH)


def with_text_inside(document):
    shape_run(document.add_paragraph(SHAPES), BOTH, text="Uvnitř")


def of_many_kinds(document):
    for preset in ("ellipse", "roundRect", "triangle", "star5", "rightArrow", "cloud"):
        shape_run(document.add_paragraph(preset), BOTH, prst=preset)


def with_styled_text(document):
    shape_run(document.add_paragraph("Citát", style="Intense Quote"), BOTH)
    document.add_paragraph("tučně").runs[0].bold = True


BY_PYTHON_DOCX = [in_paragraphs, in_a_table, in_a_list, on_landscape_pages, under_headers,
                  with_text_inside, of_many_kinds, with_styled_text]


def write_by_python_docx(folder):
    for build in BY_PYTHON_DOCX:
        document = docx.Document()
        build(document)
        path = folder / f"docx-{build.__name__}.docx"
        document.save(str(path))
        yield path


# By odfpy.

class Odt:
    def __init__(self):
        self.document = OpenDocumentText()
        self.styles = {}

    def fill(self, **properties):
        key = tuple(sorted(properties.items()))
        if key not in self.styles:
            made = style.Style(name=f"tvar{len(self.styles)}", family="graphic")
            made.addElement(style.GraphicProperties(**properties))
            self.document.automaticstyles.addElement(made)
            self.styles[key] = made
        return self.styles[key]

    def solid(self, color, **more):
        return self.fill(fill="solid", fillcolor="#" + color.lower(), **more)

    def shape(self, kind, fill, left="2cm", top="3cm", **more):
        return kind(stylename=fill, x=left, y=top, width="2cm", height="1cm", **more)

    def paragraph(self, content="", shapes=(), **more):
        made = text.P(text=content, **more)
        for shape in shapes:
            made.addElement(shape)
        self.document.text.addElement(made)
        return made

    def both(self, kind=draw.Rect, **more):
        return [self.shape(kind, self.solid(color), **more) for color in (ROOFS, WALLS)]


def rectangles(odt):
    odt.paragraph(SHAPES, odt.both(anchortype="paragraph"))


def ellipses(odt):
    odt.paragraph(SHAPES, odt.both(draw.Ellipse, anchortype="paragraph"))


def as_characters(odt):
    odt.paragraph(SHAPES, odt.both(anchortype="as-char"))


def members(odt):
    group = draw.G(anchortype="paragraph")
    for shape in odt.both() + odt.both(draw.Circle):
        group.addElement(shape)
    odt.paragraph(SHAPES, [group])


def in_table_cells(odt):
    grid = table.Table(name="Tabulka")
    grid.addElement(table.TableColumn())
    row = table.TableRow()
    cell = table.TableCell()
    inside = text.P(text="Buňka")
    for shape in odt.both(anchortype="paragraph"):
        inside.addElement(shape)
    cell.addElement(inside)
    row.addElement(cell)
    grid.addElement(row)
    odt.document.text.addElement(grid)
    odt.paragraph("Za tabulkou")


def transparent(odt):
    odt.paragraph(SHAPES, [odt.shape(draw.Rect, odt.solid(color, opacity="60%"),
                                     anchortype="paragraph") for color in (ROOFS, WALLS)])


def on_master_pages(odt):
    layout = style.PageLayout(name="strana")
    layout.addElement(style.PageLayoutProperties(pagewidth="21cm", pageheight="29.7cm",
                                                 margin="2cm"))
    layout.addElement(style.HeaderStyle())
    odt.document.automaticstyles.addElement(layout)
    page = style.MasterPage(name="Standard", pagelayoutname=layout)
    header = style.Header()
    header.addElement(text.P(text="Záhlaví"))
    page.addElement(header)
    odt.document.masterstyles.addElement(page)
    odt.paragraph(SHAPES, odt.both(anchortype="paragraph"))


def by_inherited_styles(odt):
    parent = style.Style(name="Střecha", family="graphic")
    parent.addElement(style.GraphicProperties(fill="solid", fillcolor="#" + ROOFS.lower()))
    odt.document.styles.addElement(parent)
    child = style.Style(name="dítě", family="graphic", parentstylename=parent)
    child.addElement(style.GraphicProperties(stroke="none"))
    odt.document.automaticstyles.addElement(child)
    odt.paragraph(SHAPES, [odt.shape(draw.Rect, child, anchortype="paragraph"),
                           *odt.both(anchortype="paragraph")])


BY_ODFPY = [rectangles, ellipses, as_characters, members, in_table_cells, transparent,
            on_master_pages, by_inherited_styles]


def write_by_odfpy(folder):
    for build in BY_ODFPY:
        odt = Odt()
        build(odt)
        path = folder / f"odf-{build.__name__}.odt"
        odt.document.save(str(path))
        yield path


# By pandoc, from text with shapes in the target's own words.

TEXTS = {
    "plain": "# Nadpis\n\nText s *důrazem*.\n\n{}\n",
    "list": "- jedna\n- dvě\n\n{}\n\n1. tři\n",
    "note": "Text s poznámkou.[^1]\n\n[^1]: Poznámka pod čarou.\n\n{}\n",
    "table": "| a | b |\n|---|---|\n| 1 | 2 |\n\n{}\n",
}


def pandoc_shapes(kind):
    if kind == "docx":
        maker = handmade.Docx()
        for fill in BOTH:
            maker.shape(fill)
        # Pandoc declares few namespaces itself.
        inner = "".join(maker.paragraphs).replace("<w:p>", f"<w:p {handmade.DECLARATIONS}>")
        return f"```{{=openxml}}\n{inner}\n```"
    rectangles_xml = "".join(
        f'<draw:rect text:anchor-type="paragraph" draw:style-name="{name}" svg:x="2cm" '
        f'svg:y="{n + 2}cm" svg:width="2cm" svg:height="1cm"/>'
        for n, name in enumerate(("pandocRoofs", "pandocWalls")))
    return f"```{{=opendocument}}\n<text:p>{rectangles_xml}</text:p>\n```"


def write_by_pandoc(folder):
    for name, content in TEXTS.items():
        path = folder / f"pandoc-{name}.docx"
        subprocess.run(["pandoc", "-f", "markdown", "-o", str(path)], check=True, text=True,
                       input=content.format(pandoc_shapes("docx")))
        yield path
    template = subprocess.run(["pandoc", "-D", "opendocument"], check=True, text=True,
                              stdout=subprocess.PIPE).stdout
    fills = "".join(
        f'<style:style style:name="{name}" style:family="graphic"><style:graphic-properties '
        f'draw:fill="solid" draw:fill-color="#{color.lower()}"/></style:style>'
        for name, color in (("pandocRoofs", ROOFS), ("pandocWalls", WALLS)))
    own_template = folder / "pandoc.template"
    own_template.write_text(template.replace("<office:automatic-styles>",
                                             "<office:automatic-styles>" + fills), encoding="utf-8")
    for name in ("plain", "list"):
        path = folder / f"pandoc-{name}.odt"
        subprocess.run(["pandoc", "-f", "markdown", "--template", str(own_template), "-o",
                        str(path)], check=True, text=True,
                       input=TEXTS[name].format(pandoc_shapes("odt")))
        yield path


def write_all(folder):
    """Writes all documents, and returns their paths."""
    return [*write_by_hand(folder), *write_by_python_docx(folder), *write_by_odfpy(folder),
            *write_by_pandoc(folder)]
