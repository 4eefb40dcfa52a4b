#!/usr/bin/env python3
"""Makes a drawing in each release that ezdxf writes, in the folder given: RELEASE.dwg, and for the releases with code
pages one for each of some of these. In all of them the block KQ_M is referred to in model space and in a layout that
is not active, in the active layout only TITLE is, and definitions, a nested reference and an array stand in the way."""

import sys

import ezdxf

RELEASES = ("R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018")
# code page -> encoding of the library, a text that it holds
CODE_PAGES = {"ANSI_1250": ("cp1250", "Łódź"), "ANSI_1251": ("cp1251", "Щит"), "ANSI_1253": ("cp1253", "Πίνακας"),
              "ANSI_932": ("cp932", "表ソ電"), "ANSI_936": ("gbk", "电气"), "ANSI_949": ("cp949", "전기"),
              "ANSI_950": ("cp950", "許功")}


def define_blocks(drawing):
    settings = drawing.blocks.new("KQ_M")
    for row, tag in enumerate(("SHEET", "LOC", "FIXED")):
        settings.add_attdef(tag, (0, -1.5 * row), "x", dxfattribs={"height": 0.2, "flags": 2 if tag == "FIXED" else 1})
    drawing.blocks.new("TITLE").add_attdef("SHEET", (0, 0), dxfattribs={"height": 0.5})
    drawing.blocks.new("BARE").add_circle((0, 0), 1)
    drawing.blocks.new("NEST").add_blockref("KQ_M", (0, 0)).add_attrib("SHEET", "nested", (0, 0))


def refer(space, name, at, **values):
    reference = space.add_blockref(name, at, dxfattribs={"layer": "SETTINGS"})
    for row, (tag, value) in enumerate(values.items()):
        reference.add_attrib(tag, value, (at[0], at[1] - 1.5 * row),
                             dxfattribs={"height": 0.2, "flags": 1, "layer": "SETTINGS"})
    return reference


def make(path, release, encoding=None, text="Ü-01"):
    drawing = ezdxf.new(release)
    if encoding:
        drawing.encoding = encoding
    drawing.layers.new("SETTINGS")
    define_blocks(drawing)
    model = drawing.modelspace()
    model.add_line((0, 0), (10, 10))
    model.add_text("KQ_M")
    model.add_blockref("NEST", (50, 50))
    refer(model, "TITLE", (200, 0), SHEET="title").dxf.column_count = 2
    refer(model, "KQ_M", (0, 0), SHEET=text, LOC=" blanks ")
    model.add_blockref("BARE", (5, 5))
    model.add_circle((1, 1), 2)
    refer(drawing.layout("Layout1"), "TITLE", (1, 1), SHEET="paper")
    if release != "R12":
        second = drawing.layouts.new("Second")
        second.add_line((0, 0), (1, 1))
        refer(second, "KQ_M", (10, 20), SHEET="second", LOC="")
    if release == "R2018":
        attribute = refer(model, "KQ_M", (30, 30), SHEET="first line").attribs[0]
        lines = ezdxf.entities.MText.new(dxfattribs={"insert": (30, 30)})
        lines.text = "first line\\P{second} line"
        attribute.embed_mtext(lines)
    drawing.saveas(path)


def main():
    folder = sys.argv[1]
    for release in RELEASES:
        make(f"{folder}/{release}.dwg", release)
    for name, (encoding, text) in CODE_PAGES.items():
        for release in ("R12", "R2000"):
            make(f"{folder}/{release}-{name}.dwg", release, encoding, text)


if __name__ == "__main__":
    main()
