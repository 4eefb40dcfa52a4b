"""Rungs of a ladder: devices, contacts and terminals in series, branches, and
the numbers of the wires between them."""

from dataclasses import dataclass

import symbols
from sheet import RAIL_LEFT, RAIL_RIGHT

COIL_X = 258.0
PLUS, MINUS = "24P", "0V"
NUMBERED = None  # as the end of a rung: a wire of its own, with a number


def rung(sheet, number, items, start=RAIL_LEFT, end=RAIL_RIGHT, start_wire=PLUS, end_wire=MINUS):
    """Draws `items` from left to right on line `number`, with the wires between.

    The wire in front of the first device is `start_wire`, the one behind the
    last device `end_wire`; these have their names from elsewhere and get no
    number. Every other wire is numbered.
    """
    y, x = sheet.y(number), start
    sheet.dots(*[(at, y) for at in (start, end) if at in (RAIL_LEFT, RAIL_RIGHT)])
    wire = start_wire
    last_device = max(i for i, item in enumerate(items) if not item.passes_wire)
    for index, item in enumerate(items):
        left, right = item.span()
        sheet.wire((x, y), (left, y))
        item.place(sheet, number, y, wire)
        x = right
        if item.passes_wire:
            continue
        next_x = items[index + 1].span()[0] if index + 1 < len(items) else end
        wire = end_wire if index == last_device else NUMBERED
        if wire is NUMBERED:
            wire = sheet.next_wire_number(number)
            sheet.wire_number((x + next_x) / 2, y, wire)
    sheet.wire((x, y), (end, y))


def branch(sheet, number, upper, items, start, end):
    """A rung between two nodes of the line `upper` above it; None is a rail."""
    y, upper_y = sheet.y(number), sheet.y(upper)
    nodes = [at for at in (start, end) if at is not None]
    left = RAIL_LEFT if start is None else start
    right = RAIL_RIGHT if end is None else end
    rung(sheet, number, items, left, right, PLUS if start is None else "", "")
    for x in nodes:
        sheet.wire((x, y), (x, upper_y))
        sheet.dots((x, upper_y))


@dataclass(frozen=True)
class Part:
    """A device of two connections in a rung."""

    x: float
    symbol: object
    tag: str
    desc: str = ""
    kind: str = ""  # of a contact: "NO" or "NC"
    extra: tuple = ()
    passes_wire = False

    def span(self):
        return self.x, self.x + symbols.WIDTH

    def place(self, sheet, number, y, _wire):
        if self.kind:
            sheet.contact(self.symbol, self.x, y, number, self.tag, self.kind, **dict(self.extra))
        else:
            tag, desc = self.tag, self.desc
            sheet.component(self.symbol, self.x, y, number, tag, desc, **dict(self.extra))


@dataclass(frozen=True)
class Term:
    """A terminal in a rung; the wire keeps its number through it."""

    x: float
    strip: str
    number: str
    passes_wire = True

    def span(self):
        return self.x - 1.2, self.x + 1.2

    def place(self, sheet, number, y, wire):
        sheet.terminal(self.x, y, number, self.strip, self.number, wire)


def no(x, tag, pins=("13", "14"), symbol=symbols.CONTACT_NO):
    return Part(x, symbol, tag, kind="NO", extra=(("TERM01", pins[0]), ("TERM02", pins[1])))


def nc(x, tag, pins=("21", "22"), symbol=symbols.CONTACT_NC):
    return Part(x, symbol, tag, kind="NC", extra=(("TERM01", pins[0]), ("TERM02", pins[1])))


def coil(tag, desc, symbol=symbols.COIL):
    return Part(COIL_X, symbol, tag, desc)
