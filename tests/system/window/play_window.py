"""Uses drafta as a person does: `play_window.py STORY DRAFTA SAMPLE PICTURES` plays one story, most of them on a copy
of the sample project, in a virtual display, and holds the files to what has to come of it. What the screen looked like
goes to the folder PICTURES. Exit code 77: a program is missing that the story needs."""

import os
import sys

import screen_reader
import stories
import tour
import without_display
from run import Run
from virtual_display import VirtualDisplay, missing_programs
from waiting import Fault

SKIPPED = 77


def play(run):
    if run.story in without_display.STORIES:
        return without_display.STORIES[run.story](run)
    with VirtualDisplay() as display:
        try:
            if run.story in tour.STORIES:
                return play_spoken(run, display)
            window = run.open(display, [run.project])
            stories.IN_WINDOW[run.story](window, run)
            if window.process.poll() is None:
                window.quit()
        except Exception:
            run.picture(display, f"{run.story}-failed")
            raise
        finally:
            run.end_windows()


def play_spoken(run, display):
    with screen_reader.ScreenReader(display.environment) as reader:
        tour.STORIES[run.story](run, display, reader)


def missing_for(story):
    if story in without_display.STORIES:
        return []
    return missing_programs() + (screen_reader.missing_programs() if story in tour.STORIES else [])


def main(story, drafta, sample, pictures):
    if missing_for(story):
        print("missing:", *missing_for(story))
        return SKIPPED
    with Run(story, drafta, sample, pictures) as run:
        try:
            play(run)
            run.check_log()
        except Fault as fault:
            print(f"{story}: {fault}\n{run.said()}")
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
