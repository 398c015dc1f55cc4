"""Writes ASCII DXF drawings of release 2000 (AC1015) or release 12 (AC1009)."""

import math

# Name: (description, dash lengths); a negative length is a gap.
LINE_TYPES = {
    "CONTINUOUS": ("Solid line", ()),
    "CENTER": ("Center ____ _ ____ _ ____", (1.25, -0.25, 0.25, -0.25)),
    "DASHED": ("Dashed __ __ __ __", (0.5, -0.25)),
}

QUARTER = math.tan(math.pi / 8)  # bulge of a quarter circle
HALF = 1.0  # bulge of a half circle


def number(value):
    text = f"{value:.9f}".rstrip("0")
    return text + "0" if text.endswith(".") else text


class Entities:
    """The entities of the drawing or of one of its blocks."""

    def __init__(self, drawing):
        self.drawing = drawing
        self.groups = []

    def add(self, kind, layer, subclass, *groups):
        self.groups.append((0, kind))
        if self.drawing.modern:
            self.groups += [(5, self.drawing.handle()), (100, "AcDbEntity")]
        self.groups.append((8, layer))
        line_type = self.drawing.layers[layer]
        if line_type != "CONTINUOUS":  # said again here: not every reader asks the layer
            self.groups.append((6, line_type))
        if self.drawing.modern:
            self.groups.append((100, subclass))
        self.groups += groups

    def line(self, layer, x1, y1, x2, y2):
        self.add("LINE", layer, "AcDbLine", (10, x1), (20, y1), (11, x2), (21, y2))

    def lines(self, layer, *points):
        for (x1, y1), (x2, y2) in zip(points, points[1:]):
            self.line(layer, x1, y1, x2, y2)

    def circle(self, layer, x, y, radius):
        self.add("CIRCLE", layer, "AcDbCircle", (10, x), (20, y), (40, radius))

    def arc(self, layer, x, y, radius, start, end):
        groups = [(10, x), (20, y), (40, radius)]
        if self.drawing.modern:
            groups.append((100, "AcDbArc"))
        self.add("ARC", layer, "AcDbCircle", *groups, (50, start), (51, end))

    def text(self, layer, x, y, height, text, angle=0.0):
        self.add("TEXT", layer, "AcDbText", (10, x), (20, y), (40, height), (1, text),
                 (50, angle), (7, "STANDARD"))

    def polyline(self, layer, vertices, width=0.0, closed=True):
        """Vertices are (x, y) or (x, y, bulge)."""
        vertices = [(v + (0.0,))[:3] for v in vertices]
        if self.drawing.modern:
            groups = [(90, len(vertices)), (70, int(closed)), (43, width)]
            for x, y, bulge in vertices:
                groups += [(10, x), (20, y)] + ([(42, bulge)] if bulge else [])
            self.add("LWPOLYLINE", layer, "AcDbPolyline", *groups)
            return
        self.add("POLYLINE", layer, "", (66, 1), (70, int(closed)), (40, width), (41, width))
        for x, y, bulge in vertices:
            self.add("VERTEX", layer, "", (10, x), (20, y), (42, bulge))
        self.add("SEQEND", layer, "")

    def rectangle(self, layer, x1, y1, x2, y2, radius, width):
        """Rounded corners when the radius is not 0."""
        r = radius
        if r == 0:
            corners = [(x1, y1), (x2, y1), (x2, y2), (x1, y2)]
        else:
            corners = [(x1 + r, y1), (x2 - r, y1, QUARTER), (x2, y1 + r), (x2, y2 - r, QUARTER),
                       (x2 - r, y2), (x1 + r, y2, QUARTER), (x1, y2 - r), (x1, y1 + r, QUARTER)]
        self.polyline(layer, corners, width)

    def insert(self, layer, block, x, y, scale=1.0, angle=0.0):
        self.add("INSERT", layer, "AcDbBlockReference", (2, block), (10, x), (20, y),
                 (41, scale), (42, scale), (50, angle))

    def array(self, layer, block, x, y, columns, rows, dx, dy):
        self.add("INSERT", layer, "AcDbBlockReference", (2, block), (10, x), (20, y),
                 (70, columns), (71, rows), (44, dx), (45, dy))

    def text_on(self, layer, x, y, height, text, angle=0.0):
        """A text with its middle at a point."""
        self.add("TEXT", layer, "AcDbText", (10, x), (20, y), (40, height), (1, text), (50, angle),
                 (7, "STANDARD"), (72, 1), (11, x), (21, y), (100, "AcDbText"), (73, 2))

    def triangle(self, layer, *corners):
        """Filled."""
        groups = []
        for i, (x, y) in enumerate((*corners, corners[-1])):
            groups += [(10 + i, x), (20 + i, y)]
        self.add("SOLID", layer, "AcDbTrace", *groups)

    def ellipse(self, layer, x, y, major, ratio, start=0.0, end=2 * math.pi):
        """From its centre; `major` is the end of the long axis, the angles are parameters."""
        self.add("ELLIPSE", layer, "AcDbEllipse", (10, x), (20, y), (30, 0.0), (11, major[0]),
                 (21, major[1]), (31, 0.0), (40, ratio), (41, start), (42, end))

    def closed_spline(self, layer, points):
        """A closed cubic B-spline around these control points."""
        count = len(points) + 3
        groups = [(70, 11), (71, 3), (72, count + 4), (73, count)]
        groups += [(40, float(knot)) for knot in range(count + 4)]
        for x, y in (*points, *points[:3]):
            groups += [(10, x), (20, y), (30, 0.0)]
        self.add("SPLINE", layer, "AcDbSpline", *groups)

    def ring(self, layer, x, y, outer, inner):
        """Filled."""
        groups = [(10, 0.0), (20, 0.0), (30, 0.0), (2, "SOLID"), (70, 1), (71, 0), (91, 2)]
        for path, radius in ((1, outer), (16, inner)):
            groups += [(92, path), (93, 1), (72, 2), (10, x), (20, y), (40, radius), (50, 0.0),
                       (51, 360.0), (73, 1), (97, 0)]
        self.add("HATCH", layer, "AcDbHatch", *groups, (75, 0), (76, 1), (98, 0))


class Drawing(Entities):
    def __init__(self, layers, modern=True, line_type_scale=1.0, units=None):
        """`layers` maps names to line types; `units` is $INSUNITS, 4 for millimetres."""
        self.units = units
        self.modern = modern
        self.layers = {"0": "CONTINUOUS", **layers}
        self.line_type_scale = line_type_scale
        self.last_handle = 0x1F
        self.blocks = {}
        super().__init__(self)

    def handle(self):
        self.last_handle += 1
        return f"{self.last_handle:X}"

    def block(self, name):
        return self.blocks.setdefault(name, Entities(self))

    def write(self, path):
        body = self.tables() + self.block_section()
        body += [(0, "SECTION"), (2, "ENTITIES"), *self.groups, (0, "ENDSEC")]
        if self.modern:
            body += [(0, "SECTION"), (2, "OBJECTS"), (0, "DICTIONARY"), (5, self.handle()),
                     (100, "AcDbDictionary"), (0, "ENDSEC")]
        groups = self.header() + body + [(0, "EOF")]
        with open(path, "w", encoding="ascii", newline="\r\n") as file:
            for code, value in groups:
                text = number(value) if isinstance(value, float) else str(value)
                file.write(f"{code:3d}\n{text}\n")

    def header(self):
        groups = [(0, "SECTION"), (2, "HEADER"), (9, "$ACADVER"),
                  (1, "AC1015" if self.modern else "AC1009"), (9, "$FILLMODE"), (70, 1),
                  (9, "$LTSCALE"), (40, float(self.line_type_scale))]
        if self.units is not None:
            groups += [(9, "$INSUNITS"), (70, self.units)]
        if self.modern:
            groups += [(9, "$HANDSEED"), (5, f"{self.last_handle + 1:X}")]
        return groups + [(0, "ENDSEC")]

    def table(self, name, records):
        owner = self.handle()
        groups = [(0, "TABLE"), (2, name)]
        if self.modern:
            groups += [(5, owner), (100, "AcDbSymbolTable")]
        groups.append((70, len(records)))
        for kind, subclass, record in records:
            groups.append((0, kind))
            if self.modern:
                groups += [(5, self.handle()), (330, owner), (100, "AcDbSymbolTableRecord"),
                           (100, subclass)]
            groups += record
        return groups + [(0, "ENDTAB")]

    def tables(self):
        line_types = []
        for name, (description, dashes) in LINE_TYPES.items():
            groups = [(2, name), (70, 0), (3, description), (72, 65), (73, len(dashes)),
                      (40, float(sum(map(abs, dashes))))]
            groups += [(49, float(dash)) for dash in dashes]
            line_types.append(("LTYPE", "AcDbLinetypeTableRecord", groups))
        layers = [("LAYER", "AcDbLayerTableRecord",
                   [(2, name), (70, 0), (62, 7), (6, line_type)])
                  for name, line_type in self.layers.items()]
        style = [("STYLE", "AcDbTextStyleTableRecord",
                  [(2, "STANDARD"), (70, 0), (40, 0.0), (41, 1.0), (50, 0.0), (71, 0), (42, 1.0),
                   (3, "txt"), (4, "")])]
        groups = self.table("LTYPE", line_types) + self.table("LAYER", layers)
        groups += self.table("STYLE", style)
        if self.modern:
            groups += self.table("BLOCK_RECORD",
                                 [("BLOCK_RECORD", "AcDbBlockTableRecord", [(2, name)])
                                  for name in self.block_names()])
        return [(0, "SECTION"), (2, "TABLES"), *groups, (0, "ENDSEC")]

    def block_names(self):
        layouts = ["*Model_Space", "*Paper_Space"] if self.modern else []
        return layouts + list(self.blocks)

    def block_section(self):
        groups = [(0, "SECTION"), (2, "BLOCKS")]
        for name in self.block_names():
            block = Entities(self)
            block.add("BLOCK", "0", "AcDbBlockBegin", (2, name), (70, 0), (10, 0.0), (20, 0.0),
                      (3, name))
            if name in self.blocks:
                block.groups += self.blocks[name].groups
            block.add("ENDBLK", "0", "AcDbBlockEnd")
            groups += block.groups
        return groups + [(0, "ENDSEC")]
