"""The project file of the demo project, in the form the project manager writes."""

from drawing_settings import NOT_IN_PROJECT, PROJECT_SETTINGS

FILE_NAME = "Pump Station.kqp"

# Number 6 is left empty on purpose: numbers of description lines may have gaps.
DESCRIPTIONS = {
    1: "Municipal Water Works Altenbrück",
    2: "Waste water pump station Nord, duty and standby pump 2 x 7.5 kW",
    3: "Job number 24-0117",
    4: "Drawn by M. Nowak",
    5: "Checked by K. Øster",
    7: "400/230 V 50 Hz, control voltage 24 V DC",
    8: "Status: as built",
}

MISC_SETTINGS = {
    1: "%SL_DIR%\\iec2;%SL_DIR%\\iec2\\1-",  # schematic symbols
    2: "%SL_DIR%\\pneumatic_iso125",  # further symbols
    3: "%SL_DIR%\\panel_mm",  # panel footprints
    4: "%DS_DIR%\\menus\\iec_menu.dat",  # symbol menu
    5: "0",  # cross references as text
    7: "...",  # what fills an empty cross reference
    8: "1",  # a blank after the comma between cross references
    9: "1",
    28: "1",  # cross references sorted
}


def project_text(entries):
    """The file's text. `entries` holds drawings and empty subfolders in order."""
    lines = [f"*[{number}]{text}" for number, text in sorted(DESCRIPTIONS.items())]
    lines += [f"+[{number}]{value}" for number, value in sorted(MISC_SETTINGS.items())]
    lines += _setting_lines()
    for entry in entries:
        lines += entry.project_lines()
    return "\n".join(lines) + "\n"


def _setting_lines():
    return [
        f"?[{index}]{value}"
        for index, (_, value) in enumerate(PROJECT_SETTINGS)
        if index not in NOT_IN_PROJECT
    ]


def drawing_lines(section, sub_section, descriptions, reference_only, trace, path):
    """One drawing's block of lines, its path last."""
    lines = [f"={section}"] if section else []
    lines += [f"=={sub_section}"] if sub_section else []
    lines += [f"==={text}" for text in descriptions]
    lines += ["====REF"] if reference_only else []
    lines += [_marker(trace)] if trace else []
    return lines + [path.replace("/", "\\")]


def empty_subfolder_lines(trace):
    return [_marker(trace) + "[Empty]"]


def _marker(trace):
    return "=====SUB=" + trace.upper()
