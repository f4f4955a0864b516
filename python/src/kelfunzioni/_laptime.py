"""Lap times as texts, both ways."""

from __future__ import annotations

import operator
from typing import SupportsIndex

from . import _library as lib
from ._answer import answer, text_argument
from ._errors import KelError

__all__ = ["format_lap", "format_lap_line", "parse_lap", "parse_lap_line"]

_LEAST, _MOST = -(2**31), 2**31 - 1


def format_lap(milliseconds: SupportsIndex, *, strict: bool = True) -> str:
    """Write a lap time (``LapTimeToStringa``).

    Parameters
    ----------
    milliseconds : int
        The lap time, within 32 bits.
    strict : bool
        Refuse times whose text is not the time: negative ones, and those from one hour on that
        have thousandths. False: the library's text, whatever it says.

    Returns
    -------
    str
        ``"1:23.456"``, or ``"1:02:03"`` from one hour on.

    Raises
    ------
    KelError
        The number is beyond 32 bits, or refused.

    Examples
    --------
    >>> format_lap(83456)
    '1:23.456'
    """
    return _written(answer(lib.py_write_time, _number(milliseconds, "a lap time")), strict)


def format_lap_line(
    number: SupportsIndex, milliseconds: SupportsIndex, *, strict: bool = True
) -> str:
    """Write a line of a lap list (``LapNumAndTimeToStringa``).

    Examples
    --------
    >>> format_lap_line(7, 83456)
    '  7 - 1:23.456'
    """
    numbers = _number(number, "a lap number"), _number(milliseconds, "a lap time")
    return _written(answer(lib.py_write_line, *numbers), strict)


def parse_lap(text: str, *, strict: bool = True) -> int:
    """Read a lap time (``StringaToLapTime``).

    Parameters
    ----------
    text : str
        ``"1:23.456"``, ``"1:02:03"``.
    strict : bool
        Refuse a text that the library reads as another time than people mean: of ``"1:23.4"`` it
        takes the 4 for thousandths. False: what the library reads.

    Returns
    -------
    int
        Milliseconds.

    Raises
    ------
    KelError
        The text is no time, or refused. The text of the error says how to write it.

    Examples
    --------
    >>> parse_lap("1:23.456")
    83456
    >>> parse_lap("1:23.4")
    Traceback (most recent call last):
    kelfunzioni.KelError: '1:23.4' is read as 83004 ms; if 83400 ms are meant, \
write '1:23.400'
    """
    found = answer(lib.py_read_time, text_argument(text, "a lap time"))
    return _read(found, strict)[1]


def parse_lap_line(text: str, *, strict: bool = True) -> tuple[int, int]:
    """Read a line of a lap list: number and milliseconds (``StringaToLapNumAndTime``).

    Examples
    --------
    >>> parse_lap_line("  7 - 1:23.456")
    (7, 83456)
    """
    return _read(answer(lib.py_read_line, text_argument(text, "a line of a lap list")), strict)


def _number(value: SupportsIndex, what: str) -> int:
    try:
        number = operator.index(value)
    except TypeError:
        raise TypeError(f"{what} is {type(value).__name__}; accepted: int") from None
    if not _LEAST <= number <= _MOST:
        raise KelError(f"{what} of {number} is beyond 32 bits; accepted: {_LEAST} to {_MOST}")
    return number


def _written(found: dict[str, str | None], strict: bool) -> str:
    if strict and found["warning"]:
        raise KelError(f"{found['warning']}; strict=False gives it all the same")
    return str(found["text"])


def _read(found: dict[str, int | str | None], strict: bool) -> tuple[int, int]:
    number, milliseconds, warning = found["number"], found["ms"], found["warning"]
    if strict and warning:
        raise KelError(str(warning))
    assert isinstance(number, int) and isinstance(milliseconds, int)
    return number, milliseconds
