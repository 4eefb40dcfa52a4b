"""The surroundings of one story: a copy of the sample project, settings of its own, and who works beside it."""

import os
import shutil
import subprocess
import tempfile

from drafta_window import DraftaWindow
from pictures import write_png
from waiting import PATIENCE, Fault, until

LEAKS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "lsan.supp")
SIGNS_OF_A_FAULT = ("Sanitizer", "runtime error", "Internal fault")


class Run:
    def __init__(self, story, drafta, sample, pictures):
        self.story, self.drafta, self.pictures = story, os.path.abspath(drafta), pictures
        self.windows, self.own = [], tempfile.TemporaryDirectory()
        self.folder = self.own.name
        self.sample = os.path.join(self.folder, "sample")
        shutil.copytree(sample, self.sample)
        self.project = os.path.join(self.sample, "Pump Station.kqp")
        self.lock = self.project + ".FLL"
        self.profile, self.log = os.path.join(self.folder, "profile"), os.path.join(self.folder, "log")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.own.cleanup()

    def environment(self, basis):
        """Without what would make the program speak another language or read somebody's settings."""
        own = dict(basis, HOME=self.folder, XDG_CONFIG_HOME=self.folder, XDG_CACHE_HOME=self.folder,
                   XDG_RUNTIME_DIR=self.folder, LC_ALL="C.UTF-8",
                   LSAN_OPTIONS=f"suppressions={LEAKS}:print_suppressions=0")
        own.pop("WAYLAND_DISPLAY", None)
        return own

    def open(self, display, files):
        self.windows.append(DraftaWindow(display, self, files))
        self.windows[-1].put_in_place()
        return self.windows[-1]

    def end_windows(self):
        """Whatever a story has left open, while its display is there."""
        for window in self.windows:
            window.kill()

    def picture(self, display, name):
        os.makedirs(self.pictures, exist_ok=True)
        write_png(os.path.join(self.pictures, f"window-{name}.png"), display.picture())

    def said(self):
        if not os.path.exists(self.log):
            return ""
        with open(self.log, encoding="utf-8", errors="replace") as file:
            return file.read()

    def check_log(self):
        said = self.said()
        if any(sign in said for sign in SIGNS_OF_A_FAULT):
            raise Fault("the program reports a fault of its own")

    def neighbour(self, basis):
        return Neighbour(self, basis)


class Neighbour:
    """A console on the same project."""

    def __init__(self, run, basis):
        self.run = run
        self.process = subprocess.Popen(
            [run.drafta, "--console", "--profile", os.path.join(run.folder, "neighbour"), run.project],
            stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, text=True,
            env=run.environment(basis))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        try:
            self.process.wait(PATIENCE)
        finally:
            self.process.kill()

    def lock(self):
        self.process.stdin.write("(ryv_virtuallockproject (ryv_getactiveproject) 1)\n")
        self.process.stdin.flush()
        until(lambda: os.path.exists(self.run.lock), "the neighbour locks the project")

    def pretend(self, user, computer):
        """The record of the lock, which stays alive, names somebody else."""
        with open(self.run.lock, "r+b") as file:
            file.write(f"{user}\n{computer}\n2026/11/21  12:00:00".encode("utf-16-le"))
            file.truncate()
