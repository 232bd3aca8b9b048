"""Writes a drawing as make_cases.py does and adds what the host only keeps: hatches, dimensions,
images, groups, vertices with widths, a viewport, dictionaries of several levels.

Usage: make_rich_case.py FILE VERSION FORM CODEPAGE, CODEPAGE for instance ANSI_936 or ANSI_1252.
"""

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


if __name__ == "__main__":
    main(*sys.argv[1:])
