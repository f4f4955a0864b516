"""One library with all mutants that can be switched: copies of the sources in which each piece asks for its mutants."""

from dataclasses import dataclass, field


@dataclass
class Region:
    """A piece of a file, the mutants of exactly this piece, and the pieces within it."""

    begin: int
    end: int
    mutants: list = field(default_factory=list)
    inner: list = field(default_factory=list)


def regions(mutants):
    """The pieces of one file that have mutants, nested as they lie."""
    by_place = {}
    for mutant in mutants:
        place = (mutant.begin, mutant.end)
        by_place.setdefault(place, Region(*place)).mutants.append(mutant)
    top, open_ones = [], []
    for place in sorted(by_place, key=lambda p: (p[0], -p[1])):
        region = by_place[place]
        while open_ones and open_ones[-1].end <= region.begin:
            open_ones.pop()
        if open_ones and region.end > open_ones[-1].end:
            raise SystemExit(f"pieces overlap: {region.mutants[0]}")
        (open_ones[-1].inner if open_ones else top).append(region)
        open_ones.append(region)
    return top


def rendered(text, begin, end, inner):
    """The text between two places, its pieces with their mutants."""
    parts = []
    for region in inner:
        parts.append(text[begin:region.begin])
        parts.append(switched(text, region))
        begin = region.end
    return "".join(parts) + text[begin:end]


def switched(text, region):
    original = rendered(text, region.begin, region.end, region.inner)
    if region.mutants[0].kind == "statement":
        asked = " && ".join(f"!kel_mutante({mutant.number})" for mutant in region.mutants)
        return f"{{ if ({asked}) {original} }}"
    asked = "".join(f"kel_mutante({mutant.number}) ? ({mutant.text}) : " for mutant in region.mutants)
    return f"({asked}({original}))"


def instrument(text, mutants):
    return '#include "interruttore.h"\n#line 1\n' + rendered(text, 0, len(text), regions(mutants))
