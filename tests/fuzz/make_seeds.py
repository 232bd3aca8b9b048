"""Makes the seeds from which the fuzzers start, into corpus/ beside this script.

The inputs that fuzzing found worth keeping stand in the same folders, named after their content;
they are not made here.
"""

import os
import random
import struct

HERE = os.path.dirname(os.path.abspath(__file__))
REAL_CODES = [*range(10, 60), *range(110, 150), *range(210, 240), *range(1010, 1060)]
INT16_CODES = [*range(60, 80), *range(170, 180), *range(270, 290), *range(370, 390), *range(1060, 1071)]
INT32_CODES = [*range(90, 100), 1071]
INT8_CODES = [*range(290, 300)]

HEADER = [(0, "SECTION"), (2, "HEADER"), (9, "$ACADVER"), (1, "{version}"), (9, "$DWGCODEPAGE"),
          (3, "ANSI_936"), (9, "$HANDSEED"), (5, "FF"), (0, "ENDSEC")]
OLD_TABLES = [(0, "SECTION"), (2, "TABLES"), (0, "TABLE"), (2, "APPID"), (5, "9"), (70, 1),
          (0, "APPID"), (5, "A"), (2, "\\U+7BA1\\U+5F84"), (70, 0), (0, "ENDTAB"),
          (0, "TABLE"), (2, "LAYER"), (5, "2"), (0, "LAYER"), (5, "10"), (2, "0"), (62, 7),
          (6, "CONTINUOUS"), (0, "ENDTAB")]
NEW_TABLES = [(0, "TABLE"), (2, "LTYPE"), (0, "LTYPE"), (2, "D"), (73, 2), (40, 3.0), (49, 1.0),
          (74, 2), (75, 0), (340, "0"), (46, 1.0), (50, 0.0), (44, 0.0), (45, 0.0), (9, "x"),
          (49, -2.0), (0, "ENDTAB"),
          (0, "TABLE"), (2, "BLOCK_RECORD"), (5, "1"), (0, "BLOCK_RECORD"), (5, "1F"),
          (2, "*Model_Space"), (0, "BLOCK_RECORD"), (5, "20"), (2, "W"), (0, "ENDTAB")]
BLOCKS = [(0, "SECTION"), (2, "BLOCKS"), (0, "BLOCK"), (5, "21"), (330, "20"), (2, "W"),
          (10, 0.0), (20, 0.0), (30, 0.0), (0, "CIRCLE"), (5, "22"), (10, 0.0), (20, 0.0),
          (40, 0.5), (0, "ENDBLK"), (5, "23"), (0, "ENDSEC")]
ENTITIES = {
    "line": [(0, "LINE"), (5, "30"), (330, "1F"), (8, "0"), (10, 1.5), (20, 0.0), (30, 0.0),
             (11, 9.0), (21, 3.0), (31, 0.0), (1001, "\\U+7BA1\\U+5F84"), (1000, "300"),
             (1040, 1.0), (1070, 3), (1010, 1.0), (1020, 2.0), (1030, 0.0), (1004, "00FF")],
    "lwpolyline": [(0, "LWPOLYLINE"), (5, "31"), (90, 3), (70, 1), (43, 0.0), (10, 0.0), (20, 0.0),
                   (42, 1.0), (10, 4.0), (20, 0.0), (10, 4.0), (20, 4.0), (42, -0.5), (210, 0.0),
                   (220, 0.0), (230, -1.0)],
    "polyline": [(0, "POLYLINE"), (5, "32"), (66, 1), (70, 8), (0, "VERTEX"), (5, "33"), (10, 1.0),
                 (20, 1.0), (30, 2.0), (70, 32), (0, "VERTEX"), (5, "34"), (10, 5.0), (20, 1.0),
                 (0, "SEQEND"), (5, "35")],
    "insert": [(0, "INSERT"), (5, "36"), (66, 1), (2, "W"), (10, 3.0), (20, 3.0), (41, 2.0),
               (50, 30.0), (0, "ATTRIB"), (5, "37"), (2, "T"), (1, "v"), (10, 3.0), (20, 3.0),
               (40, 1.0), (0, "SEQEND"), (5, "38")],
    "curves": [(0, "ARC"), (5, "39"), (10, 1.0), (20, 1.0), (40, 2.0), (50, 0.0), (51, 90.0),
               (0, "ELLIPSE"), (5, "3A"), (11, 1.0), (21, 0.0), (40, 0.5), (41, 0.0), (42, 6.28),
               (0, "SPLINE"), (5, "3B"), (70, 8), (71, 1), (72, 4), (73, 2), (40, 0.0), (40, 0.0),
               (40, 1.0), (40, 1.0), (10, 0.0), (20, 0.0), (10, 1.0), (20, 1.0)],
    "texts": [(0, "TEXT"), (5, "3C"), (10, 1.0), (20, 1.0), (40, 2.5), (1, "\\U+6C61 ^J"),
              (7, "STANDARD"), (0, "MTEXT"), (5, "3D"), (10, 1.0), (40, 2.0), (1, "a\\Pb"),
              (0, "HATCH"), (5, "3E"), (91, 1), (2, "SOLID")],
}
OBJECTS = [(0, "SECTION"), (2, "OBJECTS"), (0, "DICTIONARY"), (5, "C"), (3, "A"), (350, "70"),
           (0, "XRECORD"), (5, "70"), (330, "C"), (100, "AcDbXrecord"), (280, 1), (10, 1.0),
           (20, 2.0), (30, 0.0), (310, "AB"), (330, "30"), (0, "LAYOUT"), (5, "71"),
           (100, "AcDbLayout"), (1, "Model"), (330, "1F"), (0, "ENDSEC")]
END = [(0, "EOF")]


def tags_of(entities, version="AC1015"):
    header = [(code, version if value == "{version}" else value) for code, value in HEADER]
    body = [(0, "SECTION"), (2, "ENTITIES"), *entities, (0, "ENDSEC")]
    if version == "AC1009":
        return [*header, *OLD_TABLES, (0, "ENDSEC"), *BLOCKS, *body, *END]
    return [*header, *OLD_TABLES, *NEW_TABLES, (0, "ENDSEC"), *BLOCKS, *body, *OBJECTS, *END]


def as_text(tags):
    return "".join(f"{code:3d}\n{value}\n" for code, value in tags).encode("ascii")


def binary_value(code, value):
    if code in REAL_CODES:
        return struct.pack("<d", value)
    if code in INT16_CODES:
        return struct.pack("<h", value)
    if code in INT32_CODES:
        return struct.pack("<i", value)
    if code in INT8_CODES:
        return struct.pack("<b", value)
    if code in (310, 1004):
        data = bytes.fromhex(value)
        return bytes([len(data)]) + data
    return value.encode("ascii") + b"\0"


def as_binary(tags):
    out = b"AutoCAD Binary DXF\r\n\x1a\0"
    for code, value in tags:
        out += struct.pack("<H", code) + binary_value(code, value)
    return out


def write(corpus, name, data):
    folder = os.path.join(HERE, "corpus", corpus)
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, name), "wb") as file:
        file.write(data)


def drawings():
    for name, entities in ENTITIES.items():
        write("dxf_text", name, as_text(tags_of(entities)))
        write("dxf_binary", name, as_binary(tags_of(entities)))
    write("dxf_text", "r12", as_text(tags_of(ENTITIES["line"], "AC1009")))
    write("dxf_text", "r2018", as_text(tags_of(ENTITIES["insert"], "AC1032")))


def settings():
    systems = "# pipe systems\n1 = 污水\n1\\GroupType = 重力流\n2 = \"a\\tb\"\n2\\GroupFlag =\n"
    write("kdp", "systems", systems.encode())
    write("kdp", "marked", b"\xef\xbb\xbf; note\r\nkey = \" v \"\r\nkey = w\r\n")


def linetypes():
    write("linetype", "dashes", b"*DASH,Dash __ __\nA,.5,-.25\n*HID,\nA,.25,-.125,\n.25,-.125 ; c\n")
    write("linetype", "marks",
          b'*GAS,Gas\nA,.5,-.2,["GAS",STANDARD,S=.1,R=0.0,X=-0.1,Y=-.05],-.25\n'
          b"*FENCE,x\nA,.25,-.1,[CIRC1,ltypeshp.shx,S=.1,U=45r],-.1,1\n\x1a")


def structured():
    """Runs of bytes: each target makes of them what it needs."""
    for corpus in ("network", "command_line", "filter", "xdata"):
        for seed in range(12):
            source = random.Random(f"{corpus} {seed}")
            size = source.choice((60, 120, 240))
            data = bytes(source.randrange(256) if source.random() < 0.6 else source.randrange(8)
                         for _ in range(size))
            write(corpus, f"seed{seed:02d}", data)


drawings()
settings()
linetypes()
structured()
