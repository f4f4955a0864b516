"""Functions of the package in SQL, by Arrow."""

from __future__ import annotations

import warnings
from functools import lru_cache
from typing import Any

import numpy as np
import pyarrow

from .. import Function, KelWarning, convert, format_lap

__all__ = ["as_identifier", "register"]


def register(connection: Any) -> None:
    """Make the functions known to a connection of DuckDB.

    ``kel_name(fid)``, ``kel_identifier(fid)``, ``kel_convert(value, fid, from, to)``,
    ``kel_lap(ms)``.
    Identifiers may be numbers or texts.
    """
    text, real, whole = "VARCHAR", "DOUBLE", "BIGINT"
    for name, function, takes, gives, macro in (
        ("_kel_name", _name, [text], text, "kel_name(fid) AS _kel_name(fid::VARCHAR)"),
        (
            "_kel_identifier",
            _identifier,
            [text],
            text,
            "kel_identifier(fid) AS _kel_identifier(fid::VARCHAR)",
        ),
        (
            "_kel_convert",
            _convert,
            [real, text, text, text],
            real,
            "kel_convert(value, fid, from_unit, to_unit) AS "
            "_kel_convert(value::DOUBLE, fid::VARCHAR, from_unit, to_unit)",
        ),
        ("_kel_lap", _lap, [whole], text, "kel_lap(ms) AS _kel_lap(ms::BIGINT)"),
    ):
        connection.create_function(
            name, function, takes, gives, type="arrow", null_handling="special"
        )
        connection.execute(f"CREATE MACRO {macro}")


@lru_cache(maxsize=4096)
def as_identifier(text: str) -> Function:
    """Give the function of an identifier, in hexadecimal or decimal digits, or of its name."""
    word = text.strip()
    try:
        return Function(int(word, 0))
    except ValueError:
        return Function(word)


def _each(column: Any, function: Any) -> Any:
    """Apply a function to a column of texts, once for each of them."""
    column = _one(column)
    packed = column.dictionary_encode()
    found = [None if each is None else function(each) for each in packed.dictionary.to_pylist()]
    return pyarrow.array(found, pyarrow.string()).take(packed.indices)


def _one(column: Any) -> Any:
    return column.combine_chunks() if isinstance(column, pyarrow.ChunkedArray) else column


def _name(identifiers: Any) -> Any:
    return _each(identifiers, lambda text: as_identifier(text).name)


def _identifier(words: Any) -> Any:
    return _each(words, lambda text: f"0x{as_identifier(text).identifier:08X}")


def _lap(times: Any) -> Any:
    """Texts of lap times; nothing for what is below 0, and no thousandths from one hour on."""
    found = [
        None if each is None or each < 0 else format_lap(each, strict=False)
        for each in _one(times).to_pylist()
    ]
    return pyarrow.array(found, pyarrow.string())


def _convert(values: Any, identifiers: Any, sources: Any, targets: Any) -> Any:
    values = _one(values)
    there = ~np.asarray(values.is_null())
    numbers = np.asarray(values.fill_null(0), np.float64)
    result = np.zeros(len(numbers))
    words = list(
        zip(*(_one(each).to_pylist() for each in (identifiers, sources, targets)), strict=True)
    )
    for which in set(words):
        chosen = there & np.fromiter((each == which for each in words), bool, len(words))
        if None in which:
            there &= ~chosen
        elif chosen.any():
            with warnings.catch_warnings():
                warnings.simplefilter("ignore", KelWarning)
                result[chosen] = convert(numbers[chosen], as_identifier(which[0]), *which[1:])
    return pyarrow.array(result, mask=~there)
