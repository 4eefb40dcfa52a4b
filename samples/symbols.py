"""Blocks of the demo drawings: two-pole symbols of 15 units from connection to
connection, three-pole symbols with a pole spacing of 10, and the boxes."""

from dxf_writer import (
    CENTER,
    LEFT,
    MIDDLE,
    RIGHT,
    AttDef,
    Block,
    arc,
    circle,
    dot,
    line,
    polyline,
    rectangle,
    text,
)

SYMS = "SYMS"
WIDTH = 15.0
COIL_LIST_X = 44.0  # of the list of contacts, right of the ladder
POLES = (10.0, 0.0, -10.0)


def _tag(x, y, tag="TAG1", height=2.5):
    return AttDef(tag, x, y, "TAGS", height, CENTER)


def _component_attributes(tag, tag_y, desc_y, middle=7.5):
    layer = "DESC" if tag == "TAG1" else "DESCCHILD"
    return [
        _tag(middle, tag_y, tag),
        AttDef("DESC1", middle, desc_y, layer, 1.8, CENTER),
    ]


def _pins(first=None, second=None, y=1.4):
    if first is None:
        return []
    return [
        AttDef("TERM01", 4.4, y, "TERMS", 1.5, RIGHT, default=first),
        AttDef("TERM02", 11.2, y, "TERMS", 1.5, LEFT, default=second),
    ]


def _leads(left, right, y=0.0):
    return [line(0, y, left, y, SYMS), line(right, y, WIDTH, y, SYMS)]


def _make_contact(y=0.0):
    return _leads(5, 10, y) + [line(5, y, 10.3, y + 3, SYMS)]


def _break_contact(y=0.0):
    tick = line(10, y, 10, y + 3.4, SYMS)
    return _leads(5, 10, y) + [line(5, y, 10.8, y + 3.1, SYMS), tick]


def _push_head():
    cap = polyline([(5.5, 4.6), (5.5, 5.8), (9.9, 5.8), (9.9, 4.6)], SYMS)
    return [line(7.7, 1.6, 7.7, 5.8, SYMS, "DASHED")] + cap


def _mushroom_head():
    return [line(7.7, 1.6, 7.7, 4.8, SYMS, "DASHED"), arc(7.7, 3.6, 2.6, 28, 152, SYMS)]


def _turn_head():
    handle = polyline([(6.2, 4.6), (6.2, 5.6), (9.2, 5.6), (9.2, 6.6)], SYMS)
    return [line(7.7, 1.6, 7.7, 5.6, SYMS, "DASHED")] + handle


def _float_head():
    return [line(7.7, 1.6, 7.7, 4.6, SYMS, "DASHED"), circle(7.7, 6.0, 1.4, SYMS)]


def _thermal_head():
    return [line(7.7, 1.6, 7.7, 4.2, SYMS, "DASHED")] + rectangle(6, 4.2, 9.4, 6.4, SYMS) + [
        line(6.9, 5.3, 8.5, 5.3, SYMS)
    ]


def _coil():
    return _leads(4.5, 10.5) + rectangle(4.5, -4, 10.5, 4, SYMS)


def _lamp():
    cross = [line(4.67, -2.83, 10.33, 2.83, SYMS), line(4.67, 2.83, 10.33, -2.83, SYMS)]
    return _leads(3.5, 11.5) + [circle(7.5, 0, 4, SYMS)] + cross


def _horn():
    dome = [arc(7.5, -2, 4, 0, 180, SYMS), line(3.5, -2, 11.5, -2, SYMS)]
    return dome + polyline([(0, 0), (2, 0), (2, -3.6), (5.5, -3.6), (5.5, -2)], SYMS) + polyline(
        [(WIDTH, 0), (13, 0), (13, -3.6), (9.5, -3.6), (9.5, -2)], SYMS
    )


def _counter():
    window = rectangle(5.3, -1.3, 9.7, 1.3, SYMS)
    return _leads(3.5, 11.5) + rectangle(3.5, -4, 11.5, 4, SYMS) + window


def _hours_meter():
    return _leads(3.5, 11.5) + rectangle(3.5, -4, 11.5, 4, SYMS) + [
        text(7.5, 0, "h", SYMS, 3, CENTER, MIDDLE)
    ]


def _fuse(y=0.0):
    return rectangle(3, y - 1.5, 12, y + 1.5, SYMS) + [line(0, y, WIDTH, y, SYMS)]


def _heater():
    bars = [line(x, -2, x, 2, SYMS) for x in (5, 7.5, 10)]
    return _leads(2.5, 12.5) + rectangle(2.5, -2, 12.5, 2, SYMS) + bars


def _parent(name, entities, pins, tag_y=7.5, desc_y=-5.0):
    attdefs = _component_attributes("TAG1", tag_y, desc_y) + _pins(*pins)
    return Block(name, entities, attdefs)


def _coil_block(name, entities):
    block = _parent(name, entities, ("A1", "A2"), 5.5, -6.8)
    for kind, y in (("NO", -7.6), ("NC", -10.6)):
        block.entities.append(text(COIL_LIST_X, y, kind, "XREF", 1.8))
        block.attdefs.append(AttDef("XREF" + kind, COIL_LIST_X + 6, y, "XREF", 1.8))
    return block


def _child(name, entities, pins):
    attdefs = _component_attributes("TAG2", 5.0, -5.0) + _pins(*pins)
    attdefs.append(AttDef("XREF", 7.5, -2.6, "XREFCHILD", 1.5, CENTER))
    return Block(name, entities, attdefs)


def _three_poles(name, pole, pins, tag="TAG1", link=True):
    """`pole` draws one pole at a height; the tag stands over the upper pole."""
    entities = [entity for y in POLES for entity in pole(y)]
    entities += [line(7.7, 11.6, 7.7, -8.4, SYMS, "DASHED")] if link else []
    layer = "DESC" if tag == "TAG1" else "DESCCHILD"
    attdefs = [_tag(7.5, 15.5, tag), AttDef("RATING1", 7.5, -15.5, layer, 1.8, CENTER)]
    for index, (y, pair) in enumerate(zip(POLES, pins)):
        for side, (x, halign) in enumerate(((4.4, RIGHT), (11.2, LEFT))):
            pin = f"TERM{2 * index + side + 1:02d}"
            attdefs.append(AttDef(pin, x, y + 1.7, "TERMS", 1.5, halign, default=pair[side]))
    if tag == "TAG2":
        attdefs.append(AttDef("XREF", 7.5, -18.3, "XREFCHILD", 1.5, CENTER))
    return Block(name, entities, attdefs)


def _power_contact(y):
    return _make_contact(y) + [arc(10.9, y, 0.9, 90, 270, SYMS)]


def _breaker_pole(y):
    cross = [line(9.2, y - 0.8, 10.8, y + 0.8, SYMS), line(9.2, y + 0.8, 10.8, y - 0.8, SYMS)]
    return _make_contact(y) + cross


def _isolator_pole(y):
    return _make_contact(y) + [line(10, y - 1.2, 10, y + 1.2, SYMS)]


def _thermal_pole(y):
    step = [(0, y), (5, y), (5, y + 1.5), (9, y + 1.5), (9, y), (WIDTH, y)]
    return polyline(step, SYMS) + rectangle(3, y - 2.6, 11, y + 2.6, SYMS)


def _arrester_pole(y):
    return _leads(3, 12, y) + rectangle(3, y - 1.8, 12, y + 1.8, SYMS) + polyline(
        [(4, y - 1.2), (10, y + 1.2), (8.4, y + 1.3)], SYMS
    )


def _motor():
    leads = [line(0, 10, 6.6, 7.2, SYMS), line(0, 0, 3, 0, SYMS), line(0, -10, 6.6, -7.2, SYMS)]
    body = [circle(13, 0, 10, SYMS), text(13, 1.2, "M", SYMS, 5, CENTER)]
    attdefs = [
        _tag(13, 13.0, height=3),
        AttDef("DESC1", 25, 1.5, "DESC", 2.5),
        AttDef("RATING1", 25, -2.5, "DESC", 2.0),
        AttDef("RATING2", 25, -6.0, "DESC", 2.0),
    ]
    return Block("KQ_HMOT3", leads + body + [text(13, -4.5, "3~", SYMS, 3, CENTER)], attdefs)


def _terminal():
    attdefs = [
        AttDef("TAGSTRIP", 0, 4.6, "TAGS", 1.8, CENTER),
        AttDef("TERM01", 0, 2.0, "TERMS", 1.8, CENTER),
        AttDef("WIRENO", 0, 2.0, "WIREREF", 1.5, visible=False),
    ]
    return Block("KQ_HT1", [circle(0, 0, 1.2, SYMS)], attdefs)


def _wire_number():
    return Block("KQ_WNH", [], [AttDef("WIRENO", 0, 0.9, "WIRENO", 2.0, CENTER)])


def _arrow(name, source):
    """A signal arrow: a source points away to another sheet, a destination in."""
    shape = [(0, 0), (4, 1.6), (4, -1.6)] if not source else [(4, 0), (0, 1.6), (0, -1.6)]
    x, halign = (5.5, LEFT) if source else (-1.5, RIGHT)
    attdefs = [
        AttDef("SIGCODE", x, -1.0, "MISC", 2.2, halign),
        AttDef("XREF", x + (7.0 if source else -6.5), -1.0, "XREF", 1.8, halign),
    ]
    return Block(name, polyline(shape, SYMS, closed=True), attdefs)


def _earth():
    bars = [line(-w, y, w, y, SYMS) for w, y in ((3, -3), (2, -4), (1, -5))]
    return Block("KQ_PE", [line(0, 0, 0, -3, SYMS)] + bars, [])


def _ladder_reference():
    attdefs = [
        AttDef("FIRST", 0, 0, "LDR", 0.2, visible=False),
        AttDef("WIREFMT", 0, -1.5, "LDR", 0.2, visible=False),
        AttDef("COUNT", 0, -3, "LDR", 0.2, visible=False),
    ]
    return Block("KQ_MLRH", [], attdefs)


def plc_block(name, channels, inputs, pitch):
    """A module: one channel per line; inputs connect at the left, outputs right."""
    width, top = 50.0, 8.0
    bottom = -pitch * (channels - 1) - 8.0
    side, inner, halign = (0.0, 2.0, LEFT) if inputs else (width, width - 2.0, RIGHT)
    pin_x, pin_halign = (-1.5, RIGHT) if inputs else (width + 1.5, LEFT)
    attdefs = [_tag(width / 2, top + 5), AttDef("DESC1", width / 2, top + 1.6, "DESC", 2, CENTER)]
    entities = rectangle(0, bottom, width, top, SYMS)
    for index in range(channels):
        y, number = -pitch * index, f"{index + 1:02d}"
        entities.append(circle(side, y, 0.8, SYMS))
        attdefs.append(AttDef("TERM" + number, pin_x, y + 1.2, "TERMS", 1.6, pin_halign))
        attdefs.append(AttDef("TAGA" + number, inner, y + 0.6, "TAGS", 2.2, halign))
        attdefs.append(AttDef("DESC" + number + "A", inner, y - 3.0, "DESC", 1.8, halign))
    return Block(name, entities, attdefs)


def device_box(name, width, height, pins):
    """A plain device with named pins; `pins` holds (x, y, name, text side)."""
    attdefs = [
        _tag(width / 2, height + 2.0),
        AttDef("DESC1", width / 2, height / 2, "DESC", 2.0, CENTER),
        AttDef("RATING1", width / 2, height / 2 - 3.6, "DESC", 1.8, CENTER),
    ]
    for index, (x, y, label, halign) in enumerate(pins):
        shift = 1.5 if halign == LEFT else -1.5
        term = f"TERM{index + 1:02d}"
        attdefs.append(AttDef(term, x + shift, y - 0.8, "TERMS", 1.6, halign, 0, True, label))
    return Block(name, rectangle(0, 0, width, height, SYMS), attdefs)


PUSH_NO = _parent("KQ_HPB11", _make_contact() + _push_head(), ("13", "14"))
PUSH_NC = _parent("KQ_HPB12", _break_contact() + _push_head(), ("11", "12"))
ESTOP_NC = _parent("KQ_HES12", _break_contact() + _mushroom_head(), ("11", "12"))
SELECTOR_NO = _parent("KQ_HSS11", _make_contact() + _turn_head(), ("13", "14"), 8.2)
FLOAT_NO = _parent("KQ_HFS11", _make_contact() + _float_head(), ("1", "2"), 8.8)
FLOAT_NC = _parent("KQ_HFS12", _break_contact() + _float_head(), ("1", "2"), 8.8)
THERMOSTAT_NO = _parent("KQ_HTS11", _make_contact() + _thermal_head(), ("1", "2"), 8.2)
LAMP = _parent("KQ_HLT1", _lamp(), ("X1", "X2"), 5.5, -7.0)
HORN = _parent("KQ_HAN1", _horn(), ("1", "2"), 4.0, -7.0)
COUNTER = _parent("KQ_HCT1", _counter(), ("1", "2"), 5.5, -7.0)
HOURS = _parent("KQ_HHM1", _hours_meter(), ("1", "2"), 5.5, -7.0)
FUSE = _parent("KQ_HFU1", _fuse(), (), 3.6)
HEATER = _parent("KQ_HHT1", _heater(), ("1", "2"), 4.0)
COIL = _coil_block("KQ_HCR1", _coil())
CONTACT_NO = _child("KQ_HCR21", _make_contact(), ("13", "14"))
CONTACT_NC = _child("KQ_HCR22", _break_contact(), ("21", "22"))
SELECTOR_CHILD = _child("KQ_HSS21", _make_contact(), ("23", "24"))
OVERLOAD_NO = _child("KQ_HOL21", _make_contact(), ("97", "98"))
OVERLOAD_NC = _child("KQ_HOL22", _break_contact(), ("95", "96"))

PHASE_PINS = (("1", "2"), ("3", "4"), ("5", "6"))
FUSE3 = _three_poles("KQ_HFU3", _fuse, PHASE_PINS, link=False)
BREAKER3 = _three_poles("KQ_HCB3", _breaker_pole, PHASE_PINS)
ISOLATOR3 = _three_poles("KQ_HDS3", _isolator_pole, PHASE_PINS)
CONTACTOR3 = _three_poles("KQ_HMS3", _power_contact, PHASE_PINS, tag="TAG2")
OVERLOAD3 = _three_poles("KQ_HOL3", _thermal_pole, (), link=False)
ARRESTER3 = _three_poles("KQ_HSA3", _arrester_pole, (), link=False)
OVERLOAD3.attdefs.append(AttDef("XREFNO", 7.5, -18.6, "XREF", 1.6, CENTER))
OVERLOAD3.attdefs.append(AttDef("XREFNC", 7.5, -21.4, "XREF", 1.6, CENTER))
MOTOR3 = _motor()
TERMINAL = _terminal()
WIRE_NUMBER = _wire_number()
SOURCE = _arrow("KQ_HSA_S", True)
DESTINATION = _arrow("KQ_HSA_D", False)
EARTH = _earth()
DOT = Block("KQ_WDOT", dot(0, 0, 0.7, "WIRES"), [])
LADDER_REFERENCE = _ladder_reference()
