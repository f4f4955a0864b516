"""What laps are found by in another logger's recording, as the library reads it.

Positions become the messages that a receiver would have sent, and columns of lap numbers and lap
times a recording of these channels.
"""

from __future__ import annotations

import numpy as np
import numpy.typing as npt

from ._column import Column
from ._errors import RecordingError
from ._mapped import MappedRecording
from ._recording import Capture, Recording
from ._records import Channel
from ._sampletype import SampleType
from ._table import Table

__all__ = ["NOTHING", "by_logger", "by_position", "lap_column", "place_columns"]

NOTHING = "the mapping says which columns are functions"
# Quantity and object of an identifier, and the quantity alone.
_THING, _QUANTITY = 0x7FFF, 0x7F
_LATITUDE, _LONGITUDE, _SPEED = 0x0A07, 0x0A87, 0x10
_LAP_NUMBER, _LAP_TIME, _RUNNING = 0x098B, 0x0992, 0x0A12
_WEEK_MS = 7 * 24 * 3600 * 1000
_METRES = 111_195.0  # of a degree, near enough for a direction
_REPEATED_S = 1.0


def _first(recording: MappedRecording | Table, thing: int, mask: int = _THING) -> str | None:
    for each in recording.columns:
        if each.function is not None and each.function.identifier & mask == thing:
            return each.name
    return None


def place_columns(recording: Table) -> tuple[str, str] | None:
    """Names of the columns of latitude and longitude, by their functions."""
    latitude, longitude = _first(recording, _LATITUDE), _first(recording, _LONGITUDE)
    return None if latitude is None or longitude is None else (latitude, longitude)


def lap_column(recording: MappedRecording) -> str | None:
    """Name of the column whose rows laps are found in; None for none."""
    logged = _first(recording, _LAP_NUMBER) or _first(recording, _LAP_TIME)
    places = place_columns(recording)
    return logged or (places[0] if places else None)


_FRAME = np.dtype(
    {
        "names": ["head", "itow", "fix", "flags", "sats", "lon", "lat", "north", "east", "sums"],
        "formats": ["6u1", "<u4", "u1", "u1", "u1", "<i4", "<i4", "<i4", "<i4", "2u1"],
        "offsets": [0, 6, 26, 27, 29, 30, 34, 54, 58, 98],
        "itemsize": 100,
    }
)
_HEAD = (0xB5, 0x62, 0x01, 0x07, 92, 0)


def by_position(recording: MappedRecording) -> tuple[Capture, float]:
    """Make the stream of NAV-PVT of a recording's positions; and the time of the first of them.

    Raises
    ------
    RecordingError
        No columns are latitude and longitude, or they have no times.
    """
    names = place_columns(recording)
    if names is None:
        raise RecordingError(f"there are no columns of latitude and longitude; {NOTHING}")
    rows = recording.on(names[0], [names[1]])
    columns, time = rows.read(names), rows.time
    there = columns[names[0]].valid & columns[names[1]].valid
    latitude, longitude = (np.asarray(columns[n].values, np.float64)[there] for n in names)
    time = time[there]
    fresh = _fresh(time, latitude, longitude)
    time, latitude, longitude = time[fresh], latitude[fresh], longitude[fresh]
    if len(time) < 2:
        raise RecordingError("there are fewer than two positions")
    # The library finds the moment at a line by the speed on both sides of it.
    slope = np.maximum(_steps(time), 1e-3)
    north = _steps(latitude) * _METRES / slope
    east = _steps(longitude) * _METRES * np.cos(np.radians(latitude)) / slope
    frames = np.zeros(len(time), _FRAME)
    frames["head"] = _HEAD
    frames["itow"] = np.round((time - time[0]) * 1000).astype(np.int64) % _WEEK_MS
    frames["fix"], frames["flags"], frames["sats"] = 3, 1, 4
    frames["lat"], frames["lon"] = np.round(latitude * 1e7), np.round(longitude * 1e7)
    frames["north"], frames["east"] = (np.round(np.clip(v, -1e6, 1e6) * 1e3) for v in (north, east))
    body: npt.NDArray[np.uint32] = frames.view(np.uint8).reshape(-1, 100)[:, 2:98].astype(np.uint32)
    frames["sums"][:, 0] = body.sum(axis=1) % 256
    frames["sums"][:, 1] = (body * np.arange(96, 0, -1, dtype=np.uint32)).sum(axis=1) % 256
    return Capture(frames.tobytes()), float(time[0])


def _steps(values: npt.NDArray[np.float64]) -> npt.NDArray[np.float64]:
    found: npt.NDArray[np.float64] = np.gradient(values)
    return found


def _fresh(
    time: npt.NDArray[np.float64],
    latitude: npt.NDArray[np.float64],
    longitude: npt.NDArray[np.float64],
) -> npt.NDArray[np.intp]:
    """Rows with another position than the last: loggers repeat it until the receiver's next.

    A position that stays for a second is one of somebody who stands.
    """
    kept: list[int] = []
    moved = np.concatenate([[True], (np.diff(latitude) != 0) | (np.diff(longitude) != 0)])
    for row in np.flatnonzero(moved):
        while kept and time[row] - time[kept[-1]] > _REPEATED_S:
            again = int(np.searchsorted(time, time[kept[-1]] + _REPEATED_S))
            if again >= row:
                break
            kept.append(again)
        kept.append(int(row))
    return np.array(kept, np.intp)


def by_logger(recording: MappedRecording) -> tuple[Recording, float] | None:
    """Make a recording of the channels that laps are in, and its start; None without any."""
    number, lap = _first(recording, _LAP_NUMBER), _first(recording, _LAP_TIME)
    base = number if number is not None else lap
    if base is None:
        return None
    speed = _first(recording, _SPEED, _QUANTITY)
    running = _first(recording, _RUNNING)
    names = [each for each in (number, lap, running, speed) if each is not None]
    rows = recording.on(base, names)
    channels, values = b"", []
    for place, (name, column) in enumerate(rows.read(names).items()):
        assert column.function is not None
        channels += bytes(
            Channel(
                indice=place, fid=column.function.identifier, tipo_campione=SampleType.FLOAT32,
                nome=name.encode("ascii", "replace")[:35], offset_campione=4 * place, dim_buffer=4,
            )
        )  # fmt: skip
        values.append(_base_values(column))
    records = np.zeros(len(rows), [("time", "<u8"), ("samples", "<f4", len(names))])
    records["time"] = np.round((rows.time - rows.time[:1]) * 1e6)
    records["samples"] = np.stack(values, axis=1)
    opened = Recording(channels, records.tobytes(), stamps="u64us")
    return opened, float(rows.time[0]) if len(rows) else 0.0


def _base_values(column: Column) -> npt.NDArray[np.float32]:
    from ._units import convert

    values = np.asarray(column.values, np.float32)
    function = column.function
    if function is not None and function.units and column.unit not in (function.base_unit, ""):
        values = convert(values, function, column.unit, None)
    return values
