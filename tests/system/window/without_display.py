"""What the program does where there is no display."""

import os
import subprocess

from pictures import read_png
from waiting import PATIENCE, Fault

LEAST_COLOURS = 30  # of a window with text and icons; a few would be empty panes


def without_display(run, words):
    environment = run.environment(os.environ)
    for name in ("DISPLAY", "QT_QPA_PLATFORM"):
        environment.pop(name, None)
    return subprocess.run([run.drafta, "--profile", run.profile, *words, run.project], env=environment, text=True,
                          encoding="utf-8", capture_output=True, stdin=subprocess.DEVNULL, timeout=2 * PATIENCE,
                          check=False)


def text(run):
    """The tree comes as text, behind a line that says why."""
    done = without_display(run, [])
    if done.returncode != 0 or "there is no display" not in done.stderr:
        raise Fault(f"exit code {done.returncode}, {done.stderr}")
    missing = [name for name in ("PUMP STATION", "01 Cover Sheet.dwg", "FIELD WIRING", "GEBÄUDE NORD")
               if name not in done.stdout]
    if missing:
        raise Fault(f"{missing} are missing in\n{done.stdout}")


def screenshot(run):
    """A window is drawn all the same."""
    os.makedirs(run.pictures, exist_ok=True)
    file = os.path.join(run.pictures, "window-screenshot.png")
    if os.path.exists(file):
        os.remove(file)
    done = without_display(run, ["--screenshot", file])
    if done.returncode != 0:
        raise Fault(f"exit code {done.returncode}, {done.stderr}")
    width, height, colours = read_png(file)
    if not (800 <= width <= 4000 and 600 <= height <= 4000 and len(colours) >= LEAST_COLOURS):
        raise Fault(f"a picture of {width} x {height} pixels in {len(colours)} colours")


STORIES = {story.__name__: story for story in (text, screenshot)}
