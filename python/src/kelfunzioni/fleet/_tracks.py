"""Tracks: recordings that were made at the same place."""

from __future__ import annotations

import math
from typing import Any

__all__ = ["name_tracks"]

_NEAR = 3.0  # km from the first recording of a track
_KM_OF_A_DEGREE = 111.2


def name_tracks(recordings: list[dict[str, Any]]) -> None:
    """Set ``track`` of rows of recordings: latitude and longitude of the first one made there."""
    tracks: list[tuple[float, float, str]] = []
    for row in sorted(recordings, key=lambda each: (each["start"] or "", each["recording"])):
        latitude, longitude = row["latitude"], row["longitude"]
        if latitude is None or longitude is None:
            row["track"] = None
            continue
        found = next((name for *at, name in tracks if _km(latitude, longitude, *at) < _NEAR), None)
        if found is None:
            found = f"{latitude:.3f} {longitude:.3f}"
            tracks.append((latitude, longitude, found))
        row["track"] = found


def _km(latitude: float, longitude: float, other_latitude: float, other_longitude: float) -> float:
    across = (longitude - other_longitude) * math.cos(math.radians(latitude))
    return math.hypot(latitude - other_latitude, across) * _KM_OF_A_DEGREE
