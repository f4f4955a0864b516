"""A logger's recording, and a capture of a u-blox receiver."""

from __future__ import annotations

import ctypes as c
import math
from types import TracebackType
from typing import TYPE_CHECKING

from . import _library as lib
from ._errors import KelError, nearest
from ._handle import Handle, checked, text_of
from ._records import WORDS_AT, OpenChoices
from ._samples import Bytes
from ._source import Source, load
from ._table import Table

if TYPE_CHECKING:
    from typing_extensions import Self

__all__ = ["Capture", "Recording"]

_STAMPS = {"found": 0, "none": 1, "u32ms": 2, "u64us": 3}


class _Open(Table):
    """A table of all rows, which can be closed."""

    def __init__(self, handle: Handle) -> None:
        with handle.open() as reg:
            super().__init__(handle, 0, int(lib.rec_rows(reg)))

    @property
    def leftover(self) -> int:
        """Bytes behind the last whole record or message."""
        with self._handle.open() as reg:
            return int(lib.rec_rest(reg))

    @property
    def closed(self) -> bool:
        """Whether it was closed."""
        return self._handle.closed

    def close(self) -> None:
        """Close it. Columns and Arrow streams that were handed out stay good."""
        self._handle.close()

    def __enter__(self) -> Self:
        return self

    def __exit__(
        self,
        kind: type[BaseException] | None,
        error: BaseException | None,
        trace: TracebackType | None,
    ) -> None:
        self.close()


class Recording(_Open):
    """Records of samples, as a logger writes them (``kelRegApri``).

    Parameters
    ----------
    channels : path or buffer
        Channel records of 112 bytes.
    samples : path or buffer
        Records of samples, each behind its time stamp if there is one. A file is mapped, and not
        read at once; it must not be changed while the recording is open.
    stamps : {"found", "none", "u32ms", "u64us"}
        The time stamp before each record; ``"found"`` takes that whose stamps run evenly.
    rate : float, optional
        Records a second where there are no stamps.
    compact : bool
        Samples lie one behind the other, whatever the channel records say.
    device : bool
        GPS packets as the device shows them, and not in WGS 84.
    packets : bool
        A column of texts for each packet too.

    Raises
    ------
    RecordingError
        The bytes are no recording.
    OSError
        A file cannot be read.

    Examples
    --------
    >>> recording = Recording("kart.channels", "kart.samples")
    >>> recording
    Recording(1553 rows, 30 columns)
    >>> recording.set_unit("Wheel Speed", "mph")
    >>> recording["Wheel Speed"]
    Column('Wheel Speed', 1553 values, unit='mph')
    """

    def __init__(
        self,
        channels: Source,
        samples: Source,
        *,
        stamps: str = "found",
        rate: float | None = None,
        compact: bool = False,
        device: bool = False,
        packets: bool = False,
    ) -> None:
        if stamps not in _STAMPS:
            raise KelError(
                f"there are no stamps {stamps!r}; {nearest(str(stamps), _STAMPS)}"
                f"accepted: {', '.join(_STAMPS)}"
            )
        if rate is not None and not (math.isfinite(rate) and 0.001 <= rate <= 1e6):
            raise KelError(f"the rate is {rate}; accepted: 0.001 to 1000000 records a second")
        first, _ = load(channels, "channels")
        second, name = load(samples, "samples")
        choices = OpenChoices(_STAMPS[stamps], compact, device, packets, rate or 0.0, 0, WORDS_AT)
        place = checked(
            lambda error: lib.rec_open(*_span(first), *_span(second), choices, error), name
        )
        super().__init__(Handle(place, (first, second)))

    @property
    def stamps(self) -> str:
        """The time stamp before each record: ``"none"``, ``"u32ms"`` or ``"u64us"``."""
        with self._handle.open() as reg:
            which = int(lib.rec_stamps(reg))
        return list(_STAMPS)[which]

    @property
    def notes(self) -> str:
        """Which framing was found, and what speaks against the one that was asked for."""
        with self._handle.open() as reg:
            return text_of(lib.rec_said(reg))


class Capture(_Open):
    """The byte stream of a u-blox receiver: a row for each NAV-SOL and NAV-PVT (``kelRegApriUbx``).

    Parameters
    ----------
    stream : path or buffer
        The bytes as they came from the serial port. What else is in it is left out.

    Raises
    ------
    RecordingError
        There is no solution in it.
    OSError
        The file cannot be read.

    Examples
    --------
    >>> capture = Capture("kart.ubx")
    >>> capture.units["Latitude"], capture["Latitude"].values.dtype
    ('deg', dtype('float64'))
    """

    def __init__(self, stream: Source) -> None:
        data, name = load(stream, "the stream")
        place = checked(lambda error: lib.rec_open_ubx(*_span(data), error), name)
        super().__init__(Handle(place, (data,)))


_NOTHING = c.create_string_buffer(1)  # an address for no bytes: null would be a stream


def _span(data: Bytes) -> tuple[int, int]:
    if not len(data):
        return c.addressof(_NOTHING), 0
    address: int = data.__array_interface__["data"][0]
    return address, len(data)
