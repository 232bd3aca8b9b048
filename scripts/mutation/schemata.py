"""Writes mutants into a source so that one build holds them all and each is chosen when it runs.

`a < b` becomes `(mutation::on(17) ? ((a) <= (b)) : (a < b))`, a statement `{ if (!mutation::on(18)) { ... } }`.
Lines keep their numbers.
"""


def nested(places):
    """Larger spans first; of the same span statements first, then conditions, then the rest."""
    outer = {"statement": 0, "return": 0, "jump": 0, "condition": 1}
    return sorted(places, key=lambda place: (place.start, -place.end, outer.get(place.kind, 2), place.change))


class Writer:
    def __init__(self, data, numbered):
        self.data = data
        self.places = nested([place for place, _ in numbered])
        self.numbers = {id(place): number for place, number in numbered}

    def render(self, start, end, places):
        """The text of a span with those of the places in it that lie within."""
        parts = []
        at = start
        inner = [place for place in places if start <= place.start and place.end <= end]
        while inner:
            place = inner[0]
            within = [other for other in inner[1:] if other.end <= place.end]
            parts.append(self.data[at:place.start].decode())
            parts.append(self.switch(place, within))
            at = place.end
            inner = [other for other in inner[1:] if other.start >= place.end]
        parts.append(self.data[at:end].decode())
        return "".join(parts)

    def switch(self, place, within):
        number = self.numbers[id(place)]
        original = self.render(place.start, place.end, within)
        if place.is_statement:
            return f"{{ if (!mutation::on({number})) {{ {original} }} }}"
        changed = "".join(piece if isinstance(piece, str) else self.render(*piece, within)
                          for piece in place.pieces)
        changed = changed.replace("\n", " ") if "//" not in changed else changed
        if place.kind == "condition":
            original = f"static_cast<bool>({original})"
        return f"(mutation::on({number}) ? ({changed}) : ({original}))"

    def text(self):
        return self.render(0, len(self.data), self.places)


def mutated(data, numbered, switch):
    """The source `data` (bytes) with its mutants, given as pairs of a place and its number.

    switch: the header that declares mutation::on.
    """
    return f'#include "{switch}"\n#line 1\n{Writer(data, numbered).text()}'
