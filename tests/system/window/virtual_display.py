"""A screen that nobody sees, with a window manager on it."""

import os
import shutil
import subprocess
import tempfile

from pictures import read_screen
from waiting import PATIENCE, Fault, until

PROGRAMS = ("Xvfb", "openbox", "xdotool")
SIZE = "1600x1400x24"  # high enough for the longest menu below the rows that it is asked for


def missing_programs():
    return [name for name in PROGRAMS if not shutil.which(name)]


class VirtualDisplay:
    def __init__(self):
        self.own, self.processes = tempfile.TemporaryDirectory(), []
        self.environment = dict(os.environ, HOME=self.own.name, QT_QPA_PLATFORM="xcb")

    def __enter__(self):
        try:
            self.environment["DISPLAY"] = self.start_server()
            manager = self.run(["openbox"])
            until(lambda: manager.poll() is not None or self.xdotool("get_num_desktops", may_fail=True),
                  "the window manager starts")
            if manager.poll() is not None:
                raise Fault(f"the window manager ended with {manager.returncode}")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.kill()
            process.wait()
        self.own.cleanup()

    def start_server(self):
        """The name of the first display that is free. The server goes on when its last client has gone, or it would
        drop those who come meanwhile."""
        reading, writing = os.pipe()
        self.run(["Xvfb", "-displayfd", str(writing), "-screen", "0", SIZE, "-noreset", "-nolisten", "tcp", "-fbdir",
                  self.own.name], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as number:
            name = number.readline().strip()  # written when the server answers
        if not name:
            raise Fault("the display server does not start")
        return ":" + name

    def run(self, command, **more):
        self.processes.append(subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                               env=self.environment, **more))
        return self.processes[-1]

    def xdotool(self, *words, may_fail=False):
        """What it prints."""
        done = subprocess.run(["xdotool", *map(str, words)], env=self.environment, capture_output=True, text=True,
                              timeout=PATIENCE, check=False)
        if done.returncode != 0 and not may_fail:
            raise Fault(f"xdotool {words}: {done.stderr}")
        return done.stdout if done.returncode == 0 else ""

    def picture(self):
        return read_screen(os.path.join(self.own.name, "Xvfb_screen0"))
