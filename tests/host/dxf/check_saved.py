"""Reads a drawing with a library that is not the one under test and asks questions about it.

Usage: check_saved.py FILE [EXPRESSION...]. Fails when the library cannot read the file, finds
anything in it to complain of or to mend, or when an expression over `doc` and `space` (model space)
is not true.
"""

import sys

import ezdxf


def is_quirk(doc, finding):
    """The library complains of the end marks of attributes in every R12 drawing, its own included,
    since that version names no owners."""
    r12 = doc.dxfversion == "AC1009"
    return r12 and "Deleted SEQEND" in finding.message and "owner handle #None" in finding.message


def main(file, *expressions):
    doc = ezdxf.readfile(file)
    auditor = doc.audit()
    for finding in list(auditor.errors) + list(auditor.fixes):
        if not is_quirk(doc, finding):
            raise SystemExit(f"{file}: {finding.code} {finding.message}")
    scope = {"doc": doc, "space": list(doc.modelspace())}
    for expression in expressions:
        if eval(expression, scope) is not True:
            subject = expression.split("==")[0]
            raise SystemExit(f"{file}: not so: {expression}, but {eval(subject, scope)!r}")


if __name__ == "__main__":
    main(*sys.argv[1:])
