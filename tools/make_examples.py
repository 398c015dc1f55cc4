#!/usr/bin/env python3
"""Generates the example drawings in examples/."""

import math
import pathlib

from dxf_writer import HALF, Drawing

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "examples"
WIRE = 10.0  # width of outlines on the front plate, in mil


def centred(entities, layer, x, y, height, text):
    """EAGLE's characters are about half as wide as a DXF text is high."""
    entities.text(layer, x - 0.24 * height * len(text), y, height, text)


def dsub_block(drawing):
    """Cut-out and screw holes of a nine-pole D-sub connector, centred."""
    block = drawing.block("DSUB9")
    block.polyline("CUTOUT", [(-330.0, 200.0), (-385.0, 130.0), (-350.0, -140.0), (-285.0, -200.0),
                              (285.0, -200.0), (350.0, -140.0), (385.0, 130.0), (330.0, 200.0)],
                   WIRE)
    for side in (-1, 1):
        block.circle("HOLES", 492.0 * side, 0.0, 61.0)
    for pin in range(5):
        block.circle("SILK", (pin - 2) * 109.0, 56.0, 20.0)
    for pin in range(4):
        block.circle("SILK", (pin - 1.5) * 109.0, -56.0, 20.0)


def bnc_block(drawing):
    """A hole with a flat at the bottom, so that the connector cannot turn."""
    block = drawing.block("BNC")
    radius, flat = 190.0, -165.0
    angle = math.degrees(math.asin(flat / radius))
    half = math.sqrt(radius**2 - flat**2)
    block.arc("CUTOUT", 0.0, 0.0, radius, angle, 180.0 - angle)
    block.line("CUTOUT", -half, flat, half, flat)
    block.circle("SILK", 0.0, 0.0, 260.0)


def knob_block(drawing):
    """Shaft hole and scale of a potentiometer."""
    block = drawing.block("KNOB")
    block.circle("HOLES", 0.0, 0.0, 128.0)
    block.arc("SILK", 0.0, 0.0, 330.0, -60.0, 240.0)
    for step in range(11):
        angle = math.radians(240.0 - 30.0 * step)
        outer = 420.0 if step % 5 == 0 else 385.0
        block.line("SILK", 330.0 * math.cos(angle), 330.0 * math.sin(angle),
                   outer * math.cos(angle), outer * math.sin(angle))


def arrow(drawing, x, y, dx, dy):
    """The head of a dimension line; it points along (dx, dy)."""
    back_x, back_y = x - 90.0 * dx, y - 90.0 * dy
    drawing.lines("DIMENSIONS", (back_x - 30.0 * dy, back_y + 30.0 * dx), (x, y),
                  (back_x + 30.0 * dy, back_y - 30.0 * dx))


def dimension_across(drawing, x1, x2, y, from_y, text):
    for x in (x1, x2):
        drawing.line("DIMENSIONS", x, from_y, x, y + 60.0 * math.copysign(1, y - from_y))
    drawing.line("DIMENSIONS", x1, y, x2, y)
    arrow(drawing, x1, y, -1, 0)
    arrow(drawing, x2, y, 1, 0)
    centred(drawing, "DIMENSIONS", (x1 + x2) / 2, y + 35.0, 160.0, text)


def dimension_up(drawing, x, y1, y2, from_x, text):
    for y in (y1, y2):
        drawing.line("DIMENSIONS", from_x, y, x + 60.0 * math.copysign(1, x - from_x), y)
    drawing.line("DIMENSIONS", x, y1, x, y2)
    arrow(drawing, x, y1, 0, -1)
    arrow(drawing, x, y2, 0, 1)
    start = (y1 + y2) / 2 - 0.24 * 160.0 * len(text)
    drawing.text("DIMENSIONS", x - 35.0, start, 160.0, text, 90.0)


def logo(drawing, x, y):
    """A quill over its line of ink: closed outlines without width become filled areas."""
    feather = [(0, 0), (40, 120), (70, 210), (130, 300), (230, 400), (340, 470), (470, 520),
               (450, 430), (400, 330), (330, 240), (240, 170), (150, 120), (60, 60)]
    drawing.polyline("LOGO", [(x + float(px), y + float(py)) for px, py in feather])
    drawing.polyline("LOGO", [(x - 60.0, y - 60.0), (x + 420.0, y - 60.0), (x + 420.0, y - 35.0),
                              (x - 60.0, y - 35.0)])


def front_plate():
    """Front plate of a function generator, in mil: 7000 by 2800."""
    drawing = Drawing({"OUTLINE": "CONTINUOUS", "HOLES": "CONTINUOUS", "CUTOUT": "CONTINUOUS",
                       "SILK": "CONTINUOUS", "LOGO": "CONTINUOUS", "LABELS": "CONTINUOUS",
                       "CENTER": "CENTER", "DIMENSIONS": "CONTINUOUS", "NOTES": "CONTINUOUS"},
                      line_type_scale=120.0)
    dsub_block(drawing)
    bnc_block(drawing)
    knob_block(drawing)
    drawing.rectangle("OUTLINE", 0.0, 0.0, 7000.0, 2800.0, 150.0, WIRE)
    for x in (220.0, 6780.0):
        for y in (220.0, 2580.0):
            drawing.circle("HOLES", x, y, 66.0)
            drawing.circle("SILK", x, y, 120.0)
    drawing.rectangle("CUTOUT", 620.0, 1500.0, 2720.0, 2350.0, 60.0, WIRE)
    drawing.rectangle("SILK", 540.0, 1420.0, 2800.0, 2430.0, 100.0, 16.0)
    for i in range(4):  # LED slots: two half circles joined by lines
        x = 780.0 + 520.0 * i
        drawing.polyline("CUTOUT", [(x, 1060.0), (x + 160.0, 1060.0, HALF), (x + 160.0, 1140.0),
                                    (x, 1140.0, HALF)], WIRE)
        centred(drawing, "LABELS", x + 80.0, 900.0, 150.0, ("SINE", "TRI", "RECT", "EXT")[i])
    for x, label in ((3600.0, "FREQUENCY"), (4900.0, "AMPLITUDE")):
        drawing.insert("SILK", "KNOB", x, 1850.0)
        centred(drawing, "LABELS", x, 2420.0, 170.0, label)
        drawing.line("CENTER", x - 520.0, 1850.0, x + 520.0, 1850.0)
        drawing.line("CENTER", x, 1330.0, x, 2370.0)
    for x, label in ((3300.0, "OUT A"), (4250.0, "OUT B"), (5200.0, "SYNC")):
        drawing.insert("SILK", "BNC", x, 780.0)
        centred(drawing, "LABELS", x, 330.0, 150.0, label)
    drawing.line("CENTER", 2900.0, 780.0, 5600.0, 780.0)
    drawing.insert("SILK", "DSUB9", 6130.0, 780.0, angle=90.0)
    drawing.insert("SILK", "DSUB9", 6130.0, 2010.0, angle=90.0)
    drawing.text("LABELS", 6560.0, 560.0, 150.0, "REMOTE", 90.0)
    drawing.text("LABELS", 6560.0, 1840.0, 150.0, "CLOCK", 90.0)
    logo(drawing, 640.0, 270.0)
    drawing.text("LABELS", 1180.0, 480.0, 300.0, "QUILLON")
    drawing.text("LABELS", 1180.0, 270.0, 150.0, "FUNCTION GENERATOR")
    dimension_across(drawing, 0.0, 7000.0, -420.0, -60.0, "7000")
    dimension_across(drawing, 3600.0, 4900.0, 3050.0, 2860.0, "1300")
    dimension_up(drawing, -330.0, 0.0, 2800.0, -60.0, "2800")
    drawing.text("NOTES", 0.0, -900.0, 150.0, "Aluminium 80 mil, all edges deburred %%p5 mil")
    drawing.write(FOLDER / "frontplate.dxf")


def sensor_board():
    """A round sensor board in millimetres, as written by a release 12 program."""
    drawing = Drawing({"BOARD": "CONTINUOUS", "HOLES": "CONTINUOUS", "KEEPOUT": "DASHED",
                       "PLACE": "CONTINUOUS", "PADS": "CONTINUOUS"}, modern=False,
                      line_type_scale=2.0)
    pad = drawing.block("PAD")
    pad.polyline("PADS", [(-0.9, -0.6), (0.9, -0.6), (0.9, 0.6), (-0.9, 0.6)])
    chip = drawing.block("SENSOR")
    chip.rectangle("PLACE", -4.0, -4.0, 4.0, 4.0, 0.0, 0.2)
    chip.circle("PLACE", -3.0, 3.0, 0.4)
    for row in range(4):
        for side in (-1, 1):
            chip.insert("PADS", "PAD", 5.2 * side, 3.0 - 2.0 * row)
    radius, flat = 20.0, -17.0
    half = math.sqrt(radius**2 - flat**2)
    angle = math.degrees(math.asin(flat / radius))
    drawing.arc("BOARD", 0.0, 0.0, radius, angle, 180.0 - angle)
    drawing.line("BOARD", -half, flat, half, flat)
    for turn in (30, 150, 270):
        drawing.circle("HOLES", 14.5 * math.cos(math.radians(turn)),
                       14.5 * math.sin(math.radians(turn)), 1.6)
    drawing.circle("KEEPOUT", 0.0, 0.0, 10.5)
    drawing.polyline("KEEPOUT", [(-2.0, -16.5), (2.0, -16.5, HALF), (2.0, -12.5),
                                 (-2.0, -12.5, HALF)], 0.2)
    drawing.insert("PLACE", "SENSOR", 0.0, 0.0)
    drawing.text("PLACE", -5.0, 5.4, 2.5, "SENSOR 8")
    drawing.write(FOLDER / "sensor-board.dxf")


def relay_symbol():
    """The schematic symbol of a relay, in inches on the 0.1 inch grid."""
    drawing = Drawing({"SYMBOL": "CONTINUOUS", "LINK": "DASHED"}, line_type_scale=0.1)
    drawing.rectangle("SYMBOL", -0.2, -0.1, 0.2, 0.1, 0.0, 0.01)
    drawing.line("SYMBOL", -0.1, -0.1, 0.1, 0.1)
    drawing.lines("SYMBOL", (0.0, 0.1), (0.0, 0.3))
    drawing.lines("SYMBOL", (0.0, -0.1), (0.0, -0.3))
    drawing.line("LINK", 0.2, 0.0, 0.55, 0.0)
    drawing.lines("SYMBOL", (0.6, -0.3), (0.6, -0.1), (0.5, 0.1))
    drawing.lines("SYMBOL", (0.5, 0.3), (0.5, 0.15))
    drawing.lines("SYMBOL", (0.7, 0.3), (0.7, 0.15))
    drawing.circle("SYMBOL", 0.6, -0.1, 0.02)
    drawing.text("SYMBOL", -0.2, 0.35, 0.1, "K1")
    drawing.write(FOLDER / "relay-symbol.dxf")


def screw_post(drawing):
    """A hole with its boss."""
    block = drawing.block("POST")
    block.circle("HOLES", 0.0, 0.0, 1.6)
    block.circle("PRINT", 0.0, 0.0, 3.2)


def lid():
    """Lid of a small enclosure in millimetres: 90 by 60."""
    drawing = Drawing({"OUTLINE": "CONTINUOUS", "CUTOUT": "CONTINUOUS", "HOLES": "CONTINUOUS",
                       "PRINT": "CONTINUOUS"}, units=4)
    screw_post(drawing)
    slot = drawing.block("VENT")
    slot.polyline("CUTOUT", [(0.0, -5.0, HALF), (1.5, -5.0), (1.5, 5.0, HALF), (0.0, 5.0)])
    drawing.rectangle("OUTLINE", 0.0, 0.0, 90.0, 60.0, 8.0, 0.0)
    drawing.array("PRINT", "POST", 8.0, 8.0, 2, 2, 74.0, 44.0)
    drawing.rectangle("CUTOUT", 16.0, 33.0, 44.0, 50.0, 2.0, 0.0)
    drawing.closed_spline("CUTOUT", [(54.0, 32.0), (76.0, 28.0), (80.0, 44.0), (68.0, 52.0),
                                     (56.0, 50.0), (60.0, 42.0)])
    drawing.array("CUTOUT", "VENT", 54.0, 15.0, 6, 1, 4.5, 0.0)
    drawing.ring("PRINT", 24.0, 18.0, 6.5, 5.0)
    drawing.triangle("PRINT", (22.2, 14.8), (22.2, 21.2), (28.0, 18.0))
    drawing.ellipse("PRINT", 40.0, 18.0, (6.0, 0.0), 0.5, -0.5 * math.pi, 0.5 * math.pi)
    drawing.line("PRINT", 40.0, 15.0, 40.0, 21.0)
    drawing.text_on("PRINT", 30.0, 29.0, 3.0, "DISPLAY")
    drawing.text_on("PRINT", 45.0, 5.0, 3.0, "QUILLON")
    drawing.text_on("PRINT", 84.0, 30.0, 3.0, "LID", 90.0)
    drawing.write(FOLDER / "lid.dxf")


def seal():
    """A logo in millimetres, 20 across: a quill over its ink in a ring."""
    drawing = Drawing({"LOGO": "CONTINUOUS"}, units=4)
    drawing.ring("LOGO", 0.0, 0.0, 10.0, 8.8)
    # Two arcs make the feather; a slit parts its lower side, and its shaft is cut to a point.
    drawing.polyline("LOGO", [(-2.6, -1.8, 0.15), (0.9, 0.1), (0.7, 1.1), (1.6, 0.6, 0.2),
                              (5.4, 6.4, 0.32)])
    drawing.polyline("LOGO", [(-4.6, -4.0), (-2.3, -2.1), (-2.9, -1.3)])
    drawing.polyline("LOGO", [(-5.5, -5.2, -HALF), (-5.5, -4.6), (3.5, -4.6, -HALF), (3.5, -5.2)])
    drawing.write(FOLDER / "logo.dxf")


def relay_card_parts(drawing):
    """What is soldered to the card, with its first pins and its labels."""
    for i in range(4):
        x = 12.0 + 21.0 * i
        drawing.rectangle("PARTS", x, 34.0, x + 15.0, 62.0, 0.0, 0.2)
        drawing.circle("PIN1", x + 2.0, 60.0, 0.6)
        drawing.text("LABELS", x + 5.0, 46.0, 3.0, f"K{i + 1}")
        drawing.rectangle("PARTS", x, 6.0, x + 15.0, 17.0, 0.0, 0.2)
        drawing.circle("PIN1", x + 2.0, 15.0, 0.6)
        drawing.text("LABELS", x + 4.5, 10.5, 3.0, f"X{i + 1}")
        drawing.polyline("CUTOUTS", [(x + 6.5, 21.0, HALF), (x + 8.5, 21.0), (x + 8.5, 30.0, HALF),
                                     (x + 6.5, 30.0)])
        drawing.rectangle("KEEPOUT", x - 1.5, 33.0, x + 16.5, 63.0, 0.0, 0.0)
        drawing.line("CENTER", x + 7.5, 2.0, x + 7.5, 66.0)


def relay_card():
    """A card with four relays in millimetres, 100 by 70, on twelve layers."""
    drawing = Drawing({"BOARD": "CONTINUOUS", "CUTOUTS": "CONTINUOUS", "MOUNTING": "CONTINUOUS",
                       "GUIDES": "CONTINUOUS", "PARTS": "CONTINUOUS", "PIN1": "CONTINUOUS",
                       "LABELS": "CONTINUOUS", "LOGO": "CONTINUOUS", "KEEPOUT": "DASHED",
                       "CENTER": "CENTER", "SIZES": "CONTINUOUS", "NOTES": "CONTINUOUS"},
                      line_type_scale=4.0, units=4)
    drawing.rectangle("BOARD", 0.0, 0.0, 100.0, 70.0, 4.0, 0.0)
    for x in (5.0, 95.0):
        for y in (5.0, 65.0):
            drawing.circle("MOUNTING", x, y, 1.6)
    for x in (5.0, 95.0):
        drawing.circle("GUIDES", x, 25.5, 0.8)
    relay_card_parts(drawing)
    drawing.ring("LOGO", 94.0, 46.0, 2.4, 1.5)
    drawing.line("SIZES", 0.0, 72.0, 0.0, 78.0)
    drawing.line("SIZES", 100.0, 72.0, 100.0, 78.0)
    drawing.line("SIZES", 0.0, 76.0, 100.0, 76.0)
    drawing.text("SIZES", 46.0, 77.0, 3.0, "100")
    drawing.text("NOTES", 0.0, -6.0, 3.0, "1.6 mm FR4, both sides coated")
    drawing.write(FOLDER / "relay-card.dxf")


if __name__ == "__main__":
    front_plate()
    sensor_board()
    relay_symbol()
    lid()
    seal()
    relay_card()
