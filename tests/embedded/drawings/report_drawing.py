#!/usr/bin/env python3
"""Reads drawings with ezdxf and prints what is in them, a line a thing, cells separated by tabs:

    drawing FILE
    fault   TEXT                                  what the audit finds, and handles that occur twice
    layer / linetype / style  NAME
    block   NAME X Y  KINDS                       base point and kinds of the entities
    insert  LAYOUT BLOCK X Y XSCALE ROTATION LAYER
    attrib  TAG VALUE X Y HEIGHT ROTATION FLAGS LAYER LINES
"""

import re
import sys

import ezdxf


def show(*cells):
    print("\t".join(f"{cell:.6g}" if isinstance(cell, float) else str(cell) for cell in cells))


def pairs(path):
    with open(path, "rb") as file:
        lines = file.read().replace(b"\r\n", b"\n").split(b"\n")
    return [(int(code), value.strip()) for code, value in zip(lines[::2], lines[1::2]) if code.strip()]


def repeated_handles(path):
    """Handles that occur twice or that the drawing counts as free still."""
    seen, kind, seed, variable = set(), b"", None, b""
    for code, value in pairs(path):
        if code == 0:
            kind = value
        elif code == 9:
            variable = value
        elif code == 5 and kind == b"SECTION":
            seed = int(value, 16) if variable == b"$HANDSEED" else seed
        elif (code == 5 and kind != b"DIMSTYLE") or code == 105:
            if value in seen:
                yield f"handle {value.decode()} occurs twice"
            seen.add(value)
    if seed is not None and any(int(handle, 16) >= seed for handle in seen):
        yield "a handle is not below $HANDSEED"


def text_of(value):
    return re.sub(r"\\U\+([0-9A-Fa-f]{4})", lambda escape: chr(int(escape[1], 16)), value)


def report_reference(layout, reference):
    dxf = reference.dxf
    show("insert", layout, dxf.name, dxf.insert.x, dxf.insert.y, dxf.xscale, dxf.rotation, dxf.layer)
    for attribute in reference.attribs:
        dxf = attribute.dxf
        lines = attribute.virtual_mtext_entity().text if attribute.has_embedded_mtext_entity else "-"
        show("attrib", dxf.tag, text_of(dxf.text), dxf.insert.x, dxf.insert.y, dxf.height, dxf.rotation, dxf.flags, dxf.layer,
             lines)


def report(path):
    show("drawing", path)
    drawing = ezdxf.readfile(path)
    auditor = drawing.audit()
    own = {value.decode().lstrip("0") for code, value in pairs(path) if code in (5, 105)}
    for finding in [*auditor.errors, *auditor.fixes]:
        # The library makes ends of sequences of its own when it reads, and finds fault with some of them.
        made = finding.message.startswith("Deleted SEQEND(#")
        if not made or finding.message[len("Deleted SEQEND(#"):].split(")")[0] in own:
            show("fault", finding.message)
    for finding in repeated_handles(path):
        show("fault", finding)
    for kind, table in (("layer", drawing.layers), ("linetype", drawing.linetypes), ("style", drawing.styles)):
        for entry in table:
            show(kind, text_of(entry.dxf.name))
    for block in drawing.blocks:
        if not block.is_any_layout:
            base = block.block.dxf.base_point
            show("block", block.name, base[0], base[1], " ".join(entity.dxftype() for entity in block))
    for name in drawing.layout_names_in_taborder():
        for reference in drawing.layout(name).query("INSERT"):
            report_reference(name, reference)


def main():
    for path in sys.argv[1:]:
        report(path)


if __name__ == "__main__":
    main()
