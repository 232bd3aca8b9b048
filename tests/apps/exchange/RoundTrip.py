"""Imports a model, exports each connected part of it again, and holds the two against each other.

Run by hand on any model it says what comes back and what does not:

    PIPENET=... TKVLT_EXAMPLES=... python3 RoundTrip.py MODEL.inp...
"""
import os
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from model_truth import Truth, without_links  # noqa: E402

# Texts give heights to a millimetre, and an offset is the difference of two of them.
HEIGHT, OFFSET = 0.00051, 0.00102
DIAMETER = 0.51  # texts give diameters in whole millimetres
LENGTH = 1e-9
PLACE = 2e-6  # metres; the file gives a thousandth of a millimetre


class Trip:
    """One model on its way through a drawing."""

    def __init__(self, source, folder):
        self.truth = Truth(source)
        self.folder = folder
        self.drawing = os.path.join(folder, "imported.dxf")
        self.imported = self.call("import", source, "--output", self.drawing)

    def call(self, *arguments):
        settings = os.path.join(os.environ["TKVLT_EXAMPLES"], "settings")
        return subprocess.run([os.environ["PIPENET"], "--settings", settings, *arguments],
                              capture_output=True, check=False, encoding="utf-8", timeout=600)

    def scale(self):
        """How much larger the drawing is than the map, from two far points that came back."""
        for line in self.imported.stderr.splitlines():
            if "scheme" in line:
                return None
        return 1.0

    def root(self, nodes):
        """Where a part is read from: where its water leaves, or comes in."""
        wanted = ("outfall", "storage") if self.truth.is_sewer else ("reservoir", "tank")
        for kind in wanted:
            for node in nodes:
                if self.truth.nodes[node]["kind"] == kind:
                    return node
        return nodes[0]

    def handles(self):
        """The handles of wells and tanks by name and those of pipes by link, read from the file."""
        handles, links = {}, {}
        with open(self.drawing, encoding="utf-8") as file:
            lines = [line.strip() for line in file]
        handle, key = None, None
        for code, value in zip(lines[::2], lines[1::2]):
            if code == "5":
                handle = value
            elif code == "1001":
                key = value
            elif code == "1000" and key in ("管井编号", "池体"):
                handles.setdefault(value, handle)
            elif code == "1000" and key == "管段编号":
                links[value] = handle
        return handles, links

    def export(self, nodes, links, target, form=None):
        """Exports the part with these nodes and links from its root."""
        root = self.root(nodes)
        point = self.truth.nodes[root]["point"]
        if self.truth.is_sewer:
            start = ["--start", self.handles()[0][root]]
        else:
            first = next(n for n in links if root in self.truth.links[n]["ends"])
            start = ["--start", self.handles()[1][first]]
            scale = self.drawn_scale(root)
            start += ["--point", f"{point[0] * scale!r},{point[1] * scale!r}"]
        form = form or ("swmm" if self.truth.is_sewer else "epanet")
        return self.call("export", self.drawing, *start, "--to", form, "--output", target)

    def drawn_scale(self, node):
        """Drawing units that a metre of the map measures, read at one node."""
        with open(self.drawing, encoding="utf-8") as file:
            lines = [line.strip() for line in file]
        place, x = None, None
        for code, value in zip(lines[::2], lines[1::2]):
            if code == "10":
                x = float(value)
            elif code == "20" and x is not None:
                place = (x, float(value))
            elif code == "1000" and value == node and place:
                point = self.truth.nodes[node]["point"]
                k = 0 if abs(point[0]) >= abs(point[1]) else 1
                return place[k] / point[k]
        raise LookupError(node)

    def differences(self, nodes, links, exported):
        """What of a part came back otherwise, as sentences; an added outlet does not count."""
        found, told = Truth(exported), []
        added = {"OUT"} if "OUT" in found.nodes else set()
        self.compare_names(told, "nodes", set(nodes), set(found.nodes) - added)
        self.compare_names(told, "links", set(links), set(found.links) - added)
        for name in set(nodes) & set(found.nodes):
            self.compare_node(told, name, found.nodes[name], self.root(nodes))
        for name in set(links) & set(found.links):
            self.compare_link(told, name, found.links[name])
        return told

    @staticmethod
    def compare_names(told, what, wanted, found):
        if wanted != found:
            told.append(f"{what}: {sorted(wanted - found)[:5]} lost, "
                        f"{sorted(found - wanted)[:5]} new")

    def compare_node(self, told, name, found, root):
        node = self.truth.nodes[name]
        kind = self.kind_back(node["kind"], name == root)
        if found["kind"] not in kind:
            told.append(f"{name} was a {node['kind']} and became a {found['kind']}")
        fixed = self.truth.is_sewer or node["kind"] != "reservoir"
        if fixed and found["kind"] == "reservoir":
            pass  # the picked end: its head is not the node's height
        elif abs(node["height"] - found["height"]) > HEIGHT:
            told.append(f"height of {name}: {node['height']} became {found['height']}")
        if self.truth.is_sewer and node["kind"] == found["kind"] != "outfall":
            if node["depth"] and abs(node["depth"] - found["depth"]) > OFFSET:
                told.append(f"depth of {name}: {node['depth']} became {found['depth']}")
        if self.scale() and any(abs(a - b) > PLACE for a, b in zip(node["point"], found["point"])):
            told.append(f"place of {name}: {node['point']} became {found['point']}")

    def kind_back(self, kind, is_root):
        """What a node may come back as. A drawing tells wells from tanks and knows fixed levels; the
        node that is searched from is where the water leaves, or comes in."""
        if self.truth.is_sewer:
            wells = ("outfall",) if is_root else ("junction",)
            return {"storage": ("storage",)}.get(kind, (*wells, "junction") if is_root else wells)
        return ("reservoir",) if is_root else (kind,)

    def compare_link(self, told, name, found):
        link = self.truth.links[name]
        if link["ends"] != found["ends"]:
            told.append(f"ends of {name}: {link['ends']} became {found['ends']}")
        if link["length"] and abs(link["length"] - found["length"]) > LENGTH * link["length"]:
            told.append(f"length of {name}: {link['length']} became {found['length']}")
        if link["diameter"] and abs(link["diameter"] - found["diameter"]) > DIAMETER:
            told.append(f"diameter of {name}: {link['diameter']} became {found['diameter']}")
        for a, b in zip(link.get("heights", []), found.get("heights", [])):
            if abs(a - b) > HEIGHT + OFFSET:
                told.append(f"height at {name}: {a} became {b}")
        wanted = "pipe" if link["device"] == "pump" else link["device"]
        if wanted != found["device"]:
            told.append(f"{name} was a {link['device']} and became a {found['device']}")


def report(source):
    """Says how each part of a model fares, as it is and without the links that close loops."""
    with tempfile.TemporaryDirectory() as folder:
        trip = Trip(source, folder)
        spanning = trip.truth.spanning_links()
        tell(trip, os.path.basename(source))
        if len(spanning) < len(trip.truth.links):
            tree = os.path.join(folder, "tree.inp")
            without_links(source, tree, set(trip.truth.links) - spanning)
            tell(Trip(tree, folder), os.path.basename(source) + " without the links of loops")


def tell(trip, title):
    print(f"== {title}: status {trip.imported.returncode}")
    done = refused = nodes_back = links_back = 0
    for i, (nodes, links) in enumerate(trip.truth.parts()):
        target = os.path.join(trip.folder, f"part{i}.inp")
        run = trip.export(nodes, links, target)
        loops = len(links) - len(nodes) + 1
        if run.returncode != 0:
            refused += 1
            print(f"  part of {len(nodes)} nodes, {len(links)} links, {loops} loops: "
                  f"{run.stderr.strip().splitlines()[-1][:230]}")
            continue
        told = trip.differences(nodes, links, target)
        if told:
            print(f"  part of {len(nodes)} nodes, {len(links)} links, {loops} loops: "
                  f"{len(told)} differences, {told[:3]}")
        else:
            done += 1
            nodes_back += len(nodes)
            links_back += len(links)
    print(f"  {done} parts whole ({nodes_back} nodes, {links_back} links), {refused} refused")


if __name__ == "__main__":
    for one in sys.argv[1:]:
        report(one)
