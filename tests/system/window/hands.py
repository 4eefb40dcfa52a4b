"""Two ways to use the same window: by mouse, with the keyboard for names only, and by keyboard alone. What is there,
and where, is told as to a screen reader."""

from drafta_window import REPAINT
from screen_reader import ENABLED, FOCUSED, SELECTED
from waiting import Fault, until, waits_for

MOST_TABS = 60  # to whatever can hold the keyboard


class Hand:
    def __init__(self, window, reader):
        self.window, self.reader, self.display = window, reader, window.display
        self.tree = until(self.find_tree, "the program speaks")

    # -- What is there

    def windows(self):
        self.window.check_alive()
        return self.reader.windows(self.window.process.pid)

    def in_front(self):
        """What is asked last, or the window, with all that is in it."""
        windows = self.windows()
        return self.reader.below(windows[-1].reference) if windows else []

    def find_tree(self):
        return next((item for item in self.in_front() if item.role == "tree"), None)

    def item(self, name, *roles):
        """The first of that name that can be used."""
        return until(lambda: next((item for item in self.in_front() if item.name == name and item.has(ENABLED)
                                   and item.role in roles), None), f"{' or '.join(roles)} \"{name}\"")

    def field(self, name):
        return self.item(name, "text")

    def rows(self):
        return self.reader.below(self.tree.reference)[1:]

    def row(self, label):
        return until(lambda: next((row for row in self.rows() if row.name == label), None), f"the row \"{label}\"")

    def asked(self, title):
        """A window of that title."""
        until(lambda: [window.name for window in self.windows()[-1:]] == [title], f"a window \"{title}\"")

    def answered(self):
        until(lambda: len(self.windows()) == 1, "all windows beside it are gone")

    # -- What both hands do

    def fill(self, name, text):
        self.begin_field(name)
        self.window.type(text)
        until(lambda: self.field(name).text() == text, f"\"{name}\" is \"{text}\"")

    def select(self, *labels):
        """Rows that follow each other; once more when others have come up or gone meanwhile."""
        def selected():
            self.select_rows(labels)
            return waits_for(lambda: [row.name for row in self.rows() if row.has(SELECTED)] == list(labels), REPAINT)
        self.row(labels[0])
        until(selected, f"{labels} are selected")

    def command(self, name, *labels):
        """Of the menu of these rows."""
        self.select(*labels)
        self.open_menu(labels[-1])
        entries = until(lambda: self.reader.menu(self.window.process.pid), "the menu of the row")
        usable = [entry for entry in entries if entry.has(ENABLED) and entry.role == "menu item"]
        if name not in [entry.name for entry in usable]:
            raise Fault(f"\"{name}\" cannot be chosen for {labels}, only {usable}")
        self.choose(usable, name)


class Mouse(Hand):
    def click(self, item, button=1, times=1):
        self.display.xdotool("mousemove", *item.middle(), "click", "--repeat", times, "--delay", 40, button)

    def press(self, name):
        self.click(self.item(name, "push button"))

    confirm = press

    def turn_to(self, page):
        self.click(self.item(page, "page tab"))

    def begin_field(self, name):
        self.click(self.field(name), times=3)

    def select_rows(self, labels):
        self.click(self.row(labels[0]))
        if len(labels) > 1:
            self.display.xdotool("keydown", "shift")
            self.click(self.row(labels[-1]))
            self.display.xdotool("keyup", "shift")

    def open_menu(self, label):
        self.click(self.row(label), button=3)

    def choose(self, entries, name):
        self.click(next(entry for entry in entries if entry.name == name))

    def end_name(self):
        self.click(self.rows()[0])  # anywhere else in the tree

    def expand(self, label):
        self.command("Expand All", label)

    def collapse(self, label):
        self.command("Collapse All", label)

    def leave(self):
        self.click(self.item("File", "menu item"))
        self.click(self.item("Quit", "menu item"))


class Keyboard(Hand):
    def tab_to(self, what, *roles):
        """What there is in front that has the keyboard then."""
        for _ in range(MOST_TABS):
            items = self.in_front()
            for item in items:
                if item.has(FOCUSED) and item.role in roles and item.name == what:
                    return item
            self.window.keys("Tab")
        raise Fault(f"Tab does not lead to \"{what}\"")

    def press(self, name):
        self.tab_to(name, "push button")
        self.window.keys("space")

    def confirm(self, _):
        self.window.keys("Return")

    def turn_to(self, page):
        for _ in range(MOST_TABS):
            if any(item.role == "page tab" and item.name == page and item.has(FOCUSED) for item in self.in_front()):
                return
            self.window.keys("ctrl+Tab")
        raise Fault(f"no page \"{page}\"")

    def begin_field(self, name):
        self.tab_to(name, "text")
        self.window.keys("ctrl+a")

    def select_rows(self, labels):
        self.tab_to("", "tree")
        known = [row.name for row in self.rows()]
        self.window.keys("Home", *["Down"] * known.index(labels[0]))
        if len(labels) > 1:
            self.window.keys(*["shift+Down"] * (len(labels) - 1))

    def open_menu(self, _):
        self.window.keys("Menu")

    def choose(self, entries, name):
        self.window.keys(*["Down"] * (1 + [entry.name for entry in entries].index(name)), "Return")

    def end_name(self):
        self.window.keys("Return")

    def expand(self, label):
        self.select(label)
        self.window.keys("asterisk")

    def collapse(self, label):
        self.select(label)
        self.window.keys("Left")

    def leave(self):
        self.window.keys("ctrl+q")
