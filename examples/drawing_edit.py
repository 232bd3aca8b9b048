"""Reads the entities of a DXF drawing, changes some of them, and writes the drawing again.

Knows lines, light polylines and block references, and their texts in extended data; everything else
stays as it is, line for line.
"""


def number(value):
    """A real number as DXF text: the fewest digits that give the same number back, no exponent."""
    text = repr(float(value))
    return f"{value:.17f}" if "e" in text else text


class Entity:
    """One entity as its groups, each a pair of code and value."""

    def __init__(self, groups):
        self.groups = groups

    @property
    def kind(self):
        return self.groups[0][1]

    @property
    def handle(self):
        return self.value(5)

    @property
    def is_pipe(self):
        return self.kind in ("LINE", "LWPOLYLINE")

    def value(self, code):
        """The value of the first group with a code."""
        return next(value for here, value in self.groups if here == code)

    def set_value(self, code, value):
        """Changes the first group with a code."""
        self.groups[next(i for i, group in enumerate(self.groups) if group[0] == code)] = (
            code, value)

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

    def _corners(self):
        """Where the x of each point stands; its y is in the next group."""
        codes = (10, 11) if self.kind == "LINE" else (10,)
        return [i for i, group in enumerate(self.groups) if group[0] in codes]

    def points(self):
        """All points in plan."""
        return [(float(self.groups[at][1]), float(self.groups[at + 1][1]))
                for at in self._corners()]

    def point(self, which=0):
        """The first (0) or last (-1) point in plan."""
        return self.points()[which]

    def move(self, which, point):
        """Puts a point (0 the first, -1 the last) somewhere else in plan."""
        at = self._corners()[which]
        for offset, value in enumerate(point):
            code = self.groups[at + offset][0]
            self.groups[at + offset] = (code, number(value))

    def lead(self, points):
        """Leads a pipe through other points, as many as it has or, for a polyline, fewer."""
        corners = self._corners()
        for at in corners[:len(corners) - len(points)][::-1]:
            end = next(i for i in range(at + 1, len(self.groups))
                       if self.groups[i][0] not in (20, 30, 40, 41, 42, 91))
            del self.groups[at:end]
        if self.kind == "LWPOLYLINE":
            self.set_value(90, str(len(points)))
        for k, point in enumerate(points):
            self.move(k, point)

    def copy(self, handle):
        """The same entity under another handle."""
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

    def replace(self, entities):
        """Puts other entities in the place of all, under the handles that they have."""
        self.entities = list(entities)
        self._by_handle = {entity.handle: entity for entity in self.entities}
        others = self._other_handles()
        if len(self._by_handle) != len(self.entities) or others & set(self._by_handle):
            raise ValueError("a handle stands twice")
        self._next = max(int(handle, 16) for handle in others | set(self._by_handle))

    def _other_handles(self):
        return {value for code, value in self._head + self._tail if code in (5, 105)}

    def last_other_handle(self):
        """The greatest handle of anything but entities, as a number."""
        return max(int(handle, 16) for handle in self._other_handles())

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
