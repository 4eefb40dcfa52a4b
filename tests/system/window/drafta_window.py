"""The window of drafta under mouse and keyboard.

Where a row of the tree stands is asked of the window itself: the menu of the row with the focus comes up at the row's
lower left corner.
"""

import os
import subprocess
import time

from pictures import changed_pixels, cut
from waiting import PATIENCE, Fault, until, waits_for

SIZE = (1280, 1200)  # high enough for all rows of the sample project
CORNER = (20, 40)
TREE = (300, 720)  # with what is above it
DRAG_STEPS = 12
BESIDE = 30  # pixels left of the middle of a row
KEY_DELAY = 15  # milliseconds between keys
STRONG_SELECTION = 2000  # pixels; a row has some 6000
REPAINT = 2  # seconds that a window may take to show where the keyboard is
LETTERS = 2  # of a label, which tell the rows apart; each may come too late to be taken together with those before


def shell_values(text):
    return {name: int(value) for name, value in (line.split("=") for line in text.split())}


class DraftaWindow:
    """Open, with the keyboard in the command line."""

    def __init__(self, display, run, files):
        self.display, self.run = display, run
        with open(run.log, "ab") as log:
            self.process = subprocess.Popen([run.drafta, "--profile", run.profile, *files], stdin=subprocess.DEVNULL,
                                            stdout=log, stderr=log, env=run.environment(display.environment))

    def put_in_place(self):
        self.id = until(self.find, "the window opens")
        self.display.xdotool("windowactivate", "--sync", self.id)
        self.display.xdotool("windowsize", "--sync", self.id, *SIZE, "windowmove", "--sync", self.id, *CORNER)
        self.left, self.top = self.origin()
        self.told("T")

    def origin(self):
        """Of the window below its title: where the pointer is when it is sent there."""
        self.display.xdotool("mousemove", "--window", self.id, 0, 0)
        values = shell_values(self.display.xdotool("getmouselocation", "--shell"))
        return values["X"], values["Y"]

    def find(self):
        self.check_alive()
        found = self.visible("--name", "drafta$")
        return found[-1] if found else None

    def visible(self, *conditions):
        return self.display.xdotool("search", "--all", "--onlyvisible", "--pid", self.process.pid, *conditions,
                                    may_fail=True).split()

    def check_alive(self):
        if self.process.poll() is not None:
            raise Fault(f"the program ended with {self.process.returncode}")

    def quit(self):
        """By the keyboard; a fault unless the program leaves as it should."""
        self.keys("ctrl+q")
        try:
            code = self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired as fault:
            raise Fault("the program does not leave") from fault
        if code != 0:
            raise Fault(f"the program leaves with {code}")

    def kill(self):
        self.process.kill()
        self.process.wait()

    # -- Keyboard and mouse

    def keys(self, *names):
        self.check_alive()
        self.display.xdotool("key", "--clearmodifiers", "--delay", KEY_DELAY, *names)

    def type(self, text):
        self.check_alive()
        self.display.xdotool("type", "--clearmodifiers", "--delay", KEY_DELAY, text)

    def drag(self, start, end):
        """From point to point, as slowly as a hand, without letting go."""
        self.display.xdotool("mousemove", *start, "mousedown", "1")
        time.sleep(0.4)  # who moves at once has a trembling hand
        for step in range(1, DRAG_STEPS + 1):
            self.display.xdotool("mousemove", *(round(a + (b - a) * step / DRAG_STEPS) for a, b in zip(start, end)))
            time.sleep(0.05)

    def drop(self):
        self.display.xdotool("mouseup", "1")

    def carry(self, start, end):
        """Rows of the tree from point to point, until they hang at the pointer there, without letting go. What is let go
        before the window has told the pointer that it takes them is not dropped, but kept."""
        self.drag(start, end)
        self.other("the rows hang at the pointer")
        self.display.xdotool("mousemove", end[0] + 1, end[1])  # who saw the last step too late sees this one

    def put_down(self):
        self.drop()
        self.none_beside()

    def left_of(self, point):
        """What the screen shows beside a point in a row, where nothing that hangs at the pointer covers it."""
        return cut(self.display.picture(), point[0] - BESIDE, point[1] - 2, BESIDE - 4, 4)

    # -- Windows beside it: menus and questions

    def others(self):
        return [window for window in self.visible() if window != self.id]

    def other(self, what):
        """The one that comes up."""
        def found():
            self.check_alive()
            return self.others()
        return until(found, what)[-1]

    def none_beside(self):
        until(lambda: not self.others(), "menus and questions are gone")

    def question(self, title, *answer):
        """Answers with keys what is asked in a window of that title."""
        def asked():
            self.check_alive()
            return self.visible("--name", f"^{title}$")
        window = until(asked, f"a window \"{title}\"")[-1]
        until(lambda: self.display.xdotool("getactivewindow", may_fail=True).strip() == window,
              f"\"{title}\" has the keyboard")
        self.keys(*answer)
        until(lambda: window not in self.others(), f"\"{title}\" is gone")

    def corner(self, window):
        """The upper left corner of a window that has no title."""
        values = shell_values(self.display.xdotool("getwindowgeometry", "--shell", window))
        return values["X"], values["Y"]

    # -- The command line

    def to_command_line(self):
        """From wherever the keyboard is: the last line above the status bar."""
        self.display.xdotool("mousemove", self.left + SIZE[0] - 60, self.top + SIZE[1] - 36, "click", "1")

    def told(self, expression):
        """What an expression gives that is typed into the command line."""
        answer = os.path.join(self.run.folder, "answer")
        self.type(f'(progn (setq f (open "{answer}" "w")) (princ {expression} f) (princ "\\n" f) (close f))')
        self.keys("Return")

        def read():
            self.check_alive()
            if not os.path.exists(answer):
                return ""
            with open(answer, encoding="utf-8") as file:
                text = file.read()
            return text if text.endswith("\n") else ""
        text = until(read, f"an answer to {expression}")
        os.remove(answer)
        return text.rstrip("\n")

    # -- Docks

    def edge_of_dock(self):
        """Where the dock at the left ends and the empty drawing begins, on the screen."""
        row = cut(self.display.picture(), self.left, self.top + 200, SIZE[0], 1)[0]
        x = SIZE[0] - 50
        while x > 0 and row[3 * x:3 * x + 3] == row[3 * x - 3:3 * x]:
            x -= 1
        return self.left + x

    # -- The tree

    def tree_picture(self):
        return cut(self.display.picture(), self.left, self.top, *TREE)

    def details_picture(self):
        """What the dock shows below the tree."""
        return cut(self.display.picture(), self.left, self.top + TREE[1], TREE[0], SIZE[1] - TREE[1])

    def to_tree(self):
        """By the keyboard alone: the selection is strong only where the keyboard is."""
        pale = self.tree_picture()
        for _ in range(16):
            self.keys("Tab")
            if waits_for(lambda: changed_pixels(pale, self.tree_picture()) > STRONG_SELECTION, REPAINT):
                return
        raise Fault("Tab does not lead to the tree")

    def go_to(self, label):
        """To the first row, of all, whose label begins like that one; the tree has the keyboard."""
        self.keys("Home", "asterisk", "Home")
        self.type(label[:LETTERS])

    def open_menu(self):
        """Its window; of the row with the focus."""
        self.keys("Menu")
        return self.other("the menu of the row")

    def choose(self, downs):
        """The command behind so many that are possible, in the menu of the row with the focus."""
        self.open_menu()
        self.keys(*["Down"] * (downs + 1), "Return")

    def corner_of(self, label):
        """The lower left corner of a row, on the screen."""
        self.go_to(label)
        corner = self.corner(self.open_menu())
        self.keys("Escape")
        self.none_beside()
        return corner
