"""Waiting for what another process does."""

import time

PATIENCE = 60  # seconds; a machine that has other work to do is slow
PAUSE = 0.1


class Fault(Exception):
    """What a story expected and did not find."""


def waits_for(question, seconds):
    """The first answer that counts as true, or the last one when there is none in time."""
    end = time.monotonic() + seconds
    while not (answer := question()) and time.monotonic() < end:
        time.sleep(PAUSE)
    return answer


def until(question, what):
    """The first answer that counts as true; a Fault that names `what` when there is none in time."""
    answer = waits_for(question, PATIENCE)
    if not answer:
        raise Fault(f"waited {PATIENCE} s in vain: {what}")
    return answer
