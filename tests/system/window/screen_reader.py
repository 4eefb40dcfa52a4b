"""What a program shows, as it tells a screen reader: every control with its role, label, place and state."""

import importlib.util
import os
import shutil
import subprocess

from waiting import PATIENCE, Fault, until

ACCESSIBLE, COMPONENT, TEXT = ("org.a11y.atspi." + name for name in ("Accessible", "Component", "Text"))
FOLDER = "/org/a11y/atspi/accessible"
ROOT = FOLDER + "/root"
NUMBERS_AHEAD = 300
BUS_SERVICE = "/usr/share/dbus-1/services/org.a11y.Bus.service"
SCREEN = 0  # what places are told in
ENABLED, FOCUSED, SELECTED, SHOWING = 8, 12, 23, 25  # states, by their bits


def missing_programs():
    present = {"dbus-daemon": shutil.which("dbus-daemon"), "at-spi2-core": os.path.exists(BUS_SERVICE),
               "python3-dbus": importlib.util.find_spec("dbus")}
    return [name for name, found in present.items() if not found]


def number_of(item):
    return int(item.reference[1].rsplit("/", 1)[-1])


class Item:
    """As it was when it was asked."""

    def __init__(self, reader, reference):
        self.reader, self.reference = reader, reference
        self.role = str(self.ask(ACCESSIBLE, "GetRoleName"))
        self.name = str(self.ask("org.freedesktop.DBus.Properties", "Get", ACCESSIBLE, "Name"))
        states = self.ask(ACCESSIBLE, "GetState")
        self.states = int(states[0]) | int(states[1]) << 32

    def ask(self, interface, method, *words):
        return self.reader.ask(self.reference, interface, method, *words)

    def has(self, state):
        return bool(self.states >> state & 1)

    def middle(self):
        x, y, width, height = map(int, self.ask(COMPONENT, "GetExtents", SCREEN))
        return x + width // 2, y + height // 2

    def text(self):
        """What a field holds."""
        return str(self.ask(TEXT, "GetText", 0, -1))

    def __repr__(self):
        return f"{self.role} {self.name!r}"


class ScreenReader:
    """Programs that start in its environment while it is there speak to it."""

    def __init__(self, environment):
        reading, writing = os.pipe()
        self.newest = {}  # number, by program
        self.process = subprocess.Popen(["dbus-daemon", "--session", "--nofork", f"--print-address={writing}"],
                                        env=environment, pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as address:
            self.address = address.readline().strip()
        environment["DBUS_SESSION_BUS_ADDRESS"] = self.address
        environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"

    def __enter__(self):
        import dbus  # not everywhere
        self.fault = dbus.exceptions.DBusException
        session = dbus.bus.BusConnection(self.address)
        bus = session.get_object("org.a11y.Bus", "/org/a11y/bus", introspect=False)
        self.bus = dbus.bus.BusConnection(str(bus.GetAddress(dbus_interface="org.a11y.Bus")))
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def ask(self, reference, interface, method, *words):
        asked = self.bus.get_object(*reference, introspect=False)
        return asked.get_dbus_method(method, dbus_interface=interface)(*words, timeout=PATIENCE)

    def root(self, process):
        """Of the program that is that process."""
        names = [name for name in self.bus.list_names() if name.startswith(":")]
        mine = [name for name in names if self.process_of(name) == process]
        return (mine[0], ROOT) if mine else None

    def process_of(self, name):
        try:
            return int(self.bus.call_blocking("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                              "GetConnectionUnixProcessID", "s", (name,)))
        except self.fault:
            return None  # it has gone meanwhile

    def windows(self, process):
        """Those that the program shows, the front one last, without what is in them."""
        try:
            return [item for item in (Item(self, child) for child in self.children(self.root(process)))
                    if item.has(SHOWING)]
        except self.fault:  # one has gone meanwhile
            return []

    def children(self, reference):
        return self.ask(reference, ACCESSIBLE, "GetChildren") if reference else []

    def below(self, reference):
        """All that is shown there, itself first; a part that goes meanwhile is left out."""
        found = []

        def walk(reference):
            try:
                item = Item(self, reference)
                if item.has(SHOWING):
                    found.append(item)
                    for child in self.children(reference):
                        walk(child)
            except self.fault:
                return

        walk(reference)
        newest = max([number_of(item) for item in found if item.reference[1] != ROOT], default=0)
        self.newest[reference[0]] = max(newest, self.newest.get(reference[0], 0))
        return found

    def menu(self, process):
        """What is in the menu that has just come up. Such a menu is nobody's child: it is found by its number, which is
        the next one or nearly so."""
        root = self.root(process)
        newest = self.newest[root[0]]
        for number in range(newest + 1, newest + NUMBERS_AHEAD):
            found = self.below((root[0], f"{FOLDER}/{number}"))
            if found and found[0].role == "popup menu":
                return found[1:]
        return []
