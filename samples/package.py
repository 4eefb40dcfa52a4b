"""The package: which drawings there are, where they lie and what draws them."""

from dataclasses import dataclass

import project_file
import sheets_control
import sheets_general
import sheets_plc
import sheets_power
from drawing_settings import value_of

REVISION_DATE = "2024-05-17"


@dataclass(frozen=True)
class DrawingInfo:
    """What the project and the title block say about one drawing."""

    path: str  # in the project folder, with "/"
    sheet: str
    title: str
    subtitle: str
    section: str
    sub_section: str
    installation: str
    location: str
    remarks: tuple = ()
    trace: str = ""
    reference_only: bool = False

    @property
    def number(self):
        return "PS01-E-" + self.sheet

    def project_lines(self):
        descriptions = [self.title, self.subtitle, *self.remarks]
        return project_file.drawing_lines(
            self.section,
            self.sub_section,
            [text for text in descriptions if text],
            self.reference_only,
            self.trace,
            self.path,
        )


@dataclass(frozen=True)
class EmptySubfolder:
    """A subfolder of the project that holds no drawing yet."""

    trace: str

    def project_lines(self):
        return project_file.empty_subfolder_lines(self.trace)


COVER = DrawingInfo(
    "01 Cover Sheet.dwg", "01", "COVER SHEET", "Drawing list and technical data",
    "GENERAL", "COVER", "STATION", "MCC1",
)  # fmt: skip
SUPPLY = DrawingInfo(
    "Power/10 Main Supply.dwg", "10", "MAIN SUPPLY", "Incomer, surge protection, 24 V DC",
    "POWER", "SUPPLY", "STATION", "MCC1", trace="POWER",
)  # fmt: skip
PUMP_MOTORS = DrawingInfo(
    "Power/Motors/11 Pump Motors.dwg", "11", "PUMP MOTORS", "Pumps 1 and 2, 7.5 kW",
    "POWER", "MOTORS", "PUMPS", "MCC1", ("Direct on line",), "POWER/MOTORS",
)  # fmt: skip
FAN = DrawingInfo(
    "Power/Motors/12 Fan and Heater.dwg", "12", "FAN AND HEATER", "Ventilation, frost protection",
    "POWER", "MOTORS", "HVAC", "MCC1", trace="POWER/MOTORS",
)  # fmt: skip
PUMP_1 = DrawingInfo(
    "Control/20 Pump 1 Control.dwg", "20", "PUMP 1 CONTROL", "Start, stop, automatic, lamps",
    "CONTROL", "PUMPS", "PUMP1", "MCC1", trace="CONTROL",
)  # fmt: skip
PUMP_2 = DrawingInfo(
    "Control/21 Pump 2 Control.dwg", "21", "PUMP 2 CONTROL", "Start, stop, automatic, lamps",
    "CONTROL", "PUMPS", "PUMP2", "MCC1", trace="CONTROL",
)  # fmt: skip
ALARMS = DrawingInfo(
    "Control/22 Fan and Alarms.dwg", "22", "FAN AND ALARMS", "Fan control, horn, beacon",
    "CONTROL", "ALARMS", "STATION", "MCC1", ("Common alarm",), "CONTROL",
)  # fmt: skip
PLC_INPUTS = DrawingInfo(
    "Control/PLC/30 PLC Inputs.dwg", "30", "PLC INPUTS", "I0.0 to I0.7",
    "CONTROL", "PLC", "STATION", "PLC1", trace="CONTROL/PLC",
)  # fmt: skip
PLC_OUTPUTS = DrawingInfo(
    "Control/PLC/31 PLC Outputs.dwg", "31", "PLC OUTPUTS", "Q0.0 to Q0.7",
    "CONTROL", "PLC", "STATION", "PLC1", trace="CONTROL/PLC",
)  # fmt: skip
LEVEL = DrawingInfo(
    "Field Wiring/40 Level Sensors.dwg", "40", "LEVEL SENSORS", "Float switches, transmitters",
    "FIELD", "SENSORS", "STATION", "WELL", trace="FIELD WIRING",
)  # fmt: skip
TERMINALS = DrawingInfo(
    "Field Wiring/41 Terminal Plan.dwg", "41", "TERMINAL PLAN", "Strips X0 to X4",
    "FIELD", "TERMINALS", "STATION", "MCC1", trace="FIELD WIRING",
)  # fmt: skip
CABLES = DrawingInfo(
    "Field Wiring/42 Lista kabli - pompownia Łąka.dwg", "42", "LISTA KABLI", "Cable list",
    "FIELD", "CABLES", "STATION", "MCC1", ("Pompownia Łąka",), "FIELD WIRING",
)  # fmt: skip
COUNTER = DrawingInfo(
    "Gebäude Nord/50 Überlauf-Zähler.dwg", "50", "ÜBERLAUF-ZÄHLER", "Overflow counter",
    "BUILDING", "OVERFLOW", "ÜBERLAUF", "GEBÄUDE-N", trace="GEBÄUDE NORD",
)  # fmt: skip
LAYOUT = DrawingInfo(
    "Gebäude Nord/51 Panel Layout.dwg", "51", "PANEL LAYOUT", "Mounting plate and door",
    "BUILDING", "PANEL", "STATION", "MCC1", ("Scale 1:5",), "GEBÄUDE NORD",
)  # fmt: skip
LEGEND = DrawingInfo(
    "Standards/90 Symbol Legend.dwg", "90", "SYMBOL LEGEND", "Symbols of the package",
    "STANDARDS", "", "STATION", "MCC1", trace="STANDARDS", reference_only=True,
)  # fmt: skip

# In project order: the drawings of a subfolder stand together.
ENTRIES = (
    COVER, SUPPLY, PUMP_MOTORS, FAN, PUMP_1, PUMP_2, ALARMS, PLC_INPUTS, PLC_OUTPUTS,
    LEVEL, TERMINALS, CABLES, COUNTER, LAYOUT, LEGEND, EmptySubfolder("SPARE"),
)  # fmt: skip


def drawing_infos():
    return [entry for entry in ENTRIES if isinstance(entry, DrawingInfo)]


def _schematics():
    return [
        sheets_power.supply(SUPPLY),
        sheets_power.pump_motors(PUMP_MOTORS),
        sheets_power.fan_and_heater(FAN),
        sheets_control.pump_control(PUMP_1, 1, "CR3102", "OL1103", ("13", "14")),
        sheets_control.pump_control(PUMP_2, 2, "CR3103", "OL1108", ("23", "24")),
        sheets_control.alarms(ALARMS),
        sheets_plc.inputs(PLC_INPUTS),
        sheets_plc.outputs(PLC_OUTPUTS),
        sheets_control.level_sensors(LEVEL),
        sheets_control.overflow_counter(COUNTER),
    ]


def _devices(schematics):
    """Every device of the package by its tag; no tag may be given twice."""
    devices = {}
    for sheet in schematics:
        for tag, insert in sheet.parents.items():
            if tag in devices:
                raise ValueError(f"tag {tag} is used twice")
            devices[tag] = insert
    return devices


def _cross_reference(schematics, devices):
    """Lists at every device where its contacts are drawn."""
    between = value_of("XREF_TXTBTWN")
    for sheet in schematics:
        for use in sheet.contacts:
            if use.tag not in devices:
                raise ValueError(f"{use.reference}: no device {use.tag}")
            name = "XREFNC" if use.kind == "NC" else "XREFNO"
            values = devices[use.tag].values
            values[name] = between.join(filter(None, (values.get(name), use.reference)))
    for insert in devices.values():
        for name in ("XREFNO", "XREFNC"):
            insert.values.setdefault(name, value_of("XREF_FILLWITH"))


def _check_contacts(schematics):
    """A contact of a device can be wired only once."""
    seen = set()
    for use in (use for sheet in schematics for use in sheet.contacts if use.pins):
        if (use.tag, use.pins) in seen:
            raise ValueError(f"{use.reference}: {use.tag} {use.pins} is used twice")
        seen.add((use.tag, use.pins))


def _check_terminals(schematics):
    seen = set()
    for use in (use for sheet in schematics for use in sheet.terminals):
        if (use.strip, use.number) in seen:
            raise ValueError(f"terminal {use.strip}:{use.number} is drawn twice")
        seen.add((use.strip, use.number))


def _lists(schematics, devices):
    descriptions = {tag: insert.values["DESC1"] for tag, insert in devices.items()}
    return [
        sheets_general.cover(COVER, drawing_infos()),
        sheets_general.terminal_plan(TERMINALS, schematics),
        sheets_general.cable_list(CABLES),
        sheets_general.panel_layout(LAYOUT, descriptions),
        sheets_general.legend(LEGEND),
    ]


def build():
    """All files of the demo project: contents by path in the project folder."""
    schematics = _schematics()
    devices = _devices(schematics)
    _cross_reference(schematics, devices)
    _check_contacts(schematics)
    _check_terminals(schematics)
    sheets = schematics + _lists(schematics, devices)
    files = {project_file.FILE_NAME: project_file.project_text(ENTRIES).encode("utf-8")}
    for sheet in sheets:
        sheet.finish(REVISION_DATE, len(sheets))
        files[sheet.info.path] = sheet.drawing.to_bytes()
    return files
