"""Answers of the package's own library: JSON, or an error that becomes an exception."""

from __future__ import annotations

import ctypes as c
import json
import sys
import warnings
from collections.abc import Callable
from typing import Any

from . import _library as lib
from ._errors import KelError, KelWarning, NotFoundError

# What the errors call things on a command line, and what they are called here.
_WORDS = (
    ("kelfun find", "find()"),
    ("(--quantity speed)", "(quantity='speed')"),
    ("--side", "sides"),
    ("--bits", "the bit field"),
    ("--", ""),
)


def answer(function: Callable[..., Any], *arguments: object) -> Any:
    """Call a function that answers with JSON.

    Raises
    ------
    NotFoundError, KelError
        With the text of the error in the answer.
    MemoryError
        There is no answer.
    """
    place = function(*arguments)
    if not place:
        raise MemoryError("out of memory")
    try:
        found = json.loads(c.string_at(place))
    finally:
        lib.free(place)
    if isinstance(found, dict) and "error" in found:
        kind = NotFoundError if found["kind"] == "missing" else KelError
        raise kind(_reworded(found["error"]))
    return found


def warn(function: Callable[..., Any], *arguments: object) -> None:
    """Warn of what a function says, to the caller of the package; nothing where it says nothing."""
    text = answer(function, *arguments)
    if text:
        warnings.warn(_reworded(text), KelWarning, stacklevel=_depth())


def _reworded(text: str) -> str:
    for shell, python in _WORDS:
        text = text.replace(shell, python)
    return text


def _depth() -> int:
    frame, depth = sys._getframe(1), 1
    while frame.f_back is not None and frame.f_globals.get("__package__") == __package__:
        frame, depth = frame.f_back, depth + 1
    return depth


def text_argument(text: object, what: str) -> bytes:
    """Give a text to C.

    Raises
    ------
    TypeError
        It is no text.
    KelError
        It has a NUL, which ends a text in C.
    """
    if not isinstance(text, str):
        raise TypeError(f"{what} is {type(text).__name__}; accepted: str")
    if "\0" in text:
        raise KelError(f"{what} {text!r} has a NUL character; accepted: texts without")
    return text.encode("utf-8", "surrogateescape")
