"""Checks that every name the module exports is described in the API reference.

usage: check_docs.py [ROOT]

Runs doxygen with the settings of the Doxyfile over module/, and looks each name of tests/module/exports.txt up
in what it made: functions, classes and their members, fields included. Prints each name without a
description and ends with status 1 when there is one. What has nothing to say is left out: destructors and the
tables that the compiler makes for a class. Functions of one name share their descriptions, and so do the
constructors of a class.
"""

import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

SILENT = re.compile(r"^(vtable|typeinfo( name)?) for |~")


def make_xml(root, folder):
    with open(os.path.join(root, "Doxyfile"), encoding="utf-8") as file:
        settings = file.read()
    settings += f"\nOUTPUT_DIRECTORY={folder}\nINPUT=module\nGENERATE_HTML=NO\nGENERATE_XML=YES\n"
    # What is exported is looked up whether it is public or not.
    settings += "EXTRACT_PRIVATE=YES\nXML_PROGRAMLISTING=NO\n"
    subprocess.run(["doxygen", "-"], input=settings, text=True, check=True, cwd=root,
                   stdout=subprocess.DEVNULL)
    return os.path.join(folder, "xml")


def described(element):
    return any("".join(element.find(kind).itertext()).strip()
               for kind in ("briefdescription", "detaileddescription")
               if element.find(kind) is not None)


def documented_names(folder):
    """Every name of the sources, and whether one of its declarations is described."""
    names, fields = {}, {}
    for name in os.listdir(folder):
        root = xml.etree.ElementTree.parse(os.path.join(folder, name)).getroot()
        for compound in root.iter("compounddef"):
            scope = ""
            if compound.get("kind") in ("class", "struct"):
                scope = compound.findtext("compoundname")
                names[scope] = names.get(scope, False) or described(compound)
            for member in compound.iter("memberdef"):
                full = f"{scope}::{member.findtext('name')}" if scope else member.findtext("name")
                names[full] = names.get(full, False) or described(member)
                if scope and member.get("kind") == "variable":
                    fields.setdefault(scope, []).append(full)
    return names, fields


def exported_names(root):
    """Names without their arguments, and the classes that have members among them."""
    names, classes = set(), set()
    with open(os.path.join(root, "tests/module/exports.txt"), encoding="utf-8") as file:
        for line in file.read().splitlines():
            if not line or line.startswith("#") or SILENT.search(line):
                continue
            name = line.split("(")[0]
            names.add(name)
            if "::" in name:
                classes.add(name.split("::")[0])
    return names | classes, classes


def main():
    here = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    root = sys.argv[1] if len(sys.argv) > 1 else here
    with tempfile.TemporaryDirectory() as folder:
        documented, fields = documented_names(make_xml(root, folder))
    wanted, classes = exported_names(root)
    for name in classes:
        wanted.update(fields.get(name, []))
    missing = sorted(name for name in wanted if not documented.get(name, False))
    for name in missing:
        print(f"{name}: no description in the headers of module/")
    print(f"{len(wanted)} exported names, {len(missing)} without a description")
    sys.exit(1 if missing or not wanted else 0)


if __name__ == "__main__":
    main()
