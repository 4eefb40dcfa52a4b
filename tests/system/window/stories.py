"""What a person does in the window, and what has to come of it."""

import os
import shutil

from pictures import changed_pixels
from project_file import contents, in_subfolder, trace_of
from waiting import Fault, until

LIST_CHANGE = 500  # pixels; a new row alone has more


def expect(found, expected, what):
    if found != expected:
        raise Fault(f"{what}: {found}, expected {expected}")


def drag(window, run):
    """A drawing goes to a subfolder when it is dropped there, and nowhere when it is dropped beside the tree."""
    window.to_tree()
    project, below = window.corner_of("PUMP STATION"), window.corner_of("01 Cover")
    row_height = below[1] - project[1]
    middle = lambda corner: (corner[0] + 40, corner[1] - row_height // 2)
    target, start = middle(window.corner_of("POWER")), middle(window.corner_of("90 Symbol"))
    before = contents(run.project)
    window.carry(start, (start[0] + 500, start[1]))
    window.put_down()
    unmarked = window.left_of(target)
    window.carry(start, target)
    until(lambda: window.left_of(target) != unmarked, "the row is marked that takes what is dropped")
    run.picture(window.display, "drag")
    window.put_down()
    until(lambda: trace_of(run.project, "90 Symbol Legend.dwg") != "STANDARDS", "the file says that it moved")
    after = [entry for entry in before if entry[1] != "90 Symbol Legend.dwg"]
    found = contents(run.project)
    expect(in_subfolder(run.project, "POWER")[-1], "90 Symbol Legend.dwg", "the last in POWER")
    expect(sorted(map(str, found)), sorted(map(str, after + [("POWER", "90 Symbol Legend.dwg"), ("STANDARDS", None)])),
           "everything else stays where it is")
    until(lambda: not os.path.exists(run.lock), "the project is free again")


def move(window, run):
    """Alt with an arrow key moves a drawing past its neighbour, out of its subfolder and into another one."""
    drawing = "41 Terminal Plan.dwg"

    def step(key, trace, neighbours):
        window.keys("alt+" + key)
        until(lambda: in_subfolder(run.project, trace) == neighbours and not os.path.exists(run.lock),
              f"Alt+{key} brings it to {trace or 'the top'}: {neighbours}")

    window.to_tree()
    before, above, below = (in_subfolder(run.project, trace) for trace in ("", "FIELD WIRING", "GEB\u00c4UDE NORD"))
    window.go_to("41 Terminal")
    step("Up", "FIELD WIRING", [drawing, *(name for name in above if name != drawing)])
    step("Left", "", [*before, drawing])
    run.picture(window.display, "move")
    step("Right", "FIELD WIRING", [*(name for name in above if name != drawing), drawing])
    expect(in_subfolder(run.project, "GEB\u00c4UDE NORD"), below, "the others stay")


def close_all(window, run):
    """When the last document is closed the tree still opens drawings."""
    title = lambda: window.display.xdotool("getwindowname", window.id)
    window.keys("ctrl+w")
    until(lambda: "Drawing1" not in title(), "no document is open")
    run.picture(window.display, "close_all")
    window.to_tree()
    window.go_to("01 Cover")
    window.keys("Return")
    until(lambda: "01 Cover" in title(), "the drawing is open")


def begin_rename(window, run, label):
    window.go_to(label)
    window.keys("F2")
    until(lambda: os.path.exists(run.lock), "the name is edited, and the project locked")


def rename(window, run):
    """F2 renames a drawing's file and a subfolder; Escape leaves the name as it is."""
    def edit(label, text, last):
        begin_rename(window, run, label)
        window.type(text)
        run.picture(window.display, "rename")
        window.keys(last)
        until(lambda: not os.path.exists(run.lock), "the project is free again")

    window.to_tree()
    before = contents(run.project)
    edit("21 Pump", "nothing", "Escape")
    expect(contents(run.project), before, "the project after Escape")
    edit("21 Pump", "21 Second Pump", "Return")
    renamed = ["20 Pump 1 Control.dwg", "21 Second Pump.dwg", "22 Fan and Alarms.dwg", "PLC"]
    until(lambda: sorted(os.listdir(os.path.join(run.sample, "Control"))) == renamed,
          f"the files are {renamed}, each free of its lock")
    edit("SPARE", "reserve", "Return")
    names = {("CONTROL", "21 Pump 2 Control.dwg"): ("CONTROL", "21 Second Pump.dwg"),
             ("SPARE", None): ("RESERVE", None)}
    expect(contents(run.project), [names.get(entry, entry) for entry in before], "the project")


def write_from_outside(window, run, change):
    """Another program replaces the project file, and the rows follow."""
    before = window.tree_picture()
    with open(run.project, encoding="utf-8") as file:
        text = file.read()
    with open(run.project + ".new", "w", encoding="utf-8") as file:
        file.write(change(text))
    os.replace(run.project + ".new", run.project)
    until(lambda: changed_pixels(before, window.tree_picture()) > LIST_CHANGE, "the tree shows what is new")


def sort(window, run):
    """Enter answers what is asked: subfolders first, by sheet and file name."""
    first, last = "Control\\20 Pump 1 Control.dwg", "Control\\22 Fan and Alarms.dwg"
    window.to_tree()
    window.corner_of("CONTROL")
    write_from_outside(window, run, lambda text: last.join(part.replace(last, first) for part in text.split(first)))
    disordered = in_subfolder(run.project, "CONTROL")
    window.go_to("CONTROL")
    window.choose(3)
    window.question("Project Manager", "Return")
    window.question("Sort drawings", "Return")
    until(lambda: in_subfolder(run.project, "CONTROL") != disordered and not os.path.exists(run.lock), "it is sorted")
    expect([entry for entry in contents(run.project) if entry[0].startswith("CONTROL")],
           [("CONTROL/PLC", "30 PLC Inputs.dwg"), ("CONTROL/PLC", "31 PLC Outputs.dwg"),
            *(("CONTROL", name) for name in sorted(disordered))], "subfolders and drawings in CONTROL")
    run.picture(window.display, "sort")


def remove(window, run):
    """Enter alone removes nothing; files stay in any case."""
    window.to_tree()
    before, files = contents(run.project), os.listdir(os.path.join(run.sample, "Field Wiring"))
    window.go_to("FIELD WIRING")
    window.choose(5)
    run.picture(window.display, "remove")
    window.question("Project Manager", "Return")
    expect(contents(run.project), before, "the project after No")
    window.choose(5)
    window.question("Project Manager", "Left", "Return")
    until(lambda: contents(run.project) != before and not os.path.exists(run.lock), "it is removed")
    expect(contents(run.project), [entry for entry in before if entry[0] != "FIELD WIRING"], "the project after Yes")
    expect(os.listdir(os.path.join(run.sample, "Field Wiring")), files, "the files")


def follow(window, run):
    """What another program writes into the project file is there to be found and opened."""
    window.to_tree()
    window.corner_of("SPARE")
    shutil.copy(os.path.join(run.sample, "01 Cover Sheet.dwg"), os.path.join(run.sample, "77 From Outside.dwg"))
    write_from_outside(window, run, lambda text: text.rstrip("\n") + "\n77 From Outside.dwg\n")
    run.picture(window.display, "follow")
    window.keys("ctrl+f")
    window.type("outside")
    window.keys("Return", "Down", "End", "Return")
    until(lambda: "77 From Outside" in window.display.xdotool("getwindowname", window.id), "the drawing is open")
    window.to_command_line()
    expect(os.path.basename(window.told("(doc-name)").replace("\\", "/")), "77 From Outside.dwg", "the drawing")


def lock(window, run):
    """Who works on the project is told, and another user is not disturbed; when he is gone, the same keys rename."""
    status = "(ryv_getprojectlockstatus (ryv_getactiveproject))"
    holder = "(ryv_getprojectwholocked (ryv_getactiveproject))"
    expect(window.told(status), "1", "nobody has locked it")
    before, details = contents(run.project), window.details_picture()
    with run.neighbour(window.display.environment) as neighbour:
        neighbour.lock()
        expect(window.told(status), "2", "the same user has locked it")
        until(lambda: changed_pixels(details, window.details_picture()) > LIST_CHANGE, "the details say so")
        neighbour.pretend("eve", "BOX Eve ")  # a blank ends the line, as in every record
        expect((window.told(status), window.told(holder)), ("3", "eve(BOX Eve)"), "another user has it")
        window.to_tree()
        window.corner_of("SPARE")
        tree = window.tree_picture()
        window.keys("F2")
        until(lambda: changed_pixels(tree, window.tree_picture()) > LIST_CHANGE, "a line below the tree says so")
        run.picture(window.display, "lock")
        window.type("taken")
        window.keys("Return")
        window.to_command_line()
        window.told("T")
        expect(contents(run.project), before, "the project while another one has it")
    expect(window.told(status), "1", "it is free again")
    window.to_tree()
    begin_rename(window, run, "SPARE")
    window.type("taken")
    window.keys("Return")
    until(lambda: ("TAKEN", None) in contents(run.project), "the same keys rename")


def leave(window, run):
    """The next window has its docks as this one left them."""
    edge, height = window.edge_of_dock(), window.top + 400
    window.drag((edge - 1, height), (edge + 90, height))
    window.drop()
    until(lambda: window.edge_of_dock() > edge + 60, "the dock is wider")
    wider = window.edge_of_dock()
    window.quit()
    again = run.open(window.display, [])
    until(lambda: abs(again.edge_of_dock() - wider) <= 2, f"the edge of the dock is at {wider} again")
    expect(os.path.basename(again.told("(ryv_getactiveproject)").replace("\\", "/")), "Pump Station.kqp", "the project")
    run.picture(again.display, "leave")
    again.quit()


IN_WINDOW = {story.__name__: story for story in (drag, move, close_all, rename, sort, remove, follow, lock, leave)}
