"""Reads the advances of a font with a library that is not the one under test.

Usage: font_advances.py FILE CODE... with the codes of characters in hexadecimal. Prints the units
of an em and the advance of each character in them, -1 for one that the font lacks.
"""

import sys

from fontTools.ttLib import TTFont


def main(file, *codes):
    font = TTFont(file, fontNumber=0)
    glyphs = font.getBestCmap()
    advances = font["hmtx"]
    numbers = [font["head"].unitsPerEm]
    for code in codes:
        glyph = glyphs.get(int(code, 16))
        numbers.append(-1 if glyph is None else advances[glyph][0])
    print(*numbers)


if __name__ == "__main__":
    main(*sys.argv[1:])
