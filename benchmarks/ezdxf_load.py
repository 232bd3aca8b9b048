#!/usr/bin/env python3
"""Reads a drawing with ezdxf and prints the wall time and the time in user mode, in milliseconds.

    ezdxf_load.py DRAWING.dxf REPETITIONS
"""
import resource
import sys
import time

import ezdxf


def user_seconds():
    return resource.getrusage(resource.RUSAGE_SELF).ru_utime


def main(path, repetitions):
    for _ in range(repetitions):
        user, begin = user_seconds(), time.monotonic()
        drawing = ezdxf.readfile(path)
        wall, user = time.monotonic() - begin, user_seconds() - user
        if len(drawing.modelspace()) == 0:
            sys.exit("nothing was read from " + path)
        print(f"{wall * 1000:.6f} {user * 1000:.6f}")
        del drawing


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(sys.argv[1], int(sys.argv[2]))
