"""The tour: from nothing to a project of ten drawings and its wire numbers, and back to it at the next start."""

import os

from drawing_file import settings_of
from hands import Keyboard, Mouse
from project_file import contents, setting
from stories import expect
from waiting import PATIENCE, until

SUBFOLDERS = {"POWER": ["10 Incomer", "11 Motors", "12 Heating"],
              "CONTROL": ["22 Fan", "20 Pump 1", "21 Pump 2", "23 Alarms"],
              "FIELD": ["40 Sensors", "41 Terminals", "42 Cables"]}
SORTED = "CONTROL"
RENAMED, NEW_NAME = "42 Cables", "43 Cable List"
ODD_ONE = "21 Pump 2"
WIRE_FORMAT = 9  # of a project's settings; WIREFMT of a drawing's
FORMAT, ODD_FORMAT = "W%S%N", "P%N"


def drawing_name(name):
    return name + ".dwg"


def drawings_of(subfolder):
    return [drawing_name(name) for name in SUBFOLDERS[subfolder]]


def formats(folder):
    """Of the drawings there, as the files say."""
    return {name: settings_of(os.path.join(folder, name)).get("WIREFMT") for name in os.listdir(folder)
            if name.endswith(".dwg")}


def expected_contents():
    final = lambda subfolder: sorted(drawings_of(subfolder)) if subfolder == SORTED else drawings_of(subfolder)
    renamed = {drawing_name(RENAMED): drawing_name(NEW_NAME)}
    return [(subfolder, renamed.get(name, name)) for subfolder in SUBFOLDERS for name in final(subfolder)]


class Tour:
    def __init__(self, window, hand, run):
        self.window, self.hand, self.run = window, hand, run
        self.folder = os.path.join(run.folder, "work")
        self.project = os.path.join(self.folder, "Workshop.kqp")

    def picture(self, name):
        self.run.picture(self.window.display, f"{self.run.story}-{name}")

    def free(self):
        self.hand.answered()
        until(lambda: not os.path.exists(self.project + ".FLL"), "the project is free")

    def make_project(self):
        self.hand.press("New project")
        self.hand.asked("New Project")
        self.hand.fill("Name", "Workshop")
        self.hand.fill("Folder", self.folder)
        self.picture("project")
        self.hand.confirm("OK")
        self.hand.answered()
        self.hand.row("WORKSHOP")
        self.free()

    def make_subfolder(self, name):
        self.hand.command("New Subfolder", "WORKSHOP")
        until(lambda: os.path.exists(self.project + ".FLL"), "its name is asked")
        self.window.type(name.lower())
        self.hand.end_name()
        self.hand.row(name)
        self.free()

    def make_drawing(self, subfolder, name, is_shown):
        self.hand.command("New Drawing...", subfolder)
        self.hand.asked("New Drawing")
        self.hand.fill("File name", name)
        self.hand.fill("Sheet", name.split()[0])
        if is_shown:
            self.picture("drawing")
        self.hand.confirm("OK")
        until(lambda: (subfolder, drawing_name(name)) in contents(self.project), f"{name} is in the project")
        self.free()

    def fill_subfolder(self, subfolder):
        """Drawings that are open would have to be saved after each change of their settings."""
        for name in SUBFOLDERS[subfolder]:
            self.make_drawing(subfolder, name, name == SUBFOLDERS["POWER"][1])
        self.hand.expand(subfolder)
        self.hand.command("Close", *drawings_of(subfolder))
        self.picture(subfolder.lower())
        self.hand.collapse(subfolder)

    def set_wire_format(self, label, text, picture):
        """In the properties of the project or a drawing."""
        self.hand.command("Properties...", label)
        self.hand.turn_to("Wire Numbers")
        self.hand.fill("Wire number format", text)
        self.picture(picture)
        self.hand.confirm("OK")
        self.free()

    def apply_defaults(self):
        self.hand.command("Apply Project Defaults", *SUBFOLDERS)
        self.hand.asked("Apply Project Defaults")
        self.hand.confirm("Yes")
        self.hand.asked("Project Defaults Applied")
        self.hand.confirm("Close")
        self.free()

    def exceptions(self):
        """What the list says."""
        self.hand.command("Exception List...", "WORKSHOP")
        self.hand.asked("WORKSHOP")
        said = self.hand.field("report").text()
        self.picture("exceptions")
        self.hand.confirm("Close")
        self.hand.answered()
        return said

    def sort(self, subfolder):
        self.hand.command("Sort...", subfolder)
        self.hand.asked("Sort drawings")
        self.hand.confirm("OK")
        self.free()

    def rename(self, old, new):
        self.hand.command("Rename", drawing_name(old))
        until(lambda: os.path.exists(self.project + ".FLL"), "its name is asked")
        self.window.type(new)
        self.hand.end_name()
        self.hand.row(drawing_name(new))
        self.free()

    def build(self):
        self.make_project()
        for subfolder in SUBFOLDERS:
            self.make_subfolder(subfolder)
        for subfolder in SUBFOLDERS:
            self.fill_subfolder(subfolder)
        made = [(subfolder, name) for subfolder in SUBFOLDERS for name in drawings_of(subfolder)]
        expect(contents(self.project), made, "the project with its drawings")

    def set_wire_numbers(self):
        self.set_wire_format("WORKSHOP", FORMAT, "format")
        expect(setting(self.project, WIRE_FORMAT), FORMAT, "the project's format")
        expect(set(formats(self.folder).values()), {"%N"}, "formats of the drawings before")
        self.apply_defaults()
        expect(set(formats(self.folder).values()), {FORMAT}, "formats of the drawings after")
        self.hand.expand(SORTED)
        self.set_wire_format(drawing_name(ODD_ONE), ODD_FORMAT, "odd")
        said = self.exceptions().split("\n")
        expect([os.path.basename(line) for line in said if line.endswith(".dwg")], [drawing_name(ODD_ONE)],
               "the list of exceptions")

    def tidy(self):
        self.sort(SORTED)
        self.hand.expand("FIELD")
        self.rename(RENAMED, NEW_NAME)
        self.picture("tidy")

    def check_files(self):
        expect(contents(self.project), expected_contents(), "the project")
        expected = {name: FORMAT for _, name in expected_contents()} | {drawing_name(ODD_ONE): ODD_FORMAT}
        expect(formats(self.folder), expected, "formats of the drawings")


def tour(hand_of, run, display, reader):
    os.makedirs(os.path.join(run.folder, "work"))
    window = run.open(display, [])
    story = Tour(window, hand_of(window, reader), run)
    story.build()
    story.set_wire_numbers()
    story.tidy()
    story.hand.leave()
    expect(window.process.wait(PATIENCE), 0, "how the program leaves")
    story.check_files()

    again = run.open(display, [])
    hand = hand_of(again, reader)
    hand.expand("WORKSHOP")
    rows = ["WORKSHOP"]
    for subfolder in SUBFOLDERS:
        rows += [subfolder, *(name for its, name in expected_contents() if its == subfolder)]
    until(lambda: [row.name for row in hand.rows()] == rows, "all of it is in the tree at the next start")
    run.picture(display, f"{run.story}-next")
    hand.leave()
    expect(again.process.wait(PATIENCE), 0, "how it leaves again")
    story.check_files()


def tour_mouse(*surroundings):
    tour(Mouse, *surroundings)


def tour_keyboard(*surroundings):
    tour(Keyboard, *surroundings)


STORIES = {story.__name__: story for story in (tour_mouse, tour_keyboard)}
