"""The peer in Python: what a user would write with PyUNO to do the add-in's work.

A UNO component that the office loads into its own process, so that no call crosses a bridge. Its
job selects by fill and by line as the first shape has it, walks the drawing shapes of the document
and sorts them by fill, gives a quarter of the fills a new colour, and returns the milliseconds of
each as JSON. Nothing is read that is not needed: the kind of fill first, then only what that kind
has. The selections come first because each would be a command of its own: no shape is held from a
walk before.
"""

import json
from time import perf_counter

import unohelper
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
    applied = 0
    document.lockControllers()
    for number, (key, shapes) in enumerate(fills.items()):
        if number % 4:
            continue
        is_solid = key[0] == "solid"
        for shape in shapes:
            if not is_solid:
                shape.FillStyle = SOLID
            shape.FillColor = NEW_COLOR
        applied += len(shapes)
    document.unlockControllers()
    return applied


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
