"""Other loggers' files as columns with their own names: MDF, CAN logs and NMEA. CSV: `_csv`."""

from __future__ import annotations

import datetime
import os
from collections import defaultdict
from collections.abc import Iterable, Iterator
from dataclasses import dataclass
from typing import Any

import numpy as np
import numpy.typing as npt

from ._errors import KelError

__all__ = ["Base", "RawColumn", "read_can", "read_mdf", "read_nmea"]

Path = str | os.PathLike[str]


@dataclass
class RawColumn:
    """A column as its file has it. `valid` is None where no value is missing."""

    name: str
    unit: str
    values: npt.NDArray[Any]
    valid: npt.NDArray[np.bool_] | None = None


@dataclass
class Base:
    """Columns with one time base: seconds on the file's clock, None for rows without times."""

    name: str
    time: npt.NDArray[np.float64] | None
    columns: list[RawColumn]


def _plain(values: npt.NDArray[Any]) -> npt.NDArray[Any]:
    """Values as a column holds them: float32, float64, times or texts."""
    kind = values.dtype.kind
    if kind == "M":
        return values.astype("datetime64[us]")
    if kind in "US":
        return np.char.decode(values, "utf-8", "replace") if kind == "S" else values
    if kind == "O":
        return values.astype(str)
    return values if values.dtype == np.float32 else values.astype(np.float64)


def _parts(name: str, samples: npt.NDArray[Any]) -> Iterator[tuple[str, npt.NDArray[Any]]]:
    """Samples that are records or arrays as one column for each number in them."""
    if samples.dtype.names:
        for field in samples.dtype.names:
            inner = name if field == name else f"{name}.{field}"
            yield from _parts(inner, samples[field])
    elif samples.ndim > 1:
        flat = samples.reshape(len(samples), int(np.prod(samples.shape[1:])))
        for place in range(flat.shape[1]):
            yield f"{name}[{place}]", flat[:, place]
    else:
        yield name, samples


def read_mdf(path: Path) -> list[Base]:
    """Channel groups of an MDF file (asammdf): each has a time base of its own."""
    from asammdf import MDF

    found: list[Base] = []
    with MDF(path) as file:
        groups: list[Any] = list(file.groups)
        for place, group in enumerate(groups):
            columns: list[RawColumn] = []
            time: npt.NDArray[np.float64] | None = None
            for index, channel in enumerate(group.channels):
                if channel.channel_type in (2, 3):  # the time itself
                    continue
                signal = file.get(group=place, index=index, ignore_invalidation_bits=True)
                gaps = signal.invalidation_bits
                valid = None if gaps is None else ~np.asarray(gaps, bool)
                for name, values in _parts(signal.name, signal.samples):
                    columns.append(RawColumn(name, signal.unit or "", _plain(values), valid))
                time = np.asarray(signal.timestamps, np.float64)
            if columns:
                name = str(group.channel_group.acq_name or f"group {place}")
                found.append(Base(name, time, columns))
    return found


def read_can(path: Path, database: Path | None) -> list[Base]:
    """Signals of a CAN log (python-can, cantools): each message has a time base of its own.

    Frames of one message that hold different signals, as multiplexed ones do, are apart. Frames
    that the database does not know are a table too: ``CAN frames``, with how many there are.
    """
    import can
    import cantools

    if database is None:
        raise KelError("a CAN log has no names; accepted: the path of its database, such as a DBC")
    known = cantools.database.load_file(os.fspath(database))
    messages = {each.frame_id: each for each in getattr(known, "messages", [])}
    rows: dict[tuple[int, tuple[str, ...]], list[tuple[float, tuple[Any, ...]]]] = defaultdict(list)
    strange: dict[int, list[float]] = defaultdict(list)
    with can.LogReader(os.fspath(path)) as reader:
        for frame in reader:
            message = messages.get(frame.arbitration_id)
            if message is None or frame.is_error_frame or frame.is_remote_frame:
                strange[frame.arbitration_id].append(frame.timestamp)
                continue
            try:
                values = message.decode(bytes(frame.data), decode_choices=False)
            except (cantools.database.DecodeError, ValueError):
                strange[frame.arbitration_id].append(frame.timestamp)
                continue
            key = frame.arbitration_id, tuple(values)
            rows[key].append((frame.timestamp, tuple(values.values())))
    found = []
    for (identifier, names), taken in rows.items():
        message = messages[identifier]
        units = {signal.name: signal.unit or "" for signal in message.signals}
        time = np.array([when for when, _ in taken])
        columns = [
            RawColumn(name, units.get(name, ""), np.array(column, np.float64))
            for name, column in zip(names, zip(*(v for _, v in taken), strict=True), strict=True)
        ]
        found.append(Base(message.name, time, columns))
    for identifier, times in sorted(strange.items()):
        count = np.arange(1.0, len(times) + 1)
        name = f"CAN 0x{identifier:X} frames"
        found.append(Base(name, np.array(times), [RawColumn(name, "", count)]))
    return found


_NMEA_UNITS = {
    "lat": "deg", "lon": "deg", "spd": "kn", "sogn": "kn", "sogk": "km/h", "cog": "deg",
    "cogt": "deg", "cogm": "deg", "alt": "m", "sep": "m", "mv": "deg",
}  # fmt: skip
_NMEA_NAMES = {
    "lat": "Latitude", "lon": "Longitude", "spd": "GPS Speed", "sogn": "GPS Speed kn",
    "sogk": "GPS Speed", "cog": "Heading", "cogt": "Heading", "alt": "Altitude",
    "numSV": "Satellites", "sep": "Geoid Separation", "quality": "Fix Quality",
}  # fmt: skip
_DAY = 86400.0


def read_nmea(path: Path) -> list[Base]:
    """Numbers of NMEA sentences (pynmeagps): each kind of sentence has a time base of its own.

    Sentences without a time of day, such as VTG, have the time of the one before. Names are those
    of the sentence's fields, in words where most sentences have them.
    """
    from pynmeagps import ERR_IGNORE, NMEAReader

    rows: dict[str, list[tuple[float, dict[str, float]]]] = defaultdict(list)
    now: float | None = None
    day = 0.0
    with open(path, "rb") as file:
        for _, sentence in NMEAReader(file, quitonerror=ERR_IGNORE):
            if sentence is None:
                continue
            fields = {k: v for k, v in vars(sentence).items() if not k.startswith("_")}
            when = fields.pop("time", None)
            if isinstance(when, datetime.time):
                clock = when.hour * 3600 + when.minute * 60 + when.second + when.microsecond / 1e6
                if now is not None and clock + day < now - _DAY / 2:
                    day += _DAY
                now = clock + day
            numbers = {
                name: float(value)
                for name, value in fields.items()
                if isinstance(value, (int, float)) and not isinstance(value, bool)
            }
            if now is not None and numbers:
                rows[sentence.msgID].append((now, numbers))
    found = []
    for kind, taken in rows.items():
        time = np.array([when for when, _ in taken])
        names = list(dict.fromkeys(name for _, numbers in taken for name in numbers))
        columns = []
        for name in names:
            values = np.array([numbers.get(name, np.nan) for _, numbers in taken])
            unit = _NMEA_UNITS.get(name, "")
            columns.append(RawColumn(_NMEA_NAMES.get(name, name), unit, values, ~np.isnan(values)))
        found.append(Base(kind, time, columns))
    return found


def unique(bases: Iterable[Base]) -> list[Base]:
    """Give columns of the same name the name of their time base too; no two then are the same."""
    bases = list(bases)
    seen: set[str] = set()
    for base in bases:
        for column in base.columns:
            name, number = column.name, 1
            if name in seen or name == "time":
                name = f"{base.name} {column.name}"
            plain = name
            while name in seen:
                number += 1
                name = f"{plain} {number}"
            seen.add(name)
            column.name = name
    return bases
