"""Writes small, complete DXF drawings (R2007, UTF-8) with nothing but the standard library.

A drawing is gathered in memory and written in one go. The same calls give the same bytes on every
machine. Handles of the tables and objects count up from 1; handles of entities are the caller's
(hexadecimal text), so that they can stay the same from one edition of a drawing to the next.
"""


def number(value):
    """A real number as DXF text: at most nine decimals, no exponent, always with a point."""
    text = f"{value:.9f}".rstrip("0")
    if text.endswith("."):
        text += "0"
    return "0.0" if text == "-0.0" else text


class Tags:
    """Group codes and values, in order."""

    def __init__(self):
        self.lines = []

    def add(self, *pairs):
        for code, value in pairs:
            self.lines.append(f"{code:3d}")
            self.lines.append(number(value) if isinstance(value, float) else str(value))

    def point(self, code, x, y, z=0.0):
        self.add((code, float(x)), (code + 10, float(y)), (code + 20, float(z)))


class Drawing:
    """One drawing: layers, block definitions and the entities of its model space.

    Entities are kept in the order in which they are added, which is the order in the file.
    """

    def __init__(self):
        self._layers = [("0", 7)]
        self._apps = ["ACAD"]
        self._blocks = []
        self._entities = []
        self._box = [1e20, 1e20, -1e20, -1e20]

    # -- contents ------------------------------------------------------------------------------

    def layer(self, name, colour):
        self._layers.append((name, colour))

    def block(self, name, shapes):
        """Defines a block. shapes: ("circle", x, y, r), ("line", x1, y1, x2, y2) or
        ("polygon", [(x, y), ...])."""
        self._blocks.append((name, shapes))

    def line(self, handle, layer, start, end, xdata=()):
        tags = self._entity("LINE", handle, layer, "AcDbLine")
        tags.point(10, *start)
        tags.point(11, *end)
        self._keep(handle, tags, xdata, (start, end))

    def polyline(self, handle, layer, vertices, xdata=(), closed=False):
        """A light polyline; vertices are (x, y, bulge)."""
        tags = self._entity("LWPOLYLINE", handle, layer, "AcDbPolyline")
        tags.add((90, len(vertices)), (70, 1 if closed else 0), (43, 0.0))
        for x, y, bulge in vertices:
            tags.add((10, float(x)), (20, float(y)))
            if bulge:
                tags.add((42, float(bulge)))
        self._keep(handle, tags, xdata, [v[:2] for v in vertices])

    def insert(self, handle, layer, name, position, scale=(1.0, 1.0), rotation=0.0, xdata=()):
        tags = self._entity("INSERT", handle, layer, "AcDbBlockReference")
        tags.add((2, name))
        tags.point(10, *position)
        tags.add((41, float(scale[0])), (42, float(scale[1])), (43, 1.0), (50, float(rotation)))
        self._keep(handle, tags, xdata, (position,))

    def text(self, handle, layer, position, height, text, rotation=0.0):
        tags = self._entity("TEXT", handle, layer, "AcDbText")
        tags.point(10, *position)
        tags.add((40, float(height)), (1, text), (50, float(rotation)), (7, "HZ"))
        tags.add((100, "AcDbText"))
        self._keep(handle, tags, (), (position,))

    def order(self):
        """The handles of the entities, in file order."""
        return [handle for handle, _ in self._entities]

    def shuffle(self, seed):
        """Puts the entities into another order, the same one for the same seed."""
        shuffled(self._entities, seed)

    def _entity(self, kind, handle, layer, subclass):
        tags = Tags()
        tags.add((0, kind), (5, handle), (330, "@MODEL"), (100, "AcDbEntity"), (8, layer))
        tags.add((100, subclass))
        return tags

    def _keep(self, handle, tags, xdata, points):
        for key, value in xdata:
            if key not in self._apps:
                self._apps.append(key)
            tags.add((1001, key), (1000, value))
        for x, y in points:
            box = self._box
            self._box = [min(box[0], x), min(box[1], y), max(box[2], x), max(box[3], y)]
        self._entities.append((handle, tags))

    # -- the file ------------------------------------------------------------------------------

    def write(self, path):
        self._next = 1
        self._names = {}
        body = Tags()
        self._tables(body)
        self._block_section(body)
        body.add((0, "SECTION"), (2, "ENTITIES"))
        for _, tags in self._entities:
            model = self._names["*Model_Space"]
            body.lines.extend(model if line == "@MODEL" else line for line in tags.lines)
        body.add((0, "ENDSEC"))
        self._objects(body)
        body.add((0, "EOF"))
        self._check_handles()
        head = Tags()
        self._header(head)
        with open(path, "w", encoding="utf-8", newline="\n") as file:
            file.write("\n".join(head.lines + body.lines) + "\n")

    def _check_handles(self):
        handles = [int(handle, 16) for handle, _ in self._entities]
        if len(set(handles)) != len(handles):
            raise ValueError("a handle stands twice")
        if handles and min(handles) < self._next:
            raise ValueError("entity handles must lie above %X" % self._next)

    def _handle(self):
        self._next += 1
        return f"{self._next - 1:X}"

    def _header(self, tags):
        last = max([int(handle, 16) for handle, _ in self._entities] + [self._next])
        tags.add((0, "SECTION"), (2, "HEADER"), (9, "$ACADVER"), (1, "AC1021"))
        tags.add((9, "$DWGCODEPAGE"), (3, "ANSI_936"))
        tags.add((9, "$INSBASE"))
        tags.point(10, 0, 0)
        tags.add((9, "$EXTMIN"))
        tags.point(10, self._box[0], self._box[1])
        tags.add((9, "$EXTMAX"))
        tags.point(10, self._box[2], self._box[3])
        tags.add((9, "$LTSCALE"), (40, 1.0), (9, "$TEXTSTYLE"), (7, "HZ"), (9, "$CLAYER"), (8, "0"))
        tags.add((9, "$CELTYPE"), (6, "ByLayer"), (9, "$CECOLOR"), (62, 256))
        tags.add((9, "$LUNITS"), (70, 2), (9, "$LUPREC"), (70, 3), (9, "$AUNITS"), (70, 0))
        tags.add((9, "$TILEMODE"), (70, 1), (9, "$MEASUREMENT"), (70, 1), (9, "$INSUNITS"), (70, 6))
        tags.add((9, "$HANDSEED"), (5, f"{last + 1:X}"), (0, "ENDSEC"))
        tags.add((0, "SECTION"), (2, "CLASSES"), (0, "ENDSEC"))

    def _tables(self, tags):
        tags.add((0, "SECTION"), (2, "TABLES"))
        self._table(tags, "VPORT", "AcDbViewportTableRecord", ["*Active"], self._vport)
        self._table(tags, "LTYPE", "AcDbLinetypeTableRecord",
                    ["ByBlock", "ByLayer", "Continuous"], self._ltype)
        colours = dict(self._layers)
        self._table(tags, "LAYER", "AcDbLayerTableRecord", [name for name, _ in self._layers],
                    lambda t, name: t.add((70, 0), (62, colours[name]), (6, "Continuous")))
        self._table(tags, "STYLE", "AcDbTextStyleTableRecord", ["Standard", "HZ"], self._style)
        self._table(tags, "VIEW", "AcDbViewTableRecord", [], None)
        self._table(tags, "UCS", "AcDbUCSTableRecord", [], None)
        self._table(tags, "APPID", "AcDbRegAppTableRecord", self._apps,
                    lambda t, name: t.add((70, 0)))
        self._table(tags, "DIMSTYLE", "AcDbDimStyleTableRecord", ["Standard"],
                    lambda t, name: t.add((70, 0)))
        names = ["*Model_Space", "*Paper_Space"] + [name for name, _ in self._blocks]
        self._table(tags, "BLOCK_RECORD", "AcDbBlockTableRecord", names, self._block_record)
        tags.add((0, "ENDSEC"))

    def _table(self, tags, kind, subclass, names, fill):
        table = self._handle()
        tags.add((0, "TABLE"), (2, kind), (5, table), (330, "0"), (100, "AcDbSymbolTable"))
        tags.add((70, len(names)))
        if kind == "DIMSTYLE":
            tags.add((100, "AcDbDimStyleTable"), (71, len(names)))
        for name in names:
            handle = self._handle()
            self._names[name] = handle
            tags.add((0, kind), (105 if kind == "DIMSTYLE" else 5, handle), (330, table))
            tags.add((100, "AcDbSymbolTableRecord"), (100, subclass), (2, name))
            fill(tags, name)
        tags.add((0, "ENDTAB"))

    def _vport(self, tags, name):
        width, height = self._box[2] - self._box[0], self._box[3] - self._box[1]
        tags.add((70, 0), (10, 0.0), (20, 0.0), (11, 1.0), (21, 1.0))
        tags.add((12, self._box[0] + width / 2), (22, self._box[1] + height / 2))
        tags.add((13, 0.0), (23, 0.0), (14, 1.0), (24, 1.0), (15, 0.0), (25, 0.0))
        tags.add((16, 0.0), (26, 0.0), (36, 1.0), (17, 0.0), (27, 0.0), (37, 0.0))
        tags.add((40, height * 1.1), (41, 1.6), (42, 50.0), (43, 0.0), (44, 0.0), (50, 0.0))
        tags.add((51, 0.0), (71, 0), (72, 100), (73, 1), (74, 3), (75, 0), (76, 0), (77, 0))
        tags.add((78, 0))

    @staticmethod
    def _ltype(tags, name):
        tags.add((70, 0), (3, "Solid line" if name == "Continuous" else ""))
        tags.add((72, 65), (73, 0), (40, 0.0))

    @staticmethod
    def _style(tags, name):
        tags.add((70, 0), (40, 0.0), (41, 1.0), (50, 0.0), (71, 0), (42, 2.5), (3, "txt.shx"))
        tags.add((4, "gbcbig.shx" if name == "HZ" else ""))

    def _block_record(self, tags, name):
        layouts = {"*Model_Space": "@LAYOUT1", "*Paper_Space": "@LAYOUT2"}
        tags.add((340, layouts.get(name, "0")), (70, 6 if name in layouts else 0))
        tags.add((280, 1), (281, 0))

    def _block_section(self, tags):
        tags.add((0, "SECTION"), (2, "BLOCKS"))
        for name, shapes in [("*Model_Space", []), ("*Paper_Space", [])] + self._blocks:
            record = self._names[name]
            paper = [(67, 1)] if name == "*Paper_Space" else []
            tags.add((0, "BLOCK"), (5, self._handle()), (330, record), (100, "AcDbEntity"), *paper)
            tags.add((8, "0"), (100, "AcDbBlockBegin"), (2, name), (70, 0))
            tags.point(10, 0, 0)
            tags.add((3, name), (1, ""))
            for shape in shapes:
                self._shape(tags, record, shape)
            tags.add((0, "ENDBLK"), (5, self._handle()), (330, record), (100, "AcDbEntity"), *paper)
            tags.add((8, "0"), (100, "AcDbBlockEnd"))
        tags.add((0, "ENDSEC"))

    def _shape(self, tags, record, shape):
        kinds = {"circle": ("CIRCLE", "AcDbCircle"), "line": ("LINE", "AcDbLine"),
                 "polygon": ("LWPOLYLINE", "AcDbPolyline")}
        kind, subclass = kinds[shape[0]]
        tags.add((0, kind), (5, self._handle()), (330, record), (100, "AcDbEntity"), (8, "0"))
        tags.add((100, subclass))
        if kind == "CIRCLE":
            tags.point(10, shape[1], shape[2])
            tags.add((40, float(shape[3])))
        elif kind == "LINE":
            tags.point(10, shape[1], shape[2])
            tags.point(11, shape[3], shape[4])
        else:
            tags.add((90, len(shape[1])), (70, 1), (43, 0.0))
            for x, y in shape[1]:
                tags.add((10, float(x)), (20, float(y)))

    def _objects(self, tags):
        root, groups, layouts, mlines, mline = (self._handle() for _ in range(5))
        model, paper = self._handle(), self._handle()
        places = {"@LAYOUT1": model, "@LAYOUT2": paper}
        tags.lines[:] = [places.get(line, line) for line in tags.lines]
        tags.add((0, "SECTION"), (2, "OBJECTS"))
        self._dictionary(tags, root, "0", [("ACAD_GROUP", groups), ("ACAD_LAYOUT", layouts),
                                           ("ACAD_MLINESTYLE", mlines)])
        self._dictionary(tags, groups, root, [])
        self._dictionary(tags, layouts, root, [("Layout1", paper), ("Model", model)])
        self._dictionary(tags, mlines, root, [("Standard", mline)])
        self._layout(tags, model, layouts, "Model", 0, "*Model_Space")
        self._layout(tags, paper, layouts, "Layout1", 1, "*Paper_Space")
        tags.add((0, "MLINESTYLE"), (5, mline), (102, "{ACAD_REACTORS"), (330, mlines), (102, "}"))
        tags.add((330, mlines), (100, "AcDbMlineStyle"), (2, "Standard"), (70, 0), (3, ""))
        tags.add((62, 256), (51, 90.0), (52, 90.0), (71, 2), (49, 0.5), (62, 256), (6, "ByLayer"))
        tags.add((49, -0.5), (62, 256), (6, "ByLayer"), (0, "ENDSEC"))

    @staticmethod
    def _dictionary(tags, handle, owner, entries):
        tags.add((0, "DICTIONARY"), (5, handle))
        if owner != "0":
            tags.add((102, "{ACAD_REACTORS"), (330, owner), (102, "}"))
        tags.add((330, owner), (100, "AcDbDictionary"), (281, 1))
        for name, entry in entries:
            tags.add((3, name), (350, entry))

    def _layout(self, tags, handle, owner, name, order, space):
        tags.add((0, "LAYOUT"), (5, handle), (102, "{ACAD_REACTORS"), (330, owner), (102, "}"))
        tags.add((330, owner), (100, "AcDbPlotSettings"), (1, ""), (2, "none_device"))
        tags.add((4, "A3"), (6, ""), (40, 7.5), (41, 20.0), (42, 7.5), (43, 20.0))
        tags.add((44, 420.0), (45, 297.0), (46, 0.0), (47, 0.0), (48, 0.0), (49, 0.0))
        tags.add((140, 0.0), (141, 0.0), (142, 1.0), (143, 1.0))
        tags.add((70, 1712 if order == 0 else 688), (72, 1), (73, 0), (74, 5), (7, ""), (75, 16))
        tags.add((76, 0), (77, 2), (78, 300), (147, 1.0), (148, 0.0), (149, 0.0))
        tags.add((100, "AcDbLayout"), (1, name), (70, 1), (71, order), (10, 0.0), (20, 0.0))
        tags.add((11, 420.0), (21, 297.0), (12, 0.0), (22, 0.0), (32, 0.0))
        low, high = (self._box[:2], self._box[2:]) if order == 0 else ((0.0, 0.0), (420.0, 297.0))
        tags.point(14, *low)
        tags.point(15, *high)
        tags.add((146, 0.0), (13, 0.0), (23, 0.0), (33, 0.0), (16, 1.0), (26, 0.0), (36, 0.0))
        tags.add((17, 0.0), (27, 1.0), (37, 0.0), (76, 0), (330, self._names[space]))


class Chance:
    """A small generator of pseudo-random numbers, the same on every version of the language."""

    def __init__(self, seed):
        self._state = (seed * 2 + 1) & 0xFFFFFFFFFFFFFFFF

    def below(self, limit):
        self._state = (self._state * 6364136223846793005 + 1442695040888963407) & 0xFFFFFFFFFFFFFFFF
        return (self._state >> 33) % limit


def shuffled(items, seed):
    """Shuffles a list in place and returns it."""
    chance = Chance(seed)
    for i in range(len(items) - 1, 0, -1):
        j = chance.below(i + 1)
        items[i], items[j] = items[j], items[i]
    return items
