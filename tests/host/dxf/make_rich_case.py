"""Writes a drawing as make_cases.py does and adds what the host only keeps: hatches, dimensions,
images, groups, vertices with widths, a viewport, dictionaries of several levels, proxies, a section
of its own, and comments where the form has them.

Usage: make_rich_case.py FILE VERSION FORM CODEPAGE, CODEPAGE for instance ANSI_936 or ANSI_1252.
"""

import struct
import sys

import ezdxf

import make_cases


def enrich(doc, version):
    space = doc.modelspace()
    space.add_solid([(0, 0), (1, 0), (0, 1), (1, 1)])
    space.add_linear_dim(base=(3, 2), p1=(0, 0), p2=(3, 0)).render()
    if version == "R12":
        return
    hatch = space.add_hatch(color=2)
    hatch.paths.add_polyline_path([(0, 0), (10, 0), (10, 10), (0, 10)], is_closed=True)
    image = doc.add_image_def(filename="ground.png", size_in_pixel=(640, 480))
    space.add_image(image_def=image, insert=(2, 1), size_in_units=(6.4, 4.8))
    line = space.add_line((0, 0), (1, 1))
    extension = line.new_extension_dict()
    extension.add_dictionary_var("HeightSource", "survey")
    doc.groups.new("PAIR").extend([line, space.add_point((3, 3))])
    doc.layout("Layout1").add_viewport((5, 5), size=(4, 4), view_center_point=(0, 0), view_height=9)


class Tags:
    """Bytes of single tags in one form of the file, and the places where sections end."""

    def __init__(self, data, version, form):
        self.data = data
        self.binary = form == "binary"
        self.narrow = version == "R12"
        self.line_end = b"\r\n" if b"\r\n" in data[:200] else b"\n"

    def tag(self, code, value):
        if self.binary:
            head = bytes([code]) if self.narrow else struct.pack("<H", code)
            body = struct.pack("<i", value) if 90 <= code <= 99 else value.encode() + b"\0"
            return head + body
        return f"{code:>3}".encode() + self.line_end + str(value).encode() + self.line_end

    def tags(self, *pairs):
        return b"".join(self.tag(code, value) for code, value in pairs)

    def insert_before_end_of(self, section, new):
        begin = self.data.index(self.tag(2, section))
        end = self.data.index(self.tag(0, "ENDSEC"), begin)
        self.data = self.data[:end] + new + self.data[end:]

    def insert_before_end_of_file(self, new):
        end = self.data.rindex(self.tag(0, "EOF"))
        self.data = self.data[:end] + new + self.data[end:]


def add_what_others_cannot_write(file, version, form):
    with open(file, "rb") as source:
        tags = Tags(source.read(), version, form)
    if form == "text":
        tags.data = tags.tag(999, "drawn by hand,  two blanks kept ") + tags.data
        tags.insert_before_end_of("ENTITIES", tags.tag(999, "behind the entities"))
    if version != "R12":
        written = ezdxf.readfile(file)
        tags.data = tags.data.replace(
            tags.tags((9, "$HANDSEED"), (5, written.header["$HANDSEED"])),
            tags.tags((9, "$HANDSEED"), (5, "FF02")))
        tags.insert_before_end_of("ENTITIES", tags.tags(
            (0, "ACAD_PROXY_ENTITY"), (5, "FF00"),
            (330, written.modelspace().block_record_handle), (100, "AcDbEntity"), (8, "0"),
            (100, "AcDbProxyEntity"), (90, 498), (91, 500)))
        tags.insert_before_end_of("OBJECTS", tags.tags(
            (0, "ACAD_PROXY_OBJECT"), (5, "FF01"), (330, written.rootdict.dxf.handle),
            (100, "AcDbProxyObject"), (90, 499), (91, 501)))
    tags.insert_before_end_of_file(tags.tags(
        (0, "SECTION"), (2, "SURVEYORS"), (1, "first"), (1, "second"), (0, "ENDSEC")))
    with open(file, "wb") as target:
        target.write(tags.data)


def main(file, version, form, codepage):
    doc = ezdxf.new(version, setup=True)
    doc.header["$DWGCODEPAGE"] = codepage
    encodings = {"ANSI_936": "gbk", "ANSI_1252": "cp1252"}
    doc.encoding = "utf8" if version >= "R2007" else encodings[codepage]
    make_cases.fill(doc, version)
    enrich(doc, version)
    auditor = doc.audit()
    if auditor.errors:
        raise SystemExit(f"{version}: {auditor.errors}")
    doc.saveas(file, fmt={"text": "asc", "binary": "bin"}[form])
    add_what_others_cannot_write(file, version, form)


if __name__ == "__main__":
    main(*sys.argv[1:])
