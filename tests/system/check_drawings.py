"""Compares drawings, as an independent library reads them, with the settings that a script listed and with what their
title blocks have to show. Arguments: the project's folder, the list of settings."""

import os
import sys

import ezdxf


def listed_settings(path):
    drawings = {}
    with open(path, encoding="utf-8") as file:
        for line in file.read().split("\n")[:-1]:
            name, value = line.split("=", 1)
            if name == "drawing":
                settings = drawings[value] = {}
            else:
                settings[name] = value
    return drawings


def project_lines(folder):
    name = next(name for name in os.listdir(folder) if name.endswith(".kqp"))
    with open(os.path.join(folder, name), encoding="utf-8") as file:
        return file.read().split("\n")


def descriptions_of_drawings(lines):
    drawings, pending = {}, []
    for line in lines:
        if line.startswith("===") and not line.startswith("===="):
            pending.append(line[3:])
        elif line and line[0] not in "=*+?":
            drawings[line.replace("\\", "/")] = pending
            pending = []
    return drawings


def attributes(drawing, block):
    references = [r for layout in drawing.layouts for r in layout.query("INSERT") if r.dxf.name == block]
    assert len(references) == 1, f"{len(references)} references of {block}"
    return {a.dxf.tag: ezdxf.lldxf.encoding.decode_dxf_unicode(a.dxf.text) for a in references[0].attribs}


def expected_title(project, descriptions, settings, count):
    title = {tag: "old " + tag for tag in ("REV", "DRAWN", "CHECKED", "DATE", "SCALE")}
    title["TITLE1"], title["TITLE2"] = (descriptions + ["", ""])[:2]
    title["DWGNO"], title["SHEET"], title["SHEETS"] = settings["SHEETDWGNAME"], settings["SHEET"], str(count)
    title["INST"], title["LOC"] = "=" + settings["IEC_INST"], "+" + settings["IEC_LOC"]
    title["CUSTOMER"], title["JOB"] = project[1], "24-0117"
    title["PLANT"] = "Waste water pump station Nord"
    return title


def main(folder, list_file):
    lines = project_lines(folder)
    project = {int(line[2 : line.index("]")]): line[line.index("]") + 1 :] for line in lines if line[:2] == "*["}
    drawings = descriptions_of_drawings(lines)
    listed = listed_settings(list_file)
    assert len(drawings) == 15 and list(listed) == list(drawings), list(listed)
    for name, descriptions in drawings.items():
        drawing = ezdxf.readfile(os.path.join(folder, name))
        assert not drawing.audit().errors, (name, drawing.audit().errors)
        settings = attributes(drawing, "KQ_M")
        assert len(settings) == 77 and settings == listed[name], (name, settings, listed[name])
        title = attributes(drawing, "TITLE_A")
        wanted = expected_title(project, descriptions, settings, len(drawings))
        assert title == wanted, (name, title, wanted)


main(*sys.argv[1:])
