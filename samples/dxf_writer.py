"""A small writer of drawings: DXF text content in its release 12 form.

Only what the demo project needs: lines, circles, arcs, texts, filled dots and
block references with attributes. The output depends on nothing but the input:
no time stamps, handles given in writing order.
"""

from dataclasses import dataclass, field

CODE_PAGE = "cp1252"
LINE_END = "\r\n"
LEFT, CENTER, RIGHT = 0, 1, 2
BASELINE, MIDDLE = 0, 2
TEXT_WIDTH_FACTOR = 0.8


@dataclass(frozen=True)
class Entity:
    """One simple entity: its type, its layer and its own groups."""

    kind: str
    layer: str
    groups: tuple


@dataclass(frozen=True)
class AttDef:
    """An attribute of a block, placed relative to the block's base point."""

    tag: str
    x: float
    y: float
    layer: str
    height: float = 2.5
    halign: int = LEFT
    valign: int = BASELINE
    visible: bool = True
    default: str = ""


@dataclass
class Block:
    """A block definition."""

    name: str
    entities: list = field(default_factory=list)
    attdefs: list = field(default_factory=list)


@dataclass
class Insert:
    """A reference to a block; `values` holds the attribute values by tag."""

    block: Block
    x: float
    y: float
    layer: str
    values: dict = field(default_factory=dict)


def real(value):
    text = f"{value:.4f}".rstrip("0")
    text = text + "0" if text.endswith(".") else text
    return "0.0" if text == "-0.0" else text


def encode_text(text):
    """`text` with an escape for every character that the code page lacks."""
    result = []
    for char in text:
        try:
            char.encode(CODE_PAGE)
            result.append(char)
        except UnicodeEncodeError:
            result.append(f"\\U+{ord(char):04X}")
    return "".join(result)


def flat_point(x, y, shift=0):
    return ((10 + shift, real(x)), (20 + shift, real(y)))


def point(x, y, shift=0):
    return flat_point(x, y, shift) + ((30 + shift, "0.0"),)


def line(x1, y1, x2, y2, layer, linetype=None):
    style = ((6, linetype),) if linetype else ()
    return Entity("LINE", layer, style + flat_point(x1, y1) + flat_point(x2, y2, 1))


def polyline(points, layer, linetype=None, closed=False):
    """Separate lines from point to point; closed runs back to the first."""
    ends = points[1:] + (points[:1] if closed else [])
    return [line(*a, *b, layer, linetype) for a, b in zip(points, ends)]


def rectangle(x1, y1, x2, y2, layer, linetype=None):
    corners = [(x1, y1), (x2, y1), (x2, y2), (x1, y2)]
    return polyline(corners, layer, linetype, closed=True)


def circle(x, y, radius, layer):
    return Entity("CIRCLE", layer, flat_point(x, y) + ((40, real(radius)),))


def arc(x, y, radius, start, end, layer):
    angles = ((40, real(radius)), (50, real(start)), (51, real(end)))
    return Entity("ARC", layer, flat_point(x, y) + angles)


def dot(x, y, radius, layer):
    """A filled dot: a circle around a solid square."""
    half = radius * 0.7
    square = ((-half, -half), (half, -half), (-half, half), (half, half))
    corners = [flat_point(x + dx, y + dy, shift) for shift, (dx, dy) in enumerate(square)]
    return [circle(x, y, radius, layer), Entity("SOLID", layer, sum(corners, ()))]


def _text_place(x, y, height, halign, valign, valign_code):
    groups = flat_point(x, y) + ((40, real(height)), (41, real(TEXT_WIDTH_FACTOR)))
    aligned = ()
    if halign or valign:
        vertical = ((valign_code, str(valign)),) if valign else ()
        aligned = ((72, str(halign)),) + vertical + flat_point(x, y, 1)
    return groups, aligned


def text(x, y, content, layer, height=2.5, halign=LEFT, valign=BASELINE):
    groups, aligned = _text_place(x, y, height, halign, valign, 73)
    return Entity("TEXT", layer, groups + ((1, encode_text(content)),) + aligned)


def _attribute(kind, attdef, x, y, value):
    """An attribute definition (kind ATTDEF) or an attribute (kind ATTRIB)."""
    prompt = ((3, attdef.tag),) if kind == "ATTDEF" else ()
    flags = ((70, "0" if attdef.visible else "1"),)
    if attdef.visible:
        place, aligned = _text_place(x, y, attdef.height, attdef.halign, attdef.valign, 74)
    else:
        place, aligned = point(x, y) + ((40, real(attdef.height)),), ()
    content = ((1, encode_text(value)),) + prompt + ((2, attdef.tag),)
    return Entity(kind, attdef.layer, place + content + flags + aligned)


class Drawing:
    """A drawing in the making: layers, entities and the blocks in use."""

    def __init__(self, layers, width, height):
        self.layers = list(layers)  # (name, colour, line type)
        self.size = (width, height)
        self.items = []

    def add(self, *items):
        for item in items:
            if isinstance(item, list):
                self.items.extend(item)
            else:
                self.items.append(item)

    def to_bytes(self):
        return _Serializer(self).run().encode(CODE_PAGE)


class _Serializer:
    """Turns one drawing into DXF text."""

    def __init__(self, drawing):
        self.drawing = drawing
        self.lines = []
        self.handle = 0x20

    def run(self):
        body = self._collect(self._tables, self._blocks, self._entities)
        header = self._collect(self._header)
        return header + body + self._collect(lambda: self._put(0, "EOF"))

    def _collect(self, *steps):
        self.lines = []
        for step in steps:
            step()
        return "".join(part + LINE_END for part in self.lines)

    def _put(self, code, value):
        self.lines.append(str(code))
        self.lines.append(value)

    def _put_all(self, groups):
        for code, value in groups:
            self._put(code, value)

    def _next_handle(self):
        self.handle += 1
        return f"{self.handle - 1:X}"

    def _open_section(self, name):
        self._put_all(((0, "SECTION"), (2, name)))

    def _header(self):
        width, height = self.drawing.size
        self._open_section("HEADER")
        variables = (
            ("$DWGCODEPAGE", ((3, "ANSI_1252"),)),
            ("$INSBASE", point(0, 0)),
            ("$EXTMIN", point(0, 0)),
            ("$EXTMAX", point(width, height)),
            ("$LIMMIN", flat_point(0, 0)),
            ("$LIMMAX", flat_point(width, height)),
            ("$LTSCALE", ((40, "1.0"),)),
            ("$ATTMODE", ((70, "1"),)),
            ("$TEXTSTYLE", ((7, "Standard"),)),
            ("$CLAYER", ((8, "0"),)),
            ("$HANDLING", ((70, "1"),)),
            ("$HANDSEED", ((5, f"{self.handle:X}"),)),
        )
        for name, groups in variables:
            self._put(9, name)
            self._put_all(groups)
        self._put(0, "ENDSEC")

    def _table(self, name, records):
        self._put_all(((0, "TABLE"), (2, name), (70, str(len(records)))))
        for record in records:
            self._put_all(((0, name), (5, self._next_handle())))
            self._put_all(record)
        self._put(0, "ENDTAB")

    def _tables(self):
        self._open_section("TABLES")
        self._table("LTYPE", [_solid_linetype(), _dashed_linetype()])
        self._table("LAYER", [_layer(*entry) for entry in self.drawing.layers])
        self._table("STYLE", [_text_style()])
        self._table("APPID", [((2, "DRAFTA"), (70, "0"))])
        self._put(0, "ENDSEC")

    def _blocks(self):
        self._open_section("BLOCKS")
        for name in ("$Model_Space", "$Paper_Space"):
            self._block(Block(name))
        for block in self._used_blocks():
            self._block(block)
        self._put(0, "ENDSEC")

    def _used_blocks(self):
        used = {}
        for item in self.drawing.items:
            if isinstance(item, Insert):
                used.setdefault(item.block.name, item.block)
        return used.values()

    def _block(self, block):
        self._put_all(((0, "BLOCK"), (5, self._next_handle()), (8, "0"), (2, block.name)))
        self._put_all(((70, "2" if block.attdefs else "0"),) + point(0, 0))
        self._put_all(((3, block.name), (1, "")))
        for entity in block.entities:
            self._entity(entity)
        for attdef in block.attdefs:
            self._entity(_attribute("ATTDEF", attdef, attdef.x, attdef.y, attdef.default))
        self._put_all(((0, "ENDBLK"), (5, self._next_handle()), (8, "0")))

    def _entities(self):
        self._open_section("ENTITIES")
        for item in self.drawing.items:
            if isinstance(item, Insert):
                self._insert(item)
            else:
                self._entity(item)
        self._put(0, "ENDSEC")

    def _entity(self, entity):
        self._put_all(((0, entity.kind), (5, self._next_handle()), (8, entity.layer)))
        self._put_all(entity.groups)

    def _insert(self, insert):
        attdefs = insert.block.attdefs
        self._put_all(((0, "INSERT"), (5, self._next_handle()), (8, insert.layer)))
        self._put_all(((66, "1"),) if attdefs else ())
        self._put_all(((2, insert.block.name),) + point(insert.x, insert.y))
        for attdef in attdefs:
            value = insert.values.get(attdef.tag, attdef.default)
            x, y = insert.x + attdef.x, insert.y + attdef.y
            self._entity(_attribute("ATTRIB", attdef, x, y, value))
        if attdefs:
            self._put_all(((0, "SEQEND"), (5, self._next_handle()), (8, insert.layer)))


def _solid_linetype():
    return ((2, "Continuous"), (70, "0"), (3, "Solid line"), (72, "65"), (73, "0"), (40, "0.0"))


def _dashed_linetype():
    head = ((2, "DASHED"), (70, "0"), (3, "__ __ __"), (72, "65"), (73, "2"), (40, "3.0"))
    return head + ((49, "2.0"), (49, "-1.0"))


def _layer(name, colour, linetype="Continuous"):
    return ((2, name), (70, "0"), (62, str(colour)), (6, linetype))


def _text_style():
    groups = ((2, "Standard"), (70, "0"), (40, "0.0"), (41, real(TEXT_WIDTH_FACTOR)))
    return groups + ((50, "0.0"), (71, "0"), (42, "2.5"), (3, "txt"), (4, ""))
