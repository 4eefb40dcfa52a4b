"""The power sheets: main supply, pump motors, fan and sump heater."""

import symbols
from dxf_writer import LEFT, RIGHT, Insert
from sheet import Sheet
from symbols import POLES, WIDTH, device_box

BUS_X = (44.0, 50.0, 56.0)  # L1, L2, L3
PHASES = ("L1", "L2", "L3")
ARROW_X = 268.0
PWR = "WIRES_PWR"
EARTH = "WIRES_PE"

POWER_SUPPLY = device_box(
    "KQ_PSU1",
    40.0,
    36.0,
    [(0, 28, "L", LEFT), (0, 8, "N", LEFT), (40, 28, "+", RIGHT), (40, 8, "-", RIGHT)],
)


def triple(sheet, number, x1, x2, numbered=True):
    """Three parallel wires, each with its number; line `number` is the middle."""
    y = sheet.y(number)
    for pole in POLES:
        sheet.wire((x1, y + pole), (x2, y + pole), layer=PWR)
        if numbered:
            sheet.wire_number((x1 + x2) / 2, y + pole, sheet.next_wire_number(number))


def terminals3(sheet, number, x, strip, first):
    for index, pole in enumerate(POLES):
        sheet.terminal(x, sheet.y(number) + pole, number, strip, str(first + index), PHASES[index])


def bus(sheet, top, bottom):
    """The three phases running down, with arrows from the supply sheet."""
    for x, name, pole in zip(BUS_X, PHASES, POLES):
        y = sheet.y(top) + 11 + pole / 2
        values = {"SIGCODE": name, "XREF": "1001"}
        sheet.add(Insert(symbols.DESTINATION, 34.0, y, "SYMS", values))
        sheet.wire((38.0, y), (x, y), (x, sheet.y(bottom) + pole), layer=PWR)


def tap(sheet, number, x2):
    y = sheet.y(number)
    for x, pole in zip(BUS_X, POLES):
        sheet.wire((x, y + pole), (x2, y + pole), layer=PWR)
        sheet.dots((x, y + pole))


def device3(sheet, number, symbol, x, tag, rating):
    sheet.component(symbol, x, sheet.y(number), number, tag, RATING1=rating)


def motor_feeder(sheet, number, coil_tag, first_terminal, ratings, motor):
    """Fuses, contactor, overload and terminals of one motor."""
    y = sheet.y(number)
    fuse, contactor, overload = ratings
    tap(sheet, number, 80)
    device3(sheet, number, symbols.FUSE3, 80, "FU", fuse)
    triple(sheet, number, 80 + WIDTH, 120)
    values = {"RATING1": contactor}
    sheet.contact(symbols.CONTACTOR3, 120, y, number, coil_tag, "PWR", **values)
    triple(sheet, number, 120 + WIDTH, 160)
    device3(sheet, number, symbols.OVERLOAD3, 160, "OL", overload)
    triple(sheet, number, 160 + WIDTH, 250)
    terminals3(sheet, number, 228, "X1", first_terminal)
    desc, power, current = motor
    more = {"RATING1": power, "RATING2": current}
    sheet.component(symbols.MOTOR3, 250, y, number, "M", desc, **more)
    earth_lead(sheet, number, first_terminal + 3)


def earth_lead(sheet, number, terminal):
    """The protective conductor: from the earth bar over a terminal to the motor."""
    y, x = sheet.y(number), 263.0
    sheet.wire((x, y - 10), (x, y - 23), (190, y - 23), layer=EARTH)
    sheet.add(Insert(symbols.EARTH, 190, y - 23, "SYMS"))
    sheet.terminal(228, y - 23, number, "X1", str(terminal), "PE")


def supply(info):
    sheet = Sheet(info)
    sheet.heading("INCOMING SUPPLY 3/N/PE 400/230 V 50 Hz, 63 A")
    sheet.line_references()
    _incomer(sheet)
    _neutral_and_earth(sheet)
    _arrester(sheet)
    _control_supply(sheet)
    sheet.remark(2, "INCOMING SUPPLY", "from service box, 63 A gG", "cable W1001 5 x 16 mm²")
    sheet.remark(6, "SURGE PROTECTION", "type 2, 20 kA per pole")
    sheet.remark(8, "CONTROL VOLTAGE 24 V DC", "0V earthed at terminal X3:1")
    return sheet


def _incomer(sheet):
    y = sheet.y(2)
    terminals3(sheet, 2, 52, "X0", 1)
    for pole, name in zip(POLES, PHASES):
        sheet.note(44, y + pole - 1, name, 2.5, RIGHT, "WIRENO")
    triple(sheet, 2, 46, 80, numbered=False)
    device3(sheet, 2, symbols.ISOLATOR3, 80, "DS", "63 A")
    triple(sheet, 2, 80 + WIDTH, 120)
    device3(sheet, 2, symbols.BREAKER3, 120, "CB", "50 A C")
    triple(sheet, 2, 120 + WIDTH, ARROW_X, numbered=False)
    for pole, name in zip(POLES, PHASES):
        values = {"SIGCODE": name, "XREF": "1101, 1201"}
        sheet.add(Insert(symbols.SOURCE, ARROW_X, y + pole, "SYMS", values))


def _neutral_and_earth(sheet):
    for number, name, terminal, layer in ((3, "N", "4", PWR), (4, "PE", "5", EARTH)):
        y = sheet.y(number) - 4
        sheet.note(44, y - 1, name, 2.5, RIGHT, "WIRENO")
        sheet.wire((46, y), (ARROW_X, y), layer=layer)
        sheet.terminal(52, y, number, "X0", terminal, name)
        xref = "1201" if name == "N" else "1101, 1201"
        values = {"SIGCODE": name, "XREF": xref}
        sheet.add(Insert(symbols.SOURCE, ARROW_X, y, "SYMS", values))


def _arrester(sheet):
    y, bar = sheet.y(6), 235.0
    for x, pole in zip((165.0, 171.0, 177.0), POLES):
        sheet.wire((x, sheet.y(2) + pole), (x, y + pole), (198, y + pole), layer=PWR)
        sheet.dots((x, sheet.y(2) + pole))
        sheet.wire((198 + WIDTH, y + pole), (bar, y + pole), layer=EARTH)
    sheet.component(symbols.ARRESTER3, 198, y, 6, "SA", RATING1="20 kA")
    sheet.wire((bar, sheet.y(4) - 4), (bar, y - 10), layer=EARTH)
    sheet.dots((bar, sheet.y(4) - 4), (bar, y), (bar, y + 10))


def _control_supply(sheet):
    y8, y9 = sheet.y(8), sheet.y(9)
    sheet.wire((64, sheet.y(2) + 10), (64, y8), (90, y8), layer=PWR)
    sheet.wire((70, sheet.y(3) - 4), (70, y9), (170, y9), layer=PWR)
    sheet.dots((64, sheet.y(2) + 10), (70, sheet.y(3) - 4))
    sheet.component(symbols.FUSE, 90, y8, 8, "FU", "6 A gG")
    sheet.wire((90 + WIDTH, y8), (170, y8), layer=PWR)
    sheet.wire_number(137, y8, sheet.next_wire_number(8))
    more = {"RATING1": "230 V / 24 V 10 A"}
    sheet.component(POWER_SUPPLY, 170, y9 - 8, 8, "PSU", "POWER SUPPLY", **more)
    for y, name, number, terminal in ((y8, "24P", 8, "2"), (y9, "0V", 9, "1")):
        sheet.wire((210, y), (ARROW_X, y))
        sheet.terminal(228, y, number, "X3", terminal, name)
        values = {"SIGCODE": name, "XREF": "2001 ..."}
        sheet.add(Insert(symbols.SOURCE, ARROW_X, y, "SYMS", values))


def pump_motors(info):
    sheet = Sheet(info)
    sheet.heading("SEWAGE PUMPS 1 AND 2, DIRECT ON LINE")
    sheet.line_references()
    bus(sheet, 1, 8)
    ratings = ("25 A aM", "18.5 A AC-3", "12 - 18 A")
    motor_feeder(sheet, 3, "K2002", 1, ratings, ("PUMP 1", "7.5 kW", "15.2 A 400 V"))
    motor_feeder(sheet, 8, "K2102", 5, ratings, ("PUMP 2", "7.5 kW", "15.2 A 400 V"))
    for number, name in ((3, "PUMP 1"), (8, "PUMP 2")):
        sheet.remark(number, "", "", "", "submersible, 4 pole", f"{name.lower()} cable 4 x 4 mm²")
    return sheet


def fan_and_heater(info):
    sheet = Sheet(info)
    sheet.heading("VENTILATION FAN AND SUMP HEATER")
    sheet.line_references()
    bus(sheet, 1, 3)
    ratings = ("4 A aM", "6 A AC-3", "0.9 - 1.4 A")
    motor_feeder(sheet, 3, "K2202", 9, ratings, ("FAN", "0.37 kW", "1.1 A 400 V"))
    _heater(sheet)
    return sheet


def _heater(sheet):
    y7, y8 = sheet.y(7), sheet.y(8) + 6
    sheet.wire((BUS_X[0], sheet.y(3) + 10), (BUS_X[0], y7), (80, y7), layer=PWR)
    sheet.component(symbols.FUSE, 80, y7, 7, "FU", "10 A gG")
    sheet.wire((80 + WIDTH, y7), (120, y7), layer=PWR)
    sheet.wire_number(107.5, y7, sheet.next_wire_number(7))
    sheet.component(symbols.THERMOSTAT_NO, 120, y7, 7, "TS", "CLOSES BELOW 5 °C")
    wire = sheet.next_wire_number(7)
    sheet.wire((120 + WIDTH, y7), (230, y7), layer=PWR)
    sheet.wire_number(165, y7, wire)
    sheet.terminal(200, y7, 7, "X1", "13", wire)
    sheet.component(symbols.HEATER, 230, y7, 7, "HTR", "SUMP HEATER 1 kW")
    sheet.wire((230 + WIDTH, y7), (265, y7), (265, y8), (38, y8), layer=PWR)
    sheet.terminal(200, y8, 8, "X1", "14", "N")
    values = {"SIGCODE": "N", "XREF": "1003"}
    sheet.add(Insert(symbols.DESTINATION, 34.0, y8, "SYMS", values))
    sheet.remark(7, "SUMP HEATER", "frost protection of the dry shaft")
