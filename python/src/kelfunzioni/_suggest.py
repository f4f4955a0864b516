"""Which function a column of another logger is likely to be, by the catalogue's words."""

from __future__ import annotations

import re
from dataclasses import dataclass
from functools import lru_cache

from ._find import Match, search
from ._function import Function

__all__ = ["Found", "factor", "likely"]

# Words of other loggers which the catalogue has in others. It understands many more by itself.
_WORDS = {
    "abs": "", "accel": "acceleration", "acc": "acceleration", "alt": "altitude",
    "batt": "battery", "brk": "brake", "can": "", "clt": "water temperature", "deg": "",
    "ecu": "", "eng": "engine", "fl": "front left", "fr": "front right", "front": "front",
    "fuelp": "fuel pressure", "gyro": "", "hdg": "heading", "kmh": "", "lf": "front left",
    "lng": "longitude", "lon": "longitude", "lr": "rear left", "mph": "", "nmot": "rpm",
    "oilp": "oil pressure", "oilt": "oil temperature", "p": "pressure", "pct": "", "pedal": "",
    "press": "pressure", "raw": "", "rf": "front right", "rl": "rear left", "rr": "rear right",
    "sensor": "", "signal": "", "spd": "speed", "steer": "steering", "t": "temperature",
    "temp": "temperature", "thr": "throttle", "val": "", "value": "", "vel": "speed",
    "velocity": "speed", "volt": "voltage", "whl": "wheel", "ws": "wheel speed", "gps": "",
    "yaw": "yaw rate", "roll": "roll rate", "pitch": "pitch rate",
    "revs": "rpm",
}  # fmt: skip
# Where several words mean one together.
_PHRASES = (
    (r"\bacceleration (long|longitudinal|x|inline)\b|\b(long|inline|g) acceleration\b",
     "inline acceleration"),
    (r"\bacceleration (lat|lateral|y)\b|\blat acceleration\b", "lateral acceleration"),
    (r"\bacceleration (vert|vertical|z)\b|\bvert acceleration\b", "vertical acceleration"),
    (r"\bengine (speed|rpm)\b", "engine rpm"),
    (r"\b(rate )+rate\b", "rate"),
    (r"\b(yaw|roll|pitch) rate( rate| angle| rate z| z| x| y)*\b", r"\1 rate"),
    (r"\blat\b", "latitude"), (r"\blong\b", "longitude"),
)  # fmt: skip

# Units as people write them: what is measured, and how many of its base one is.
_UNITS: dict[str, tuple[str, float, float]] = {
    "m/s": ("speed", 1.0, 0.0), "km/h": ("speed", 1 / 3.6, 0.0), "kph": ("speed", 1 / 3.6, 0.0),
    "kmh": ("speed", 1 / 3.6, 0.0), "mph": ("speed", 0.44704, 0.0),
    "mi/h": ("speed", 0.44704, 0.0), "kn": ("speed", 1852 / 3600, 0.0),
    "kt": ("speed", 1852 / 3600, 0.0), "knots": ("speed", 1852 / 3600, 0.0),
    "ft/s": ("speed", 0.3048, 0.0),
    "m/s/s": ("acceleration", 1.0, 0.0), "m/s^2": ("acceleration", 1.0, 0.0),
    "m/s2": ("acceleration", 1.0, 0.0), "m/s²": ("acceleration", 1.0, 0.0),
    "g": ("acceleration", 9.80665, 0.0),
    "rad/s": ("rate", 1.0, 0.0), "deg/s": ("rate", 0.017453292519943295, 0.0),
    "°/s": ("rate", 0.017453292519943295, 0.0),
    "rad": ("angle", 1.0, 0.0), "deg": ("angle", 0.017453292519943295, 0.0),
    "°": ("angle", 0.017453292519943295, 0.0), "degrees": ("angle", 0.017453292519943295, 0.0),
    "%": ("part", 0.01, 0.0), "percent": ("part", 0.01, 0.0), "ratio": ("part", 1.0, 0.0),
    "rpm": ("turns", 1.0, 0.0), "1/min": ("turns", 1.0, 0.0), "/min": ("turns", 1.0, 0.0),
    "u/min": ("turns", 1.0, 0.0), "min-1": ("turns", 1.0, 0.0),
    "c": ("temperature", 1.0, 273.15), "°c": ("temperature", 1.0, 273.15),
    "degc": ("temperature", 1.0, 273.15), "deg c": ("temperature", 1.0, 273.15),
    "celsius": ("temperature", 1.0, 273.15), "k": ("temperature", 1.0, 0.0),
    "f": ("temperature", 5 / 9, 459.67 * 5 / 9), "°f": ("temperature", 5 / 9, 459.67 * 5 / 9),
    "degf": ("temperature", 5 / 9, 459.67 * 5 / 9),
    "bar": ("pressure", 1e5, 0.0), "mbar": ("pressure", 100.0, 0.0),
    "hpa": ("pressure", 100.0, 0.0), "kpa": ("pressure", 1000.0, 0.0),
    "pa": ("pressure", 1.0, 0.0), "psi": ("pressure", 6894.757293168, 0.0),
    "v": ("voltage", 1.0, 0.0), "volt": ("voltage", 1.0, 0.0), "volts": ("voltage", 1.0, 0.0),
    "mv": ("voltage", 1e-3, 0.0), "a": ("current", 1.0, 0.0), "ma": ("current", 1e-3, 0.0),
    "m": ("length", 1.0, 0.0), "mm": ("length", 1e-3, 0.0), "cm": ("length", 0.01, 0.0),
    "km": ("length", 1000.0, 0.0), "ft": ("length", 0.3048, 0.0), "in": ("length", 0.0254, 0.0),
    "mi": ("length", 1609.344, 0.0),
    "s": ("time", 1.0, 0.0), "sec": ("time", 1.0, 0.0), "ms": ("time", 1e-3, 0.0),
    "us": ("time", 1e-6, 0.0), "min": ("time", 60.0, 0.0), "h": ("time", 3600.0, 0.0),
    "time": ("time", 1e-3, 0.0),  # a lap time of the catalogue is counted in ms
    "nm": ("torque", 1.0, 0.0), "n·m": ("torque", 1.0, 0.0), "lb-ft": ("torque", 1.3558179483, 0.0),
    "kw": ("power", 1000.0, 0.0), "w": ("power", 1.0, 0.0), "hz": ("frequency", 1.0, 0.0),
    "khz": ("frequency", 1000.0, 0.0), "l": ("volume", 1.0, 0.0), "l/h": ("flow", 1.0, 0.0),
    "kg/s": ("mass flow", 1.0, 0.0), "g/s": ("mass flow", 1e-3, 0.0),
}  # fmt: skip
# Units that the catalogue has for what is counted or has no unit.
_NONE = {"", "#", "gear", "-", "1", "none", "count"}


@dataclass(frozen=True)
class Found:
    """A function that a column is likely to be, and how its values become those of `unit`."""

    function: Function
    unit: str
    gain: float
    offset: float
    others: tuple[Function, ...]
    assumed: bool


def factor(from_unit: str, to_unit: str) -> tuple[float, float] | None:
    """Gain and offset from one unit into another; None where they do not measure the same."""
    if from_unit == to_unit:
        return 1.0, 0.0
    first, second = _UNITS.get(from_unit.strip().lower()), _UNITS.get(to_unit.strip().lower())
    if first is None or second is None or first[0] != second[0]:
        return None
    gain = first[1] / second[1]
    offset = (first[2] - second[2]) / second[1]
    # The definitions are decimal: so is what comes of them, but for the last bits.
    return float(f"{gain:.15g}"), float(f"{offset:.15g}")


def likely(name: str, unit: str) -> Found | None:
    """Say which function a column is most likely; None where nothing speaks for one.

    A function whose units do not measure what the column's unit does is none.
    """
    fits = []
    for match in _candidates(_phrase(name)):
        shown = _shown(match.function, unit)
        if shown is not None:
            fits.append((match, shown))
    if not fits:
        return None
    fits.sort(key=lambda each: _order(each[0]))
    (best, (shown_unit, gain, offset)), rest = fits[0], fits[1:]
    others = tuple(m.function for m, _ in rest if _order(m) == _order(best))
    units = best.function.units
    assumed = not unit.strip() and len([u for u in units if u not in _NONE]) > 0
    return Found(best.function, shown_unit, gain, offset, others[:4], assumed)


def _phrase(name: str) -> str:
    text = re.sub(r"([a-z])([A-Z])", r"\1 \2", name)
    text = re.sub(r"([A-Z]+)([A-Z][a-z])", r"\1 \2", text)
    words = re.findall(r"[^\W\d_]+|\d+", text.lower())
    phrase = " ".join(filter(None, (_WORDS.get(word, word) for word in words)))
    for pattern, meant in _PHRASES:
        phrase = re.sub(pattern, meant, phrase)
    return phrase


@lru_cache(maxsize=4096)
def _known(word: str) -> bool:
    return bool(search(word))


@lru_cache(maxsize=4096)
def _candidates(phrase: str) -> tuple[Match, ...]:
    """Answers to all words, or to those that the catalogue knows if these are half of them."""
    words = phrase.split()
    if not words:
        return ()
    found = search(" ".join(words))
    if not found:
        known = [word for word in words if not word.isdigit() and _known(word)]
        if known and len(known) * 2 >= len(words) and known != words:
            found = search(" ".join(known))
    return tuple(each for each in found if not each.function.is_packet and each.grade != "part")


_KINDS = ("name", "legacy identifier", "short name", "field")
_GRADES = ("exact", "prefix", "word", "part")


def _order(match: Match) -> tuple[int, int, int]:
    """Names before fields, whole names before parts, short ones before long ones."""
    kinds = [_KINDS.index(k) if k in _KINDS else len(_KINDS) for k in match.matched.values()]
    first = min(kinds, default=len(_KINDS))
    return first, _GRADES.index(match.grade), len(match.function.name.split())


def _shown(function: Function, unit: str) -> tuple[str, float, float] | None:
    """Unit of the function that values are shown in, and how they get there."""
    units = function.units
    if not units or unit in units:
        return unit, 1.0, 0.0
    if unit.strip().lower() in _NONE:
        return units[0], 1.0, 0.0
    for each in units:
        found = factor(unit, each)
        if found is not None:
            return each, *found
    return None
