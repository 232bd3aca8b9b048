"""Writes a drawing with linetypes and text styles made by a library that is not the one under test.

Usage: make_linetypes.py FILE VERSION
"""

import sys

import ezdxf


def main(file, version):
    doc = ezdxf.new(version)
    doc.linetypes.add("PLAIN", pattern=[1.25, 0.75, -0.25, 0.0, -0.25], description="dash dot")
    if version != "R12":
        pattern = 'A,.5,-.2,["GAS",STANDARD,S=.1,U=45,X=-0.1,Y=-.05],-.25'
        doc.linetypes.add("GASLINE", pattern=pattern, length=0.95, description="gas")
    doc.styles.add("MONO", font="DejaVuSansMono.ttf", dxfattribs={
        "width": 0.75, "height": 2.5, "oblique": 15, "bigfont": "gbcbig.shx"})
    space = doc.modelspace()
    space.add_line((0, 0), (1, 0), dxfattribs={"linetype": "PLAIN"})
    space.add_text("iW1", height=2.0, dxfattribs={"style": "MONO"})
    doc.saveas(file)


if __name__ == "__main__":
    main(*sys.argv[1:])
