"""Reads the entities of a DXF drawing, changes some of them, and writes the drawing again.

Knows lines, light polylines and block references, and their texts in extended data; everything else
stays as it is, line for line.
"""


class Entity:
    """One entity as its groups, each a pair of code and value."""

    def __init__(self, groups):
        self.groups = groups

    @property
    def kind(self):
        return self.groups[0][1]

    @property
    def handle(self):
        return next(value for code, value in self.groups if code == 5)

    def _first(self, code):
        return next((i for i, group in enumerate(self.groups) if group[0] == code), None)

    def texts(self):
        """The first text under each application."""
        found, app = {}, None
        for code, value in self.groups:
            if code == 1001:
                app = value
            elif code == 1000:
                found.setdefault(app, value)
        return found

    def set_text(self, app, text):
        """Changes the text under an application that is there; None takes it off."""
        at = next(i for i, group in enumerate(self.groups) if group == (1001, app))
        if text is None:
            del self.groups[at:at + 2]
        else:
            self.groups[at + 1] = (1000, text)

    def _corner(self, which):
        """Where the x of the first (0) or last (-1) point stands, and how far off its y is."""
        if self.kind == "LINE":
            at = self._first(10 if which == 0 else 11)
        else:
            at = [i for i, group in enumerate(self.groups) if group[0] == 10][which]
        return at

    def point(self, which=0):
        at = self._corner(which)
        return float(self.groups[at][1]), float(self.groups[at + 1][1])

    def move(self, which, point):
        """Puts the first (0) or last (-1) point somewhere else in plan."""
        at = self._corner(which)
        for offset, value in enumerate(point):
            code = self.groups[at + offset][0]
            self.groups[at + offset] = (code, f"{value:.9f}")

    def copy(self, handle):
        groups = [(code, handle if code == 5 else value) for code, value in self.groups]
        return Entity(groups)


class DrawingEdit:
    """A drawing under change. The entities keep their order; new ones come last."""

    def __init__(self, path):
        with open(path, encoding="utf-8") as file:
            lines = file.read().split("\n")
        groups = [(int(lines[i]), lines[i + 1]) for i in range(0, len(lines) - 1, 2)]
        begin = next(i for i in range(1, len(groups))
                     if groups[i] == (2, "ENTITIES") and groups[i - 1] == (0, "SECTION")) + 1
        end = next(i for i in range(begin, len(groups)) if groups[i] == (0, "ENDSEC"))
        self._head, self._tail = groups[:begin], groups[end:]
        self.entities = []
        for code, value in groups[begin:end]:
            if code == 0:
                self.entities.append(Entity([]))
            self.entities[-1].groups.append((code, value))
        self._by_handle = {entity.handle: entity for entity in self.entities}
        self._next = 0xF00000

    def __getitem__(self, handle):
        return self._by_handle[handle]

    def __contains__(self, handle):
        return handle in self._by_handle

    def carriers(self, app):
        """The entities with this application, in drawing order."""
        return [entity for entity in self.entities if (1001, app) in entity.groups]

    def remove(self, handle):
        self.entities.remove(self._by_handle.pop(handle))

    def add_like(self, handle):
        """A copy of an entity under a handle of its own."""
        self._next += 1
        entity = self[handle].copy(f"{self._next:X}")
        self.entities.append(entity)
        self._by_handle[entity.handle] = entity
        return entity

    def write(self, path):
        seed = next(i for i, group in enumerate(self._head) if group == (9, "$HANDSEED"))
        self._head[seed + 1] = (5, f"{self._next + 1:X}")
        groups = list(self._head)
        for entity in self.entities:
            groups += entity.groups
        groups += self._tail
        with open(path, "w", encoding="utf-8", newline="\n") as file:
            file.write("".join(f"{code:3d}\n{value}\n" for code, value in groups))
