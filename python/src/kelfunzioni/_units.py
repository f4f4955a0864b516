"""Values from one unit of a function into another."""

from __future__ import annotations

from typing import Any, overload

import numpy as np
import numpy.typing as npt

from . import _library as lib
from ._answer import warn
from ._function import Function, FunctionLike, as_function

__all__ = ["convert"]


@overload
def convert(  # pyright: ignore[reportOverlappingOverload]
    values: float, function: FunctionLike, from_unit: str | None, to_unit: str | None
) -> float: ...
@overload
def convert(
    values: npt.ArrayLike, function: FunctionLike, from_unit: str | None, to_unit: str | None
) -> npt.NDArray[Any]: ...


def convert(
    values: Any, function: FunctionLike, from_unit: str | None, to_unit: str | None
) -> float | npt.NDArray[Any]:
    """Convert values from one unit of a function into another (``kelFunGetConvDatas``).

    Parameters
    ----------
    values : float or array_like
        Numbers, of any shape.
    function : Function, int or str
        The function whose units they are.
    from_unit, to_unit : str or None
        Units of the function; None for its base unit.

    Returns
    -------
    float or ndarray
        Of the shape of `values`. float64 stays float64, as do numbers of Python; all else becomes
        float32, with the bits that the library gives. A unit that shows 1 divided by the value, as
        a pace does, is always float32.

    Raises
    ------
    KelError
        A unit that the function does not have. The text says the nearest.
    TypeError
        The values are no numbers.

    Warns
    -----
    KelWarning
        The result is not what most people expect: a pace is converted linearly, and the catalogue's
        gains of HP, CV and rps are not theirs.

    Examples
    --------
    >>> convert([0, 100], Function(quantity="temperature"), "C", "F")
    array([ 32., 212.], dtype=float32)
    >>> convert(2.5, "OIL_PRESS", "bar", "PSI")
    Traceback (most recent call last):
    kelfunzioni.KelError: 'PSI' is no unit of 0x00000B8E; did you mean 'psi'? \
accepted: bar, psi, kPa
    """
    which = as_function(function)
    source, target = which.unit(from_unit), which.unit(to_unit)
    numbers = np.asanyarray(values)
    if numbers.dtype.kind not in "iufb":
        raise TypeError(f"values are of {numbers.dtype}; accepted: numbers")
    if numbers.dtype != np.float64:
        numbers = numbers.astype(np.float32, copy=False)
    result = numbers.copy() if source == target else _converted(numbers, which, source, target)
    return float(result) if isinstance(values, (int, float)) else result


def _converted(
    numbers: npt.NDArray[Any], function: Function, source: str, target: str
) -> npt.NDArray[Any]:
    units = source.encode(), target.encode()
    telling = numbers[np.isfinite(numbers) & (numbers != 0)]
    if telling.size:
        warn(lib.py_conversion_warning, function.identifier, *units, float(telling.flat[0]))
    data = lib.units_data(function.identifier, *units)
    gain, offset = np.float32(data.gain), np.float32(data.offset)
    converted: npt.NDArray[Any] = numbers * gain + offset
    return converted
