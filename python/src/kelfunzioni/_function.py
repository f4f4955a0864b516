"""A function: what a channel measures."""

from __future__ import annotations

import operator
from dataclasses import dataclass
from functools import cached_property, lru_cache
from typing import Any, SupportsIndex

from . import _library as lib
from ._answer import answer, text_argument
from ._errors import KelError

__all__ = ["Choices", "Field", "Function", "FunctionLike", "as_function"]

_LARGEST = 0xFFFFFFFF
_PACKET = 26
_END_OF_TABLE = 32 | 58 << 7


@dataclass(frozen=True)
class Field:
    """One field of an identifier.

    Attributes
    ----------
    value : int
        The number in the identifier.
    name : str or None
        The XML name, such as ``"FID_PHI_SPEED"``; None for a value without one.
    text : str or None
        The text as shown, such as ``"Speed"``.
    """

    value: int
    name: str | None
    text: str | None


@dataclass(frozen=True)
class Choices:
    """The choices that make sense for a function at its position.

    Attributes
    ----------
    sides, inout : dict of str to Function
        The texts to choose from, and the function that each makes.
    numbers : range
        Instance numbers; empty for none.
    """

    sides: dict[str, Function]
    inout: dict[str, Function]
    numbers: range


class Function:
    """What a channel measures: a function identifier (``kel_funpos``) and all that is known of it.

    Parameters
    ----------
    what : int, str or Function, optional
        An identifier, its digits (``"0x10"``), a legacy identifier (``"REF_SPEED_FL"``) or a name
        that one function alone has. Capitals do not matter.
    quantity, object, position, inout : str, optional
        In place of `what`: fields by name, such as ``quantity="speed"``.
    sides : str, optional
        Sides by name: ``"front left"``.
    number : int, optional
        Instance number, 0 to 63, in place of sides.
    details, specialisation : str, optional
        Kind of packet, in place of object and position: ``"gps"``, ``"ubxnavsol"``.

    Raises
    ------
    NotFoundError
        No function has this name. The text says the nearest.
    KelError
        A name that several functions have, a field that does not exist, fields that exclude each
        other, or a number beyond 32 bits.

    See Also
    --------
    find : functions by any words of their names.

    Examples
    --------
    >>> Function("REF_SPEED_FL")
    Function(0x05070010, 'Speed Wheel FL')
    >>> speed = Function(quantity="speed", position="wheel", sides="front left")
    >>> speed.name, speed.units, speed.base_unit
    ('Speed Wheel FL', ('km/h', 'mph'), 'km/h')
    """

    def __init__(
        self,
        what: FunctionLike | None = None,
        *,
        quantity: str = "",
        object: str = "",
        position: str = "",
        inout: str = "",
        sides: str = "",
        number: int | None = None,
        details: str = "",
        specialisation: str = "",
    ) -> None:
        named = {
            "quantity": quantity,
            "object": object,
            "position": position,
            "inout": inout,
            "sides": sides,
            "details": details,
            "specialisation": specialisation,
        }
        fields = {name: text_argument(text, name) for name, text in named.items()}
        any_field = number is not None or any(fields.values())
        if (what is not None) == any_field:
            raise KelError(
                "an identifier and its fields are both given; accepted: one of the two"
                if any_field
                else "there is no function; accepted: an identifier, a name, or fields by name"
            )
        self._identifier = _composed(fields, number) if what is None else _identifier(what)

    @property
    def identifier(self) -> int:
        """The 32 bits of the identifier (``kel_funpos``)."""
        return self._identifier

    @property
    def name(self) -> str:
        """The name, such as ``"Speed Wheel FL"`` (``getNomeFunzione``); looked up once."""
        return _name(self._identifier, False)

    @property
    def full_name(self) -> str:
        """The name with the empty fields of a composed one."""
        return _name(self._identifier, True)

    @property
    def short_name(self) -> str:
        """The short name, at most 31 characters (``kelFunGetNomeFunzioneShort``)."""
        return _short_name(self._identifier)

    @cached_property
    def legacy_id(self) -> str | None:
        """The legacy identifier, such as ``"REF_SPEED_FL"``; None for none."""
        return answer(lib.py_legacy, self._identifier) or None

    @property
    def base_unit(self) -> str | None:
        """The unit that values are recorded in (``kelFunGetUnitaBase``); None without units."""
        units = self.units
        return units[0] if units else None

    @property
    def units(self) -> tuple[str, ...]:
        """The units that values can be shown in, the base unit first (``kelFunGetUIVs``)."""
        return _units(self._identifier)

    def unit(self, unit: str | None = None) -> str:
        """Check a unit.

        Parameters
        ----------
        unit : str, optional
            A unit of the function; None for the base unit.

        Returns
        -------
        str
            The unit; ``""`` for the base unit of a function without units.

        Raises
        ------
        KelError
            It is no unit of this function. The text says the nearest and all that are.

        Examples
        --------
        >>> Function("OIL_PRESS").unit("Bar")
        Traceback (most recent call last):
        kelfunzioni.KelError: 'Bar' is no unit of 0x00000B8E; did you mean 'bar'? \
accepted: bar, psi, kPa
        """
        if unit is None:
            return self.base_unit or ""
        if unit in self.units:
            return unit
        found: str = answer(lib.py_read_unit, self._identifier, text_argument(unit, "a unit"))
        return found

    def decimals(self, unit: str | None = None) -> int:
        """Digits after the point that a unit is shown with (``kelFunGetNumDecimaliDefault``)."""
        return int(lib.decimals(self._identifier, self.unit(unit).encode()))

    def decimals_range(self, unit: str | None = None) -> tuple[int, int]:
        """Fewest and most decimals to offer in a unit (``kelFunGetNumDecimaliMin``, ``...Max``)."""
        text = self.unit(unit).encode()
        least, most = (f(self._identifier, text) for f in (lib.decimals_min, lib.decimals_max))
        return int(least), int(most)

    @cached_property
    def fields(self) -> dict[str, Field]:
        """The fields of the identifier, from its lowest bit on.

        Examples
        --------
        >>> Function(0x05070010).fields["leftright"]
        Field(value=2, name='FID_LEFTRIGHT_LEFT', text='Left')
        """
        rows = answer(lib.py_fields, self._identifier)
        return {row["field"]: Field(row["value"], row["xml"], row["text"]) for row in rows}

    @cached_property
    def choices(self) -> Choices:
        """Sides, in/out and instance numbers to choose from (``getFunzDettagli``).

        Examples
        --------
        >>> list(Function(quantity="speed", position="wheel").choices.sides)[:2]
        ['Rear', 'Rear Right']
        """
        found = answer(lib.py_choices, self._identifier)
        sides, inout = (
            {text: Function(fid) for fid, text in found[what]} for what in ("sides", "inout")
        )
        first = found["first"]
        return Choices(sides, inout, range(first, found["last"] + 1) if first >= 0 else range(0))

    @property
    def is_packet(self) -> bool:
        """Whether a sample of it holds several quantities."""
        return self._identifier & 0x7F == _PACKET

    @cached_property
    def subfields(self) -> tuple[Function, ...]:
        """The functions within a packet; none for other functions (``getAllInnerFunpos``).

        Examples
        --------
        >>> [each.name for each in Function(details="gps").subfields][:2]
        ['Time', 'Code']
        """
        if not self.is_packet:
            return ()
        row = lib.subfields(self._identifier >> 7 & 0xFF, self._identifier >> 15 & 0x1F)
        found: list[Function] = []
        for i in range(64):
            if not row or row[i].fid & 0x7FFF == _END_OF_TABLE:
                break
            if row[i].fid:
                found.append(Function(row[i].fid))
        return tuple(found)

    def __index__(self) -> int:
        return self._identifier

    def __eq__(self, other: Any) -> bool:
        return isinstance(other, Function) and other._identifier == self._identifier

    def __hash__(self) -> int:
        return hash(self._identifier)

    def __repr__(self) -> str:
        return f"Function(0x{self._identifier:08X}, {self.name!r})"


FunctionLike = SupportsIndex | str | Function


def as_function(what: FunctionLike) -> Function:
    """Make a function of an identifier or a name."""
    return what if isinstance(what, Function) else Function(what)


def _identifier(what: object) -> int:
    if isinstance(what, Function):
        return what.identifier
    if isinstance(what, str):
        if not what.strip():
            raise KelError("an empty text is no function; accepted: an identifier or a name")
        found: int = answer(lib.py_read_function, text_argument(what, "a function"))
        return found
    try:
        number = operator.index(what)  # type: ignore[arg-type]
    except TypeError:
        raise TypeError(
            f"a function is {type(what).__name__}; accepted: an identifier, a name, a Function"
        ) from None
    if isinstance(what, bool) or not 0 <= number <= _LARGEST:
        raise KelError(f"{what!r} is no identifier; accepted: 0 to {_LARGEST:#x}")
    return number


def _composed(fields: dict[str, bytes], number: int | None) -> int:
    if number is not None and (isinstance(number, bool) or not 0 <= operator.index(number) <= 63):
        raise KelError(f"there is no instance number {number!r}; accepted: 0 to 63")
    found: int = answer(
        lib.py_compose,
        fields["quantity"],
        fields["object"],
        fields["position"],
        fields["inout"],
        -1 if number is None else number,
        fields["sides"],
        fields["details"],
        fields["specialisation"],
    )
    return found


@lru_cache(maxsize=4096)
def _name(identifier: int, with_empty: bool) -> str:
    found: str = answer(lib.py_name, identifier, with_empty)
    return found


@lru_cache(maxsize=4096)
def _short_name(identifier: int) -> str:
    found: bytes = lib.short_name(None, identifier).testo
    return found.decode("utf-8", "replace")


@lru_cache(maxsize=4096)
def _units(identifier: int) -> tuple[str, ...]:
    row = lib.get_units(identifier)
    if not row:
        return ()
    return tuple(row[0].udm[i].dati.udm.decode() for i in range(row[0].num_udm))
