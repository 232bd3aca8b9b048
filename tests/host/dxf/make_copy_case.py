"""Writes a drawing whose entities carry what the host only keeps: lineweights, true colours,
transparency, scales of linetypes, thicknesses, flags, reactors, extension dictionaries.

Usage: make_copy_case.py FILE VERSION FORM, as with make_cases.py.
"""

import sys

import ezdxf

# Values the tests ask for; the reader gives what a version knows of them.
KEPT = {"linetype": "DASHED", "thickness": 2.0}
KEPT_R2000 = {"ltscale": 0.5, "lineweight": 50}
KEPT_R2004 = {"true_color": 0x0A141E, "transparency": 0x0200007F, "color_name": "BOOK$Blue"}


def kept(version, **own):
    attribs = {**KEPT, **own}
    if version >= "R2000" and version != "R12":
        attribs |= KEPT_R2000
    if version >= "R2004" and version != "R12":
        attribs |= KEPT_R2004
    return attribs


def fill(doc, version):
    doc.appids.add("PLAIN")
    block = doc.blocks.new("WELL")
    block.add_circle((0, 0), 0.5)
    block.add_attdef("NO", (0, 0), text="?", height=0.25)
    space = doc.modelspace()
    line = space.add_line((0, 0), (100, 0), dxfattribs=kept(version))
    space.add_circle((5, 6), 4, dxfattribs=kept(version))
    space.add_arc((30, 4), 2.5, 30, 120, dxfattribs=kept(version))
    space.add_text("well", height=2.5, dxfattribs=kept(version, insert=(7, 8)))
    attribs = kept(version)
    del attribs["thickness"]
    reference = space.add_blockref("WELL", (10, 20), dxfattribs=attribs)
    reference.add_attrib("NO", "W-1", (10, 20), dxfattribs=kept(version))
    heavy = space.add_polyline2d(
        [(0, 0, 1, 2, 0.5), (4, 0, 0, 0, 0), (4, 4, 0, 0, 0)],
        format="xyseb",
        dxfattribs=kept(version, flags=128),
    )
    heavy.vertices[1].dxf.tangent = 45
    space.add_polyline3d([(0, 0, 0), (1, 2, 3), (4, 5, 6)])
    space.add_point((1, 1, 1), dxfattribs=kept(version, angle=30))
    if version != "R12":
        fill_newer(doc, space, line, version)
    for entity in space:
        entity.set_xdata("PLAIN", [(1000, "text"), (1071, 100000)])


def fill_newer(doc, space, line, version):
    line.new_extension_dict().add_dictionary_var("HeightSource", "survey")
    group = doc.groups.new("PAIR")
    group.extend([line])
    line.append_reactor_handle(group.dxf.handle)
    light = space.add_lwpolyline(
        [(0, 0, 1, 2, 0.5), (10, 0, 2, 2, 0), (10, 8, 3, 0.5, -0.5), (0, 8, 4, 0, 0)],
        format="xyseb",
        dxfattribs=kept(version, flags=128, elevation=2.5),
    )
    light.closed = True
    light.append_reactor_handle(group.dxf.handle)
    space.add_lwpolyline([(0, 0), (5, 0), (5, 5)], dxfattribs={"const_width": 0.25})
    paragraph = {"insert": (3, 3), "char_height": 2.5, "line_spacing_factor": 1.5}
    space.add_mtext("kept", dxfattribs=paragraph)
    image = doc.add_image_def(filename="ground.png", size_in_pixel=(640, 480))
    space.add_image(image_def=image, insert=(2, 1), size_in_units=(6.4, 4.8))


def main(file, version, form):
    doc = ezdxf.new(version, setup=True)
    fill(doc, version)
    auditor = doc.audit()
    if auditor.errors:
        raise SystemExit(f"{version}: {auditor.errors}")
    doc.saveas(file, fmt={"text": "asc", "binary": "bin"}[form])


if __name__ == "__main__":
    main(*sys.argv[1:])
