"""Writes a drawing of one version and form, by a writer that is not the one under test.

Usage: make_cases.py FILE VERSION FORM, VERSION from R12 to R2018, FORM text or binary. Texts are in
code page 936 up to R2004, in UTF-8 later.
"""

import sys

import ezdxf
from ezdxf.enums import TextEntityAlignment

KEY = "管道系统"
NUMBER = "管井编号"


def fill(doc, version):
    for name in (KEY, NUMBER, "PLAIN"):
        doc.appids.add(name)
    doc.layers.add("污水管", color=3)
    well = doc.blocks.new("检查井", base_point=(1, 2))
    well.add_circle((1, 2), 0.5)
    well.add_attdef("NO", (0, 0), text="?", height=0.25)
    space = doc.modelspace()
    line = space.add_line((1.5, -2.25, 0.125), (1e7, 3, 4), dxfattribs={"layer": "污水管", "color": 5})
    line.set_xdata(KEY, [(1000, "污水"), (1070, 7), (1040, 0.25)])
    line.set_xdata("PLAIN", [(1000, "plain text"), (1071, 100000)])
    space.add_arc((3, 4), 2.5, 30, 120)
    space.add_circle((5, 6, 7), 1, dxfattribs={"extrusion": (0, 0, -1)})
    reference = space.add_blockref(
        "检查井", (10, 20), dxfattribs={"xscale": 2, "yscale": 3, "rotation": 90, "layer": "污水管"}
    )
    reference.add_attrib("NO", "井-1", (10, 20))
    reference.set_xdata(NUMBER, [(1000, "W1")])
    heavy = space.add_polyline2d([(0, 0, 0, 0, 1), (4, 0, 0, 0, 0)], format="xyseb")
    heavy.close()
    space.add_polyline3d([(0, 0, 0), (1, 2, 3), (4, 5, 6)])
    text = space.add_text("标高 12.5", height=2.5, rotation=45)
    text.set_placement((7, 8), align=TextEntityAlignment.LEFT)
    if version != "R12":
        space.add_lwpolyline([(0, 0, 0.5), (2, 0, 0), (2, 2, 0)], format="xyb", close=True)
        space.add_ellipse((1, 1), (2, 0), 0.5)
        space.add_open_spline([(0, 0), (1, 1), (2, 0), (3, 1)])
        space.add_mtext("kept as it is")
        settings = doc.rootdict.add_new_dict("TKVLT_DRAWING_SETTINGS")
        settings.add_xrecord("DrawScale").reset([(8, "500")])
        second = doc.layouts.new("布局 2")
        second.add_point((2, 2))
    doc.layout("Layout1").add_point((1, 1))


def main(file, version, form):
    doc = ezdxf.new(version, setup=True)
    doc.header["$DWGCODEPAGE"] = "ANSI_936"
    doc.encoding = "utf8" if version >= "R2007" else "gbk"
    fill(doc, version)
    auditor = doc.audit()
    if auditor.errors:
        raise SystemExit(f"{version}: {auditor.errors}")
    doc.saveas(file, fmt={"text": "asc", "binary": "bin"}[form])


if __name__ == "__main__":
    main(*sys.argv[1:])
