"""One sheet of the package: frame and title block, settings block, ladder,
components, wires with their numbers, and terminals."""

from dataclasses import dataclass

import drawing_settings as settings
import symbols
from dxf_writer import CENTER, LEFT, RIGHT, Drawing, Insert, line, text
from title_block import FRAME, TITLE_A

PAGE = (420.0, 297.0)
LINE_PITCH = 20.0
FIRST_LINE_Y = 256.0
LINE_COUNT = 10
RAIL_LEFT, RAIL_RIGHT = 45.0, 285.0
REMARK_X = 302.0

LAYERS = (
    ("0", 7),
    ("FRAME", 8),
    ("TITLE", 7),
    ("SYMS", 7),
    ("WIRES", 3),
    ("WIRES_PWR", 1),
    ("WIRES_PE", 94, "DASHED"),
    ("WIRENO", 4),
    ("WIRECOPY", 4),
    ("WIREFIXED", 4),
    ("WIREREF", 8),
    ("TAGS", 2),
    ("TAGFIXED", 2),
    ("DESC", 7),
    ("DESCCHILD", 8),
    ("TERMS", 6),
    ("XREF", 140),
    ("XREFCHILD", 140),
    ("LOC", 8),
    ("LOCBOX", 30, "DASHED"),
    ("LINK", 8, "DASHED"),
    ("POS", 8),
    ("MISC", 7),
    ("LDR", 8),
    ("SETTINGS", 9),
)


@dataclass(frozen=True)
class TerminalUse:
    """A terminal as drawn: the terminal plan is made from these."""

    strip: str
    number: str
    reference: str
    wire: str


@dataclass(frozen=True)
class ContactUse:
    """A contact of a device whose coil or power poles are drawn elsewhere."""

    tag: str
    kind: str  # "NO", "NC" or "PWR"
    reference: str
    pins: tuple = ()


class Sheet:
    """A drawing with a sheet number; references are sheet and line, as "2003"."""

    def __init__(self, info):
        self.info = info
        self.drawing = Drawing(LAYERS, *PAGE)
        self.terminals = []
        self.contacts = []
        self.parents = {}
        self._wire_counts = {}

    def finish(self, revision_date, sheet_total):
        """Adds the frame, the title block and the settings of the drawing."""
        info = self.info
        values = {
            "TITLE1": info.title,
            "TITLE2": info.subtitle,
            "DWGNO": info.number,
            "SHEET": info.sheet,
            "SHEETS": str(sheet_total),
            "INST": "=" + info.installation,
            "LOC": "+" + info.location,
            "DATE": revision_date,
        }
        own = {
            settings.SHEET: info.sheet,
            settings.SHEETDWGNAME: info.number,
            settings.IEC_PROJ: "PS01",
            settings.IEC_INST: info.installation,
            settings.IEC_LOC: info.location,
        }
        self.drawing.add(Insert(FRAME, 0, 0, "FRAME"), Insert(TITLE_A, 0, 0, "TITLE", values))
        self.drawing.add(settings.settings_reference(15.0, 280.0, own))

    def y(self, number):
        return FIRST_LINE_Y - LINE_PITCH * (number - 1)

    def reference(self, number):
        return f"{self.info.sheet}{number:02d}"

    def add(self, *items):
        self.drawing.add(*items)

    def note(self, x, y, content, height=2.5, halign=LEFT, layer="MISC"):
        self.add(text(x, y, content, layer, height, halign))

    def heading(self, content):
        self.note(RAIL_LEFT - 15, 279, content, 4.0, layer="DESC")

    def line_references(self, count=LINE_COUNT):
        """The ladder's reference block and the numbers of its lines."""
        values = {"FIRST": "01", "WIREFMT": settings.value_of("WIREFMT"), "COUNT": str(count)}
        origin = (RAIL_LEFT - 19, self.y(1))
        self.add(Insert(symbols.LADDER_REFERENCE, *origin, "LDR", values))
        for number in range(1, count + 1):
            self.note(RAIL_LEFT - 13, self.y(number) - 1.2, f"{number:02d}", 2.5, RIGHT, "LDR")

    def ladder(self, left="24P", right="0V", count=LINE_COUNT):
        """Two rails and the line references beside the left one."""
        self.line_references(count)
        top, bottom = self.y(1) + 6, self.y(count) - 6
        for x, name in ((RAIL_LEFT, left), (RAIL_RIGHT, right)):
            self.add(line(x, top, x, bottom, "WIRES"))
            self.note(x, top + 1.5, name, 2.5, CENTER, "WIRENO")

    def remark(self, number, *lines):
        """Text at the right of the ladder; the first line names the function."""
        for index, content in enumerate(lines):
            height = 2.5 if index == 0 else 2.0
            layer = "DESC" if index == 0 else "MISC"
            self.note(REMARK_X, self.y(number) + 0.8 - 4.0 * index, content, height, LEFT, layer)

    def wire(self, *points, layer="WIRES"):
        for a, b in zip(points, points[1:]):
            self.add(line(*a, *b, layer))

    def dots(self, *points):
        for x, y in points:
            self.add(Insert(symbols.DOT, x, y, "WIRES"))

    def next_wire_number(self, number):
        """Reference based: 2003, 2003A, 2003B ... on line 3 of sheet 20."""
        suffixes = settings.value_of("WIRE-RSUF").split(",")
        count = self._wire_counts.get(number, 0)
        self._wire_counts[number] = count + 1
        return self.reference(number) + suffixes[count]

    def wire_number(self, x, y, value):
        self.add(Insert(symbols.WIRE_NUMBER, x, y, "WIRENO", {"WIRENO": value}))

    def component(self, symbol, x, y, number, tag, desc="", **more):
        """A device that owns its tag; a family letter makes the tag by reference."""
        tag = tag if any(char.isdigit() for char in tag) else tag + self.reference(number)
        insert = Insert(symbol, x, y, "SYMS", {"TAG1": tag, "DESC1": desc, **more})
        self.parents[tag] = insert
        self.add(insert)
        return tag

    def contact(self, symbol, x, y, number, tag, kind, **more):
        """A contact of the device `tag`, with the place of its coil as reference."""
        place = tag.lstrip("ABCDEFGHIJKLMNOPQRSTUVWXYZ")[:4]
        self.add(Insert(symbol, x, y, "SYMS", {"TAG2": tag, "XREF": place, **more}))
        pins = (more["TERM01"], more["TERM02"]) if "TERM01" in more else ()
        self.contacts.append(ContactUse(tag, kind, self.reference(number), pins))

    def terminal(self, x, y, number, strip, terminal, wire=""):
        values = {"TAGSTRIP": strip, "TERM01": terminal, "WIRENO": wire}
        self.add(Insert(symbols.TERMINAL, x, y, "SYMS", values))
        self.terminals.append(TerminalUse(strip, terminal, self.reference(number), wire))
