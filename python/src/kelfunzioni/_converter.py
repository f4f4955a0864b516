"""Samples of one function as values and texts in one unit."""

from __future__ import annotations

import ctypes as c
import operator
from typing import Any

import numpy as np
import numpy.typing as npt

from . import _library as lib
from ._answer import warn
from ._column import Column
from ._errors import KelError, nearest
from ._function import Function, FunctionLike, as_function
from ._records import Channel, ColumnRecord, ConverterRecord
from ._samples import Samples, locate
from ._sampletype import SampleType, SampleTypeLike, as_sample_type
from ._texts import decoded

__all__ = ["Converter"]

_ALIGNMENTS = {"right": 0, "left": 1, "compact": 2}
_TEXT = 32


class Converter:
    """Reads samples of one function in one unit (``s_kel_converter``, ``kelColLeggi``).

    Parameters
    ----------
    function : Function, int or str
        What the samples measure. For a subfield of a packet, the subfield.
    sample_type : SampleType, str or int, optional
        Format of a sample: ``"int16"``. May be left out where `packet` is given.
    unit : str, optional
        Unit of the values; None for the function's base unit.
    packet : Function, int or str, optional
        The packet that `function` is a subfield of.
    offset : int, optional
        Place of the sample in a record of samples, bytes. None: there are samples alone.
    bit, bits : int
        First bit and width of a bit field within the sample; 0 bits for the whole of it.
    width : int
        Characters of a text, the point not counted.
    decimals : int or "auto", optional
        Digits after the point of a text, 0 to 3; None for the function's own. ``"auto"`` chooses by
        the numbers, in their order; such a converter is for one thread at a time.
    align : {"right", "left", "compact"}
        Alignment of a text.

    Raises
    ------
    KelError
        An unknown function, sample type or unit, or a number that is not accepted. The text says
        the nearest.

    Warns
    -----
    KelWarning
        The device shows another value than most people expect: a pace, HP, CV or rps, a bit field,
        some subfields of GPS packets.

    Examples
    --------
    >>> import numpy as np
    >>> speed = Converter("REF_SPEED_FL", "int16", "mph")
    >>> samples = np.array([123, 100, -12290], np.int16)
    >>> speed(samples).values
    array([76.42863 , 62.137096,       nan], dtype=float32)
    >>> speed(samples).valid
    array([ True,  True, False])
    >>> speed.texts(samples)
    array(['  76.4', '  62.1', '   '], dtype='<U6')
    """

    def __init__(
        self,
        function: FunctionLike,
        sample_type: SampleTypeLike | None = None,
        unit: str | None = None,
        *,
        packet: FunctionLike | None = None,
        offset: int | None = None,
        bit: int = 0,
        bits: int = 0,
        width: int = 5,
        decimals: int | str | None = None,
        align: str = "right",
    ) -> None:
        self._function = as_function(function)
        self._unit = self._function.unit(unit)
        channel = self._function if packet is None else as_function(packet)
        if packet is not None and self._function not in channel.subfields:
            raise KelError(
                f"{self._function.name} is no subfield of {channel.name}; accepted: "
                + (", ".join(each.name for each in channel.subfields) or "none, it has none")
            )
        self._type = _packet_type(channel) if sample_type is None else as_sample_type(sample_type)
        if not self._type.size:
            raise KelError(f"the sample type {self._type.name.lower()} has no samples")
        self._offset = None if offset is None else _within(offset, "offset", 0, 0xFFFFFFFF)
        if align not in _ALIGNMENTS:
            raise KelError(
                f"there is no align '{align}'; {nearest(str(align), _ALIGNMENTS)}"
                f"accepted: {', '.join(_ALIGNMENTS)}"
            )
        self._record = ConverterRecord()
        record = self._record
        record.larghezza = _within(width, "width", 0, 31)
        record.auto_decimali = decimals == "auto"
        record.formato = _ALIGNMENTS[align]
        if decimals is None:
            record.decimali = self._function.decimals(self._unit or None)
        elif decimals != "auto":
            record.decimali = _within(decimals, "decimals", 0, 3)
        total = self._type.size * 8
        places = _within(bit, "bit", 0, total - 1), _within(bits, "bits", 0, total)
        if sum(places) > total:
            raise KelError(f"{bits} bits from bit {bit} on are not in a sample of {total} bits")
        canale = Channel(
            fid=channel.identifier, tipo_campione=self._type, offset_campione=self._offset or 0
        )
        warn(lib.py_unit_warning, self._function.identifier, self._unit.encode())
        if packet is not None:
            warn(lib.py_packet_warning, self._function.identifier, self._type)
        if bits:
            warn(lib.py_bits_warning, f"{bit}:{bits}".encode(), sum(places))
        data = lib.unit_data(self._function.identifier, self._unit.encode())
        lib.converter_init(
            record, canale, self._function.identifier, data, *places, self._offset is None
        )

    @property
    def function(self) -> Function:
        """What the samples measure."""
        return self._function

    @property
    def sample_type(self) -> SampleType:
        """Format of a sample."""
        return self._type

    @property
    def unit(self) -> str:
        """Unit of the values; ``""`` for none."""
        return self._unit

    @property
    def has_values(self) -> bool:
        """Whether the samples can be read as numbers; without, every value is missing."""
        return bool(self._record.valore)

    def __call__(self, samples: Any) -> Column:
        """Read values.

        Parameters
        ----------
        samples : array or buffer
            An array of the sample type's dtype, of any shape and steps; bytes of samples side by
            side; or a two-dimensional array of bytes with a row for each sample. With an `offset`:
            a row for each record, or an array of records. Not copied where one step leads from
            sample to sample.

        Returns
        -------
        Column
            float32 values of the samples' shape, in the converter's unit.

        Raises
        ------
        TypeError
            The samples are no buffer, or of another dtype.
        KelError
            The bytes are no whole samples, or records are too short.
        """
        place = locate(samples, self._type, self._offset)
        values = np.empty(place.count, np.float32)
        bitmap = np.empty((place.count + 7) // 8, np.uint8)
        self._read(place, valori=_address(values), validi=_address(bitmap))
        if place.backwards:
            bits = np.unpackbits(bitmap, count=place.count, bitorder="little")[::-1]
            values = np.ascontiguousarray(values[::-1])
            bitmap = np.packbits(bits, bitorder="little")
        return Column(
            values,
            bitmap,
            name=self._function.name,
            long_name=self._function.name,
            unit=self._unit,
            function=self._function,
            shape=place.shape,
        )

    def status(self, samples: Any) -> npt.NDArray[np.uint8]:
        """Status words of samples: 0 good, 1 error, 2 missing, 4 over range, 8 invalid.

        Parameters
        ----------
        samples : array or buffer
            As of a call.

        Returns
        -------
        ndarray of uint8
            Of the samples' shape.
        """
        place = locate(samples, self._type, self._offset)
        states = np.empty(place.count, np.uint8)
        self._read(place, stati=_address(states))
        return states[:: -1 if place.backwards else 1].reshape(place.shape)

    def texts(self, samples: Any) -> npt.NDArray[np.str_]:
        """Texts of samples, as a display shows them (``kelConvGetString``).

        Parameters
        ----------
        samples : array or buffer
            As of a call.

        Returns
        -------
        ndarray of str
            Of the samples' shape; a sample of no value has a text too, such as ``"---"``.
        """
        if self._record.auto_decimali and isinstance(samples, np.ndarray):
            samples = np.ascontiguousarray(samples)  # in the order of the samples
        place = locate(samples, self._type, self._offset)
        texts = np.zeros(place.count, f"S{_TEXT}")
        self._read(place, testi=_address(texts))
        return decoded(texts)[:: -1 if place.backwards else 1].reshape(place.shape)

    def _read(self, place: Samples, **targets: int) -> None:
        if place.count:
            column = ColumnRecord(conv=c.pointer(self._record), **targets)
            lib.read_columns(place.address, place.step, place.count, column, 1)

    def __repr__(self) -> str:
        name = self._type.name.lower()
        return f"Converter({self._function!r}, {name!r}, {self._unit!r})"


def _address(array: npt.NDArray[Any]) -> int:
    address: int = array.__array_interface__["data"][0]
    return address


def _within(value: Any, what: str, least: int, most: int) -> int:
    try:
        number = operator.index(value)
    except TypeError:
        raise TypeError(f"{what} is {type(value).__name__}; accepted: int") from None
    if not least <= number <= most:
        raise KelError(f"{what} is {number}; accepted: {least} to {most}")
    return number


_PACKET_TYPES = {
    (1, 0): SampleType.LAP_2G,
    (1, 1): SampleType.LAP_1G,
    (1, 2): SampleType.LAP_2G,
    (2, 0): SampleType.DATE_TIME,
    (3, 0): SampleType.GPS,
    (3, 1): SampleType.NAVSOL,
}


def _packet_type(channel: Function) -> SampleType:
    identifier = channel.identifier
    found = _PACKET_TYPES.get((identifier >> 7 & 0xFF, identifier >> 15 & 0x1F))
    if not channel.is_packet or found is None:
        raise KelError("there is no sample type; accepted: a name such as 'int16', or a packet")
    return found
