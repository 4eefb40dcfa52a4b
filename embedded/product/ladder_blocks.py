"""The ladder reference blocks: what stands at the first line of a ladder, one block for each way of line
referencing, for horizontal and for vertical ladders. Sizes are in drawing units at unit scale 1."""

import math

from dxf_writer import CENTER, MIDDLE, AttDef, Block, circle, line, polyline, text

LAYER = "LDR"
TEXT_HEIGHT = 0.125
HIDDEN_HEIGHT = 0.02
HEXAGON_RADIUS = 0.25

# What a suffix of the block's name stands for.
PLAIN, GRID, NUMBERS, RULING = "", "X", "1", "2"
SHEET_AND_NUMBERS, SHEET_DASH_NUMBERS, HEXAGON, SHEET_IN_HEXAGON = "6", "7", "8", "9"
STYLES = (
    PLAIN, GRID, NUMBERS, RULING,
    SHEET_AND_NUMBERS, SHEET_DASH_NUMBERS, HEXAGON, SHEET_IN_HEXAGON,
)  # fmt: skip

# (tag, value at insertion) of the attributes that nobody sees: how the ladder goes on.
HIDDEN = (
    ("WIREFMT", "%N"),
    ("COUNT", "1"),
    ("INC", "1"),
    ("RUNGDIST", "0.75"),
    ("DLADW", "4.5"),
)


def _hexagon():
    corners = []
    for side in range(6):
        angle = math.radians(60 * side)
        corners.append((HEXAGON_RADIUS * math.cos(angle), HEXAGON_RADIUS * math.sin(angle)))
    return polyline(corners, LAYER, closed=True)


def _tick(vertical):
    """A short line at right angles to the rail."""
    return [line(0.0, 0.1, 0.0, 0.2, LAYER) if vertical else line(-0.2, 0.0, -0.1, 0.0, LAYER)]


def _entities(style, vertical):
    if style in (HEXAGON, SHEET_IN_HEXAGON):
        return _hexagon()
    if style == RULING:
        return _tick(vertical) + [circle(0.0, 0.0, 0.05, LAYER)]
    if style == GRID:
        return [line(-0.1, 0.0, 0.1, 0.0, LAYER), line(0.0, -0.1, 0.0, 0.1, LAYER)]
    if style == SHEET_DASH_NUMBERS:
        return _tick(vertical) + [text(0.0, 0.0, "-", LAYER, TEXT_HEIGHT, CENTER, MIDDLE)]
    return _tick(vertical)


def _visible(tag, x, y, value):
    return AttDef(tag, x, y, LAYER, TEXT_HEIGHT, CENTER, MIDDLE, default=value)


def _references(style):
    """The reference of the first line and, where the style shows it, the sheet in front of or above it."""
    if style in (SHEET_AND_NUMBERS, SHEET_DASH_NUMBERS):
        return [_visible("FIRST", 0.2, 0.0, "1"), _visible("SHEET", -0.2, 0.0, "")]
    if style == SHEET_IN_HEXAGON:
        return [_visible("FIRST", 0.0, -0.09, "1"), _visible("SHEET", 0.0, 0.09, "")]
    return [_visible("FIRST", 0.0, 0.0, "1")]


def _hidden():
    return [
        AttDef(tag, 0.0, -0.4 - 0.05 * row, LAYER, HIDDEN_HEIGHT, visible=False, default=value)
        for row, (tag, value) in enumerate(HIDDEN)
    ]


def blocks():
    """All sixteen; the entities and attributes are those of the block's own drawing."""
    return [
        Block("KQ_MLR" + direction + style, _entities(style, direction == "V"), _references(style) + _hidden())
        for direction in "HV"
        for style in STYLES
    ]
