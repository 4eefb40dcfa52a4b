"""Sheets without a ladder: cover, symbol legend, terminal plan, cable list and
panel layout."""

import symbols
from dxf_writer import CENTER, MIDDLE, Insert, circle, line, rectangle, text
from sheet import Sheet

LEGEND = (
    ("PUSH BUTTON, MAKE", symbols.PUSH_NO, "PB"),
    ("PUSH BUTTON, BREAK", symbols.PUSH_NC, "PB"),
    ("EMERGENCY STOP", symbols.ESTOP_NC, "S"),
    ("SELECTOR SWITCH", symbols.SELECTOR_NO, "SS"),
    ("FLOAT SWITCH, MAKE", symbols.FLOAT_NO, "FS"),
    ("FLOAT SWITCH, BREAK", symbols.FLOAT_NC, "FS"),
    ("THERMOSTAT", symbols.THERMOSTAT_NO, "TS"),
    ("CONTACT, MAKE", symbols.CONTACT_NO, "CR"),
    ("CONTACT, BREAK", symbols.CONTACT_NC, "CR"),
    ("COIL", symbols.COIL, "CR"),
    ("PILOT LIGHT", symbols.LAMP, "PL"),
    ("HORN", symbols.HORN, "AH"),
    ("IMPULSE COUNTER", symbols.COUNTER, "PC"),
    ("HOURS METER", symbols.HOURS, "HM"),
    ("FUSE", symbols.FUSE, "FU"),
    ("HEATER", symbols.HEATER, "HTR"),
    ("FUSES, 3 POLES", symbols.FUSE3, "FU"),
    ("ISOLATOR, 3 POLES", symbols.ISOLATOR3, "DS"),
    ("CIRCUIT BREAKER", symbols.BREAKER3, "CB"),
    ("CONTACTOR POLES", symbols.CONTACTOR3, "K"),
    ("OVERLOAD RELAY", symbols.OVERLOAD3, "OL"),
    ("SURGE ARRESTER", symbols.ARRESTER3, "SA"),
    ("MOTOR, 3 PHASES", symbols.MOTOR3, "M"),
)
LEGEND_ROWS = (254, 229, 204, 179, 145, 100)

# (cable, type, from, to, length in m, remark)
CABLES = (
    ("W1001", "NYY-J 5x16", "złącze / service box", "X0:1-5", 24, "zasilanie"),
    ("W1103", "H07RN-F 4x4", "X1:1-4", "M1103", 18, "pompa 1"),
    ("W1108", "H07RN-F 4x4", "X1:5-8", "M1108", 18, "pompa 2"),
    ("W1203", "NYM-J 4x1.5", "X1:9-12", "M1203", 12, "wentylator"),
    ("W1207", "NYM-J 3x1.5", "X1:13-14", "HTR1207", 15, "grzałka studzienki"),
    ("W2209", "NYM-J 3x1.5", "X2:20-21", "PL2209", 9, "lampa ostrzegawcza"),
    ("W4002", "LiYY 2x0.75", "X2:1-2", "FS4002", 22, "pływak, wysoki poziom"),
    ("W4004", "LiYY 2x0.75", "X2:3-4", "FS4004", 22, "pływak, suchobieg"),
    ("W4007", "LiYCY 2x0.75", "X2:5-6", "LT4007", 22, "przetwornik poziomu"),
    ("W4009", "LiYCY 2x0.75", "X2:7-8", "PT4009", 14, "przetwornik ciśnienia"),
    ("W5002", "LiYY 2x0.75", "X4:1-2", "FS5002", 31, "komora przelewowa"),
)

PANEL_ROWS = (
    ("POWER", ("DS1002", "CB1002", "SA1006", "FU1008", "PSU1008")),
    ("MOTORS", ("FU1103", "FU1108", "K2002", "OL1103", "K2102", "OL1108")),
    ("FAN, HEATER, TRIP RELAYS", ("FU1203", "K2202", "OL1203", "FU1207", "CR2008", "CR2108")),
    ("CONTROL", ("CR2205", "CR3102", "CR3103", "CR3104", "CR3105", "CR3107")),
    ("LEVEL, PLC", ("CR4002", "CR4004", "PLC3002", "PLC3102", "PLC4007", "PLC4009")),
)
DOOR_ROWS = (
    ("PUMP 1", ("PL2006", "PL2009", "PL2010", "SS2005", "PB2002A", "PB2002")),
    ("PUMP 2", ("PL2106", "PL2109", "PL2110", "SS2105", "PB2102A", "PB2102")),
    ("STATION", ("PL2210", "PL3106", "PB2208", "PB3009", "S2002", "S2102")),
)
LAYOUT_LEFT, LAYOUT_BOTTOM = 30.0, 52.0


def table(sheet, x, top, widths, rows, pitch=7.0, height=2.3):
    """A ruled table; its first row is the heading."""
    bottom, right = top - pitch * len(rows), x + sum(widths)
    for index in range(len(rows) + 1):
        y = top - pitch * index
        sheet.add(line(x, y, right, y, "MISC"))
    at = x
    for width in (*widths, 0):
        sheet.add(line(at, top, at, bottom, "MISC"))
        at += width
    for index, row in enumerate(rows):
        _table_row(sheet, x, top - pitch * (index + 0.5), widths, row, height, index == 0)


def _table_row(sheet, x, y, widths, row, height, heading):
    layer = "TAGS" if heading else "DESC"
    for width, cell in zip(widths, row):
        if cell:
            sheet.add(text(x + 2, y, str(cell), layer, height, 0, MIDDLE))
        x += width


def cover(info, package):
    sheet = Sheet(info)
    sheet.note(210, 262, "WASTE WATER PUMP STATION NORD", 9.0, CENTER, "DESC")
    sheet.note(210, 248, "ELECTRICAL DOCUMENTATION", 6.0, CENTER, "DESC")
    sheet.note(210, 237, "Municipal Water Works Altenbrück", 4.0, CENTER)
    rows = [("SHEET", "DRAWING NUMBER", "TITLE", "", "LOCATION")]
    rows += [(i.sheet, i.number, i.title, i.subtitle, "+" + i.location) for i in package]
    table(sheet, 30, 228, (20, 48, 76, 76, 30), rows, pitch=8.0)
    facts = (
        ("SUPPLY", "3/N/PE 400/230 V 50 Hz"),
        ("RATED CURRENT", "63 A"),
        ("CONTROL VOLTAGE", "24 V DC"),
        ("PROTECTION", "IP 54"),
        ("PUMPS", "2 x 7.5 kW"),
        ("TAGS", "family, sheet, line"),
        ("WIRE NUMBERS", "sheet, line, suffix"),
        ("POWER", "red"),
        ("CONTROL", "green"),
        ("EARTH", "green, dashed"),
    )
    table(sheet, 295, 228, (42, 66), [("TECHNICAL DATA", ""), *facts], pitch=8.0)
    return sheet


def legend(info):
    sheet = Sheet(info)
    sheet.heading("SYMBOLS USED IN THIS PACKAGE")
    for index, (name, symbol, family) in enumerate(LEGEND):
        column, row = index % 4, index // 4
        x, y = 35 + 94 * column, LEGEND_ROWS[row]
        values = {attdef.tag: "" for attdef in symbol.attdefs if attdef.tag.startswith("XREF")}
        values.update(TAG1=family, TAG2=family)
        sheet.add(Insert(symbol, x, y, "SYMS", values))
        sheet.note(x + 32, y - 1.2, name, 2.3, layer="DESC")
    return sheet


def terminal_plan(info, sheets):
    """Every terminal drawn on the given sheets, ordered by strip and number."""
    sheet = Sheet(info)
    sheet.heading("TERMINAL PLAN")
    uses = sorted(
        (use for other in sheets for use in other.terminals),
        key=lambda use: (use.strip, int(use.number)),
    )
    heading = ("STRIP", "NO.", "WIRE", "SHEET/LINE", "CABLE")
    rows = [(u.strip, u.number, u.wire, u.reference, _cable_at(u)) for u in uses]
    half = 29
    for column in range(0, len(rows), half):
        x = 30 + 190 * (column // half)
        table(sheet, x, 268, (24, 20, 36, 40, 40), [heading, *rows[column : column + half]])
    return sheet


def _cable_at(use):
    for cable, _, start, end, _, _ in CABLES:
        for place in (start, end):
            strip, _, numbers = place.partition(":")
            low, _, high = numbers.partition("-")
            if strip == use.strip and int(low) <= int(use.number) <= int(high or low):
                return cable
    return ""


def cable_list(info):
    sheet = Sheet(info)
    sheet.heading("LISTA KABLI / CABLE LIST")
    heading = ("KABEL", "TYP / TYPE", "OD / FROM", "DO / TO", "DŁUGOŚĆ [m]", "UWAGI / REMARK")
    rows = [heading, *CABLES]
    table(sheet, 30, 262, (32, 50, 68, 50, 50, 110), rows, pitch=10.0, height=3.0)
    total = sum(cable[4] for cable in CABLES)
    sheet.note(30, 128, f"Łączna długość / total length: {total} m", 3.0)
    advice = "Przepusty uszczelnić przed zalaniem / seal all glands against flooding"
    sheet.note(30, 120, advice, 3.0)
    return sheet


def panel_layout(info, descriptions):
    """Mounting plate and door at 1:5; `descriptions` gives the device texts."""
    sheet = Sheet(info)
    sheet.heading("PANEL +MCC1, 800 x 1000 x 300 mm, SCALE 1:5")
    plate, door = LAYOUT_LEFT, LAYOUT_LEFT + 190.0
    for x, name in ((plate, "MOUNTING PLATE"), (door, "DOOR")):
        sheet.add(rectangle(x, LAYOUT_BOTTOM, x + 160, LAYOUT_BOTTOM + 200, "SYMS"))
        sheet.note(x + 80, LAYOUT_BOTTOM + 203, name, 3.0, CENTER)
    for index, (name, tags) in enumerate(PANEL_ROWS):
        _rail(sheet, plate, LAYOUT_BOTTOM + 172 - 36 * index, name, tags)
        missing = [tag for tag in tags if tag not in descriptions]
        if missing:
            raise ValueError(f"no such devices: {missing}")
    strips = ("X0", "X1", "X2", "X3", "X4")
    for index, strip in enumerate(strips):
        x = plate + 8 + 29 * index
        sheet.add(rectangle(x, LAYOUT_BOTTOM + 3, x + 27, LAYOUT_BOTTOM + 11, "SYMS"))
        sheet.note(x + 13.5, LAYOUT_BOTTOM + 5.8, strip, 2.5, CENTER, "TAGS")
    _door(sheet, door, descriptions)
    return sheet


def _rail(sheet, x, y, name, tags):
    """A wiring duct with a mounting rail under it and devices side by side."""
    sheet.add(rectangle(x + 4, y + 14, x + 156, y + 21, "LOCBOX"))
    sheet.note(x + 80, y + 16.3, name, 2.2, CENTER, "LOC")
    for edge in (y + 1, y - 1):
        sheet.add(line(x + 4, edge, x + 156, edge, "LINK"))
    for index, tag in enumerate(tags):
        left = x + 8 + 24.5 * index
        sheet.add(rectangle(left, y - 10, left + 21, y + 10, "SYMS"))
        sheet.note(left + 10.5, y + 3.5, tag, 2.5, CENTER, "TAGS")


def _door(sheet, x, descriptions):
    for row, (name, tags) in enumerate(DOOR_ROWS):
        y = LAYOUT_BOTTOM + 165 - 42 * row
        sheet.note(x + 80, y + 13, name, 3.0, CENTER, "DESC")
        for index, tag in enumerate(tags):
            at = x + 15 + 26 * index
            sheet.add(circle(at, y, 5.0, "SYMS"), circle(at, y, 3.5, "SYMS"))
            sheet.note(at, y - 9, tag, 2.0, CENTER, "TAGS")
            for line_no, word in enumerate(_two_lines(descriptions[tag])):
                sheet.note(at, y - 12.5 - 3 * line_no, word, 1.6, CENTER, "DESC")
    for at, tag in ((40, "HM2007"), (120, "HM2107")):
        middle, y = x + at, LAYOUT_BOTTOM + 25
        sheet.add(rectangle(middle - 9, y, middle + 9, y + 12, "SYMS"))
        sheet.note(middle, y - 5, tag, 2.0, CENTER, "TAGS")
        sheet.note(middle, y + 5, "00000 h", 2.5, CENTER)


def _two_lines(content):
    words = content.replace(",", "").split(" ", 1)
    return [word for word in words if word]
