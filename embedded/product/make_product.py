#!/usr/bin/env python3
"""Makes the files that the host is delivered with, beside this script: the settings block and the ladder
reference blocks in support/, the template of new drawings and the project whose settings the first new project
gets in template/.

    make_product.py            write all files
    make_product.py --check    write nothing; exit 1 if a file differs
"""

import argparse
import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
sys.path.insert(0, str(FOLDER.parent.parent / "samples"))

from dxf_writer import BASELINE, LEFT, AttDef, Drawing, Entity, encode_text, point, real  # noqa: E402

import ladder_blocks  # noqa: E402
from settings_defaults import SETTINGS  # noqa: E402

SPACING = 1.5  # of the settings block's attributes, downwards
SETTINGS_LAYER = "SETTINGS"
SHEET_SIZE = (17.0, 11.0)
OF_DRAWINGS = ("SHEET", "SHEETDWGNAME", "IEC_PROJ", "IEC_INST", "IEC_LOC")

# (name, colour, line type): the layers that the default settings name, those of the product's own blocks and
# those of the sheet's frame.
LAYERS = (
    ("0", 7),
    ("WIRES", 3),
    ("_MULTI_WIRE", 3),
    ("WIRENO", 4),
    ("WIRECOPY", 4),
    ("WIREFIXED", 4),
    ("WIREREF", 8),
    ("SYMS", 7),
    ("TAGS", 2),
    ("TAGFIXED", 2),
    ("DESC", 7),
    ("DESCCHILD", 8),
    ("TERMS", 6),
    ("XREF", 140),
    ("XREFCHILD", 140),
    ("LOC", 8),
    ("LOCBOX", 30, "DASHED"),
    ("LINK", 8, "DASHED"),
    ("POS", 8),
    ("MISC", 7),
    (ladder_blocks.LAYER, 8),
    ("FRAME", 8),
    ("TITLE", 7),
    (SETTINGS_LAYER, 9),
)


def _place(attdef):
    """Groups of the text's place and of its alignment; a text that is not aligned at its start needs both."""
    start = point(attdef.x, attdef.y) + ((40, real(attdef.height)),)
    if attdef.halign == LEFT and attdef.valign == BASELINE:
        return start, ()
    return start, ((72, str(attdef.halign)), (74, str(attdef.valign))) + point(attdef.x, attdef.y, 1)


def definition(attdef):
    """An attribute definition in a block's own drawing; the tag is its prompt too."""
    place, alignment = _place(attdef)
    content = ((1, encode_text(attdef.default)), (3, attdef.tag), (2, attdef.tag))
    flags = ((70, "0" if attdef.visible else "1"),)
    return Entity("ATTDEF", attdef.layer, place + content + flags + alignment)


def block_file(entities, attdefs):
    """A drawing whose model space is a block with its base point at the origin."""
    used = {item.layer for item in entities} | {attdef.layer for attdef in attdefs} | {"0"}
    drawing = Drawing([layer for layer in LAYERS if layer[0] in used], 0.0, 0.0)
    drawing.add(list(entities), [definition(attdef) for attdef in attdefs])
    return drawing.to_bytes()


def settings_block():
    attdefs = [
        AttDef(tag, 0.0, -SPACING * index, SETTINGS_LAYER, height=0.2, visible=False, default=value)
        for index, (tag, value) in enumerate(SETTINGS)
    ]
    return block_file([], attdefs)


def default_project():
    """A project without drawings, with the settings of a drawing without a project but for those that are a
    drawing's own."""
    lines = [f"?[{index}]{value}\n" for index, (tag, value) in enumerate(SETTINGS) if tag not in OF_DRAWINGS]
    return "".join(lines).encode()


def build():
    """All files: contents by path in this folder."""
    files = {"support/KQ_M.dwg": settings_block()}
    for block in ladder_blocks.blocks():
        files[f"support/{block.name}.dwg"] = block_file(block.entities, block.attdefs)
    files["template/qdra.dwt"] = Drawing(LAYERS, *SHEET_SIZE).to_bytes()
    files["template/default.kqp"] = default_project()
    return files


def differences(files):
    for name, content in files.items():
        path = FOLDER / name
        if not path.is_file():
            yield f"missing: {name}"
        elif path.read_bytes() != content:
            yield f"differs: {name}"


def main():
    parser = argparse.ArgumentParser(description="Makes the files that the host is delivered with.")
    parser.add_argument("--check", action="store_true", help="only compare, exit 1 on differences")
    files = build()
    if parser.parse_args().check:
        found = list(differences(files))
        for entry in found:
            print(entry, file=sys.stderr)
        return 1 if found else 0
    for name, content in files.items():
        path = FOLDER / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
    return 0


if __name__ == "__main__":
    sys.exit(main())
