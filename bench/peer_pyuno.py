# SPDX-License-Identifier: MPL-2.0
"""The peer in Python: what a user would write with PyUNO to do the add-in's work.

A UNO component that the office loads into its own process, so that no call crosses a bridge. Its
job selects by fill and by line as the first shape has it, walks the drawing shapes of the document
and sorts them by fill, gives a quarter of the fills a new colour, and returns the milliseconds of
each as JSON. Nothing is read that is not needed: the kind of fill first, then only what that kind
has. The selections come first because each would be a command of its own: no shape is held from a
walk before. A change is a complete one: the theme's colour, which would be stored instead of the
new one, is removed, Undo reverts all of it in one step, and the document counts as modified.
"""

import json
from time import perf_counter

import unohelper
from com.sun.star.document import XUndoAction
from com.sun.star.drawing.FillStyle import BITMAP, GRADIENT, HATCH, SOLID
from com.sun.star.drawing.LineStyle import NONE as NO_LINE
from com.sun.star.task import XJob

IMPLEMENTATION = "huebrush.bench.PyunoPeer"

GROUP_TYPE = "com.sun.star.drawing.GroupShape"
FRAME_TYPE = "FrameShape"
UNFILLED_TYPES = {
    "com.sun.star.drawing.LineShape",
    "com.sun.star.drawing.ConnectorShape",
    "com.sun.star.drawing.ControlShape",
}
MIXED = "mixed"
UNFILLED = "none"
NEW_COLOR = 0x0070C0
OPAQUE_SOLID = {"FillStyle": SOLID, "FillTransparenceGradientName": "", "FillTransparence": 0}
NO_THEME = -1
# What makes up a fill beside its style and transparency; a solid one's is known from its key.
BODIES = {
    GRADIENT.value: ("FillGradient",),
    HATCH.value: ("FillHatch", "FillBackground", "FillColor"),
    BITMAP.value: ("FillBitmapName", "FillBitmapMode"),
}


def elements(access):
    enumeration = access.createEnumeration()
    while enumeration.hasMoreElements():
        yield enumeration.nextElement()


def members(group):
    return map(group.getByIndex, range(group.Count))


def gradient_key(gradient):
    return (
        gradient.Style.value,
        gradient.StartColor,
        gradient.EndColor,
        gradient.Angle,
        gradient.Border,
        gradient.XOffset,
        gradient.YOffset,
    )


def hatch_key(shape):
    hatch = shape.FillHatch
    background = shape.FillColor if shape.FillBackground else None
    return (hatch.Style.value, hatch.Color, hatch.Distance, hatch.Angle, background)


def fading(shape):
    is_fading = shape.FillTransparenceGradientName != ""
    return gradient_key(shape.FillTransparenceGradient) if is_fading else None


def fill_key(shape, kind):
    if kind in UNFILLED_TYPES:
        return UNFILLED
    style = shape.FillStyle
    if style == SOLID:
        key = ("solid", shape.FillColor)
    elif style == GRADIENT:
        key = ("gradient", gradient_key(shape.FillGradient))
    elif style == HATCH:
        key = ("hatch", hatch_key(shape))
    elif style == BITMAP:
        key = ("bitmap", shape.FillBitmapName, shape.FillBitmapMode.value)
    else:
        return UNFILLED
    return (*key, shape.FillTransparence, fading(shape))


def line_key(shape, _):
    return UNFILLED if shape.LineStyle == NO_LINE else shape.LineColor


def common(shape, key_of):
    """The key of a shape; of a group the one that all members have."""
    kind = shape.ShapeType
    if kind == FRAME_TYPE:
        return FRAME_TYPE
    if kind != GROUP_TYPE:
        return key_of(shape, kind)
    found = None
    for member in members(shape):
        key = common(member, key_of)
        if key == MIXED or found not in (None, key):
            return MIXED
        found = key
    return found


def collect(shape, fills):
    kind = shape.ShapeType
    if kind == GROUP_TYPE:
        for member in members(shape):
            collect(member, fills)
    elif kind != FRAME_TYPE:
        fills.setdefault(fill_key(shape, kind), []).append(shape)


def scan(document):
    """The shapes of each fill, by the fill's key."""
    fills = {}
    for shape in elements(document.DrawPage):
        collect(shape, fills)
    return fills


def apply(document, fills):
    """Gives every fourth fill a new colour, as one step of the Undo list."""
    changes = []
    applied = 0
    document.lockControllers()
    for number, (key, shapes) in enumerate(fills.items()):
        if number % 4 == 0:
            recolour(key, shapes, changes)
            applied += len(shapes)
    document.unlockControllers()
    document.UndoManager.addUndoAction(Recolour(changes))
    # The office takes no change of a shape's properties for one of the document.
    document.setModified(True)
    return applied


def recolour(key, shapes, changes):
    new = {"FillColor": NEW_COLOR}
    if key[0] == "solid" and key[-2:] == (0, None):
        changes.append((shapes, {"FillColor": key[1]}, new))
    else:
        changes.extend(([shape], properties_now(shape), OPAQUE_SOLID | new) for shape in shapes)
        write(shapes, OPAQUE_SOLID)
    for shape in shapes:
        shape.FillColor = NEW_COLOR
        # A colour of the theme would be stored instead of the new one.
        theme = shape.FillColorTheme
        if theme != NO_THEME:
            shape.FillColorTheme = NO_THEME
            changes.append(([shape], {"FillColorTheme": theme}, {"FillColorTheme": NO_THEME}))


def properties_now(shape):
    body = BODIES.get(shape.FillStyle.value, ("FillColor",))
    names = ("FillStyle", *body, "FillTransparence")
    if shape.FillTransparenceGradientName != "":
        names += ("FillTransparenceGradientName",)
    return {name: shape.getPropertyValue(name) for name in names}


class Recolour(unohelper.Base, XUndoAction):
    """Shapes with their properties before and after: what Undo and Redo write."""

    Title = "Recolour"

    def __init__(self, changes):
        self.changes = changes

    def undo(self):
        for shapes, before, _ in reversed(self.changes):
            write(shapes, before)

    def redo(self):
        for shapes, _, after in self.changes:
            write(shapes, after)


def write(shapes, properties):
    for shape in shapes:
        for name, value in properties.items():
            shape.setPropertyValue(name, value)


def select_same(context, document, key_of):
    """Selects the top-level shapes that are like the first; the call's time and their number."""
    create = context.ServiceManager.createInstanceWithContext
    matches = create("com.sun.star.drawing.ShapeCollection", context)
    sample = None
    for shape in elements(document.DrawPage):
        key = common(shape, key_of)
        if sample is None:
            sample = key
        if key == sample:
            matches.add(shape)
    milliseconds, _ = timed(document.CurrentController.select, matches)
    return milliseconds, matches.Count


def timed(function, *arguments):
    start = perf_counter()
    result = function(*arguments)
    return (perf_counter() - start) * 1000, result


def select_sample(context, document):
    document.CurrentController.select(next(elements(document.DrawPage)))
    # The user has seen it selected before he runs a command.
    toolkit = context.ServiceManager.createInstanceWithContext("com.sun.star.awt.Toolkit", context)
    toolkit.processEventsToIdle()


def measure(context, document):
    """The selections need a window; the rest is measured with one and without."""
    look_up_once(document)
    has_window = not any(given.Name == "Hidden" and given.Value for given in document.Args)
    figures = measure_selections(context, document) if has_window else {}
    scan_ms, fills = timed(scan, document)
    apply_ms, applied = timed(apply, document, fills)
    return {
        **figures,
        "scan_ms": scan_ms,
        "apply_ms": apply_ms,
        "fills": len(fills),
        "shapes": sum(map(len, fills.values())),
        "applied": applied,
    }


def look_up_once(document):
    """What Python looks up once in a process is not counted against the first command."""
    _ = document.UndoManager
    Recolour([]).getTypes()


def measure_selections(context, document):
    select_sample(context, document)
    select_fill_ms, (host_fill_ms, by_fill) = timed(select_same, context, document, fill_key)
    select_sample(context, document)
    select_line_ms, (host_line_ms, by_line) = timed(select_same, context, document, line_key)
    select_sample(context, document)
    return {
        "select_fill_ms": select_fill_ms,
        "select_line_ms": select_line_ms,
        "host_select_ms": host_fill_ms,
        "host_select_line_ms": host_line_ms,
        "selected_fill": by_fill,
        "selected_line": by_line,
    }


class Peer(unohelper.Base, XJob):
    def __init__(self, context):
        self.context = context

    def execute(self, arguments):
        """Takes the document as the argument `Document`, returns the figures as JSON."""
        document = next(given.Value for given in arguments if given.Name == "Document")
        return json.dumps(measure(self.context, document))


g_ImplementationHelper = unohelper.ImplementationHelper()
g_ImplementationHelper.addImplementation(Peer, IMPLEMENTATION, ("com.sun.star.task.Job",))
