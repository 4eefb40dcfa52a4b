"""The control sheets: pumps 1 and 2, alarms, level sensors, overflow counter."""

import symbols
from dxf_writer import LEFT, RIGHT, rectangle
from rungs import Part, Term, branch, coil, nc, no, rung
from sheet import RAIL_LEFT, RAIL_RIGHT, Sheet
from symbols import device_box

ANALOG_INPUT = device_box("KQ_PLCA1", 50.0, 16.0, [(0, 8, "I+", LEFT), (50, 8, "M", RIGHT)])
TRANSMITTER = device_box("KQ_HLT4", 24.0, 12.0, [(0, 6, "+", LEFT), (24, 6, "-", RIGHT)])


def lamp(tag, desc):
    return coil(tag, desc, symbols.LAMP)


def pump_control(info, pump, relay, overload, dry_run_pins):
    """Start, stop and automatic control of one pump, lamps and hours meter."""
    sheet = Sheet(info)
    name, contactor = f"PUMP {pump}", "K" + sheet.reference(2)
    selector = "SS" + sheet.reference(5)
    sheet.heading(f"CONTROL OF {name}, 24 V DC")
    sheet.ladder()
    _hand_start(sheet, name, contactor, selector, overload)
    automatic = Part(127, symbols.SELECTOR_NO, selector, "HAND - 0 - AUTO")
    items = [automatic, no(155, relay, ("11", "14")), no(178, "CR4004", dry_run_pins)]
    _automatic_branch(sheet, items)
    _indication(sheet, name, contactor, overload)
    sheet.remark(2, name + " CONTACTOR", "power poles on sheet 11")
    sheet.remark(3, "SEAL-IN", "hand operation only")
    sheet.remark(5, "AUTOMATIC", "from PLC, locked by the dry run relay")
    return sheet


def _hand_start(sheet, name, contactor, selector, overload):
    stop = Part(88, symbols.PUSH_NC, "PB", "STOP")
    start = Part(166, symbols.PUSH_NO, "PB" + sheet.reference(2) + "A", "START")
    hand = no(127, selector, ("23", "24"), symbols.SELECTOR_CHILD)
    trip = nc(205, overload, ("95", "96"), symbols.OVERLOAD_NC)
    emergency = Part(54, symbols.ESTOP_NC, "S", "EMERGENCY STOP")
    rung(sheet, 2, [emergency, stop, hand, start, trip, coil(contactor, name)])
    branch(sheet, 3, 2, [no(166, contactor)], 160, 188)


def _automatic_branch(sheet, items):
    """From behind the stop button to the overload contact, two lines lower."""
    y2, y5 = sheet.y(2), sheet.y(5)
    rung(sheet, 5, items, 108, 199, "", "")
    sheet.wire((108, y5), (108, y2))
    sheet.wire((199, y5), (199, y2))
    sheet.dots((108, y2), (199, y2))


def _indication(sheet, name, contactor, overload):
    trip_relay = "CR" + sheet.reference(8)
    tripped = no(80, overload, ("97", "98"), symbols.OVERLOAD_NO)
    rung(sheet, 6, [no(80, contactor, ("33", "34")), lamp("PL", "RUNNING, GREEN")])
    rung(sheet, 7, [no(80, contactor, ("43", "44")), coil("HM", "HOURS RUN", symbols.HOURS)])
    rung(sheet, 8, [tripped, coil(trip_relay, "TRIP")])
    rung(sheet, 9, [no(80, trip_relay), lamp("PL", "TRIPPED, RED")])
    rung(sheet, 10, [nc(80, contactor), nc(130, trip_relay), lamp("PL", "READY, WHITE")])
    functions = ((6, "RUNNING"), (7, "HOURS RUN"), (8, "TRIP RELAY"), (9, "TRIPPED"), (10, "READY"))
    for number, function in functions:
        place = "inside panel" if number == 8 else "door of panel"
        sheet.remark(number, f"{name} {function}", place)


def alarms(info):
    sheet = Sheet(info)
    sheet.heading("FAN CONTROL AND ALARMS, 24 V DC")
    sheet.ladder()
    thermostat = Part(80, symbols.THERMOSTAT_NO, "TS", "ABOVE 28 °C")
    trip = nc(205, "OL1203", ("95", "96"), symbols.OVERLOAD_NC)
    rung(sheet, 2, [thermostat, trip, coil("K2202", "FAN")])
    branch(sheet, 3, 2, [no(80, "CR3104", ("11", "14"))], None, 125)
    _alarm_relay(sheet)
    horn = coil("AH", "HORN", symbols.HORN)
    mute = Part(150, symbols.PUSH_NC, "PB", "MUTE")
    rung(sheet, 8, [no(80, "CR2205", ("33", "34")), mute, horn])
    beacon = coil("PL", "BEACON, AMBER", symbols.LAMP)
    contact = no(80, "CR2205", ("43", "44"))
    rung(sheet, 9, [contact, Term(195, "X2", "20"), beacon, Term(279, "X2", "21")])
    rung(sheet, 10, [no(80, "CR3105", ("11", "14")), lamp("PL", "PLC ALARM, RED")])
    sheet.remark(2, "VENTILATION FAN", "room thermostat or PLC")
    sheet.remark(5, "COMMON ALARM", "pump trips, high level")
    sheet.remark(8, "HORN", "muted by push button")
    sheet.remark(9, "BEACON", "outside, above the door")
    sheet.remark(10, "PLC ALARM", "door of panel")
    return sheet


def _alarm_relay(sheet):
    rung(sheet, 5, [no(80, "CR2008", ("43", "44")), coil("CR", "COMMON ALARM")])
    branch(sheet, 6, 5, [no(80, "CR2108", ("43", "44"))], None, 150)
    y6, y7 = sheet.y(6), sheet.y(7)
    rung(sheet, 7, [no(80, "CR4002", ("13", "14"))], end=150, end_wire="")
    sheet.wire((150, y7), (150, y6))
    sheet.dots((150, y6))


def level_sensors(info):
    sheet = Sheet(info)
    sheet.heading("WET WELL: FLOAT SWITCHES AND TRANSMITTERS, 24 V DC")
    sheet.ladder()
    _float(sheet, 2, symbols.FLOAT_NO, "HIGH LEVEL", 1)
    _float(sheet, 4, symbols.FLOAT_NC, "DRY RUN", 3)
    _transmitter(sheet, 7, "LT", "LEVEL", "0 - 6 m", 5)
    _transmitter(sheet, 9, "PT", "PRESSURE", "0 - 4 bar", 7)
    sheet.remark(2, "HIGH LEVEL FLOAT", "4.80 m above well bottom")
    sheet.remark(4, "DRY RUN FLOAT", "0.60 m above well bottom, opens when empty")
    sheet.remark(7, "LEVEL TRANSMITTER", "4 - 20 mA, two wire")
    sheet.remark(9, "DISCHARGE PRESSURE", "4 - 20 mA, two wire")
    return sheet


def _float(sheet, number, symbol, desc, first):
    device = Part(120, symbol, "FS", desc)
    items = [Term(85, "X2", str(first)), device, Term(180, "X2", str(first + 1))]
    rung(sheet, number, items + [coil("CR", desc)])
    y = sheet.y(number)
    _location_box(sheet, 98, y - 8, 148, y + 14)


def _transmitter(sheet, number, family, desc, scale, first):
    y = sheet.y(number)
    sheet.dots((RAIL_LEFT, y), (RAIL_RIGHT, y))
    wire = sheet.next_wire_number(number)
    sheet.wire((RAIL_LEFT, y), (115, y))
    sheet.terminal(85, y, number, "X2", str(first), "24P")
    sheet.component(TRANSMITTER, 115, y - 6, number, family, desc, RATING1=scale)
    sheet.wire((139, y), (205, y))
    sheet.wire_number(192, y, wire)
    sheet.terminal(180, y, number, "X2", str(first + 1), wire)
    sheet.component(ANALOG_INPUT, 205, y - 8, number, "PLC", f"AI {desc}", RATING1="4 - 20 mA")
    sheet.wire((255, y), (RAIL_RIGHT, y))
    _location_box(sheet, 98, y - 9, 148, y + 14)


def _location_box(sheet, x1, y1, x2, y2):
    sheet.add(rectangle(x1, y1, x2, y2, "LOCBOX"))
    sheet.note(x1 + 1, y1 + 1.2, "+WELL", 1.8, LEFT, "LOC")


def overflow_counter(info):
    sheet = Sheet(info)
    sheet.heading("ÜBERLAUF-ZÄHLER, GEBÄUDE NORD, 24 V DC")
    sheet.ladder()
    probe = Part(120, symbols.FLOAT_NO, "FS", "ÜBERLAUF")
    items = [Term(85, "X4", "1"), probe, Term(180, "X4", "2")]
    rung(sheet, 2, items + [coil("CR", "ÜBERLAUF")])
    counter = coil("PC", "ÜBERLAUF-ZÄHLER", symbols.COUNTER)
    rung(sheet, 5, [no(80, "CR5002"), counter])
    lamp_test = Part(80, symbols.PUSH_NO, "PB", "LAMPENTEST")
    rung(sheet, 7, [lamp_test, lamp("PL", "PRÜFLAMPE")])
    pending = [no(80, "CR5002", ("23", "24")), nc(130, "CR5009", ("21", "22"))]
    rung(sheet, 8, pending + [lamp("PL", "ÜBERLAUF, GELB")])
    acknowledge = Part(80, symbols.PUSH_NO, "PB", "QUITTIEREN")
    rung(sheet, 9, [acknowledge, coil("CR", "QUITTIERUNG")])
    hold = [no(80, "CR5009"), no(116, "CR5002", ("43", "44"))]
    branch(sheet, 10, 9, hold, None, 150)
    sheet.remark(2, "ÜBERLAUFSONDE", "Schwimmer in der Überlaufkammer")
    sheet.remark(5, "IMPULSZÄHLER", "zählt jedes Ansprechen, rückstellbar")
    sheet.remark(7, "LAMPENTEST", "Taster und Prüflampe an der Tür")
    sheet.remark(8, "MELDUNG ÜBERLAUF", "gelbe Meldeleuchte an der Tür")
    sheet.remark(9, "QUITTIERUNG", "hält, bis der Überlauf endet")
    return sheet
