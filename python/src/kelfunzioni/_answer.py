"""Answers of the package's own library: JSON, or an error that becomes an exception."""

from __future__ import annotations

import ctypes as c
import json
from collections.abc import Callable
from typing import Any

from . import _library as lib
from ._errors import KelError, NotFoundError

# What the errors call things on a command line, and what they are called here.
_WORDS = (
    ("kelfun find", "find()"),
    ("(--quantity speed)", "(quantity='speed')"),
    ("--side", "sides"),
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
        text = found["error"]
        for shell, python in _WORDS:
            text = text.replace(shell, python)
        raise (NotFoundError if found["kind"] == "missing" else KelError)(text)
    return found


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
