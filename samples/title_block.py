"""The frame of an A3 sheet and the title block TITLE_A with its attributes."""

from dxf_writer import CENTER, MIDDLE, AttDef, Block, line, rectangle, text

LEFT_EDGE, RIGHT_EDGE, BOTTOM, TOP = 10.0, 410.0, 10.0, 287.0
COLUMNS, ROWS = 8, 6
STRIP_TOP = 40.0

# (tag or None, caption, x, y, height, value): cells of the title strip.
CELLS = (
    ("CUSTOMER", "CUSTOMER", 12, 30, 3.0, "Municipal Water Works Altenbrück"),
    ("PLANT", "PLANT", 12, 20, 3.0, "Waste water pump station Nord"),
    ("JOB", "JOB", 12, 11.5, 3.0, "24-0117"),
    ("REV", "REV", 62, 11.5, 3.0, "B"),
    ("DRAWN", "DRAWN", 112, 30, 2.5, "M. Nowak"),
    ("CHECKED", "CHECKED", 112, 20, 2.5, "K. Øster"),
    ("DATE", "DATE", 112, 11.5, 2.5, ""),
    ("TITLE1", "TITLE", 162, 30, 4.0, ""),
    ("TITLE2", "", 162, 21.5, 3.0, ""),
    ("DWGNO", "DRAWING NUMBER", 162, 11.5, 3.0, ""),
    ("INST", "INSTALLATION", 292, 30, 3.0, ""),
    ("LOC", "LOCATION", 292, 20, 3.0, ""),
    ("SCALE", "SCALE", 292, 11.5, 2.5, "none"),
    ("SHEET", "SHEET", 352, 24, 8.0, ""),
    ("SHEETS", "SHEETS", 352, 11.5, 3.0, ""),
)


def _frame():
    entities = rectangle(0, 0, 420, 297, "FRAME")
    entities += rectangle(LEFT_EDGE, BOTTOM, RIGHT_EDGE, TOP, "FRAME")
    entities += _column_marks() + _row_marks()
    return Block("FRAME_A3", entities)


def _column_marks():
    step = (RIGHT_EDGE - LEFT_EDGE) / COLUMNS
    entities = []
    for index in range(COLUMNS):
        x = LEFT_EDGE + step * index
        for low, high in ((0.0, BOTTOM), (TOP, 297.0)):
            middle = (low + high) / 2
            label = text(x + step / 2, middle, str(index + 1), "FRAME", 3.5, CENTER, MIDDLE)
            entities += [line(x, low, x, high, "FRAME"), label]
    return entities


def _row_marks():
    step = (TOP - BOTTOM) / ROWS
    entities = []
    for index in range(ROWS):
        y = TOP - step * index
        for low, high in ((0.0, LEFT_EDGE), (RIGHT_EDGE, 420.0)):
            middle = (low + high) / 2
            label = text(middle, y - step / 2, "ABCDEF"[index], "FRAME", 3.5, CENTER, MIDDLE)
            entities += [line(low, y, high, y, "FRAME"), label]
    return entities


def _strip_lines():
    entities = [line(LEFT_EDGE, STRIP_TOP, RIGHT_EDGE, STRIP_TOP, "TITLE")]
    entities += [line(x, BOTTOM, x, STRIP_TOP, "TITLE") for x in (110, 160, 290, 350)]
    entities += [line(60, BOTTOM, 60, 18, "TITLE")]
    for y, stretches in ((28.5, ((10, 160), (290, 350))), (18, ((10, 410),))):
        entities += [line(x1, y, x2, y, "TITLE") for x1, x2 in stretches]
    return entities


def _caption_y(y):
    return {30: 37.0, 20: 25.7, 11.5: 15.6, 24: 37.0}.get(y, y)


def _title():
    entities, attdefs = _strip_lines(), []
    for tag, caption, x, y, height, value in CELLS:
        if caption:
            entities.append(text(x, _caption_y(y), caption, "FRAME", 1.6))
        attdefs.append(AttDef(tag, x, y, "TITLE", height, default=value))
    return Block("TITLE_A", entities, attdefs)


FRAME = _frame()
TITLE_A = _title()
