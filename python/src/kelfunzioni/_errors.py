"""What the package raises."""

from __future__ import annotations

import difflib
from collections.abc import Iterable

__all__ = ["KelError", "KelWarning", "NotFoundError", "RecordingError", "nearest"]


class KelError(ValueError):
    """A wrong argument: the text says what was wrong, what is accepted and the nearest word."""


class NotFoundError(KelError, LookupError):
    """There is no such function, unit or column."""


class RecordingError(KelError):
    """The bytes are no recording, or it has not what was asked for."""


class KelWarning(UserWarning):
    """The library's answer is kept as the device gives it, but is not what most people expect."""


for _each in (KelError, KelWarning, NotFoundError, RecordingError):
    _each.__module__ = "kelfunzioni"  # where people import them from


def nearest(word: str, words: Iterable[str]) -> str:
    """Say which of some words a mistyped one is nearest to: "did you mean 'rpm'? ", or nothing."""
    by_small = {each.lower(): each for each in words}
    found = difflib.get_close_matches(word.lower(), by_small, n=1)
    return f"did you mean '{by_small[found[0]]}'? " if found else ""
