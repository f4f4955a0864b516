"""Functions by any words of their names, units or fields."""

from __future__ import annotations

from dataclasses import dataclass
from typing import Any

from . import _library as lib
from ._answer import answer, text_argument
from ._errors import KelError, NotFoundError
from ._function import Function

__all__ = ["Match", "find", "search"]


@dataclass(frozen=True)
class Match:
    """A function that answers a search.

    Attributes
    ----------
    function : Function
        What was found.
    grade : str
        How well: ``"exact"``, ``"prefix"``, ``"word"`` or ``"part"``.
    matched : dict of str to str
        The texts that have the words, and what each is: ``"name"``, ``"unit"``, ``"field"``...
    """

    function: Function
    grade: str
    matched: dict[str, str]


def search(words: str) -> list[Match]:
    """Functions that have all of some words, best first, in the order of ``kelfun find``.

    Parameters
    ----------
    words : str
        Words of names, legacy identifiers, units, XML names or digits. Capitals do not matter;
        people's own words, such as "tyre", are understood.

    Returns
    -------
    list of Match
        Empty when no function has them all.

    Raises
    ------
    KelError
        There are no words.

    Examples
    --------
    >>> search("wheel front left")[0]
    Match(function=Function(0x05070010, 'Speed Wheel FL'), grade='exact', \
matched={'Wheel': 'field', 'Left': 'field', 'Front': 'field'})
    """
    return _matches(_answer(words))


def find(words: str) -> list[Function]:
    """Functions that have all of some words, best first.

    Parameters
    ----------
    words : str
        As of `search`.

    Returns
    -------
    list of Function
        At least one.

    Raises
    ------
    NotFoundError
        Nothing has them all. The text says words that are near.

    Examples
    --------
    >>> find("wheel front left")
    [Function(0x05070010, 'Speed Wheel FL')]
    >>> find("preasure")
    Traceback (most recent call last):
    kelfunzioni.NotFoundError: nothing is called 'preasure'; close to it: pressure
    """
    found = _answer(words)
    if found["found"]:
        return [each.function for each in _matches(found)]
    if not found["near"]:
        raise NotFoundError(f"nothing is called all of '{words}'; each of the words alone is")
    word, near = found["near"]
    raise NotFoundError(
        f"nothing is called '{word}'; "
        + (
            f"close to it: {', '.join(near)}"
            if near
            else "searched: names, legacy identifiers, units, XML names, identifiers"
        )
    )


def _answer(words: str) -> dict[str, Any]:
    text = text_argument(words, "what to find")
    if not text.strip():
        raise KelError("there is nothing to find; accepted: words, such as 'oil pressure'")
    found: dict[str, Any] = answer(lib.py_find, text)
    return found


def _matches(found: dict[str, Any]) -> list[Match]:
    matches = []
    for row in found["found"]:
        texts = dict(zip(row["matched"], row["key"], strict=True))
        matches.append(Match(Function(row["identifier"]), row["match"], texts))
    return matches
