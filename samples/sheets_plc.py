"""The PLC sheets: one module of eight inputs, one of eight outputs."""

import symbols
from rungs import MINUS, NUMBERED, PLUS, Part, Term, coil, nc, no, rung
from sheet import LINE_PITCH, RAIL_LEFT, RAIL_RIGHT, Sheet

CHANNELS = 8
FIRST = 2  # line of the first channel
INPUT_X, OUTPUT_X = 225.0, 75.0
INPUT_MODULE = symbols.plc_block("KQ_PLCI8", CHANNELS, True, LINE_PITCH)
OUTPUT_MODULE = symbols.plc_block("KQ_PLCO8", CHANNELS, False, LINE_PITCH)

# (function, note, device in front of the input)
INPUTS = (
    ("PUMP 1 RUNNING", "contactor auxiliary", no(90, "K2002", ("53", "54"))),
    ("PUMP 2 RUNNING", "contactor auxiliary", no(90, "K2102", ("53", "54"))),
    ("PUMP 1 HEALTHY", "trip relay", nc(90, "CR2008", ("31", "32"))),
    ("PUMP 2 HEALTHY", "trip relay", nc(90, "CR2108", ("31", "32"))),
    ("HIGH LEVEL", "float relay", no(90, "CR4002", ("23", "24"))),
    ("DRY RUN", "float relay", no(90, "CR4004", ("33", "34"))),
    ("OVERFLOW", "relay in Gebäude Nord", no(90, "CR5002", ("33", "34"))),
    ("FAULT RESET", "door of panel", Part(90, symbols.PUSH_NO, "PB", "FAULT RESET")),
)

# (function, note, load); a channel without a load is a spare on a terminal.
OUTPUTS = (
    ("PUMP 1 START", "to sheet 20", coil("CR", "PUMP 1 START")),
    ("PUMP 2 START", "to sheet 21", coil("CR", "PUMP 2 START")),
    ("FAN ON", "to sheet 22", coil("CR", "FAN ON")),
    ("PLC ALARM", "to sheet 22", coil("CR", "PLC ALARM")),
    ("AUTOMATIC", "door of panel", coil("PL", "AUTOMATIC, BLUE", symbols.LAMP)),
    ("TELEMETRY PULSE", "to modem", coil("CR", "TELEMETRY")),
    ("SPARE", "", None),
    ("SPARE", "", None),
)


def _module(sheet, block, x, letter, title, channels):
    values = {"DESC1": title}
    for index, (function, _, _) in enumerate(channels):
        values[f"TERM{index + 1:02d}"] = str(index + 1)
        values[f"TAGA{index + 1:02d}"] = f"{letter}0.{index}"
        values[f"DESC{index + 1:02d}A"] = function
    more = {tag: value for tag, value in values.items() if tag != "DESC1"}
    sheet.component(block, x, sheet.y(FIRST), FIRST, "PLC", title, **more)


def _remarks(sheet, letter, channels):
    for index, (function, note, _) in enumerate(channels):
        sheet.remark(FIRST + index, f"{letter}0.{index}  {function}", note)


def inputs(info):
    sheet = Sheet(info)
    sheet.heading("PLC DIGITAL INPUTS I0.0 TO I0.7, 24 V DC")
    sheet.ladder()
    _module(sheet, INPUT_MODULE, INPUT_X, "I", "8 DI 24 V DC", INPUTS)
    for index, (_, _, device) in enumerate(INPUTS):
        items = [device, Term(175, "X3", str(index + 3))]
        rung(sheet, FIRST + index, items, end=INPUT_X, end_wire=NUMBERED)
    _common(sheet, INPUT_X, "M", RAIL_RIGHT, MINUS)
    _remarks(sheet, "I", INPUTS)
    return sheet


def outputs(info):
    sheet = Sheet(info)
    sheet.heading("PLC DIGITAL OUTPUTS Q0.0 TO Q0.7, 24 V DC 0.5 A")
    sheet.ladder()
    _module(sheet, OUTPUT_MODULE, OUTPUT_X, "Q", "8 DO 24 V DC", OUTPUTS)
    for index, (_, _, load) in enumerate(OUTPUTS):
        _output(sheet, FIRST + index, load, str(index + 11))
    _common(sheet, OUTPUT_X, "L+", RAIL_LEFT, PLUS)
    _remarks(sheet, "Q", OUTPUTS)
    return sheet


def _output(sheet, number, load, terminal):
    y, start = sheet.y(number), OUTPUT_X + 50
    wire = sheet.next_wire_number(number)
    sheet.wire_number(150, y, wire)
    if load is None:
        sheet.wire((start, y), (198.8, y))
        sheet.terminal(200, y, number, "X3", terminal, wire)
        return
    items = [Term(200, "X3", terminal), load]
    rung(sheet, number, items, start=start, start_wire=wire)


def _common(sheet, x, name, rail, wire):
    """The module's supply pin, wired to a rail above the first channel."""
    y, pin = sheet.y(FIRST) + 5, x if rail < x else x + 50
    sheet.wire((pin, y), (rail, y))
    sheet.dots((rail, y))
    inner = pin + (2 if pin == x else -2)
    sheet.note(inner, y - 0.9, name, 2.0, 0 if pin == x else 2, "TAGS")
    sheet.wire_number((pin + rail) / 2, y, wire)
