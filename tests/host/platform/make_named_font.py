"""Gives a font another family, with a library that is not the one under test.

Usage: make_named_font.py FROM TO FAMILY TYPOGRAPHIC CHINESE UNICODE. FAMILY is the family's name in
English, TYPOGRAPHIC the typographic one, CHINESE that in Chinese, and UNICODE one that the font
tells for the platform Unicode. The style is Regular.
"""

import sys

from fontTools.ttLib import TTFont

FAMILY, STYLE, TYPOGRAPHIC = 1, 2, 16
UNICODE, WINDOWS = (0, 3, 0), (3, 1, 0x409)
WINDOWS_CHINESE = (3, 1, 0x804)


def main(source, target, family, typographic, chinese, unicode):
    font = TTFont(source)
    table = font["name"]
    table.names = []
    table.setName(family, FAMILY, *WINDOWS)
    table.setName("Regular", STYLE, *WINDOWS)
    table.setName(typographic, TYPOGRAPHIC, *WINDOWS)
    table.setName(chinese, FAMILY, *WINDOWS_CHINESE)
    table.setName(unicode, FAMILY, *UNICODE)
    font.save(target)


if __name__ == "__main__":
    main(*sys.argv[1:])
