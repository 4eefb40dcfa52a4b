"""The 77 drawing settings: their names, their values in the demo project, and
the block KQ_M that carries them in every drawing."""

from dxf_writer import AttDef, Block, Insert

BLOCK_NAME = "KQ_M"
LAYER = "SETTINGS"
SPACING = 1.5  # distance of the block's attributes from each other
SHEET, SHEETDWGNAME = 13, 46
IEC_PROJ, IEC_INST, IEC_LOC = 51, 52, 53
NOT_IN_PROJECT = (SHEET, SHEETDWGNAME)

# (name, value in the demo project), in the order of the setting's index.
PROJECT_SETTINGS = (
    ("RUNGHORV", "H"),
    ("REFNUMS", "1"),
    ("TAGMODE", "R"),
    ("TAG-START", "1"),
    ("TAG-RSUF", ",A,B,C,D,E,F,G,H,J"),
    ("TAGFMT", "%F%S%N"),
    ("WIREMODE", "R"),
    ("WIRE-START", "1"),
    ("WIRE-RSUF", ",A,B,C,D,E,F,G,H,J,K,L,M,N"),
    ("WIREFMT", "%S%N"),
    ("WINC", "1"),
    ("RUNGDIST", "20"),
    ("DLADW", "240"),
    ("SHEET", ""),
    ("XREFFMT", "%S%N"),
    ("RUNGINC", "1"),
    ("DRWRUNG", "1"),
    ("PH3SPACE", "10"),
    ("DATUMX", "10"),
    ("DATUMY", "287"),
    ("DISTH", "50"),
    ("DISTV", "46"),
    ("CHAR_H", "1"),
    ("CHAR_V", "A"),
    ("HORIZ_FIRST", "0"),
    ("XY_DELIM", "-"),
    ("WIRELAYS", "WIRES,WIRES_PWR,WIRES_PE"),
    ("WIRENO_LAY", "WIRENO"),
    ("WIRECOPY_LAY", "WIRECOPY"),
    ("WIREFIXED_LAY", "WIREFIXED"),
    ("UNIT_SCL", "25.4"),
    ("FEATURE_SCL", "1.0"),
    ("TAG_LAY", "TAGS"),
    ("XREF_LAY", "XREF"),
    ("DESC_LAY", "DESC"),
    ("TERM_LAY", "TERMS"),
    ("CXREF_LAY", "XREFCHILD"),
    ("CDESC_LAY", "DESCCHILD"),
    ("LOC_LAY", "LOC"),
    ("POS_LAY", "POS"),
    ("MISC_LAY", "MISC"),
    ("WLEADERS", "0"),
    ("PLC_STYLE", "2"),
    ("ARROW_STYLE", "1"),
    ("LINK_LAY", "LINK"),
    ("COMP_LAY", "SYMS"),
    ("SHEETDWGNAME", ""),
    ("ALT_XREFFMT", "%S%N"),
    ("TAGFIXED_LAY", "TAGFIXED"),
    ("GAP_STYLE", "2"),
    ("MISC_FLAGS", "0"),
    ("IEC_PROJ", "PS01"),
    ("IEC_INST", "PUMPS"),
    ("IEC_LOC", "MCC1"),
    ("WIREREF_LAY", "WIREREF"),
    ("MISC_DATA", ""),
    ("FAN_INOUT_LAYS", "_MULTI_WIRE"),
    ("FAN_INOUT_STYLE", "1"),
    ("LOCBOX_LAY", "LOCBOX"),
    ("SORTMODE", ""),
    ("XREF_STYLE", "0"),
    ("XREF_FLAGS", "1"),
    ("XREF_UNUSEDSTYLE", "0"),
    ("XREF_FILLWITH", "..."),
    ("XREF_SORT", "1"),
    ("XREF_TXTBTWN", ", "),
    ("XREF_GRAPHIC", "1"),
    ("XREF_GRAPHICSTYLE", "0"),
    ("XREF_CONTACTMAP", "NO,NC,NONC"),
    ("XREF_TBLSTYLE", "Standard"),
    ("XREF_TBLTITLE", "%T"),
    ("XREF_TBLINDEX", "1,2,3,5"),
    ("XREF_TBLFLDNAMS", "W1,T1,TYPE,T2,W2,REF,SH,SHDWGNAM,FILENAME,FULLFILENAM"),
    ("XREF_TBLCOLJUST", "MC,MC,MC,MC,MC,MC,MC,MC,L,L"),
    ("WNUM_OFFSET", "0.0"),
    ("WNUM_FLAGS", "1"),
    ("WNUM_GAP", "0.0,0.0,0.0"),
)


def value_of(name):
    return dict(PROJECT_SETTINGS)[name]


def _attdef(index, name):
    return AttDef(name, 0.0, -SPACING * index, LAYER, height=0.2, visible=False)


def _make_block():
    attdefs = [_attdef(index, name) for index, (name, _) in enumerate(PROJECT_SETTINGS)]
    return Block(BLOCK_NAME, [], attdefs)


BLOCK = _make_block()


def settings_reference(x, y, own_values):
    """The reference to KQ_M: project values, but for `own_values` (by index)."""
    values = {}
    for index, (name, value) in enumerate(PROJECT_SETTINGS):
        values[name] = own_values.get(index, value)
    return Insert(BLOCK, x, y, LAYER, values)
