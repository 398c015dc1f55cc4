#!/usr/bin/env python3
"""Draws an EAGLE script as SVG, in the layer colours of EAGLE's editor on black.

Usage: script_to_svg.py SCRIPT.scr PICTURE.svg
"""

import codecs
import math
import re
import sys
from xml.sax.saxutils import escape

BACKGROUND = "#101418"
LONGER_SIDE = 1100.0  # of the drawing, in pixels
MARGIN = 45.0
HAIRLINE = 1.6  # wires of width 0 stay visible
# EAGLE's palette for a black background, by a layer's colour number.
PALETTE = {1: "#3232c8", 2: "#32c832", 3: "#32c8c8", 4: "#c83232", 5: "#c832c8", 6: "#c8c832",
           7: "#c8c8c8", 8: "#808890", 15: "#ffffff"}
LAYER_COLOURS = {1: 4, 16: 1, 17: 2, 18: 2, 19: 6, 20: 15, 25: 7, 39: 4, 40: 1, 41: 4, 42: 1,
                 43: 2, 45: 2, 46: 3, 47: 6, 48: 8, 91: 2, 92: 1, 93: 2, 94: 4}
OTHER_LAYERS = 7

NUMBER = r"[-+]?[0-9.]+(?:[eE][-+]?[0-9]+)?"
POINT = re.compile(rf"\(R?({NUMBER}) ({NUMBER})\)")
TEXT = re.compile(r"Text (R\d+) '((?:[^']|'')*)' ")
# A statement ends at a ";" outside quotes.
STATEMENT = re.compile(r"((?:[^';]|'(?:[^']|'')*')*);")


def as_character(error):
    """Maps a byte undefined in Windows-1252 to the control character with the same code."""
    return "".join(map(chr, error.object[error.start:error.end])), error.end


codecs.register_error("as_character", as_character)


def read_script(path):
    """Reads a script as UTF-8, or else as Windows-1252, with "\n" as line ends."""
    with open(path, "rb") as file:
        script = file.read()
    try:
        text = script.decode("utf-8")
    except UnicodeDecodeError:
        text = script.decode("cp1252", errors="as_character")
    return text.replace("\r\n", "\n").replace("\r", "\n")


def statements(script):
    text = re.sub(r"(?m)^#.*$", "", script).replace("\\\n", " ")
    for match in STATEMENT.finditer(text):
        yield match.group(1).strip()


class Picture:
    """SVG elements of one script, in pixels; y grows downwards."""

    def __init__(self, scale=1.0):
        self.scale = scale
        self.elements = []
        self.colour = PALETTE[OTHER_LAYERS]
        self.size = 50.0
        self.width = 0.0
        self.xs, self.ys = [], []

    def read(self, script):
        for statement in statements(script):
            word = statement.split(" ", 1)[0]
            if statement.startswith("Change Size"):
                self.size = float(statement.split()[2]) * self.scale
            elif word == "Layer":
                number = LAYER_COLOURS.get(int(statement.split()[1]), OTHER_LAYERS)
                self.colour = PALETTE[number]
            elif word in ("Wire", "Arc", "Circle", "Polygon", "Text"):
                getattr(self, "draw_" + word.lower())(statement, self.points_of(statement))

    def points_of(self, statement):
        return [(float(x) * self.scale, -float(y) * self.scale)
                for x, y in POINT.findall(statement)]

    def width_of(self, statement):
        match = re.match(rf"(?:Wire|Arc C+W|Circle|Polygon) +({NUMBER})", statement)
        return float(match.group(1)) * self.scale if match else None

    def note(self, points, margin=0.0):
        for x, y in points:
            self.xs += [x - margin, x + margin]
            self.ys += [y - margin, y + margin]

    def stroke(self, width):
        return f'fill="none" stroke="{self.colour}" stroke-width="{max(width, HAIRLINE):.2f}"'

    def set_width(self, statement):
        width = self.width_of(statement)
        self.width = self.width if width is None else width

    def draw_wire(self, statement, points):
        self.set_width(statement)
        self.note(points)
        path = " ".join(f"{x:.2f},{y:.2f}" for x, y in points)
        self.elements.append(f'<polyline points="{path}" {self.stroke(self.width)}/>')

    def draw_arc(self, statement, points):
        """From its start, the opposite point, and a point in the direction of the end."""
        self.set_width(statement)
        (x1, y1), (x2, y2), (x3, y3) = points
        cx, cy = (x1 + x2) / 2, (y1 + y2) / 2
        radius = math.hypot(x1 - cx, y1 - cy)
        start, end = math.atan2(y1 - cy, x1 - cx), math.atan2(y3 - cy, x3 - cx)
        counter_clockwise = statement.startswith("Arc CCW")
        turn = (start - end if counter_clockwise else end - start) % (2 * math.pi)
        sign = -1 if counter_clockwise else 1
        steps = [start + sign * turn * i / 16 for i in range(17)]
        self.note([(cx + radius * math.cos(a), cy + radius * math.sin(a)) for a in steps])
        self.elements.append(
            f'<path d="M{x1:.2f},{y1:.2f}A{radius:.2f},{radius:.2f} 0 {int(turn > math.pi)} '
            f'{int(not counter_clockwise)} {x3:.2f},{y3:.2f}" {self.stroke(self.width)}/>')

    def draw_circle(self, statement, points):
        width = self.width_of(statement)
        (cx, cy), (x, y) = points
        radius = math.hypot(x - cx, y - cy)
        self.note([(cx, cy)], radius)
        filled = width == 0.0
        paint = f'fill="{self.colour}"' if filled else self.stroke(width or self.width)
        self.elements.append(f'<circle cx="{cx:.2f}" cy="{cy:.2f}" r="{radius:.2f}" {paint}/>')

    def draw_polygon(self, statement, points):
        self.note(points)
        path = " ".join(f"{x:.2f},{y:.2f}" for x, y in points)
        self.elements.append(f'<polygon points="{path}" fill="{self.colour}"/>')

    def draw_text(self, statement, points):
        orientation, text = TEXT.match(statement).groups()
        text = text.replace("''", "'").rstrip()
        (x, y), length = points[0], 0.8 * self.size * len(text)
        upright = orientation == "R90"
        self.note([(x, y), (x - self.size, y - length) if upright else (x + length, y - self.size)])
        turn = f' transform="rotate(-90 {x:.2f} {y:.2f})"' if upright else ""
        self.elements.append(
            f'<text x="{x:.2f}" y="{y:.2f}" font-size="{self.size / 0.73:.2f}" '
            f'textLength="{length:.2f}" lengthAdjust="spacingAndGlyphs" fill="{self.colour}"{turn}>'
            f"{escape(text)}</text>")

    def svg(self):
        left, top = min(self.xs) - MARGIN, min(self.ys) - MARGIN
        width, height = max(self.xs) + MARGIN - left, max(self.ys) + MARGIN - top
        box = f'width="{width:.2f}" height="{height:.2f}"'
        body = "\n".join(self.elements)
        return (f'<svg xmlns="http://www.w3.org/2000/svg" {box} '
                f'viewBox="{left:.2f} {top:.2f} {width:.2f} {height:.2f}" '
                f'stroke-linecap="round" stroke-linejoin="round" '
                f'font-family="DejaVu Sans Mono, Menlo, Consolas, monospace">\n'
                f'<rect x="{left:.2f}" y="{top:.2f}" {box} fill="{BACKGROUND}"/>\n{body}\n</svg>\n')


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    script = read_script(sys.argv[1])
    measured = Picture()
    measured.read(script)
    size = max(max(measured.xs) - min(measured.xs), max(measured.ys) - min(measured.ys))
    picture = Picture(LONGER_SIDE / size)
    picture.read(script)
    with open(sys.argv[2], "w", encoding="utf-8") as file:
        file.write(picture.svg())


if __name__ == "__main__":
    main()
