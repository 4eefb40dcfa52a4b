#!/usr/bin/env python3
"""Draws what `kqp show` prints for the sample project as a picture of a terminal.

Usage: docs/images/make_kqp_show.py KQP > docs/images/kqp-show.svg
Run it from the root of the tree; it runs the program for real.
"""
import re
import subprocess
import sys
from html import escape

SAMPLE = "samples/pump-station/Pump Station.kqp"
CELL, LINE, MARGIN, BAR = 8.4, 19, 18, 34
BACKGROUND, FOREGROUND, PROMPT = "#1e2430", "#d8dee9", "#8fbf7f"
COLOURS = {31: "#d98080", 32: "#8fbf7f", 33: "#d9c27f", 34: "#7fa8d9", 35: "#b78fd9", 36: "#7fc7c7"}
ESCAPE = re.compile(r"\x1b\[([0-9;]*)m")


def spans(line):
    """The parts of a line with the SVG attributes of each."""
    style, start = "", 0
    for code in ESCAPE.finditer(line):
        yield line[start:code.start()], style
        start = code.end()
        style = style_of(style, [int(n or 0) for n in code.group(1).split(";")])
    yield line[start:], style


def style_of(style, numbers):
    for number in numbers:
        if number == 0:
            style = ""
        elif number == 1:
            style += ' font-weight="bold"'
        elif number == 2:
            style += ' opacity="0.62"'
        elif number in COLOURS:
            style += f' fill="{COLOURS[number]}"'
    return style


def draw_line(line, row):
    y = BAR + MARGIN + row * LINE
    column, parts = 0, []
    for text, style in spans(line):
        if text.strip():
            x = MARGIN + column * CELL
            length = len(text) * CELL
            parts.append(
                f'<text x="{x:.1f}" y="{y}" textLength="{length:.1f}" xml:space="preserve"{style}>{escape(text)}</text>'
            )
        column += len(text)
    return "".join(parts)


def main():
    printed = subprocess.run([sys.argv[1], "show", "--color=always", SAMPLE], check=True, capture_output=True)
    lines = printed.stdout.decode().rstrip("\n").split("\n")
    folder = subprocess.run(["pwd"], check=True, capture_output=True, text=True).stdout.strip()
    lines = [line.replace(folder + "/", "") for line in lines]
    lines.insert(0, f'\x1b[32m$\x1b[0m kqp show "{SAMPLE}"')
    width = MARGIN * 2 + max(len(ESCAPE.sub("", line)) for line in lines) * CELL
    height = BAR + MARGIN + len(lines) * LINE
    print(f'<svg xmlns="http://www.w3.org/2000/svg" width="{width:.0f}" height="{height}" '
          f'viewBox="0 0 {width:.0f} {height}" role="img" aria-label="kqp show prints the sample project">')
    print(f'<rect width="100%" height="100%" rx="9" fill="{BACKGROUND}"/>')
    for number, colour in enumerate(("#e06c6c", "#e0b85c", "#78b86c")):
        print(f'<circle cx="{MARGIN + 6 + number * 20}" cy="18" r="6" fill="{colour}"/>')
    print(f'<g font-family="DejaVu Sans Mono, Menlo, Consolas, monospace" font-size="14" fill="{FOREGROUND}">')
    for row, line in enumerate(lines):
        print(draw_line(line, row))
    print("</g></svg>")


main()
